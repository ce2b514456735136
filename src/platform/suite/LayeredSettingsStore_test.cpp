#include "platform/suite/LayeredSettingsStore.h"

#include <gtest/gtest.h>

#include "platform/suite/IniSettingsStore.h"
#include "platform/suite/MemorySettingsStore.h"
#include "testsupport/ErrorOf.h"
#include "testsupport/TempDir.h"

namespace platform::suite {
namespace {

TEST(LayeredSettingsStore, ReadsTopDownAndWritesOnlyTheTop) {
  testsupport::TempDir dir;
  auto top = std::make_shared<MemorySettingsStore>();
  auto repository = std::make_shared<MemorySettingsStore>(true);
  repository->Put("CommentsAnalyzer", "LineCount", Variant(30));
  repository->Put("CommentsAnalyzer", "EnableBody", Variant(0));
  auto disk = std::make_shared<IniSettingsStore>(dir.path() / "settings.ini");
  disk->Write("CommentsAnalyzer", "XMLCheck", Variant("{Class}|summary"));
  LayeredSettingsStore store({top, repository, nullptr, disk});

  EXPECT_EQ(store.Read("commentsanalyzer", "linecount", Variant(15)), Variant(30));
  EXPECT_EQ(store.Read("CommentsAnalyzer", "XMLCheck", Variant("")), Variant("{Class}|summary"));
  EXPECT_EQ(store.Read("CommentsAnalyzer", "Missing", Variant(7)), Variant(7));
  EXPECT_FALSE(store.Find("CommentsAnalyzer", "Missing"));

  store.Write("CommentsAnalyzer", "LineCount", Variant(40));
  EXPECT_EQ(store.Read("CommentsAnalyzer", "LineCount", Variant(15)), Variant(40));
  EXPECT_EQ(repository->Read("CommentsAnalyzer", "LineCount", Variant()), Variant(30));
  EXPECT_EQ(top->Read("CommentsAnalyzer", "LineCount", Variant()), Variant(40));
  // An empty value stored on top still hides what lies below.
  store.Write("CommentsAnalyzer", "EnableBody", Variant());
  EXPECT_EQ(store.Read("CommentsAnalyzer", "EnableBody", Variant(1)), Variant());
}

TEST(LayeredSettingsStore, ReadOnlyLayersAndNoLayerRefuseWrites) {
  auto repository = std::make_shared<MemorySettingsStore>(true);
  EXPECT_EQ(testsupport::ErrorOf([&] { repository->Write("S", "K", Variant(1)); }), 75);
  LayeredSettingsStore readOnlyTop({repository});
  EXPECT_EQ(testsupport::ErrorOf([&] { readOnlyTop.Write("S", "K", Variant(1)); }), 75);
  LayeredSettingsStore none({});
  EXPECT_EQ(testsupport::ErrorOf([&] { none.Write("S", "K", Variant(1)); }), 75);
  EXPECT_EQ(none.Read("S", "K", Variant("d")), Variant("d"));
}

// A store that implements only Read and Write, as a host's own store might.
class ReadWriteOnly : public SettingsStore {
 public:
  Variant Read(const std::string&, const std::string& key, const Variant& def) override {
    return key == "Zero" ? Variant(0) : key == "One" ? Variant(1) : def;
  }
  void Write(const std::string&, const std::string&, const Variant&) override {}
};

TEST(LayeredSettingsStore, FindOfAPlainStoreTellsStoredValuesEqualToADefaultFromAbsentOnes) {
  ReadWriteOnly store;
  EXPECT_EQ(store.Find("S", "Zero"), Variant(0));
  EXPECT_EQ(store.Find("S", "One"), Variant(1));
  EXPECT_FALSE(store.Find("S", "Other"));
}

}  // namespace
}  // namespace platform::suite
