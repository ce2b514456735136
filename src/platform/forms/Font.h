#pragma once
#include <string>

namespace platform::forms {

/// The font of a control or a form.
struct Font {
  std::string Name = "MS Sans Serif";
  double Size = 8.25;
  int Charset = 0;
  bool Bold = false;
  bool Italic = false;
};

}  // namespace platform::forms
