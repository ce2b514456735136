#pragma once
#include <string>

#include "AnalyzeFlags.h"
#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
}

namespace app {

/// Sets the state of the development environment that the scope flags describe, as a
/// person at the environment would have left it: the documents open in the editor
/// (--open), the active document and its caret line (--document, --line), and the
/// project or solution folder selected in the solution (--project, --folder; a folder
/// may be named by its path "A/B" when several have its name). "" when all is set, else
/// the usage message: a file that is no item of the solution, a line past the end of
/// its document, a project or folder the solution does not have, or a name that several
/// have (the message lists their paths).
std::string SetHostState(const AnalyzeRequest& request, const CheckedFlags& checked,
                         const platform::Ref<platform::automation::DTE>& dte);

/// Whether each (kind, tag) of `requiredTags` is a tag of an enabled template of the team
/// database, as the XML options form offers them. "" when all are, else the usage
/// message naming the first that is not and the tags its kind has.
std::string CheckRequiredTags(const CheckedFlags& checked);

}  // namespace app
