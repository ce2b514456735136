#pragma once
#include <string>
#include <vector>

#include "platform/core/Ref.h"

namespace platform::dao {
class Database;
class Workspace;
}  // namespace platform::dao

namespace platform::suite {

/// The team database: the shared database whose table "XMLComments" holds the XML
/// comment templates, one record per kind of code element ("Prototype"), with the
/// template text ("Comment") and whether it is in force ("Enabled"). When its file is
/// missing it is made with the default templates.
class TeamDatabase {
 public:
  /// One template.
  struct Template {
    std::string kind;
    std::string comment;
    bool enabled;
  };

  /// The default templates in table order: Class, Delegate, Enum, Method, Interface,
  /// Module, Namespace (disabled: C# cannot document namespaces), Structure, Event,
  /// Property, "Field (variable, constant)".
  static const std::vector<Template>& DefaultTemplates();

  /// The team database's file: "team.db" in the suite's data folder.
  static std::string DefaultPath();

  /// Opens the team database at `path`; when the file is missing, makes it (and its
  /// folder) with the template table and the default templates first. The file is made
  /// whole or not at all: built under another name and then published under `path`
  /// without replacing a file another process published meanwhile, so any number of
  /// processes may do this at once. Throws the database engine's error, or 75, when the
  /// file cannot be made or opened.
  static Ref<dao::Database> OpenOrCreate(dao::Workspace& workspace, const std::string& path);

  /// Makes the table "XMLComments" in `db` and fills it with `templates`.
  static void CreateTemplateTable(dao::Database& db, const std::vector<Template>& templates);
};

}  // namespace platform::suite
