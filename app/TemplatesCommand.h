#pragma once
#include <ostream>
#include <string>
#include <vector>

namespace app {

/// `annotra templates list|show KIND|enable KIND|disable KIND|set KIND TEXT`: reads and
/// edits the XML comment templates of the team database. Returns the exit status.
int RunTemplatesCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace app
