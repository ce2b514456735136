#include "platform/core/Variant.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "platform/core/Event.h"
#include "platform/core/Ref.h"
#include "testsupport/ErrorOf.h"

using platform::Error;
using platform::Variant;

namespace {

// The number of the error converting `v` to a 16-bit integer fails with; 0 when it works.
int ToInt16Error(const Variant& v) {
  return testsupport::ErrorOf([&] { platform::ToInt16(v); });
}

}  // namespace

TEST(ToInt16, DecimalTextConvertsAndHalfRoundsToEven) {
  EXPECT_EQ(platform::ToInt16(Variant("15")), 15);
  EXPECT_EQ(platform::ToInt16(Variant(" -7 ")), -7);
  EXPECT_EQ(platform::ToInt16(Variant("2.5")), 2);
  EXPECT_EQ(platform::ToInt16(Variant("3.5")), 4);
  EXPECT_EQ(platform::ToInt16(Variant(-2.5)), -2);
  EXPECT_EQ(platform::ToInt16(Variant(true)), -1);
  EXPECT_EQ(platform::ToInt16(Variant()), 0);
}

TEST(ToInt16, NonNumbersAreTypeMismatchAndOutOfRangeIsOverflow) {
  EXPECT_EQ(ToInt16Error(Variant("abc")), 13);
  EXPECT_EQ(ToInt16Error(Variant("")), 13);
  EXPECT_EQ(ToInt16Error(Variant("0x10")), 13);
  EXPECT_EQ(ToInt16Error(Variant("inf")), 13);
  EXPECT_EQ(ToInt16Error(Variant("12abc")), 13);
  EXPECT_EQ(ToInt16Error(Variant("32768")), 6);
  EXPECT_EQ(ToInt16Error(Variant(-32769)), 6);
  EXPECT_EQ(ToInt16Error(Variant("32767")), 0);
  EXPECT_EQ(ToInt16Error(Variant(-32768)), 0);
  EXPECT_EQ(ToInt16Error(Variant(32767.5)), 6);  // rounds to 32768
}

TEST(ToBool, NonZeroIsTrueAndWordsConvert) {
  EXPECT_TRUE(platform::ToBool(Variant(-1)));
  EXPECT_TRUE(platform::ToBool(Variant(2)));
  EXPECT_FALSE(platform::ToBool(Variant(0)));
  EXPECT_TRUE(platform::ToBool(Variant("True")));
  EXPECT_FALSE(platform::ToBool(Variant("false")));
  EXPECT_THROW(platform::ToBool(Variant("maybe")), Error);
}

TEST(Ref, MissingObjectFailsWith91) {
  struct Thing {
    int value = 3;
  };
  platform::Ref<Thing> none;
  try {
    (void)none->value;
    FAIL() << "no error";
  } catch (const Error& e) {
    EXPECT_EQ(e.number, 91);
    EXPECT_EQ(e.description, "Object variable or With block variable not set");
  }
  platform::Ref<Thing> some = std::make_shared<Thing>();
  EXPECT_EQ(some->value, 3);
}

TEST(Event, HandlersRunInOrderAndMayWriteReferenceArguments) {
  platform::Event<int&, std::string> event;
  std::vector<std::string> seen;
  event.Connect([&](int& n, std::string s) { seen.push_back("a" + s); n += 1; });
  int second = event.Connect([&](int& n, std::string s) { seen.push_back("b" + s); n *= 10; });
  int value = 1;
  event.Raise(value, "x");
  EXPECT_EQ(value, 20);
  EXPECT_EQ(seen, (std::vector<std::string>{"ax", "bx"}));  // both got the whole string
  event.Disconnect(second);
  event.Raise(value, "y");
  EXPECT_EQ(value, 21);
}
