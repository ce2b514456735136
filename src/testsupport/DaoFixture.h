#pragma once
// A test with a temporary folder and a database workspace, for tests of the database
// layer and of anything above it. Depends on platform/dao and the core only.

#include <gtest/gtest.h>

#include <string>

#include "platform/dao/Database.h"
#include "platform/dao/Workspace.h"
#include "testsupport/TempDir.h"

namespace testsupport {

/// A fresh temporary folder and a workspace for every test; CreateDatabase makes new
/// database files in the folder. The folder and everything in it go away after the test.
class DaoTest : public ::testing::Test {
 protected:
  /// The full path of `name` in the test's folder.
  std::string PathOf(const std::string& name) const { return (dir.path() / name).string(); }

  /// A new database file `name` in the test's folder, open, made as the results store
  /// makes its files (general collating order, version 3.0). Throws what the workspace
  /// throws, e.g. 3204 when the file exists.
  platform::Ref<platform::dao::Database> CreateDatabase(const std::string& name) {
    return ws.CreateDatabase(PathOf(name), platform::dao::dbLangGeneral, platform::dao::dbVersion30);
  }

  TempDir dir;
  platform::dao::Workspace ws;
};

}  // namespace testsupport
