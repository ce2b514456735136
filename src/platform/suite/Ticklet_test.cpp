#include "platform/suite/Ticklet.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"

namespace platform::suite {
namespace {

using forms::Clock;

TEST(TickletTest, RaisesThatTimeEveryIntervalUntilStopped) {
  Ticklet t;
  int times = 0;
  t.ThatTime.Connect([&] { ++times; });
  Clock::Current().Advance(1000);  // no interval: it does not run
  EXPECT_EQ(times, 0);
  t.SetInterval(200);
  Clock::Current().Advance(199);
  EXPECT_EQ(times, 0);
  Clock::Current().Advance(1);
  EXPECT_EQ(times, 1);
  Clock::Current().Advance(400);
  EXPECT_EQ(times, 3);
  t.SetInterval(0);
  Clock::Current().Advance(1000);
  EXPECT_EQ(times, 3);
}

TEST(TickletTest, SettingTheIntervalAgainRestartsTheCount) {
  Ticklet t;
  int times = 0;
  t.ThatTime.Connect([&] { ++times; });
  t.SetInterval(500);
  Clock::Current().Advance(400);
  t.SetInterval(0);
  t.SetInterval(500);
  Clock::Current().Advance(400);
  EXPECT_EQ(times, 0);
  Clock::Current().Advance(100);
  EXPECT_EQ(times, 1);
}

TEST(TickletTest, AOneShotStopsItselfAndANegativeIntervalIsRefused) {
  Ticklet t;
  int times = 0;
  t.ThatTime.Connect([&] {
    ++times;
    t.SetInterval(0);
  });
  t.SetInterval(50);
  Clock::Current().Advance(500);
  EXPECT_EQ(times, 1);
  t.SetInterval(70);
  EXPECT_THROW(t.SetInterval(-1), Error);
  EXPECT_EQ(t.Interval(), 70);
}

TEST(TickletTest, ATickletDestroyedByAnotherOnesEventIsNotRaised) {
  auto second = std::make_unique<Ticklet>();
  int secondTimes = 0;
  second->ThatTime.Connect([&] { ++secondTimes; });
  second->SetInterval(20);
  Ticklet first;
  first.SetInterval(10);
  first.ThatTime.Connect([&] { second.reset(); });
  Clock::Current().Advance(100);
  EXPECT_EQ(secondTimes, 0);
}

}  // namespace
}  // namespace platform::suite
