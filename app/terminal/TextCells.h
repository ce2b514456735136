#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace app::terminal {

/// UTF-8 text measured and cut in terminal cells. Hand-written rather than taken from
/// ncurses, so that the layout code and the screen double of the tests measure text
/// the same way without a screen: a character is as wide as wcwidth says (two cells for
/// East Asian wide characters, none for combining marks), one cell when the locale
/// cannot tell. Bytes that are not UTF-8 count as one cell each and are drawn as "?".
namespace text {

/// The characters of `s`, each as its UTF-8 bytes (a bad byte becomes "?").
std::vector<std::string> Characters(std::string_view s);
/// How many cells a character (its UTF-8 bytes) takes.
int CharWidth(std::string_view character);
/// How many cells `s` takes.
int Width(std::string_view s);
/// `s` cut to at most `width` cells; when it had to be cut and `ellipsis` is not empty,
/// the last cell shows `ellipsis` (one cell wide) instead.
std::string Fit(std::string_view s, int width, std::string_view ellipsis = "");
/// The part of `s`, written from column `x`, that lies between columns `left` (included)
/// and `right` (excluded): its whole characters there, and the column it starts at
/// (-1, with no text, when none lies there). A wide character cut by an edge is left out.
struct Span {
  int column = -1;
  std::string text;
};
Span Clip(std::string_view s, int x, int left, int right);
/// `s` padded with spaces (or cut) to exactly `width` cells.
std::string Pad(std::string_view s, int width);
/// `s` broken into lines of at most `width` cells, at spaces where it can be and inside
/// a word longer than a line; line breaks in `s` are kept.
std::vector<std::string> Wrap(std::string_view s, int width);

}  // namespace text
}  // namespace app::terminal
