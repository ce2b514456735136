#pragma once
#include <string>
#include <string_view>

namespace app::terminal {

/// Key codes of the input events: the numbering the forms' key events use (letters and
/// digits are their upper-case ASCII codes).
namespace key {
inline constexpr int Back = 8;
inline constexpr int Tab = 9;
inline constexpr int Return = 13;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Insert = 45;
inline constexpr int Delete = 46;
inline constexpr int Apps = 93;  // the menu key
inline constexpr int F1 = 112;
inline constexpr int F4 = 115;
inline constexpr int F5 = 116;
inline constexpr int F10 = 121;
inline constexpr int F12 = 123;
}  // namespace key

/// Shift states, combined by adding: the forms' numbering.
namespace mod {
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
}  // namespace mod

/// One thing the person at the terminal did.
struct InputEvent {
  enum Kind {
    None,    // nothing arrived in time
    Key,     // a key with a code: `key` and `shift` (Ctrl+N is 'N' with mod::Ctrl)
    Char,    // a printable character typed: `text`, one UTF-8 character
    Mouse,   // a mouse report: `action`, `button`, `x`, `y`, `shift`
    Resize,  // the terminal changed size
    Closed,  // the terminal went away (hang-up, end of input)
  };
  enum MouseAction { Press, Release, Move, WheelUp, WheelDown };

  Kind kind = None;
  int key = 0;
  int shift = 0;
  std::string text;
  MouseAction action = Move;
  int button = 0;  // 1 left, 2 right, 4 middle; 0 for a move without a button
  int x = 0, y = 0;  // cells from the screen's top-left corner
};

/// How a run of text is drawn.
struct Style {
  enum Color { Plain, Window, Title, Button, Focus, Selection, Field, Hint, Menu, Status };
  Color color = Plain;
  bool bold = false;
  bool reverse = false;
  bool underline = false;
  bool dim = false;
  bool operator==(const Style&) const = default;
};

/// The screen and keyboard of a terminal, in character cells: the host draws into a
/// frame, shows it with Flush, and reads what the person does. The real one is
/// CursesTerminal; MemoryTerminal is a screen in memory for tests.
class Terminal {
 public:
  virtual ~Terminal() = default;

  virtual int Columns() const = 0;
  virtual int Rows() const = 0;
  /// Whether the terminal shows Unicode (box lines, arrows); otherwise text is drawn
  /// with ASCII stand-ins.
  virtual bool Unicode() const = 0;

  /// Blanks the frame.
  virtual void Clear() = 0;
  /// Draws UTF-8 `text` from column `x` of row `y`, on one row, cut at the screen's
  /// edge; a double-width character takes two cells.
  virtual void Put(int x, int y, std::string_view text, const Style& style) = 0;
  /// Where the cursor rests after Flush; hidden when `visible` is false.
  virtual void SetCursor(int x, int y, bool visible) = 0;
  /// Shows the frame drawn since the last Flush.
  virtual void Flush() = 0;

  /// Waits up to `timeoutMs` milliseconds (0: does not wait, negative: waits without
  /// end) for the next input and returns it; None when nothing came.
  virtual InputEvent Read(int timeoutMs) = 0;

  /// Gives the terminal back to the shell (for a program that runs on it), and takes it
  /// again; the next frame is drawn whole.
  virtual void Suspend() = 0;
  virtual void Resume() = 0;
};

}  // namespace app::terminal
