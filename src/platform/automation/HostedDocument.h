#pragma once

namespace platform::automation {

/// A document object that a tool window hosts: the window tells it when it is shown
/// and when its size changes, as a container tells the document inside it.
class HostedDocument {
 public:
  virtual ~HostedDocument() = default;
  /// The window was shown (it was hidden before).
  virtual void WindowShown() = 0;
  /// The window's client area is now `width` by `height` twips.
  virtual void WindowResized(int width, int height) = 0;
};

}  // namespace platform::automation
