// CXmlAnalyzerBrowser: the definition comment checks and the parameter and return checks.

#include <algorithm>

#include "analysis/CXmlAnalyzerBrowser.h"
#include "analysis/Problems.h"
#include "platform/core/AsciiText.h"
#include "platform/core/XmlText.h"
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
namespace kind = platform::suite::kind;
using platform::Ref;

namespace {

/// The kind name of an element kind (the key of the required-tag list and the Type of
/// its findings); "" for kinds that are not checked.
std::string KindName(int kind) {
  switch (kind) {
    case cm::vsCMElementClass: return kind::Class;
    case cm::vsCMElementFunction: return kind::Method;
    case cm::vsCMElementVariable: return kind::Field;
    case cm::vsCMElementProperty: return kind::Property;
    case cm::vsCMElementNamespace: return kind::Namespace;
    case cm::vsCMElementInterface: return kind::Interface;
    case cm::vsCMElementDelegate: return kind::Delegate;
    case cm::vsCMElementEnum: return kind::Enum;
    case cm::vsCMElementStruct: return kind::Structure;
    case cm::vsCMElementEvent: return kind::Event;
    case cm::vsCMElementModule: return kind::Module;
    default: return "";
  }
}

/// Whether the kind's `param`, `para` and `returns` tags follow the parameter and return
/// rules.
bool HasSignature(const std::string& kindName) {
  return kindName == kind::Delegate || kindName == kind::Method || kindName == kind::Event ||
         kindName == kind::Property;
}

}  // namespace

void CXmlAnalyzerBrowser::FoundAt(const Ref<TextDocument>& textDocument, const Ref<CodeElement>& element,
                                  const std::string& sMember, const std::string& sType,
                                  const std::string& sProblem) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.DefinitionAnalysis");
  std::string project, document, path;
  int32_t line = 0;
  step(1, [&] { project = textDocument->Parent()->ProjectItem()->ContainingProject()->Name(); });
  step(2, [&] { document = textDocument->Parent()->Name(); });
  step(3, [&] { path = GetProjectItemPath(textDocument); });
  step(4, [&] { line = element->StartPoint()->Line(); });
  Found(project, document, path, sMember, line, line, sType, sProblem);
}

