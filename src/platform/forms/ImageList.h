#pragma once
#include <string>
#include <vector>

#include "platform/forms/Control.h"

namespace platform::forms {

/// A list of pictures, each under a key, that tree views take their icons from. A
/// picture is named by a string (a file or a symbolic name); nothing is drawn here.
class ImageList : public Control {
 public:
  using Control::Control;
  const char* TypeName() const override { return "ImageList"; }
  bool CanFocus() const override { return false; }
  bool UserClick() override { return false; }

  /// Adds a picture under `key`; fails with 35602 when the key is taken. Returns its
  /// 1-based index.
  int Add(const std::string& key, const std::string& picture);
  /// The 1-based index of the picture under `key`; 0 when there is none.
  int IndexOf(const std::string& key) const;
  /// The picture under `key`; fails with 35601 (element not found) when there is none.
  const std::string& Picture(const std::string& key) const;
  int Count() const { return static_cast<int>(m_items.size()); }
  void Clear() { m_items.clear(); }

 private:
  std::vector<std::pair<std::string, std::string>> m_items;
};

}  // namespace platform::forms
