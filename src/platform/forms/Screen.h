#pragma once

/// The screen the forms are drawn on, in the units forms are placed in. A form's
/// controls are placed in twips; a terminal draws them in character cells of a fixed
/// size, 90 twips wide and 240 twips high. A cell holds one character, and a character
/// of the forms' 8-point font is about 6 pixels (90 twips) wide, so a caption fits in the
/// width its control was given; one scale for every control keeps the proportions of the
/// placement tables between the controls.
namespace platform::forms::Screen {

inline constexpr int TwipsPerPixelX = 15;
inline constexpr int TwipsPerPixelY = 15;
inline constexpr int TwipsPerCellX = 90;
inline constexpr int TwipsPerCellY = 240;

}  // namespace platform::forms::Screen
