#include "PaneCommand.h"

#include <clocale>
#include <cstdio>
#include <memory>
#include <stdexcept>

#include "Host.h"
#include "entry/CXmlAnalyzer.h"
#include "host/MGlobals.h"
#include "pane/CXmlAnalyzerWindow.h"
#include "platform/automation/DTE.h"
#include "platform/automation/StatusBar.h"
#include "platform/automation/Window.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/Presenter.h"
#include "platform/suite/ErrorReport.h"
#include "platform/suite/PageViewer.h"
#include "platform/suite/ResultFileDialog.h"
#include "platform/win32/Keyboard.h"
#include "terminal/CursesTerminal.h"
#include "terminal/EventLoop.h"
#include "terminal/ExternalEditor.h"
#include "terminal/OutputCapture.h"
#include "terminal/PaneScreen.h"
#include "terminal/TerminalFileDialogs.h"
#include "terminal/TerminalKeyboard.h"
#include "terminal/TerminalMessageBoxes.h"
#include "terminal/TerminalPageViewer.h"
#include "terminal/TerminalPresenter.h"

namespace app {

using namespace app::terminal;
namespace MGlobals = annotra::MGlobals;

namespace {

// The last line of `text` that holds something.
std::string LastLine(const std::string& text) {
  size_t end = text.find_last_not_of("\r\n ");
  if (end == std::string::npos) return "";
  size_t begin = text.find_last_of('\n', end);
  return text.substr(begin == std::string::npos ? 0 : begin + 1, end - (begin == std::string::npos ? 0 : begin + 1) + 1);
}

}  // namespace

int RunPaneCommand(const std::string& path) {
  std::setlocale(LC_ALL, "");
  Host host;
  if (!host.OpenSolution(path.empty() ? "." : path) || !host.OpenDatabases()) return kCannotLoad;
  platform::Ref<platform::automation::DTE> dte = host.dte();
  // The bar is drawn on the screen, not as lines on standard error.
  dte->StatusBar()->SetDrawProgress(false);

  OutputCapture capture;
  std::unique_ptr<CursesTerminal> terminal;
  try {
    terminal = std::make_unique<CursesTerminal>();
  } catch (const std::runtime_error& e) {
    std::fprintf(stderr, "annotra: %s\n", e.what());
    return kCannotRun;
  }
  EventLoop loop(*terminal);
  platform::forms::ScopedPresenter presenter(std::make_shared<TerminalPresenter>(loop));
  platform::forms::ScopedMessageBoxes boxes(std::make_shared<TerminalMessageBoxes>());
  platform::suite::ScopedFileDialogs dialogs(std::make_shared<TerminalFileDialogs>());
  platform::suite::ScopedPageViewer viewer(std::make_shared<TerminalPageViewer>(*terminal));
  auto previousKeyboard = platform::win32::KeyboardState::Install(std::make_shared<TerminalKeyboard>(loop));

  annotra::CXmlAnalyzer analyzer;
  bool quit = false;
  PaneScreen::Actions actions;
  actions.execute = [&](int id) { analyzer.ExecuteCommand(id); };
  actions.showPane = [&] { analyzer.ShowResults(); };
  actions.quit = [&] { quit = true; };
  actions.toolWindow = [&] { return analyzer.WindowObject(); };
  PaneScreen* screenPtr = nullptr;
  actions.edit = [&](const std::string& file, int line) {
    std::string error;
    ExternalEditor::Run(*terminal, ExternalEditor::CommandLine(ExternalEditor::FromEnvironment(), file, line), error);
    if (!error.empty() && screenPtr) screenPtr->Message(error);
  };
  PaneScreen screen(loop, dte, actions);
  screenPtr = &screen;

  analyzer.FindMenuPopupAsked.Connect([&](int32_t& hit, bool&, bool& box, int32_t& rows, bool& selected, bool& refresh,
                                          std::string& extra) { screen.ContextMenu(hit, box, rows, selected, refresh, extra); });
  analyzer.SelectInCode.Connect([&](int32_t line) { screen.ShowLine(line); });
  // The walk runs without the loop: the screen follows its progress as it changes, a
  // few times a second at most.
  int64_t lastDrawn = 0;
  int drawing = dte->StatusBar()->Changed.Connect([&] {
    int64_t now = loop.Now();
    if (now - lastDrawn < 100) return;
    lastDrawn = now;
    loop.Redraw();
  });
  // What the component and the libraries write (reports, the place of a help page)
  // appears in the status bar.
  loop.SetIdle([&] {
    std::string news = capture.TakeNew();
    if (std::string line = LastLine(news); !line.empty()) screen.Message(line);
  });

  analyzer.Init(dte, nullptr, MGlobals::AppSettingsObject_HKCU, MGlobals::AppSettingsObject_HKLM,
                MGlobals::WorkspaceObject, MGlobals::TeamDB, MGlobals::PersonalDB, false);
  analyzer.ShowResults();
  loop.Push(&screen);
  loop.Run([&] { return !quit; });
  loop.Pop(&screen);
  analyzer.Shutdown();
  dte->StatusBar()->Changed.Disconnect(drawing);
  platform::win32::KeyboardState::Install(previousKeyboard);
  return kDone;
}

}  // namespace app
