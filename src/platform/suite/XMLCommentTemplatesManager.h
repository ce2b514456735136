#pragma once
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::automation {
class DTE;
}
namespace platform::dao {
class Database;
}

namespace platform::suite {

class SettingsStore;

/// The XML Comment Templates Manager: lists and edits the XML comment templates of the
/// team database (table "XMLComments"), one per kind of code element. The command line
/// offers it as `annotra templates list|show KIND|enable KIND|disable KIND|set KIND
/// TEXT`; each operation writes to `out`, says what went wrong on `err`, and returns an
/// exit status: 0 done, 2 a kind that is not one of the eleven kind names, 3 a team
/// database whose template table cannot be read or written.
class XMLCommentTemplatesManager : public Dispatch {
 public:
  const char* TypeName() const override { return "XMLCommentTemplatesManager"; }

  /// Takes the host's objects, in the order the host hands them: the development
  /// environment, the add-in, the per-user and per-machine settings stores, the
  /// personal database, the team database and a further database (unused; none).
  void Init(Ref<automation::DTE> dte, std::shared_ptr<Dispatch> addIn,
            std::shared_ptr<SettingsStore> userSettings,
            std::shared_ptr<SettingsStore> machineSettings, Ref<dao::Database> personalDb,
            Ref<dao::Database> teamDb, Ref<dao::Database> otherDb);
  /// Uses `teamDb` alone (the command line has no host).
  void SetTeamDatabase(Ref<dao::Database> teamDb) { m_team = std::move(teamDb); }

  /// Shows the manager: on a terminal, the list of templates and how to change them.
  /// Returns the exit status of List.
  int Show(std::ostream& out = std::cout, std::ostream& err = std::cerr);

  /// One line per template, in table order: "enabled " or "disabled", two blanks, the
  /// kind.
  int List(std::ostream& out, std::ostream& err);
  /// The template text of `kind`, then a line break; "" (an empty line) when the table
  /// has no template for that kind.
  int ShowTemplate(const std::string& kind, std::ostream& out, std::ostream& err);
  /// Puts the template of `kind` in force or out of it; a kind without a record gets
  /// one with an empty text.
  int SetEnabled(const std::string& kind, bool enabled, std::ostream& out, std::ostream& err);
  /// Replaces the template text of `kind`; a kind without a record gets one, enabled.
  int SetTemplate(const std::string& kind, const std::string& text, std::ostream& out,
                  std::ostream& err);

  /// Runs `annotra templates ARGS...` (ARGS without "templates"): the operation named by
  /// the first argument. A wrong number of arguments or an unknown operation prints the
  /// usage on `err` and returns 2.
  int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

  /// Whether `kind` is one of the eleven kind names (exact spelling).
  static bool IsKind(const std::string& kind);

 private:
  int Change(const std::string& kind, std::ostream& err, bool setText, const std::string& text,
             bool setEnabled, bool enabled);

  Ref<dao::Database> m_team;
};

}  // namespace platform::suite
