#include "TemplatesCommand.h"

#include "Host.h"
#include "host/MGlobals.h"
#include "platform/suite/XMLCommentTemplatesManager.h"

namespace app {

int RunTemplatesCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  Host host;
  if (!host.OpenDatabases()) return kCannotLoad;
  platform::suite::XMLCommentTemplatesManager manager;
  manager.SetTeamDatabase(annotra::MGlobals::TeamDB);
  return manager.Run(args, out, err);
}

}  // namespace app
