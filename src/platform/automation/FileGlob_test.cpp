#include "platform/automation/FileGlob.h"

#include <gtest/gtest.h>

#include "testsupport/TempDir.h"

namespace platform::automation {
namespace {

TEST(PathPattern, MatchesSegmentsWildcardsAndAnyDepth) {
  PathPattern all("**/*.cs", "/p");
  EXPECT_TRUE(all.Matches("/p/a.cs"));  // "**" stands for no folder too
  EXPECT_TRUE(all.Matches("/p/x/y/z/B.CS"));
  EXPECT_FALSE(all.Matches("/p/a.csx"));
  EXPECT_FALSE(all.Matches("/q/a.cs"));

  PathPattern oneLevel("src\\*\\?.vb", "/p");
  EXPECT_TRUE(oneLevel.Matches("/p/src/x/A.vb"));
  EXPECT_FALSE(oneLevel.Matches("/p/src/x/AB.vb"));
  EXPECT_FALSE(oneLevel.Matches("/p/src/x/y/A.vb"));

  PathPattern up("../Shared/**/gen*.cs", "/p/app");
  EXPECT_TRUE(up.Matches("/p/Shared/GenCode.cs"));
  EXPECT_TRUE(up.Matches("/p/Shared/a/b/gen.cs"));

  PathPattern hidden("**/.*/**", "/p");
  EXPECT_TRUE(hidden.MatchesEverythingBelow("/p/a/.git"));
  EXPECT_FALSE(hidden.MatchesEverythingBelow("/p/a/git"));

  EXPECT_TRUE(PathPattern("  ", "/p").Empty());
  EXPECT_FALSE(PathPattern("", "/p").Matches("/p"));
  // Patterns with many stars stay fast: no exponential back-tracking.
  EXPECT_FALSE(PathPattern("**/**/**/**/**/**/**/**/**/**/**/**/x", "/").Matches(
      "/a/b/c/d/e/f/g/h/i/j/k/l/m/n/o/p/q/r/s/t/u/v/w/y"));
  EXPECT_FALSE(MatchesSegment("*a*a*a*a*a*a*a*a*a*b", std::string(200, 'a')));
}

TEST(PathPattern, ExpandSkipsExcludedFoldersAndKeepsDiskSpelling) {
  testsupport::TempDir dir;
  for (const char* f : {"A.cs", "Sub/B.cs", "Sub/Deep/C.CS", "bin/D.cs", "obj/E.cs", ".vs/F.cs", "Sub/.git/G.cs",
                        "notes.txt"})
    dir.Write(f, "x");
  std::vector<PathPattern> excludes;
  for (const char* e : {"bin/**", "obj/**", "**/.*/**"}) excludes.emplace_back(e, dir.path());
  auto found = PathPattern("**/*.cs", dir.path()).Expand(excludes);
  std::vector<std::string> names;
  for (auto& f : found) names.push_back(f.lexically_relative(dir.path()).generic_string());
  EXPECT_EQ(names, (std::vector<std::string>{"A.cs", "Sub/B.cs", "Sub/Deep/C.CS"}));

  // The literal part of a pattern is found whatever its letter case on disk.
  auto one = PathPattern("sub/*.cs", dir.path()).Expand({});
  ASSERT_EQ(one.size(), 1u);
  EXPECT_EQ(one[0], dir.path() / "Sub/B.cs");

  EXPECT_TRUE(PathPattern("missing/**/*.cs", dir.path()).Expand({}).empty());
}

TEST(PathCaseResolver, FindsTheDiskSpellingOrKeepsThePath) {
  testsupport::TempDir dir;
  dir.Write("Forms/MainForm.cs", "x");
  PathCaseResolver resolver;
  EXPECT_EQ(resolver.Resolve(dir.path() / "forms/MAINFORM.cs"), dir.path() / "Forms/MainForm.cs");
  EXPECT_EQ(resolver.Resolve(dir.path() / "Forms/MainForm.cs"), dir.path() / "Forms/MainForm.cs");
  EXPECT_EQ(resolver.Resolve(dir.path() / "forms/Missing.cs"), dir.path() / "forms/Missing.cs");
  // A listing read before does not hide a file the disk has now.
  dir.Write("Forms/Late.cs", "x");
  EXPECT_EQ(resolver.Resolve(dir.path() / "Forms/Late.cs"), dir.path() / "Forms/Late.cs");
}

}  // namespace
}  // namespace platform::automation
