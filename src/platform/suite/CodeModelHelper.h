#pragma once
#include <string>

#include "platform/core/Ref.h"

namespace platform::automation {
class Document;
class Project;
}  // namespace platform::automation

namespace platform::suite {

/// The suite's code-model helper: which projects and documents hold code the analysis
/// can read, and in which language. Only C# and Visual Basic count.
class CodeModelHelper : public Dispatch {
 public:
  const char* TypeName() const override { return "CodeModelHelper"; }

  /// Project test: true for C# and VB projects and for web sites. `languageSelector` 3
  /// and `flag` false are the only values the system uses; others fail with 5.
  bool IsProject(const Ref<automation::Project>& project, int languageSelector, bool flag) const;
  /// Document test: true when the document is a C# or VB source file (selector 4).
  bool IsDocument(const Ref<automation::Document>& document, int languageSelector,
                  bool flag) const;
  /// The document's code-model language identifier, "" when it has none (selector 3).
  std::string DocumentLanguage(const Ref<automation::Document>& document, int languageSelector,
                               int flag) const;
};

}  // namespace platform::suite
