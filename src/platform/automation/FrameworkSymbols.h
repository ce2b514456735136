#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace platform::automation {

/// A target framework as a project names it: "net8.0", "net8.0-windows10.0.19041.0",
/// "netcoreapp3.1", "netstandard2.0", "net48", "net472".
struct TargetFrameworkName {
  std::string identifier;        // ".NETCoreApp", ".NETFramework", ".NETStandard"; "" unknown
  std::vector<int> version;      // {8, 0}, {4, 7, 2}; empty when unknown
  std::string platform;          // "windows" (lower case); "" for none
  std::vector<int> platformVersion;  // {10, 0, 19041, 0}; empty for none
};

/// The framework named by `moniker` (any letter case, blanks around it ignored). An
/// unrecognised name gives an empty identifier.
TargetFrameworkName ParseTargetFramework(std::string_view moniker);

/// The preprocessing symbols the build defines for code compiled against `moniker`:
/// for .NET 5 and later NET, NETn_m, NETCOREAPP and every NETn_0_OR_GREATER and
/// NETCOREAPPx_y_OR_GREATER up to it; for .NET Core NETCOREAPP, NETCOREAPPx_y and its
/// _OR_GREATER line; for .NET Standard NETSTANDARD, NETSTANDARDx_y and its line; for
/// .NET Framework NETFRAMEWORK, NETxyz and its line; for a platform suffix its name
/// (WINDOWS) and, with a version, WINDOWS10_0_19041_0 and its _OR_GREATER. Nothing for
/// an unrecognised name.
std::vector<std::string> FrameworkSymbols(std::string_view moniker);

/// `version` as dotted text with at least `parts` parts ("8.0"); `parts` <= 0 gives
/// every part there is.
std::string VersionText(const std::vector<int>& version, int parts = 0);

/// Parses a dotted version ("4.7.2", "v8.0"); a leading 'v' is allowed. Empty when
/// `text` is no version.
std::vector<int> ParseVersion(std::string_view text);

/// Compares two versions part by part, missing parts counting as 0: <0, 0 or >0.
int CompareVersions(const std::vector<int>& a, const std::vector<int>& b);

/// Whether code built for `candidate` can be used from a project targeting `target`
/// (the same framework family at the same or a lower version, or a .NET Standard the
/// target implements).
bool IsTargetFrameworkCompatible(std::string_view target, std::string_view candidate);

}  // namespace platform::automation
