#include "platform/automation/PathProbe.h"

#include <gtest/gtest.h>

#include "platform/automation/FileGlob.h"
#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

TEST(PathProbe, AsksTheDiskOncePerPathAndLearnsFromListings) {
  testsupport::TempDir dir;
  auto file = dir.Write("a/b.cs", "class B { }");
  dir.Write("a/c/d.cs", "class D { }");
  PathProbe probe;
  EXPECT_TRUE(probe.IsFile(file));
  EXPECT_TRUE(probe.IsFolder(dir.path() / "a"));
  EXPECT_FALSE(probe.Exists(dir.path() / "missing"));
  EXPECT_EQ(probe.Calls(), 3);
  // The same questions again cost nothing, even after the disk changed: one probe sees
  // one load's view of it.
  std::filesystem::remove(file);
  EXPECT_TRUE(probe.Exists(file));
  EXPECT_FALSE(probe.IsFolder(dir.path() / "missing"));
  EXPECT_EQ(probe.Calls(), 3);
  EXPECT_EQ(KindOfPath(nullptr, file), PathProbe::Kind::Missing);  // no probe: the disk itself

  // What a glob lists is known without a call of its own.
  auto found = PathPattern("**/*.cs", dir.path()).Expand({}, &probe);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_TRUE(probe.IsFile(found.front()));
  EXPECT_TRUE(probe.IsFolder(dir.path() / "a" / "c"));
  EXPECT_EQ(probe.Calls(), 3);
}

}  // namespace
}  // namespace platform::automation
