#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {
class TextDocument;
class Document;
class Project;
class ProjectItem;
class ProjectItems;
class CodeElement;
}  // namespace platform::automation
namespace platform::dao {
class Recordset;
}
namespace platform::grammar {
class GrammarParser;
}
namespace platform::suite {
class CodeModelHelper;
}

namespace annotra {

class FParser;
class CEstimate;
class CStatus;

/// One analysis: loads the options, prepares the parsers and the results table, walks the
/// chosen scope of the solution element by element, runs the checks on each element and
/// writes every problem as one row of "XMLAnalyzer1".
class CXmlAnalyzerBrowser {
 public:
  using TextDocument = platform::automation::TextDocument;
  using Document = platform::automation::Document;
  using Project = platform::automation::Project;
  using ProjectItem = platform::automation::ProjectItem;
  using ProjectItems = platform::automation::ProjectItems;
  using CodeElement = platform::automation::CodeElement;
  template <class T>
  using Ref = platform::Ref<T>;

  CXmlAnalyzerBrowser();
  virtual ~CXmlAnalyzerBrowser();
  CXmlAnalyzerBrowser(const CXmlAnalyzerBrowser&) = delete;
  CXmlAnalyzerBrowser& operator=(const CXmlAnalyzerBrowser&) = delete;

  /// The number of rows of the results table at the end of the walk; 0 until then.
  int32_t Matches() const { return m_lMatches; }

  /// Runs the analysis. Never throws: failing steps are reported and skipped.
  void Find();

  /// Appends one finding row to the results table.
  void Found(const std::string& sProject, const std::string& sDocument, const std::string& sPath,
             const std::string& sMember, int32_t lStart, int32_t lEnd, const std::string& sType,
             const std::string& sProblem);

  /// Loads the options of this analysis into the shared options record and XMLCheckItems.
  void GetOptions();

  // The scope walk.
  void FindInMethod(const Ref<TextDocument>& textDocument);
  void FindInComponent(const Ref<TextDocument>& textDocument);
  void FindInProject(const Ref<Project>& project);
  void FindInProjectItems(const Ref<ProjectItems>& items);
  void SearchItem(const Ref<ProjectItem>& item);
  void WalkIntoCodeElements(const Ref<TextDocument>& textDocument,
                            const Ref<CodeElement>& element, bool bParentPublic);

  // The checks: what the walk calls for every element and every method.
  virtual void DefinitionAnalysis(const Ref<TextDocument>& textDocument,
                                  const Ref<CodeElement>& element, bool bParentPublic);
  virtual void BodyAnalysis(const Ref<TextDocument>& textDocument,
                            const Ref<CodeElement>& element);

  /// Whether a plain descriptive comment stands above the element (or its first
  /// attribute): C# "//" lines, VB "'" lines, with attribute and blank lines passed over.
  bool HasAStdComment(const Ref<CodeElement>& element);

  /// Whether `line` is a code line of `language`: not blank, not a lone brace (C#), not
  /// continued with " _" (VB).
  static bool IsLineOK(const std::string& line, const std::string& language);
  /// How often `searched` occurs in `text`, counted from the left without overlap.
  static int32_t StrCount(const std::string& text, const std::string& searched);

  bool CanProcessProject(const Ref<Project>& project);
  bool CanProcessDocument(const Ref<Document>& document);
  /// True when Ctrl and C are down and the user confirms the stop.
  bool CancelRequested();
  /// The folders holding the document's item inside its project, joined by "\".
  std::string GetProjectItemPath(const Ref<TextDocument>& textDocument);

  /// The required-tag items: "XMLCheck" split at every "|".
  std::vector<std::string> XMLCheckItems;

  /// Walks the scope `scope` (the values of "LastScope"): 0 the method at the caret, 1 the
  /// active document, 2 the open documents, 3 the current project, 4 the solution, 6 the
  /// current solution folder; other values walk nothing.
  void WalkScope(int32_t scope);

 protected:
  // The parameter and return checks of delegates, methods, events and properties.
  /// Compares the parameters documented by the `param` elements of search `handle` with
  /// the element's, position by position; ends the search.
  void CompareParameters(const Ref<TextDocument>& textDocument, const Ref<CodeElement>& element,
                         const std::string& sType, int32_t handle);
  /// A required `param` or `para` tag is absent: a finding when the element has
  /// parameters.
  void AbsentParameterTag(const Ref<TextDocument>& textDocument, const Ref<CodeElement>& element,
                          const std::string& sType, const std::string& sTag);
  /// A required `returns` tag is absent: a finding when the element's type is not void.
  void AbsentReturnTag(const Ref<TextDocument>& textDocument, const Ref<CodeElement>& element,
                       const std::string& sType);
  /// Writes a finding about `element` with the given member text and problem, at the
  /// element's start line.
  void FoundAt(const Ref<TextDocument>& textDocument, const Ref<CodeElement>& element,
               const std::string& sMember, const std::string& sType, const std::string& sProblem);

  /// What every walk needs around it: a new list of opened documents, the code-model
  /// helper, estimate and status objects (BeginWalk); their release and the closing of
  /// the documents the walk opened (EndWalk).
  void BeginWalk();
  void EndWalk();

  /// The language identifier of the document being walked.
  std::string m_sLanguage;
  bool m_bCancelled = false;
  int32_t m_lMatches = 0;

  Ref<platform::dao::Recordset> m_rsResults;
  std::shared_ptr<FParser> m_frmParser;
  Ref<platform::grammar::GrammarParser> parserXML;
  Ref<platform::grammar::GrammarParser> parserBody;
  Ref<platform::suite::CodeModelHelper> m_oCodeModel;
  Ref<CEstimate> m_oEstimate;
  Ref<CStatus> m_oStatus;
};

}  // namespace annotra
