#include "platform/suite/ServiceObject.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "testsupport/TempDir.h"

using platform::suite::ServiceObject;

TEST(ServiceObject, TheDataFolderIsTheEnvironmentsUnlessTheHostSetsOne) {
  const char* old = getenv("ANNOTRA_HOME");
  const std::string saved = old ? old : "";
  setenv("ANNOTRA_HOME", "/somewhere/home", 1);
  ServiceObject service;
  EXPECT_EQ(service.DataFolder(), "/somewhere/home/");
  EXPECT_EQ(service.ResultsFolder(), "/somewhere/home/Results/");
  service.SetDataFolder("/run/own/");
  EXPECT_EQ(service.DataFolder(), "/run/own/");
  EXPECT_EQ(service.ResultsFolder(), "/run/own/Results/");
  service.SetDataFolder("/run/other");
  EXPECT_EQ(service.DataFolder(), "/run/other/");
  service.SetDataFolder("");
  EXPECT_EQ(service.DataFolder(), "/somewhere/home/");
  if (old) setenv("ANNOTRA_HOME", saved.c_str(), 1);
  else unsetenv("ANNOTRA_HOME");

  testsupport::TempDir dir;
  EXPECT_TRUE(service.EnsureFolder((dir.path() / "a" / "b").string()));
  EXPECT_TRUE(std::filesystem::is_directory(dir.path() / "a" / "b"));
  EXPECT_FALSE(service.EnsureFolder(dir.Write("file", "x").string()));
}
