#pragma once

namespace platform {

/// Standard error as a terminal shows it. A progress display is redrawn in place on a
/// line that it leaves unfinished; anything else written to standard error (a question,
/// a warning, an error) must end that line first, or it is glued to the progress.
namespace stderr_line {

/// Notes whether standard error now holds an unfinished line (true after drawing the
/// progress, false after erasing it or ending the line).
void MarkOpen(bool open);
/// Whether standard error holds an unfinished line.
bool IsOpen();
/// Ends an unfinished line with a line break, so what follows starts on a line of its
/// own; does nothing otherwise.
void End();

}  // namespace stderr_line
}  // namespace platform
