#pragma once
// A terminal for end-to-end tests: a tmux server of the test's own (its own socket),
// running a shell command in one window of a fixed size, driven with send-keys (keys,
// text, mouse reports in the SGR encoding) and read with capture-pane. Everything a
// test waits for is polled with a timeout; nothing sleeps a fixed time to synchronise.

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace app::terminal::testing {

class TmuxSession {
 public:
  static constexpr int kTimeoutMs = 30000;

  /// Starts `command` (a line for sh) in a new server with one `columns` by `rows`
  /// window, in a UTF-8 locale.
  explicit TmuxSession(const std::string& command, int columns = 100, int rows = 30) {
    static std::atomic<int> counter{0};
    m_socket = "annotra-test-" + std::to_string(getpid()) + "-" + std::to_string(counter++);
    Tmux("-f /dev/null new-session -d -s t -x " + std::to_string(columns) + " -y " + std::to_string(rows) + " " +
         Quote(command));
  }
  ~TmuxSession() { Tmux("kill-server"); }
  TmuxSession(const TmuxSession&) = delete;
  TmuxSession& operator=(const TmuxSession&) = delete;

  /// A text for sh that stands for `s` exactly.
  static std::string Quote(const std::string& s) {
    std::string out = "'";
    for (char c : s) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
  }

  /// The screen, one line per row.
  std::string Screen() const { return Tmux("capture-pane -p -t t"); }
  /// A value of tmux's formats for the window ("#{alternate_on}", ...).
  std::string Format(const std::string& format) const {
    std::string s = Tmux("display-message -p -t t " + Quote(format));
    while (!s.empty() && (s.back() == '\n' || s.back() == '\r')) s.pop_back();
    return s;
  }

  /// Polls the screen until `test` holds; false when it did not within the timeout.
  bool WaitUntil(const std::function<bool(const std::string&)>& test, int timeoutMs = kTimeoutMs) const {
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    for (;;) {
      if (test(Screen())) return true;
      if (std::chrono::steady_clock::now() > end) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(25));
    }
  }
  bool WaitFor(const std::string& text, int timeoutMs = kTimeoutMs) const {
    return WaitUntil([&](const std::string& s) { return s.find(text) != std::string::npos; }, timeoutMs);
  }

  /// Where `text` is on the screen: column and row of its first character, counted in
  /// characters (the screen's characters are one cell wide); (-1, -1) when absent.
  std::pair<int, int> Find(const std::string& text) const {
    std::string screen = Screen();
    size_t at = screen.find(text);
    if (at == std::string::npos) return {-1, -1};
    int row = 0, column = 0;
    for (size_t i = 0; i < at; ++i) {
      if (screen[i] == '\n') {
        ++row;
        column = 0;
      } else if ((static_cast<unsigned char>(screen[i]) & 0xC0) != 0x80) {
        ++column;
      }
    }
    return {column, row};
  }

  /// Resizes the window, as a person resizes the terminal.
  void Resize(int columns, int rows) const {
    Tmux("resize-window -t t -x " + std::to_string(columns) + " -y " + std::to_string(rows));
  }

  /// Keys as send-keys names them ("Tab", "M-b", "C-c", "Enter", "F10").
  void Keys(const std::vector<std::string>& keys) const {
    std::string args;
    for (const auto& k : keys) args += " " + Quote(k);
    Tmux("send-keys -t t" + args);
  }
  /// Bytes as typed, each sent as it is.
  void Bytes(const std::string& bytes) const {
    std::string args;
    char hex[4];
    for (unsigned char c : bytes) {
      std::snprintf(hex, sizeof hex, "%02x", c);
      args += std::string(" ") + hex;
    }
    Tmux("send-keys -t t -H" + args);
  }
  /// Mouse reports at cell (x, y) from the top-left corner, 0-based: a press and a
  /// release of `button` (0 left, 2 right), a move with no button.
  void Click(int x, int y, int button = 0) const {
    Bytes(Report(button, x, y, 'M'));
    Bytes(Report(button, x, y, 'm'));
  }
  void Move(int x, int y) const { Bytes(Report(35, x, y, 'M')); }
  void Wheel(int x, int y, bool down) const { Bytes(Report(down ? 65 : 64, x, y, 'M')); }

 private:
  static std::string Report(int code, int x, int y, char end) {
    return "\033[<" + std::to_string(code) + ";" + std::to_string(x + 1) + ";" + std::to_string(y + 1) + end;
  }
  std::string Tmux(const std::string& args) const {
    std::string line = "LANG=C.UTF-8 tmux -u -L " + m_socket + " " + args + " 2>/dev/null";
    std::string out;
    if (FILE* p = popen(line.c_str(), "r")) {
      char buffer[4096];
      size_t n;
      while ((n = fread(buffer, 1, sizeof buffer, p)) > 0) out.append(buffer, n);
      pclose(p);
    }
    return out;
  }

  std::string m_socket;
};

}  // namespace app::terminal::testing
