#include "platform/suite/TempFileNamer.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <set>

#include "testsupport/TempDir.h"

using platform::suite::TempFileNamer;

namespace {

// Sets TMPDIR for the life of the object and puts the previous value back after.
class ScopedTmpdir {
 public:
  explicit ScopedTmpdir(const char* value) {
    const char* old = std::getenv("TMPDIR");
    m_had = old != nullptr;
    if (old) m_old = old;
    if (value) setenv("TMPDIR", value, 1);
    else unsetenv("TMPDIR");
  }
  ~ScopedTmpdir() {
    if (m_had) setenv("TMPDIR", m_old.c_str(), 1);
    else unsetenv("TMPDIR");
  }

 private:
  bool m_had;
  std::string m_old;
};

}  // namespace

TEST(TempFileNamer, FolderFollowsTmpdirWhenItCanBeWritten) {
  testsupport::TempDir dir;
  TempFileNamer namer;
  {
    ScopedTmpdir tmp(dir.path().c_str());
    EXPECT_EQ(namer.Folder(), dir.path().string() + "/");
  }
  {
    ScopedTmpdir tmp((dir.path() / "missing").c_str());
    EXPECT_EQ(namer.Folder(), "/tmp/");
  }
  {
    ScopedTmpdir tmp(nullptr);
    EXPECT_EQ(namer.Folder(), "/tmp/");
  }
  if (geteuid() != 0) {  // root writes anywhere
    auto locked = dir.path() / "locked";
    mkdir(locked.c_str(), 0500);
    ScopedTmpdir tmp(locked.c_str());
    EXPECT_EQ(namer.Folder(), "/tmp/");
  }
}

TEST(TempFileNamer, NamesAreNewEachTimeAndCarryTheTag) {
  testsupport::TempDir dir;
  TempFileNamer namer;
  EXPECT_EQ(namer.FullPath(), "");
  std::set<std::string> names;
  std::string folder = dir.path().string();
  for (int i = 0; i < 100; ++i) {
    namer.MakeTempName("xmm", folder);
    EXPECT_EQ(namer.FullPath().rfind(folder + "/annotra-" + std::to_string(getpid()) + "-", 0), 0u);
    EXPECT_EQ(namer.FullPath().substr(namer.FullPath().size() - 4), ".xmm");
    names.insert(namer.FullPath());
  }
  EXPECT_EQ(names.size(), 100u);
  // A tag cannot lead the name out of the folder.
  namer.MakeTempName("../../etc/x", folder + "/");
  EXPECT_EQ(namer.FullPath().find(".."), std::string::npos);
  EXPECT_EQ(namer.FullPath().rfind(folder + "/annotra-", 0), 0u);
  namer.MakeTempName("", "");
  EXPECT_EQ(namer.FullPath().substr(namer.FullPath().size() - 4), ".tmp");
}