void CXmlAnalyzerBrowser::DefinitionAnalysis(const Ref<TextDocument>& textDocument,
                                             const Ref<CodeElement>& element, bool bParentPublic) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.DefinitionAnalysis");
  const AnalysisOptions& options = MGlobals::g_AnalysisOptions;
  if (!element) return;

  std::string doc;
  Quietly([&] { doc = element->DocComment(); });

  int kind = -1;
  if (!step(3, [&] { kind = element->Kind(); })) return;
  std::string kindName = KindName(kind);
  if (kind == cm::vsCMElementVariable) {
    bool inEnum = false;
    Quietly([&] {
      auto parent = platform::As<CodeElement>(element->Parent());
      inEnum = parent->Kind() == cm::vsCMElementEnum;
    });
    if (inEnum) return;
  }

  bool isPublic = false;
  if (kindName == kind::Namespace) isPublic = true;
  else if (kindName == kind::Module) isPublic = false;
  else if (!kindName.empty()) isPublic = bParentPublic && MGlobals::IsPublic(element);
  if (isPublic && !options.EnablePublic) return;
  if (!isPublic && !options.EnableNonPublic) return;

  // The kind's item in the required-tag list, and the tags after it.
  auto kindItem = std::find(XMLCheckItems.begin(), XMLCheckItems.end(), "{" + kindName + "}");
  if (kindName.empty() || kindItem == XMLCheckItems.end()) return;
  std::vector<std::string> tags;
  for (auto it = kindItem + 1; it != XMLCheckItems.end() && (it->empty() || (*it)[0] != '{'); ++it)
    tags.push_back(*it);

  // From here on the checks look at the definition: the rows they write until they end
  // are its findings.
  struct Tally {
    CXmlAnalyzerBrowser& browser;
    const Ref<TextDocument>& textDocument;
    const int32_t rowsBefore;
    ~Tally() { browser.TallyDefinition(textDocument, browser.m_lRowsWritten != rowsBefore); }
  } tally{*this, textDocument, m_lRowsWritten};

  bool xml = !doc.empty();
  if (xml && m_sLanguage == cm::vsCMLanguageCSharp && doc.size() >= 5 && doc.rfind("<doc>", 0) == 0 &&
      doc.size() >= 6 && doc.compare(doc.size() - 6, 6, "</doc>") == 0) {
    std::string inner = doc.size() >= 11 ? doc.substr(5, doc.size() - 11) : "";
    xml = inner != "\r\n";
  }

  std::string name;
  step(7, [&] { name = element->Name(); });
  if (!xml) {
    if (HasAStdComment(element)) {
      if ((isPublic && options.XMLOnPublic) || (!isPublic && options.XMLOnNonPublic))
        FoundAt(textDocument, element, name, kindName, ProblemText(ProblemId::PlainComment));
    } else {
      FoundAt(textDocument, element, name, kindName, ProblemText(ProblemId::NoComment));
    }
    return;
  }

  step(8, [&] {
    parserXML->SetInputText(doc);
    parserXML->Parse();
  });
  if (options.AcceptInheritDoc) {
    // The documentation is inherited (from the base member, or the one cref names): the
    // comment has every tag and every param there.
    bool inherits = false;
    step(9, [&] {
      int32_t handle = parserXML->StartSearch("/.*element_name =\"inheritdoc\"", 0);
      if (handle != 0) {
        inherits = true;
        parserXML->EndSearch(handle);
      }
    });
    if (inherits) return;
  }
  bool signature = HasSignature(kindName);
  for (const std::string& tag : tags) {
    int32_t handle = 0;
    step(9, [&] { handle = parserXML->StartSearch("/.*element_name =\"" + tag + "\"", 0); });
    if (handle != 0) {
      if (signature && tag == "param") {
        CompareParameters(textDocument, element, kindName, handle);
        continue;
      }
      step(9, [&] {
        int32_t node = parserXML->FirstMatch(handle);
        int32_t startTag = parserXML->ParentNode(node);
        int32_t next = parserXML->NextSibling(startTag);
        parserXML->EndSearch(handle);
        if (parserXML->NodeName(next) == "end_tag")
          FoundAt(textDocument, element, name, kindName, ProblemText(ProblemId::MissingTag, tag));
      });
    } else if (signature && (tag == "param" || tag == "para")) {
      AbsentParameterTag(textDocument, element, kindName, tag);
    } else if (signature && tag == "returns") {
      AbsentReturnTag(textDocument, element, kindName);
    } else {
      FoundAt(textDocument, element, name, kindName, ProblemText(ProblemId::MissingTag, tag));
    }
  }
}

bool CXmlAnalyzerBrowser::HasAStdComment(const Ref<CodeElement>& element) {
  Ref<platform::automation::EditPoint> point;
  Quietly([&] {
    auto attributes = element->Attributes();
    if (attributes->Count() > 0) point = attributes->Item(1)->StartPoint()->CreateEditPoint();
  });
  if (!point) Quietly([&] { point = element->StartPoint()->CreateEditPoint(); });
  if (!point) return false;

  bool vb = m_sLanguage == cm::vsCMLanguageVB;
  bool cs = m_sLanguage == cm::vsCMLanguageCSharp;
  bool result = false;
  for (;;) {
    point->LineUp();
    int line = point->Line();
    if (line == 1) break;
    std::string text;
    Quietly([&] { text = point->GetLines(line, line + 1); });
    text = platform::Trim(platform::WithoutTabs(text), " ");
    if (text.empty()) continue;
    if (vb) {
      if (text[0] == '\'') {
        result = true;
        break;
      }
      if (text[0] == '<') continue;
      break;
    }
    if (cs) {
      if (text.size() < 2) break;
      if (text.rfind("//", 0) == 0) {
        result = true;
        continue;
      }
      if (text[0] == '[') continue;
      break;
    }
    break;
  }
  return result;
}

