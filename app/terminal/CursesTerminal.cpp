#include "terminal/CursesTerminal.h"

#ifndef NCURSES_WIDECHAR
#define NCURSES_WIDECHAR 1
#endif
#include <curses.h>
#include <fcntl.h>
#include <langinfo.h>
#include <poll.h>
#include <term.h>
#include <termios.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>
#include <unordered_map>
#include <vector>

#include "terminal/TerminalRestore.h"
#include "terminal/TextCells.h"

namespace app::terminal {

namespace {

// The terminal reports every mouse motion, with or without a button held (xterm's
// any-event tracking), on top of the presses and releases ncurses asks for.
constexpr const char* kMouseMotionOn = "\033[?1003h";
constexpr const char* kMouseOff = "\033[?1003l\033[?1006l\033[?1002l\033[?1000l";
// The menu key of xterm-like terminals, which their terminfo entries leave out.
constexpr const char* kMenuKeySequence = "\033[29~";

// Arrows, Home and End with Shift, Alt or Ctrl held, as xterm-like terminals send them
// ("ESC [ 1 ; m X", m one more than the sum of Shift 1, Alt 2, Ctrl 4): Alt+Down opens
// a drop-down list, as it does in a dialog of the desktop. terminfo names some of these,
// under names that differ between entries, so each sequence is looked up: one the entry
// knows keeps its code, the others get codes of their own above ncurses' keys.
constexpr char kModifiedKeyFinals[] = {'A', 'B', 'C', 'D', 'H', 'F'};
constexpr int kModifiedKeys[] = {key::Up, key::Down, key::Right, key::Left, key::Home, key::End};

// A terminfo string capability; "" when the terminal has none.
std::string Capability(const char* name) {
  char* s = tigetstr(const_cast<char*>(name));
  if (s == nullptr || s == reinterpret_cast<char*>(-1)) return "";
  return s;
}

short PairOf(Style::Color c) { return static_cast<short>(c); }

}  // namespace

struct CursesTerminal::Impl {
  SCREEN* screen = nullptr;
  FILE* in = nullptr;
  FILE* out = nullptr;
  termios saved{};
  std::unordered_map<int, InputEvent> modifiedKeys;  // by the code ncurses reads them as
};

CursesTerminal::CursesTerminal() : m_impl(std::make_unique<Impl>()) {
  m_fd = open("/dev/tty", O_RDWR | O_CLOEXEC);
  if (m_fd < 0) throw std::runtime_error("there is no terminal to show the pane on");
  if (tcgetattr(m_fd, &m_impl->saved) != 0) {
    close(m_fd);
    throw std::runtime_error("the terminal's settings cannot be read");
  }
  m_impl->in = fdopen(dup(m_fd), "r");
  m_impl->out = fdopen(dup(m_fd), "w");
  const char* type = getenv("TERM");
  m_impl->screen = m_impl->in && m_impl->out ? newterm(type && *type ? type : "xterm", m_impl->out, m_impl->in) : nullptr;
  if (!m_impl->screen) {
    if (m_impl->in) fclose(m_impl->in);
    if (m_impl->out) fclose(m_impl->out);
    close(m_fd);
    throw std::runtime_error(std::string("the terminal type '") + (type ? type : "") + "' is not known");
  }
  set_term(m_impl->screen);
  const char* codeset = nl_langinfo(CODESET);
  m_unicode = codeset && std::strcmp(codeset, "UTF-8") == 0;

  std::string leave = kMouseOff + Capability("rmkx") + Capability("sgr0") + Capability("cnorm") + Capability("rmcup");
  restore::Arm(m_fd, &m_impl->saved, sizeof m_impl->saved, leave);

  raw();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  meta(stdscr, TRUE);
  set_escdelay(25);
  curs_set(0);
  define_key(kMenuKeySequence, KEY_OPTIONS);
  // Home and End as the terminals that terminfo entries do not describe send them
  // (a VT220's, rxvt's, and xterm's two modes), so they work whatever TERM says.
  for (const char* home : {"\033[1~", "\033[7~", "\033[H", "\033OH"}) define_key(home, KEY_HOME);
  for (const char* end : {"\033[4~", "\033[8~", "\033[F", "\033OF"}) define_key(end, KEY_END);
  int ownCode = KEY_MAX + 1;
  for (int m = 2; m <= 8; ++m)
    for (size_t f = 0; f < sizeof kModifiedKeyFinals; ++f) {
      char sequence[8] = {'\033', '[', '1', ';', static_cast<char>('0' + m), kModifiedKeyFinals[f], 0};
      int code = key_defined(sequence);
      if (code <= 0) define_key(sequence, code = ownCode++);
      InputEvent e;
      e.kind = InputEvent::Key;
      e.key = kModifiedKeys[f];
      e.shift = ((m - 1) & 1 ? mod::Shift : 0) | ((m - 1) & 2 ? mod::Alt : 0) | ((m - 1) & 4 ? mod::Ctrl : 0);
      m_impl->modifiedKeys[code] = e;
    }
  if (has_colors()) {
    m_colors = true;
    start_color();
    use_default_colors();
    struct {
      Style::Color role;
      short fg, bg;
    } pairs[] = {
        {Style::Window, COLOR_BLACK, COLOR_WHITE},  {Style::Title, COLOR_WHITE, COLOR_BLUE},
        {Style::Button, COLOR_BLACK, COLOR_CYAN},   {Style::Focus, COLOR_WHITE, COLOR_BLUE},
        {Style::Selection, COLOR_BLACK, COLOR_CYAN}, {Style::Field, COLOR_WHITE, COLOR_BLACK},
        {Style::Hint, COLOR_BLUE, COLOR_WHITE},     {Style::Menu, COLOR_BLACK, COLOR_WHITE},
        {Style::Status, COLOR_BLACK, COLOR_CYAN},
    };
    for (const auto& p : pairs) init_pair(PairOf(p.role), p.fg, p.bg);
  }
  EnterMouseMode();
}

CursesTerminal::~CursesTerminal() {
  if (!m_suspended) {
    LeaveMouseMode();
    endwin();
  }
  delscreen(m_impl->screen);
  fclose(m_impl->in);
  fclose(m_impl->out);
  tcsetattr(m_fd, TCSAFLUSH, &m_impl->saved);
  restore::Disarm();
  close(m_fd);
}

void CursesTerminal::EnterMouseMode() {
  mousemask(ALL_MOUSE_EVENTS | REPORT_MOUSE_POSITION, nullptr);
  mouseinterval(0);
  fputs(kMouseMotionOn, m_impl->out);
  fflush(m_impl->out);
}

void CursesTerminal::LeaveMouseMode() {
  mousemask(0, nullptr);
  fputs(kMouseOff, m_impl->out);
  fflush(m_impl->out);
}

int CursesTerminal::Columns() const { return COLS; }
int CursesTerminal::Rows() const { return LINES; }

void CursesTerminal::Clear() { werase(stdscr); }

void CursesTerminal::Put(int x, int y, std::string_view s, const Style& style) {
  if (y < 0 || y >= LINES) return;
  attr_t attrs = A_NORMAL;
  short pair = 0;
  if (m_colors) {
    pair = PairOf(style.color);
  } else if (style.color == Style::Title || style.color == Style::Button || style.color == Style::Selection ||
             style.color == Style::Status || style.color == Style::Focus) {
    attrs |= A_REVERSE;
  } else if (style.color == Style::Field) {
    attrs |= A_UNDERLINE;
  }
  if (style.bold) attrs |= A_BOLD;
  if (style.reverse) attrs ^= A_REVERSE;
  if (style.underline) attrs |= A_UNDERLINE;
  if (style.dim) attrs |= A_DIM;
  std::wstring wide;
  int cells = 0;
  for (const std::string& c : text::Characters(s)) {
    int w = text::CharWidth(c);
    if (w == 0) continue;
    if (x + cells + w > COLS) break;
    if (x + cells < 0) {
      cells += w;
      continue;
    }
    if (!m_unicode && static_cast<unsigned char>(c[0]) >= 0x80) {
      for (int k = 0; k < w; ++k) wide += L'?';
    } else {
      // One well-formed character; its code point goes to ncurses as it is.
      std::mbstate_t state{};
      wchar_t wc = L'?';
      if (std::mbrtowc(&wc, c.data(), c.size(), &state) > c.size()) wc = L'?';
      wide += wc;
    }
    cells += w;
  }
  if (wide.empty()) return;
  attr_set(attrs, pair, nullptr);
  mvaddnwstr(y, x < 0 ? 0 : x, wide.c_str(), static_cast<int>(wide.size()));
  attr_set(A_NORMAL, 0, nullptr);
}

void CursesTerminal::SetCursor(int x, int y, bool visible) {
  m_cursorX = x;
  m_cursorY = y;
  m_cursorVisible = visible;
}

void CursesTerminal::Flush() {
  curs_set(m_cursorVisible ? 1 : 0);
  if (m_cursorVisible) move(m_cursorY, m_cursorX);
  wnoutrefresh(stdscr);
  doupdate();
}

InputEvent CursesTerminal::Read(int timeoutMs) {
  if (!m_queued.empty()) {
    InputEvent e = std::move(m_queued.front());
    m_queued.pop_front();
    return e;
  }
  wtimeout(stdscr, timeoutMs);
  wint_t ch = 0;
  int status = wget_wch(stdscr, &ch);
  if (status == ERR) {
    InputEvent none;
    pollfd p{m_fd, POLLIN, 0};
    if (poll(&p, 1, 0) > 0 && (p.revents & (POLLHUP | POLLERR | POLLNVAL))) none.kind = InputEvent::Closed;
    return none;
  }
  if (status == OK && ch == 27) {
    // Escape alone, or Alt with the key that follows at once.
    wtimeout(stdscr, 0);
    wint_t next = 0;
    int nextStatus = wget_wch(stdscr, &next);
    InputEvent e;
    e.kind = InputEvent::Key;
    e.key = key::Escape;
    if (nextStatus == OK && next > 32 && next < 127) {
      InputEvent alt = Translate(OK, next);
      alt.kind = InputEvent::Key;
      alt.key = (next >= 'a' && next <= 'z') ? static_cast<int>(next - 'a' + 'A') : static_cast<int>(next);
      alt.shift |= mod::Alt;
      alt.text = std::string(1, static_cast<char>(next));
      return alt;
    }
    if (nextStatus == OK) unget_wch(static_cast<wchar_t>(next));
    if (nextStatus == KEY_CODE_YES) ungetch(static_cast<int>(next));
    return e;
  }
  return Translate(status, ch);
}

InputEvent CursesTerminal::Translate(int status, unsigned ch) {
  InputEvent e;
  e.kind = InputEvent::Key;
  if (status == KEY_CODE_YES) {
    switch (static_cast<int>(ch)) {
      case KEY_RESIZE: e.kind = InputEvent::Resize; return e;
      case KEY_MOUSE: {
        MEVENT me{};
        if (getmouse(&me) != OK) return InputEvent{};
        e.kind = InputEvent::Mouse;
        e.x = me.x;
        e.y = me.y;
        mmask_t b = me.bstate;
        if (b & BUTTON_SHIFT) e.shift |= mod::Shift;
        if (b & BUTTON_CTRL) e.shift |= mod::Ctrl;
        if (b & BUTTON_ALT) e.shift |= mod::Alt;
        // Presses and releases that arrive together come as clicks: each is played as
        // the presses and releases it stands for.
        const struct {
          mmask_t pressed, released, clicked, twice, thrice;
          int button;
        } kButtons[] = {
            {BUTTON1_PRESSED, BUTTON1_RELEASED, BUTTON1_CLICKED, BUTTON1_DOUBLE_CLICKED, BUTTON1_TRIPLE_CLICKED, 1},
            {BUTTON3_PRESSED, BUTTON3_RELEASED, BUTTON3_CLICKED, BUTTON3_DOUBLE_CLICKED, BUTTON3_TRIPLE_CLICKED, 2},
            {BUTTON2_PRESSED, BUTTON2_RELEASED, BUTTON2_CLICKED, BUTTON2_DOUBLE_CLICKED, BUTTON2_TRIPLE_CLICKED, 4},
        };
        e.action = InputEvent::Move;
        for (const auto& k : kButtons) {
          int clicks = (b & k.thrice) ? 3 : (b & k.twice) ? 2 : (b & k.clicked) ? 1 : 0;
          if (clicks > 0) {
            e.action = InputEvent::Press;
            e.button = k.button;
            InputEvent release = e;
            release.action = InputEvent::Release;
            m_queued.push_back(release);
            for (int i = 1; i < clicks; ++i) m_queued.push_back(e), m_queued.push_back(release);
            break;
          }
          if (b & k.pressed) {
            e.action = InputEvent::Press, e.button = k.button;
            break;
          }
          if (b & k.released) {
            e.action = InputEvent::Release, e.button = k.button;
            break;
          }
        }
        if (e.action == InputEvent::Move) {
          if (b & BUTTON4_PRESSED) e.action = InputEvent::WheelUp;
          else if (b & BUTTON5_PRESSED) e.action = InputEvent::WheelDown;
        }
        return e;
      }
      case KEY_UP: e.key = key::Up; return e;
      case KEY_DOWN: e.key = key::Down; return e;
      case KEY_LEFT: e.key = key::Left; return e;
      case KEY_RIGHT: e.key = key::Right; return e;
      case KEY_SR: e.key = key::Up, e.shift = mod::Shift; return e;
      case KEY_SF: e.key = key::Down, e.shift = mod::Shift; return e;
      case KEY_SLEFT: e.key = key::Left, e.shift = mod::Shift; return e;
      case KEY_SRIGHT: e.key = key::Right, e.shift = mod::Shift; return e;
      case KEY_HOME: e.key = key::Home; return e;
      case KEY_END: e.key = key::End; return e;
      case KEY_PPAGE: e.key = key::PageUp; return e;
      case KEY_NPAGE: e.key = key::PageDown; return e;
      case KEY_IC: e.key = key::Insert; return e;
      case KEY_DC: e.key = key::Delete; return e;
      case KEY_BACKSPACE: e.key = key::Back; return e;
      case KEY_ENTER: e.key = key::Return; return e;
      case KEY_BTAB: e.key = key::Tab, e.shift = mod::Shift; return e;
      case KEY_OPTIONS: e.key = key::Apps; return e;
      default: break;
    }
    int code = static_cast<int>(ch);
    if (auto modified = m_impl->modifiedKeys.find(code); modified != m_impl->modifiedKeys.end()) return modified->second;
    if (code >= KEY_F(1) && code <= KEY_F(12)) {
      e.key = key::F1 + code - KEY_F(1);
      return e;
    }
    if (code >= KEY_F(13) && code <= KEY_F(24)) {  // Shift with F1 to F12
      e.key = key::F1 + code - KEY_F(13);
      e.shift = mod::Shift;
      return e;
    }
    return InputEvent{};
  }
  switch (ch) {
    case 8:
    case 127: e.key = key::Back; return e;
    case 9: e.key = key::Tab; return e;
    case 10:
    case 13: e.key = key::Return; return e;
    case 27: e.key = key::Escape; return e;
    default: break;
  }
  if (ch < 32) {  // Ctrl with a letter
    e.key = static_cast<int>('A' + ch - 1);
    e.shift = mod::Ctrl;
    return e;
  }
  e.kind = InputEvent::Char;
  char buffer[8] = {};
  std::mbstate_t state{};
  size_t n = std::wcrtomb(buffer, static_cast<wchar_t>(ch), &state);
  e.text = n == static_cast<size_t>(-1) ? "?" : std::string(buffer, n);
  if (ch == ' ') {
    e.kind = InputEvent::Key;
    e.key = key::Space;
    e.text.assign(1, ' ');
  }
  return e;
}

void CursesTerminal::Suspend() {
  if (m_suspended) return;
  LeaveMouseMode();
  def_prog_mode();
  endwin();
  m_suspended = true;
}

void CursesTerminal::Resume() {
  if (!m_suspended) return;
  m_suspended = false;
  reset_prog_mode();
  clearok(curscr, TRUE);
  refresh();
  EnterMouseMode();
}

}  // namespace app::terminal
