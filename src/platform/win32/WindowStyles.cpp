#include "platform/win32/WindowStyles.h"

#include <unordered_map>

namespace platform::win32 {
namespace {
struct Table {
  std::unordered_map<intptr_t, int32_t> styles;
  intptr_t next = 0x10000;
};
Table& Windows() {
  static Table table;
  return table;
}
}  // namespace

intptr_t WindowStyles::Register(int32_t style) {
  intptr_t hWnd = Windows().next++;
  Windows().styles[hWnd] = style;
  return hWnd;
}

void WindowStyles::Unregister(intptr_t hWnd) { Windows().styles.erase(hWnd); }

int32_t GetWindowLongA(intptr_t hWnd, int index) {
  if (index != GWL_STYLE) return 0;
  auto it = Windows().styles.find(hWnd);
  return it == Windows().styles.end() ? 0 : it->second;
}

int32_t SetWindowLongA(intptr_t hWnd, int index, int32_t value) {
  if (index != GWL_STYLE) return 0;
  auto it = Windows().styles.find(hWnd);
  if (it == Windows().styles.end()) return 0;
  int32_t previous = it->second;
  it->second = value;
  return previous;
}

}  // namespace platform::win32
