#pragma once

namespace app::terminal {

/// The characters the host draws lines, marks and arrows with: Unicode where the
/// terminal shows it, ASCII stand-ins elsewhere. Each is one cell wide.
struct Glyphs {
  const char* horizontal;
  const char* vertical;
  const char* topLeft;
  const char* topRight;
  const char* bottomLeft;
  const char* bottomRight;
  const char* teeLeft;   // a horizontal line leaving a vertical one to the right: ├
  const char* teeRight;  // ┤
  const char* ellipsis;
  const char* close;      // the close box's mark
  const char* expanded;   // an open group or tree node
  const char* collapsed;  // a closed one
  const char* current;    // the current row, the marked line
  const char* dropDown;   // the arrow of a drop-down box
  const char* scrollUp;
  const char* scrollDown;
  const char* remove;     // removes an entry of the group-by box

  static const Glyphs& For(bool unicode);
};

inline const Glyphs& Glyphs::For(bool unicode) {
  static const Glyphs kUnicode{"─", "│", "┌", "┐", "└", "┘", "├", "┤", "…", "×",
                               "▾", "▸", "▶", "▼", "▲", "▼", "×"};
  static const Glyphs kAscii{"-", "|", "+", "+", "+", "+", "+", "+", "~", "x",
                             "-", "+", ">", "v", "^", "v", "x"};
  return unicode ? kUnicode : kAscii;
}

}  // namespace app::terminal
