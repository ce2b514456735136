// CXmlAnalyzerBrowser: the in-method comment check.

#include <algorithm>

#include "analysis/CXmlAnalyzerBrowser.h"
#include "analysis/Problems.h"
#include "platform/core/AsciiText.h"
#include "host/MGlobals.h"
#include "host/Steps.h"
#include "platform/automation/CodeElement.h"
#include "platform/automation/Document.h"
#include "platform/automation/Project.h"
#include "platform/automation/ProjectItem.h"
#include "platform/automation/TextDocument.h"
#include "platform/automation/TextPoint.h"
#include "platform/grammar/GrammarParser.h"
#include "platform/suite/ElementKinds.h"

namespace annotra {

namespace cm = platform::codemodel;
using platform::Ref;

void CXmlAnalyzerBrowser::BodyAnalysis(const Ref<TextDocument>& textDocument,
                                       const Ref<CodeElement>& element) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.BodyAnalysis");
  std::string text;
  int32_t firstLine = 0, lastLine = 0;
  Ref<platform::automation::EditPoint> start;
  Quietly([&] {
    start = element->StartPoint()->CreateEditPoint();
    auto end = element->EndPoint()->CreateEditPoint();
    text = start->GetText(end);
    firstLine = start->Line();
    lastLine = end->Line();
  });
  if (text.empty()) return;
  const int32_t bodyLines = lastLine - firstLine + 1;

  const char* production;
  const char* marker;
  if (m_sLanguage == cm::vsCMLanguageCSharp) {
    production = "CsCommStr.Body";
    marker = "//comment";
  } else if (m_sLanguage == cm::vsCMLanguageVB) {
    production = "VbCommStr.Body";
    marker = "'comment";
  } else {
    return;
  }
  if (!step(2, [&] { parserBody->SetStartProduction(parserBody->FindProduction(production)); }))
    return;
  text += "\r\n";
  text += marker;
  text += "\r\n";
  step(3, [&] {
    parserBody->SetInputText(text);
    parserBody->Parse();
  });

  int32_t handle = 0;
  step(4, [&] { handle = parserBody->StartSearch("/.*Comment", 0); });
  if (handle == 0) return;

  const int32_t lineCount = MGlobals::g_AnalysisOptions.LineCount;
  int32_t prev = 0;
  step(5, [&] { prev = parserBody->LineOfPosition(parserBody->Position(handle)); });

  std::string member, project, document, path;
  bool named = false;
  for (int32_t node = parserBody->NextMatch(handle); node != 0; node = parserBody->NextMatch(handle)) {
    std::string comment;
    Quietly([&] { comment = parserBody->NodeText(node); });
    if (comment.size() >= 2) comment = comment.substr(1, comment.size() - 2);

    int32_t c = parserBody->LineOfPosition(parserBody->Position(node));
    if (c > bodyLines) c = bodyLines;

    if (c - prev > lineCount) {
      int32_t k = prev, count = 0;
      while (k < c && count < lineCount) {
        ++k;
        std::string line;
        Quietly([&] { line = start->GetLines(firstLine + k, firstLine + k + 1); });
        if (IsLineOK(platform::WithoutTabs(line), m_sLanguage)) ++count;
      }
      if (k < c - 1 && count >= lineCount) {
        if (!named) {
          named = true;
          step(6, [&] { member = element->Name(); });
          step(6, [&] { project = textDocument->Parent()->ProjectItem()->ContainingProject()->Name(); });
          step(6, [&] { document = textDocument->Parent()->Name(); });
          step(6, [&] { path = GetProjectItemPath(textDocument); });
        }
        Found(project, document, path, member, firstLine + prev, firstLine + c - 1, platform::suite::kind::Method,
              ProblemText(ProblemId::LongUncommented));
      }
    }
    prev = c + StrCount(comment, "\r\n");
  }
  Quietly([&] { parserBody->EndSearch(handle); });
}

bool CXmlAnalyzerBrowser::IsLineOK(const std::string& line, const std::string& language) {
  std::string text = platform::Trim(platform::WithoutTabs(line), " ");
  if (text.empty()) return false;
  if (language == cm::vsCMLanguageVB) return !(text.size() >= 2 && text.compare(text.size() - 2, 2, " _") == 0);
  if (language == cm::vsCMLanguageCSharp) return text != "{" && text != "}";
  return true;
}

int32_t CXmlAnalyzerBrowser::StrCount(const std::string& text, const std::string& searched) {
  if (searched.empty()) return 0;
  int32_t count = 0;
  for (size_t at = text.find(searched); at != std::string::npos; at = text.find(searched, at + searched.size()))
    ++count;
  return count;
}

}  // namespace annotra
