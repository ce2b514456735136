#pragma once
// The failure a call ends with, for tests that expect a platform::Error. Depends on the
// core only, so tests of every folder may use it.

#include <utility>

#include "platform/core/Error.h"

namespace testsupport {

/// The number of the platform::Error that `f()` throws; 0 when it returns normally.
/// Exceptions of other types pass through, so a failure of the wrong kind fails the test
/// instead of reading as "no error".
template <class F>
int ErrorOf(F&& f) {
  try {
    std::forward<F>(f)();
  } catch (const platform::Error& e) {
    return e.number;
  }
  return 0;
}

}  // namespace testsupport
