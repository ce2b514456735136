// annotra_formview: shows one of the system's forms through the terminal presenter, for
// the end-to-end tests of the terminal host (built with the tests only).
//
//   annotra_formview options SOLUTION     the options dialog; then its stored settings
//   annotra_formview templates SOLUTION   the XML options form; then "XMLCheck"
//   annotra_formview columns              the group-by dialog on a grid of three columns
//   annotra_formview msgbox STYLE TEXT    a message box; then the button chosen
//   annotra_formview crash HOW            a question; "Yes" ends the program by HOW:
//                                         abort, segv, throw or exit
//
// What the forms leave is printed on standard output once the terminal is restored.

#include <clocale>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "Host.h"
#include "analysis/FCCOptions.h"
#include "host/MGlobals.h"
#include "host/SettingsKeys.h"
#include "options/FOptions.h"
#include "platform/core/Variant.h"
#include "platform/dao/Database.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/Workspace.h"
#include "platform/forms/Form.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/Presenter.h"
#include "platform/grid/Grid.h"
#include "platform/suite/FGridColumns.h"
#include "platform/suite/SettingsStore.h"
#include "terminal/CursesTerminal.h"
#include "terminal/EventLoop.h"
#include "terminal/OutputCapture.h"
#include "terminal/TerminalMessageBoxes.h"
#include "terminal/TerminalPresenter.h"

namespace {

using namespace app::terminal;
namespace MGlobals = annotra::MGlobals;

/// A screen behind the dialogs, so that they show over something.
class Backdrop : public Layer {
 public:
  void Draw(Terminal& t, bool) override {
    for (int y = 0; y < t.Rows(); ++y) t.Put(0, y, std::string(static_cast<size_t>(t.Columns()), '.'), Style{});
    t.Put(1, 0, " annotra formview ", Style{Style::Title});
  }
  void Input(const InputEvent&) override {}
};

std::string Setting(const char* key) {
  return platform::ToString(MGlobals::AppSettingsObject_HKCU->Read(annotra::section::CommentsAnalyzer, key, ""));
}

void ShowOptions(std::ostream& out) {
  annotra::FOptions dialog;
  bool ok = dialog.GetOptions();
  dialog.Unload();
  out << (ok ? "accepted" : "cancelled") << "\n";
  for (const char* key : {"LastScope", "Tab", "EnablePublic", "XMLOnPublic", "EnableNonPublic", "XMLOnNonPublic",
                          "EnableBody", "LineCount"})
    out << key << "=" << Setting(key) << "\n";
}

void ShowTemplates(std::ostream& out) {
  annotra::FCCOptions form;
  form.GetOptions(true);
  form.Unload();
  out << "XMLCheck=" << Setting("XMLCheck") << "\n";
}

void ShowColumns(std::ostream& out) {
  namespace dao = platform::dao;
  platform::forms::Form host("FHost");
  platform::grid::Grid grid(host, "Grid1");
  for (const char* key : {"Project", "Document", "Problem"}) grid.AddColumn(key, key);
  platform::suite::FGridColumns dialog(platform::suite::FGridColumns::GroupBy, grid, true, nullptr);
  bool ok = dialog.Run();
  out << (ok ? "accepted" : "cancelled") << "\n";
  for (const auto& g : grid.Groups()) out << "group " << g.key << (g.order < 0 ? " descending" : "") << "\n";
}

void Crash(const std::string& how) {
  if (platform::forms::MsgBox("Crash now?", platform::forms::vbYesNo + platform::forms::vbQuestion, "Scribane") !=
      platform::forms::vbYes)
    return;
  if (how == "abort") std::abort();
  if (how == "segv") std::raise(SIGSEGV);
  if (how == "throw") throw std::runtime_error("nobody catches this");
  if (how == "exit") std::exit(7);
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  std::string what = argc > 1 ? argv[1] : "";
  std::string arg = argc > 2 ? argv[2] : "";
  app::Host host;
  if ((what == "options" || what == "templates") && (!host.OpenSolution(arg) || !host.OpenDatabases())) return 3;

  std::ostringstream report;
  {
    OutputCapture capture;
    CursesTerminal terminal;
    EventLoop loop(terminal);
    Backdrop backdrop;
    loop.Push(&backdrop);
    platform::forms::ScopedPresenter presenter(std::make_shared<TerminalPresenter>(loop));
    platform::forms::ScopedMessageBoxes boxes(std::make_shared<TerminalMessageBoxes>());
    if (what == "options") ShowOptions(report);
    else if (what == "templates") ShowTemplates(report);
    else if (what == "columns") ShowColumns(report);
    else if (what == "msgbox") report << "answer " << platform::forms::MsgBox(argc > 3 ? argv[3] : "", std::atoi(arg.c_str()), "Scribane") << "\n";
    else if (what == "crash") Crash(arg);
    else report << "unknown form '" << what << "'\n";
  }
  std::cout << report.str();
  return 0;
}
