#include "platform/dao/CompoundFile.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-stdio.h>
#include <gsf/gsf-input.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "testsupport/ErrorOf.h"
#include "testsupport/TempDir.h"

using platform::dao::WriteCompoundFile;
using testsupport::ErrorOf;
namespace fs = std::filesystem;

namespace {

// The stream `name` of the compound file at `path`, read with libgsf's reader; "<none>"
// when the file or the stream cannot be read.
std::string ReadStream(const fs::path& path, const char* name, std::string* classId = nullptr) {
  GError* error = nullptr;
  GsfInput* input = gsf_input_stdio_new(path.c_str(), &error);
  if (!input) {
    g_clear_error(&error);
    return "<none>";
  }
  GsfInfile* ole = gsf_infile_msole_new(input, &error);
  g_object_unref(input);
  if (!ole) {
    g_clear_error(&error);
    return "<none>";
  }
  std::string out = "<none>";
  if (GsfInput* stream = gsf_infile_child_by_name(ole, name)) {
    out.assign(static_cast<size_t>(gsf_input_size(stream)), '\0');
    if (!out.empty() && !gsf_input_read(stream, out.size(), reinterpret_cast<guint8*>(out.data()))) out = "<none>";
    g_object_unref(stream);
  }
  if (classId) {
    guint8 id[16] = {};
    gsf_infile_msole_get_class_id(GSF_INFILE_MSOLE(ole), id);
    classId->assign(reinterpret_cast<const char*>(id), 16);
  }
  g_object_unref(ole);
  return out;
}

}  // namespace

TEST(CompoundFile, StreamsSmallAndLargeReadBackWithTheirClass) {
  testsupport::TempDir dir;
  std::string small = "tiny stream";
  std::string large(100000, '\0');
  for (size_t i = 0; i < large.size(); ++i) large[i] = static_cast<char>(i * 31 % 251);
  const std::string clsid("0123456789abcdef", 16);
  const fs::path file = dir.path() / "book.xls";
  WriteCompoundFile(file.string(), {{"Workbook", large}, {"Small", small}}, clsid);
  std::string readClass;
  EXPECT_EQ(ReadStream(file, "Workbook", &readClass), large);
  EXPECT_EQ(readClass, clsid);
  EXPECT_EQ(ReadStream(file, "Small"), small);
  EXPECT_EQ(ReadStream(file, "Other"), "<none>");
  EXPECT_EQ(fs::status(file).permissions() & fs::perms::all, fs::perms(0644));
}

TEST(CompoundFile, ANameTakenOrAFolderMissingIsRefusedAndNothingIsLeft) {
  testsupport::TempDir dir;
  const fs::path taken = dir.Write("taken.xls", "x");
  EXPECT_EQ(ErrorOf([&] { WriteCompoundFile(taken.string(), {{"Workbook", "a"}}); }), 3204);
  fs::create_directories(dir.path() / "folder.xls");
  EXPECT_EQ(ErrorOf([&] { WriteCompoundFile((dir.path() / "folder.xls").string(), {{"Workbook", "a"}}); }), 3204);
  fs::create_symlink(dir.path() / "nowhere", dir.path() / "link.xls");
  EXPECT_EQ(ErrorOf([&] { WriteCompoundFile((dir.path() / "link.xls").string(), {{"Workbook", "a"}}); }), 3204);
  EXPECT_EQ(ErrorOf([&] { WriteCompoundFile((dir.path() / "no" / "x.xls").string(), {{"Workbook", "a"}}); }), 3044);
  EXPECT_EQ(ErrorOf([&] { WriteCompoundFile("", {{"Workbook", "a"}}); }), 3044);
  EXPECT_EQ(ErrorOf([&] { WriteCompoundFile(dir.path().string() + "/", {{"Workbook", "a"}}); }), 3044);
  int entries = 0;
  for ([[maybe_unused]] auto& e : fs::directory_iterator(dir.path())) ++entries;
  EXPECT_EQ(entries, 3);  // taken.xls, folder.xls, link.xls
  EXPECT_EQ(testsupport::ReadFile(taken), "x");
}
