// CXmlAnalyzerBrowser: running one analysis and writing its findings.

#include "analysis/AnalysisOptionsLoader.h"
#include "analysis/CXmlAnalyzerBrowser.h"
#include "host/FParser.h"
#include "host/MGlobals.h"
#include "results/MGlobals_ResultsDb.h"
#include "host/Steps.h"
#include "platform/automation/Document.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/TextDocument.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/grammar/GrammarParser.h"

namespace annotra {

void CXmlAnalyzerBrowser::Find() {
  Steps step("Quillmark.CXmlAnalyzerBrowser.Find");
  step(1, [&] {
    GetOptions();
    m_bCancelled = false;
  });

  bool loaded = false;
  std::string grammar;
  step(2, [&] {
    m_frmParser = std::make_shared<FParser>();
    m_frmParser->Load();
    parserXML = m_frmParser->parserXML;
    grammar = MGlobals::XMLGrammarFile();
    loaded = parserXML->LoadGrammar(grammar);
  });
  if (!loaded) {
    ReportMessage("Could not load grammar file: <" + grammar + ">");
    parserXML.reset();
    if (m_frmParser) Quietly([&] { m_frmParser->Unload(); });
    m_frmParser.reset();
    return;
  }
  loaded = false;
  step(3, [&] {
    parserBody = m_frmParser->parserBody;
    grammar = MGlobals::StrConstsGrammarFile();
    loaded = parserBody->LoadGrammar(grammar);
  });
  if (!loaded) {
    ReportMessage("Could not load grammar file: <" + grammar + ">");
    parserBody.reset();
    parserXML.reset();
    Quietly([&] { m_frmParser->Unload(); });
    m_frmParser.reset();
    return;
  }

  step(5, [&] {
    m_rsResults = MGlobals::XMLAnalyzerDb()->OpenRecordset("XMLAnalyzer1", platform::dao::dbOpenDynaset);
  });
  // Steps 4, 6 and 7: the list of opened documents, the helper objects, the document limit.
  BeginWalk();
  step(7, [&] { MGlobals::g_AnalysisOptions.OpenDocAllowed = ReadOpenDocAllowed(); });
  step(8, [&] { WalkScope(MGlobals::g_AnalysisOptions.LastScope); });
  step(10, [&] {
    m_lMatches = m_rsResults->RecordCount();
    m_rsResults->Close();
  });
  m_rsResults.reset();
  m_resultFields.clear();
  m_resultFieldsOf.reset();
  // Steps 9 and 11: the helpers released, the documents the walk opened closed.
  EndWalk();
  step(12, [&] {
    parserBody.reset();
    parserXML.reset();
    m_frmParser->Unload();
  });
  m_frmParser.reset();
}

void CXmlAnalyzerBrowser::TallyDefinition(const Ref<TextDocument>& textDocument, bool withFinding) {
  if (m_tallyDocument.lock() != textDocument) {
    m_sTallyProject.clear();
    Quietly([&] { m_sTallyProject = textDocument->Parent()->ProjectItem()->ContainingProject()->Name(); });
    m_tallyDocument = textDocument;
  }
  DefinitionTally& tally = m_definitionTallies[m_sTallyProject];
  ++tally.definitions;
  if (!withFinding) ++tally.withoutFinding;
}

const platform::Ref<platform::dao::Field>& CXmlAnalyzerBrowser::ResultField(size_t slot, const char* name) {
  if (m_resultFieldsOf != m_rsResults) {
    m_resultFields.clear();
    m_resultFieldsOf = m_rsResults;
  }
  if (m_resultFields.size() <= slot) m_resultFields.resize(slot + 1);
  platform::Ref<platform::dao::Field>& field = m_resultFields[slot];
  if (!field) field = m_rsResults->Fields(name);
  return field;
}

void CXmlAnalyzerBrowser::Found(const std::string& sProject, const std::string& sDocument,
                                const std::string& sPath, const std::string& sMember, int32_t lStart,
                                int32_t lEnd, const std::string& sType, const std::string& sProblem) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.Found");
  if (!step(1, [&] { m_rsResults->AddNew(); })) return;
  step(2, [&] { ResultField(0, "Project")->SetValue(sProject); });
  step(3, [&] { ResultField(1, "Document")->SetValue(sDocument); });
  step(4, [&] { ResultField(2, "Path")->SetValue(sPath); });
  step(5, [&] { ResultField(3, "Member")->SetValue(sMember); });
  step(6, [&] { ResultField(4, "Start")->SetValue(lStart); });
  step(7, [&] { ResultField(5, "End")->SetValue(lEnd); });
  step(8, [&] { ResultField(6, "Status")->SetValue(0); });
  step(9, [&] { ResultField(7, "Type")->SetValue(sType); });
  step(10, [&] { ResultField(8, "Problem")->SetValue(sProblem); });
  if (step(11, [&] { m_rsResults->Update(); })) ++m_lRowsWritten;
  else Quietly([&] { m_rsResults->CancelUpdate(); });
}

}  // namespace annotra
