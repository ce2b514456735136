#pragma once
#include <cstdint>
#include <string>

#include "Finding.h"

namespace app {

/// The value of a finding's SARIF partialFingerprints: a hash of its project, document,
/// folders, type, member and problem, and of `occurrence`, its number among the
/// findings of the same document with the same type, member and problem (1 for the
/// first). Lines are no part of it, so it stays when code above the finding moves.
std::string FingerprintOf(const Finding& finding, int occurrence);

/// `path` as a URI reference: unreserved characters and "/" kept, every other byte
/// percent-encoded.
std::string UriOfPath(const std::string& path);

}  // namespace app
