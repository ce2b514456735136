#include "platform/core/StderrLine.h"

#include <atomic>
#include <cstdio>

namespace platform::stderr_line {
namespace {

std::atomic<bool> g_open{false};

}  // namespace

void MarkOpen(bool open) { g_open.store(open); }

bool IsOpen() { return g_open.load(); }

void End() {
  if (!g_open.exchange(false)) return;
  std::fputc('\n', stderr);
  std::fflush(stderr);
}

}  // namespace platform::stderr_line
