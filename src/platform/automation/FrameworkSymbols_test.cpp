#include "platform/automation/FrameworkSymbols.h"

#include <gtest/gtest.h>

namespace platform::automation {
namespace {

using Symbols = std::vector<std::string>;

TEST(FrameworkSymbols, EachFamily) {
  EXPECT_EQ(FrameworkSymbols("net8.0"),
            (Symbols{"NET", "NET8_0", "NETCOREAPP", "NET8_0_OR_GREATER", "NET7_0_OR_GREATER", "NET6_0_OR_GREATER",
                     "NET5_0_OR_GREATER", "NETCOREAPP3_1_OR_GREATER", "NETCOREAPP3_0_OR_GREATER",
                     "NETCOREAPP2_2_OR_GREATER", "NETCOREAPP2_1_OR_GREATER", "NETCOREAPP2_0_OR_GREATER",
                     "NETCOREAPP1_1_OR_GREATER", "NETCOREAPP1_0_OR_GREATER"}));
  EXPECT_EQ(FrameworkSymbols("netcoreapp2.1"),
            (Symbols{"NETCOREAPP", "NETCOREAPP2_1", "NETCOREAPP2_1_OR_GREATER", "NETCOREAPP2_0_OR_GREATER",
                     "NETCOREAPP1_1_OR_GREATER", "NETCOREAPP1_0_OR_GREATER"}));
  EXPECT_EQ(FrameworkSymbols(" NetStandard2.0 "),
            (Symbols{"NETSTANDARD", "NETSTANDARD2_0", "NETSTANDARD2_0_OR_GREATER", "NETSTANDARD1_6_OR_GREATER",
                     "NETSTANDARD1_5_OR_GREATER", "NETSTANDARD1_4_OR_GREATER", "NETSTANDARD1_3_OR_GREATER",
                     "NETSTANDARD1_2_OR_GREATER", "NETSTANDARD1_1_OR_GREATER", "NETSTANDARD1_0_OR_GREATER"}));
  EXPECT_EQ(FrameworkSymbols("net462"),
            (Symbols{"NETFRAMEWORK", "NET462", "NET462_OR_GREATER", "NET461_OR_GREATER", "NET46_OR_GREATER",
                     "NET452_OR_GREATER", "NET451_OR_GREATER", "NET45_OR_GREATER", "NET40_OR_GREATER",
                     "NET35_OR_GREATER", "NET20_OR_GREATER"}));
  auto windows = FrameworkSymbols("net6.0-windows10.0.19041.0");
  EXPECT_EQ(windows[1], "NET6_0");
  EXPECT_EQ(Symbols(windows.end() - 3, windows.end()),
            (Symbols{"WINDOWS", "WINDOWS10_0_19041_0", "WINDOWS10_0_19041_0_OR_GREATER"}));
  // A version the table does not know yet still gets its own symbols.
  auto future = FrameworkSymbols("net11.0");
  EXPECT_EQ(future[1], "NET11_0");
  EXPECT_EQ(future[3], "NET11_0_OR_GREATER");
  for (const char* unknown : {"", "uap10.0", "net", "netx.y", "monoandroid12.0", "net4567"})
    EXPECT_TRUE(FrameworkSymbols(unknown).empty()) << unknown;
}

TEST(FrameworkSymbols, ParsingAndCompatibility) {
  auto tf = ParseTargetFramework("net8.0-android34.0");
  EXPECT_EQ(tf.identifier, ".NETCoreApp");
  EXPECT_EQ(tf.platform, "android");
  EXPECT_EQ(VersionText(tf.platformVersion, 2), "34.0");
  EXPECT_EQ(ParseTargetFramework("net48").identifier, ".NETFramework");
  EXPECT_EQ(VersionText(ParseTargetFramework("net472").version), "4.7.2");
  EXPECT_TRUE(ParseVersion("1..2").empty());
  EXPECT_EQ(CompareVersions(ParseVersion("v4.0"), ParseVersion("4")), 0);

  EXPECT_TRUE(IsTargetFrameworkCompatible("net8.0", "net6.0"));
  EXPECT_FALSE(IsTargetFrameworkCompatible("net6.0", "net8.0"));
  EXPECT_TRUE(IsTargetFrameworkCompatible("net8.0", "netstandard2.1"));
  EXPECT_TRUE(IsTargetFrameworkCompatible("net472", "netstandard2.0"));
  EXPECT_FALSE(IsTargetFrameworkCompatible("net48", "netstandard2.1"));
  EXPECT_FALSE(IsTargetFrameworkCompatible("net8.0", "net48"));
  EXPECT_FALSE(IsTargetFrameworkCompatible("net8.0", "net8.0-windows"));
  EXPECT_FALSE(IsTargetFrameworkCompatible("garbage", "net8.0"));
}

}  // namespace
}  // namespace platform::automation
