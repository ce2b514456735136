#pragma once
#include <ostream>
#include <string>
#include <utility>

namespace platform::automation {

/// A warning about a solution that could be loaded only in part: one line of text, and
/// what kind of loss it tells of, so a host can show the ones that change what an
/// analysis sees and keep the others for when it is asked.
struct LoadWarning {
  enum class Kind {
    /// A file the project compiles does not exist: its code is not analysed.
    MissingSource,
    /// A project or web site cannot be read: none of its code is analysed.
    UnreadProject,
    /// Anything else: a missing file that is not compiled (a read-me, an image, a
    /// reference), an import skipped, a solution entry out of place.
    Other,
  };

  /// A warning of `kind`; a plain text is a warning of kind Other.
  LoadWarning(std::string text, Kind kind = Kind::Other) : text(std::move(text)), kind(kind) {}  // NOLINT: implicit

  std::string text;
  Kind kind;
};

inline std::ostream& operator<<(std::ostream& out, const LoadWarning& warning) { return out << warning.text; }

}  // namespace platform::automation
