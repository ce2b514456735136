#include "options/ctlStdComments.h"

#include <gtest/gtest.h>

#include "options/FOptions.h"
#include "options/OptionsFixture_test.h"

namespace annotra {
namespace {

using platform::forms::Form;

constexpr int kTab = 9;
const std::string kLinesHint =
    "Enter here the maximum number of contiguous uncommented lines that is considered acceptable by "
    "your standards.";
const std::string kEnabledHint =
    "Check this to search for contiguous code blocks within methods, which exceed a certain maximum "
    "length and have no comments.";
const std::string kResting = "Select or move your mouse over a setting to see a quick explanation here.";

class ctlStdCommentsTest : public testing::OptionsFixture {
 protected:
  void SetUp() override {
    OptionsFixture::SetUp();
    Store(key::Tab, 2);  // the dialog opens on this page
  }
  static std::function<void(Form&)> Page(std::function<void(ctlStdComments&)> check) {
    return [check](Form& form) { check(dynamic_cast<FOptions&>(form).ctlStdComments1); };
  }
  static std::function<void(Form&)> Hint(const std::string& expected) {
    return [expected](Form& form) { EXPECT_EQ(dynamic_cast<FOptions&>(form).lblHint.Caption, expected); };
  }
  /// The text the page shows for a stored limit.
  std::string Shown(const platform::Variant& stored) {
    Store(key::LineCount, stored);
    std::string text;
    auto user = User();
    user->Do(Page([&](ctlStdComments& p) { text = p.Text1.Text(); })).Click("&Cancel");
    Run(user);
    return text;
  }
  /// What is stored when the user types `text` over the limit and begins.
  std::string StoredAfterTyping(const std::string& text) {
    Store(key::LineCount, 20);
    auto user = User();
    user->Focus("Text1").Type("\b\b" + text).Click("&Begin >>");
    Run(user);
    return Stored(key::LineCount);
  }
};

TEST_F(ctlStdCommentsTest, IsDesignedAtItsOwnSizeWithADigitsOnlyLimitOf15) {
  Form host("FHost");
  ctlStdComments panel(host, "ctlStdComments1");
  EXPECT_EQ(panel.Width, 5160);
  EXPECT_EQ(panel.Height, 2715);
  EXPECT_EQ(panel.Text1.Text(), "15");
  EXPECT_TRUE(panel.Text1.DigitsOnly());
  EXPECT_EQ(panel.Text1.Font.Name, "Tahoma");
}

TEST_F(ctlStdCommentsTest, AStoredLimitOutsideFiveToAHundredOrNoNumberShowsFifteen) {
  EXPECT_EQ(Shown(4), "15");
  EXPECT_EQ(Shown(5), "5");
  EXPECT_EQ(Shown(100), "100");
  EXPECT_EQ(Shown(101), "15");
  EXPECT_EQ(Shown("abc"), "15");
  EXPECT_EQ(Shown(70000), "15");
  EXPECT_EQ(Shown(" 42 "), "42");
  EXPECT_TRUE(m_report->entries.empty());  // silently
}

TEST_F(ctlStdCommentsTest, ATypedLimitThatIsNoneOrOutOfRangeIsStoredAsFifteen) {
  EXPECT_EQ(StoredAfterTyping(""), "15");
  EXPECT_EQ(StoredAfterTyping("0"), "15");
  EXPECT_EQ(StoredAfterTyping("250"), "15");
  EXPECT_EQ(StoredAfterTyping("99999"), "15");  // beyond 16 bits
  EXPECT_EQ(StoredAfterTyping("100"), "100");
  EXPECT_EQ(StoredAfterTyping("5"), "5");
  EXPECT_TRUE(m_report->entries.empty());
}

TEST_F(ctlStdCommentsTest, LettersAndSignsAreRefusedWhileTyping) {
  auto user = User();
  user->Focus("Text1").Type("\b\b-4a+2.e ").Do(Page([](ctlStdComments& p) { EXPECT_EQ(p.Text1.Text(), "42"); }));
  user->Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::LineCount), "42");
}

TEST_F(ctlStdCommentsTest, UncheckingTheCheckDisablesTheLimitWhichIsStillStored) {
  Store(key::LineCount, 30);
  auto user = User();
  user->Do(Page([](ctlStdComments& p) { EXPECT_TRUE(p.Text1.Enabled); }))
      .Click("chkEnabled")
      .Do(Page([](ctlStdComments& p) {
        EXPECT_FALSE(p.Text1.Enabled);
        EXPECT_FALSE(p.Text1.UserType("9"));
        EXPECT_EQ(p.Text1.Text(), "30");
      }))
      .Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::EnableBody), "0");
  EXPECT_EQ(Stored(key::LineCount), "30");

  user = User();
  user->Do(Page([](ctlStdComments& p) {
         EXPECT_EQ(p.chkEnabled.Value, 0);
         EXPECT_FALSE(p.Text1.Enabled);
       }))
      .Click("&Cancel");
  Run(user);
}

TEST_F(ctlStdCommentsTest, KeyboardFocusShowsHintsAtOnceAndTheAccessKeyReachesTheLimit) {
  auto user = User();
  user->Focus("VsTabAreaEx1").Key(kTab).Do(Hint(kEnabledHint));
  user->Key(kTab).Do(Hint(kLinesHint));
  user->Focus("Command3").AccessKey('u').Do(Page([](ctlStdComments& p) {
    EXPECT_EQ(p.Parent().ActiveControl(), &p.Text1);
  }));
  user->Do(Hint(kLinesHint)).Click("&Cancel");
  Run(user);
}

TEST_F(ctlStdCommentsTest, TheLabelsAroundTheLimitShowItsHintOnceTheMouseRests) {
  auto user = User();
  user->MouseMove("Label2", 100, 50).Wait(500).Do(Hint(kLinesHint));
  user->MouseMove("chkEnabled", 120, 60).Wait(500).Do(Hint(kEnabledHint));
  user->MouseMove("Label4", 10, 10).Wait(500).Do(Hint(kLinesHint));
  user->Click("&Cancel");
  Run(user);
}

TEST_F(ctlStdCommentsTest, LeavingThePageWithTheFocusShowsTheRestingTextAfterTheWait) {
  auto user = User();
  user->Focus("Text1").MouseMove("Label2", 100, 50).Wait(500).Do(Hint(kLinesHint));
  user->Focus("Command3").Do(Hint("Click to open this subsystem's online documentation."));
  user->Wait(500).Do(Hint(kResting));
  user->Click("&Cancel");
  Run(user);
}

}  // namespace
}  // namespace annotra
