#pragma once

namespace app {

/// The program's version, as the build names it.
inline constexpr const char* kVersion = ANNOTRA_VERSION;

}  // namespace app
