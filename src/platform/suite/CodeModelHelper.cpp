#include "platform/suite/CodeModelHelper.h"

#include "platform/automation/AutomationConstants.h"
#include "platform/automation/Document.h"
#include "platform/automation/Project.h"
#include "platform/codemodel/LanguageParser.h"
#include "platform/core/Error.h"

namespace platform::suite {

using namespace platform::automation;

bool CodeModelHelper::IsProject(const Ref<Project>& project, int languageSelector, bool) const {
  if (languageSelector != 3) throw Error(err::kInvalidCall);
  const std::string& kind = project->Kind();
  return kind == kProjectKindCSharp || kind == kProjectKindCSharpSdk || kind == kProjectKindVB ||
         kind == kProjectKindVBSdk || kind == kProjectKindWebSite;
}

bool CodeModelHelper::IsDocument(const Ref<Document>& document, int languageSelector, bool) const {
  if (languageSelector != 4) throw Error(err::kInvalidCall);
  return !codemodel::LanguageOfFile(document->Name()).empty();
}

std::string CodeModelHelper::DocumentLanguage(const Ref<Document>& document, int languageSelector,
                                              int) const {
  if (languageSelector != 3) throw Error(err::kInvalidCall);
  auto model = document->CodeModel();
  return model ? model->Language() : "";
}

}  // namespace platform::suite
