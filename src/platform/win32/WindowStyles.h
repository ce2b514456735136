#pragma once
#include <cstdint>

namespace platform::win32 {

constexpr int GWL_STYLE = -16;
constexpr int32_t ES_NUMBER = 0x2000;

/// Window handles and their style bits, as the window manager keeps them. Controls that
/// need a handle (an edit box made digits-only) register one; 0 is no window.
class WindowStyles {
 public:
  /// A new window handle with `style`.
  static intptr_t Register(int32_t style);
  /// Forgets the window; its handle is no window afterwards.
  static void Unregister(intptr_t hWnd);
};

/// The window's style for GWL_STYLE; 0 for any other index or an unknown window.
int32_t GetWindowLongA(intptr_t hWnd, int index);
/// Sets the window's style for GWL_STYLE and returns the previous one; 0 (and nothing
/// set) for any other index or an unknown window.
int32_t SetWindowLongA(intptr_t hWnd, int index, int32_t value);

}  // namespace platform::win32
