#include "host/MGlobals_Paths.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "host/FParser.h"
#include "host/MGlobals.h"
#include "testsupport/TempDir.h"

namespace annotra {
namespace {

/// Sets ANNOTRA_APP_PATH for one test and puts the old value back.
class AppPathOverride {
 public:
  explicit AppPathOverride(const char* value) {
    const char* old = getenv("ANNOTRA_APP_PATH");
    if (old) m_old = old;
    m_had = old != nullptr;
    if (value) setenv("ANNOTRA_APP_PATH", value, 1);
    else unsetenv("ANNOTRA_APP_PATH");
    MGlobals::ForgetGrammarPaths();
  }
  ~AppPathOverride() {
    if (m_had) setenv("ANNOTRA_APP_PATH", m_old.c_str(), 1);
    else unsetenv("ANNOTRA_APP_PATH");
    MGlobals::ForgetGrammarPaths();
  }

 private:
  std::string m_old;
  bool m_had = false;
};

TEST(MGlobalsPathsTest, TrailingSeparatorAddedOnce) {
  EXPECT_EQ(MGlobals::WithTrailingSeparator("/opt/tools"), "/opt/tools/");
  EXPECT_EQ(MGlobals::WithTrailingSeparator("/opt/tools/"), "/opt/tools/");
  EXPECT_EQ(MGlobals::WithTrailingSeparator("/"), "/");
  EXPECT_EQ(MGlobals::WithTrailingSeparator(""), "");
}

TEST(MGlobalsPathsTest, EnvironmentOverridesTheFolderAndGrammarPathsAreCached) {
  AppPathOverride scope("/srv/annotra");
  EXPECT_EQ(MGlobals::GetAppPath(), "/srv/annotra/");
  EXPECT_EQ(MGlobals::XMLGrammarFile(), "/srv/annotra/XML.GMR");
  EXPECT_EQ(MGlobals::StrConstsGrammarFile(), "/srv/annotra/SC.GMR");
  setenv("ANNOTRA_APP_PATH", "/elsewhere", 1);
  EXPECT_EQ(MGlobals::GetAppPath(), "/elsewhere/");
  EXPECT_EQ(MGlobals::XMLGrammarFile(), "/srv/annotra/XML.GMR");  // computed once
}

TEST(MGlobalsPathsTest, WithoutOverrideTheExecutablesFolder) {
  AppPathOverride scope(nullptr);
  std::string path = MGlobals::GetAppPath();
  ASSERT_FALSE(path.empty());
  EXPECT_EQ(path.back(), '/');
  EXPECT_TRUE(std::filesystem::is_directory(path));
}

TEST(FParserTest, ParsersLoadTheShippedGrammars) {
  AppPathOverride scope(ANNOTRA_SOURCE_DIR "/resources");
  FParser form;
  form.Load();
  EXPECT_FALSE(form.IsVisible());
  EXPECT_TRUE(form.parserXML->LoadGrammar(MGlobals::XMLGrammarFile())) << form.parserXML->LastError();
  EXPECT_TRUE(form.parserBody->LoadGrammar(MGlobals::StrConstsGrammarFile()));
  form.parserBody->SetStartProduction(form.parserBody->FindProduction("CsCommStr.Body"));
  form.parserBody->SetInputText("x = 1; // c\r\n");
  form.parserBody->Parse();
  EXPECT_NE(form.parserBody->StartSearch("/.*Comment", 0), 0);
  EXPECT_TRUE(form.Unload());
}

TEST(FParserTest, MissingGrammarFileFailsToLoad) {
  testsupport::TempDir dir;
  AppPathOverride scope(dir.path().c_str());
  FParser form;
  EXPECT_FALSE(form.parserXML->LoadGrammar(MGlobals::XMLGrammarFile()));
}

}  // namespace
}  // namespace annotra
