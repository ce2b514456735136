#include "platform/suite/XMLCommentTemplatesManager.h"

#include <algorithm>

#include "platform/core/Error.h"
#include "platform/core/Variant.h"
#include "platform/dao/DaoConstants.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/suite/ElementKinds.h"

namespace platform::suite {
namespace {

constexpr const char* kTable = "XMLComments";
constexpr const char* kUsage =
    "usage: annotra templates list | show KIND | enable KIND | disable KIND | set KIND TEXT";

const auto& kKinds = kind::All;

bool Enabled(const Variant& v) {
  if (v.IsEmpty()) return false;
  try {
    return ToBool(v);
  } catch (const Error&) {
    return false;
  }
}

std::string Text(const Variant& v) { return v.type() == Variant::Type::String ? v.AsString() : ToString(v); }

int Failed(std::ostream& err, const std::string& what, const std::exception& e) {
  err << "annotra: " << what << ": " << e.what() << "\n";
  return 3;
}

int UnknownKind(std::ostream& err, const std::string& kind) {
  err << "annotra: unknown kind '" << kind << "'; the kinds are:";
  for (const char* k : kKinds) err << " \"" << k << "\"";
  err << "\n";
  return 2;
}

}  // namespace

bool XMLCommentTemplatesManager::IsKind(const std::string& kind) {
  return std::find(std::begin(kKinds), std::end(kKinds), kind) != std::end(kKinds);
}

void XMLCommentTemplatesManager::Init(Ref<automation::DTE>, std::shared_ptr<Dispatch>,
                                      std::shared_ptr<SettingsStore>,
                                      std::shared_ptr<SettingsStore>, Ref<dao::Database>,
                                      Ref<dao::Database> teamDb, Ref<dao::Database>) {
  // Only the team database matters here: the manager edits nothing else.
  m_team = std::move(teamDb);
}

int XMLCommentTemplatesManager::Show(std::ostream& out, std::ostream& err) {
  out << "XML comment templates:\n";
  int status = List(out, err);
  if (status == 0)
    out << "Change them with: annotra templates show|enable|disable KIND, "
           "annotra templates set KIND TEXT\n";
  return status;
}

int XMLCommentTemplatesManager::List(std::ostream& out, std::ostream& err) {
  try {
    auto rs = m_team->OpenRecordset(kTable, dao::dbOpenTable, dao::dbReadOnly);
    for (; !rs->Eof(); rs->MoveNext()) {
      out << (Enabled(rs->Fields("Enabled")->Value()) ? "enabled " : "disabled") << "  "
          << Text(rs->Fields("Prototype")->Value()) << "\n";
    }
    rs->Close();
  } catch (const std::exception& e) {
    return Failed(err, "cannot read the XML comment templates", e);
  }
  return 0;
}

int XMLCommentTemplatesManager::ShowTemplate(const std::string& kind, std::ostream& out,
                                             std::ostream& err) {
  if (!IsKind(kind)) return UnknownKind(err, kind);
  try {
    auto rs = m_team->OpenRecordset(kTable, dao::dbOpenTable, dao::dbReadOnly);
    std::string text;
    for (; !rs->Eof(); rs->MoveNext()) {
      if (Text(rs->Fields("Prototype")->Value()) == kind) {
        text = Text(rs->Fields("Comment")->Value());
        break;
      }
    }
    rs->Close();
    out << text << "\n";
  } catch (const std::exception& e) {
    return Failed(err, "cannot read the XML comment templates", e);
  }
  return 0;
}

int XMLCommentTemplatesManager::Change(const std::string& kind, std::ostream& err, bool setText,
                                       const std::string& text, bool setEnabled, bool enabled) {
  if (!IsKind(kind)) return UnknownKind(err, kind);
  try {
    auto rs = m_team->OpenRecordset(kTable, dao::dbOpenTable);
    bool found = false;
    for (; !rs->Eof(); rs->MoveNext()) {
      if (Text(rs->Fields("Prototype")->Value()) == kind) {
        found = true;
        break;
      }
    }
    if (found) {
      rs->Edit();
    } else {
      rs->AddNew();
      rs->Fields("Prototype")->SetValue(kind);
      rs->Fields("Comment")->SetValue(std::string());
      rs->Fields("Enabled")->SetValue(!setEnabled || enabled);
    }
    if (setText) rs->Fields("Comment")->SetValue(text);
    if (setEnabled) rs->Fields("Enabled")->SetValue(enabled);
    rs->Update();
    rs->Close();
  } catch (const std::exception& e) {
    return Failed(err, "cannot change the XML comment template of " + kind, e);
  }
  return 0;
}

int XMLCommentTemplatesManager::SetEnabled(const std::string& kind, bool enabled, std::ostream& out,
                                           std::ostream& err) {
  int status = Change(kind, err, false, "", true, enabled);
  if (status == 0) out << kind << (enabled ? ": enabled\n" : ": disabled\n");
  return status;
}

int XMLCommentTemplatesManager::SetTemplate(const std::string& kind, const std::string& text,
                                            std::ostream& out, std::ostream& err) {
  int status = Change(kind, err, true, text, false, true);
  if (status == 0) out << kind << ": template set\n";
  return status;
}

int XMLCommentTemplatesManager::Run(const std::vector<std::string>& args, std::ostream& out,
                                    std::ostream& err) {
  const std::string op = args.empty() ? "" : args[0];
  if (op == "list" && args.size() == 1) return List(out, err);
  if (op == "show" && args.size() == 2) return ShowTemplate(args[1], out, err);
  if (op == "enable" && args.size() == 2) return SetEnabled(args[1], true, out, err);
  if (op == "disable" && args.size() == 2) return SetEnabled(args[1], false, out, err);
  if (op == "set" && args.size() == 3) return SetTemplate(args[1], args[2], out, err);
  err << kUsage << "\n";
  return 2;
}

}  // namespace platform::suite