void CXmlAnalyzerBrowser::CompareParameters(const Ref<TextDocument>& textDocument,
                                            const Ref<CodeElement>& element, const std::string& sType,
                                            int32_t handle) {
  Steps step("Quillmark.CXmlAnalyzerBrowser.CompareParameters");
  using Pair = std::pair<std::string, std::string>;
  std::vector<Pair> definition, xml;

  int count = 0;
  Quietly([&] { count = element->Parameters()->Count(); });
  for (int i = 1; i <= count; ++i) {
    Pair pair;
    Quietly([&] {
      auto parameter = element->Parameters()->Item(i);
      pair = {parameter->Name(), parameter->Type()->AsString()};
    });
    definition.push_back(pair);
  }

  step(2, [&] {
    for (int32_t node = parserXML->NextMatch(handle); node != 0; node = parserXML->NextMatch(handle)) {
      int32_t startTag = parserXML->ParentNode(node);
      Pair pair;
      if (startTag != 0) {
        // Attribute values as XML reads them: type="List&lt;int&gt;" is List<int>.
        int32_t nameNode = parserXML->SearchBelow(startTag, ".*attr_name=\"name\"");
        if (nameNode != 0)
          pair.first = platform::DecodeXmlAttributeValue(parserXML->NodeText(parserXML->ParentNode(nameNode)));
        int32_t typeNode = parserXML->SearchBelow(startTag, ".*attr_name=\"type\"");
        if (typeNode != 0)
          pair.second = platform::DecodeXmlAttributeValue(parserXML->NodeText(parserXML->ParentNode(typeNode)));
      }
      xml.push_back(pair);
    }
  });
  step(3, [&] { parserXML->EndSearch(handle); });

  std::string name;
  step(4, [&] { name = element->Name(); });
  // Most code bases write no type attribute; the options may compare names only.
  const bool compareTypes = MGlobals::g_AnalysisOptions.CompareParamTypes;
  if (xml.size() == definition.size()) {
    for (size_t i = 0; i < xml.size(); ++i) {
      bool sameName = xml[i].first == definition[i].first;
      bool sameType = !compareTypes || xml[i].second == definition[i].second;
      if (sameName && sameType) continue;
      ProblemId problem = !sameName && !sameType ? ProblemId::ParamNameAndType
                          : !sameName            ? ProblemId::ParamName
                                                 : ProblemId::ParamType;
      FoundAt(textDocument, element, name + ":" + definition[i].first, sType, ProblemText(problem));
    }
  } else if (xml.size() > definition.size()) {
    FoundAt(textDocument, element, name, sType, ProblemText(ProblemId::MoreParams));
  } else {
    FoundAt(textDocument, element, name, sType, ProblemText(ProblemId::FewerParams));
  }
}

void CXmlAnalyzerBrowser::AbsentParameterTag(const Ref<TextDocument>& textDocument,
                                             const Ref<CodeElement>& element, const std::string& sType,
                                             const std::string& sTag) {
  int count = 0;
  Quietly([&] { count = element->Parameters()->Count(); });
  if (count <= 0) return;
  std::string name;
  Steps("Quillmark.CXmlAnalyzerBrowser.AbsentParameterTag")(1, [&] { name = element->Name(); });
  FoundAt(textDocument, element, name, sType, ProblemText(ProblemId::MissingTag, sTag));
}

void CXmlAnalyzerBrowser::AbsentReturnTag(const Ref<TextDocument>& textDocument,
                                          const Ref<CodeElement>& element, const std::string& sType) {
  std::string prototype;
  Quietly([&] { prototype = element->Prototype(cm::vsCMPrototypeType); });
  prototype = platform::Trim(prototype, " ");
  std::string type;
  if (!prototype.empty()) {
    size_t space = prototype.find(' ');
    if (space != std::string::npos) type = prototype.substr(0, space);
  }
  type = platform::AsciiLower(platform::Trim(type, " "));
  if (type.empty() || type == "void" || type == "system.void") return;
  std::string name;
  Steps("Quillmark.CXmlAnalyzerBrowser.AbsentReturnTag")(1, [&] { name = element->Name(); });
  FoundAt(textDocument, element, name, sType, ProblemText(ProblemId::MissingTag, "returns"));
}

}  // namespace annotra
