#pragma once

/// The screen the forms are drawn on, in the units forms are placed in. A form's
/// controls are placed in twips; a terminal draws them in character cells of a fixed
/// size, 120 twips wide and 240 twips high (an 8 by 16 pixel cell at 15 twips a pixel),
/// which keeps the proportions of the placement tables.
namespace platform::forms::Screen {

inline constexpr int TwipsPerPixelX = 15;
inline constexpr int TwipsPerPixelY = 15;
inline constexpr int TwipsPerCellX = 120;
inline constexpr int TwipsPerCellY = 240;

}  // namespace platform::forms::Screen
