#include "options/FOptions.h"

#include <gtest/gtest.h>

#include "options/OptionsFixture_test.h"
#include "platform/forms/ScriptedPresenter.h"

namespace annotra {
namespace {

using platform::forms::Form;
using platform::forms::ScopedPresenter;
using platform::forms::ScriptedPresenter;

constexpr int kEnter = 13, kEscape = 27, kTab = 9, kDown = 40, kF4 = 115;

const std::string kInitialHint =
    "Choose here the scope at which Scribane will perform the code commenting review operation.";
const std::string kScopeHint =
    "Choose here the scope at which Scribane should perform the code commenting analysis operation.";
const std::string kHelpHint = "Click to open this subsystem's online documentation.";
const std::string kOptionsHint = "Click to detail the comment options.";
const std::string kCancelHint =
    "Click to cancel changes and close this dialog (no further operation will be performed).";
const std::string kResting = "Select or move your mouse over a setting to see a quick explanation here.";

// Every key the dialog may write in section "CommentsAnalyzer".
const char* const kDialogKeys[] = {key::LastScope,       key::Tab,           key::EnablePublic,
                                   key::XMLOnPublic,     key::EnableNonPublic, key::XMLOnNonPublic,
                                   key::EnableBody,      key::LineCount,     key::AcceptInheritDoc,
                                   key::CompareParamTypes, key::SkipGenerated};

class FOptionsTest : public testing::OptionsFixture {
 protected:
  /// Checks the dialog on top while the script plays.
  static std::function<void(Form&)> Check(std::function<void(FOptions&)> check) {
    return [check](Form& form) { check(dynamic_cast<FOptions&>(form)); };
  }
  std::string StoredDialogKeys() {
    std::string all;
    for (const char* k : kDialogKeys) all += std::string(k) + "=" + Stored(k) + " ";
    return all;
  }
};

TEST_F(FOptionsTest, ControlsSitWhereTheDialogPlacesThem) {
  const struct {
    const char* path;  // through the containers
    int left, top, width, height, tab;
    const char* caption;  // nullptr: not checked
  } kPlaces[] = {
      {"Label1", 165, 165, 555, 195, 0, "&Scope:"},
      {"cmbOperationScope", 825, 120, 5685, 315, 1, nullptr},
      {"VsTabAreaEx1", 90, 510, 6420, 2295, 2, nullptr},
      {"VsTabAreaEx1.ctlXMLComments1", 180, 480, 5865, 1545, 3, nullptr},
      {"ctlXMLComments1.chkPublic", 0, 0, 5265, 285, 0, "Publicly available definitions should be commented"},
      {"ctlXMLComments1.chkPublicXML", 240, 330, 4305, 285, 1, "Should use XML comments"},
      {"ctlXMLComments1.chkNonPublic", 0, 870, 5265, 285, 2, "Non-publicly available definitions should be commented"},
      {"ctlXMLComments1.chkNonPublicXML", 240, 1200, 4305, 285, 3, "Should use XML comments"},
      {"ctlXMLComments1.chkInheritDoc", 0, 1530, 2160, 285, 4, "Accept <inheritdoc/>"},
      {"ctlXMLComments1.chkParamTypes", 2250, 1530, 2070, 285, 5, "Compare param types"},
      {"ctlXMLComments1.chkSkipGenerated", 4410, 1530, 1620, 285, 6, "Skip generated"},
      {"VsTabAreaEx1.ctlStdComments1", 180, 480, 5865, 1485, 4, nullptr},
      {"ctlStdComments1.chkEnabled", 0, 0, 5355, 285, 0, "Check for method body commenting"},
      {"ctlStdComments1.Label2", 270, 345, 3780, 195, 1, "&Uncommented code blocks should not be longer than"},
      {"ctlStdComments1.Text1", 4140, 300, 390, 285, 1, "15"},
      {"ctlStdComments1.Label4", 4605, 345, 375, 195, 2, "lines."},
      {"Frame1", 90, 2820, 6420, 630, 5, nullptr},
      {"Frame1.lblHint", 90, 150, 6210, 420, 6, kInitialHint.c_str()},
      {"Command3", 90, 3540, 990, 360, 7, "&Help"},
      {"Command4", 1155, 3540, 990, 360, 8, "&Options"},
      {"Command1", 4455, 3540, 990, 360, 9, "&Begin >>"},
      {"Command2", 5520, 3540, 990, 360, 10, "&Cancel"},
  };
  FOptions dialog;
  EXPECT_EQ(dialog.Caption, "Annotra - by Scribane");
  EXPECT_EQ(dialog.Font.Name, "Tahoma");
  EXPECT_EQ(dialog.Width, 6585);
  EXPECT_EQ(dialog.Height, 3975);
  size_t placed = 0;
  for (const auto& p : kPlaces) {
    SCOPED_TRACE(p.path);
    platform::forms::Control* c = dialog.FindControl(p.path);
    ASSERT_TRUE(c);
    std::string path = p.path;
    std::string name = path.substr(path.rfind('.') == std::string::npos ? 0 : path.rfind('.') + 1);
    EXPECT_EQ(c->Name, name);
    EXPECT_EQ((std::vector<int>{c->Left, c->Top, c->Width, c->Height, c->TabIndex}),
              (std::vector<int>{p.left, p.top, p.width, p.height, p.tab}));
    if (p.caption) {
      EXPECT_EQ(c->Caption, p.caption);
    }
    EXPECT_EQ(c->Font.Name, "Tahoma");
    ++placed;
  }
  EXPECT_EQ(dialog.Controls().size(), placed);  // nothing else on the dialog
  EXPECT_EQ(dialog.ctlXMLComments1.Container(), &dialog.VsTabAreaEx1);
  EXPECT_EQ(dialog.lblHint.Container(), &dialog.Frame1);
  EXPECT_TRUE(dialog.Command1.Default);
  EXPECT_TRUE(dialog.Command2.Cancel);
  EXPECT_FALSE(dialog.Command1.Cancel || dialog.Command2.Default || dialog.Command3.Default ||
               dialog.Command4.Default);
}

TEST_F(FOptionsTest, BeginWithNothingStoredStoresTheDefaults) {
  auto user = User();
  user->Do(Check([](FOptions& d) {
         EXPECT_EQ(d.cmbOperationScope.ScopesCount(), 6);
         EXPECT_EQ(d.cmbOperationScope.SelectedScope(), 0);
         EXPECT_EQ(d.VsTabAreaEx1.SelectedTab()->Key(), "Def");
         EXPECT_TRUE(d.ctlXMLComments1.Shown());
         EXPECT_FALSE(d.ctlStdComments1.Shown());
         EXPECT_EQ(d.lblHint.Caption, kInitialHint);
       }))
      .Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(StoredDialogKeys(),
            "LastScope=0 Tab=1 EnablePublic=1 XMLOnPublic=1 EnableNonPublic=1 XMLOnNonPublic=0 "
            "EnableBody=1 LineCount=15 AcceptInheritDoc=0 CompareParamTypes=1 SkipGenerated=0 ");
  EXPECT_TRUE(m_report->entries.empty());
}

TEST_F(FOptionsTest, CancelEscapeAndTheCloseBoxStoreNothing) {
  // Each way out after the same changes on both pages and in the scope.
  std::vector<std::function<void(ScriptedPresenter&)>> exits = {
      [](ScriptedPresenter& u) { u.Click("&Cancel"); },
      [](ScriptedPresenter& u) { u.Key(kEscape); },
      [](ScriptedPresenter& u) { u.Close(); },
      [](ScriptedPresenter&) {},  // the user does nothing more: the close box
  };
  for (size_t i = 0; i < exits.size(); ++i) {
    SCOPED_TRACE(i);
    auto user = User();
    user->Focus("cmbOperationScope").Key(kDown).Click("chkPublic").Click("chkParamTypes");
    user->Do([](Form& f) { dynamic_cast<FOptions&>(f).VsTabAreaEx1.UserClickTab(2); });
    user->Click("chkEnabled").Focus("chkEnabled");
    exits[i](*user);
    EXPECT_FALSE(Run(user));
    EXPECT_EQ(StoredDialogKeys(),
              "LastScope=<none> Tab=<none> EnablePublic=<none> XMLOnPublic=<none> "
              "EnableNonPublic=<none> XMLOnNonPublic=<none> EnableBody=<none> LineCount=<none> "
              "AcceptInheritDoc=<none> CompareParamTypes=<none> SkipGenerated=<none> ");
  }
}

TEST_F(FOptionsTest, AStoredScopeTheSelectorDoesNotOfferOpensOnTheFirstScope) {
  Store(key::LastScope, 5);
  auto user = User();
  user->Do(Check([](FOptions& d) { EXPECT_EQ(d.cmbOperationScope.ListIndex(), 0); })).Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::LastScope), "0");

  Store(key::LastScope, 6);
  user = User();
  user->Do(Check([](FOptions& d) {
         EXPECT_EQ(d.cmbOperationScope.ListIndex(), 5);
         EXPECT_EQ(d.cmbOperationScope.Caption, "Current solution folder");
       }))
      .Key(27);
  EXPECT_FALSE(Run(user));
  EXPECT_EQ(Stored(key::LastScope), "6");
}

TEST_F(FOptionsTest, AStoredScopeThatIsNoNumberIsReportedAndTheSelectorKeepsItsOwnChoice) {
  Store(key::LastScope, "abc");
  auto user = User();
  user->Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::LastScope), "3");  // the selector starts on the current project
  ASSERT_EQ(m_report->entries.size(), 1u);
  EXPECT_EQ(m_report->entries[0].message, "(13) 'Type mismatch'");
  EXPECT_EQ(m_report->entries[0].source, "Quillmark.FOptions.GetOptions");
  EXPECT_EQ(m_report->entries[0].line, 2);
}

TEST_F(FOptionsTest, TheStoredTabOpensItsPageAndBeginStoresThePageShownLast) {
  Store(key::Tab, 2);
  auto user = User();
  user->Do(Check([](FOptions& d) {
    EXPECT_EQ(d.VsTabAreaEx1.SelectedTab()->Key(), "Body");
    EXPECT_TRUE(d.ctlStdComments1.Shown());
    EXPECT_FALSE(d.ctlXMLComments1.Shown());
  }));
  user->Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::Tab), "2");

  // The user goes to the first page by mouse: its first box takes the focus.
  user = User();
  user->MouseDown("VsTabAreaEx1", platform::forms::vbLeftButton, 100, 100)
      .Do(Check([](FOptions& d) {
        EXPECT_TRUE(d.ctlXMLComments1.Shown());
        EXPECT_FALSE(d.ctlStdComments1.Shown());
        EXPECT_EQ(d.ActiveControl(), &d.ctlXMLComments1.chkPublic);
        EXPECT_EQ(d.lblHint.Caption.rfind("Check this to report public definitions", 0), 0u);
      }))
      .Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::Tab), "1");
}

TEST_F(FOptionsTest, ATabThatIsNoPageShowsNoneAndAnUnreadableOneShowsTheFirst) {
  Store(key::Tab, 3);
  auto user = User();
  user->Do(Check([](FOptions& d) {
    EXPECT_FALSE(d.VsTabAreaEx1.SelectedTab());
    EXPECT_FALSE(d.ctlXMLComments1.Shown());
    EXPECT_FALSE(d.ctlStdComments1.Shown());
  }));
  user->Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::Tab), "3");

  Store(key::Tab, "second");
  user = User();
  user->Do(Check([](FOptions& d) { EXPECT_TRUE(d.ctlXMLComments1.Shown()); })).Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::Tab), "1");
  EXPECT_TRUE(m_report->entries.empty());  // the page's failures are silent
}

TEST_F(FOptionsTest, EnterInADroppedScopeListOnlyClosesItAndInAClosedOneBegins) {
  auto user = User();
  user->Focus("cmbOperationScope").Key(kF4).Key(kDown).Key(kDown).Key(kEnter);
  user->Do(Check([](FOptions& d) {
    EXPECT_TRUE(d.IsVisible());
    EXPECT_FALSE(d.cmbOperationScope.IsDroppedDown());
    EXPECT_EQ(d.cmbOperationScope.SelectedScope(), 2);
  }));
  user->Key(kEnter);
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::LastScope), "2");

  // Escape in a dropped list closes the list, not the dialog.
  user = User();
  user->Focus("cmbOperationScope").Key(kF4).Key(kDown).Key(kEscape);
  user->Do(Check([](FOptions& d) {
    EXPECT_TRUE(d.IsVisible());
    EXPECT_EQ(d.cmbOperationScope.SelectedScope(), 2);
  }));
  user->Click("&Begin >>");
  EXPECT_TRUE(Run(user));
}

TEST_F(FOptionsTest, AShortHoverOnOneButtonThenAnotherShowsOnlyTheSecondHint) {
  auto user = User();
  auto hint = [](const std::string& expected) {
    return Check([expected](FOptions& d) { EXPECT_EQ(d.lblHint.Caption, expected); });
  };
  user->MouseMove("Command3", 100, 100).Wait(300).Do(hint(kInitialHint));
  user->MouseMove("Command4", 200, 150).Wait(300).Do(hint(kInitialHint));
  user->Wait(199).Do(hint(kInitialHint)).Wait(1).Do(hint(kOptionsHint));
  user->Wait(2000).Do(hint(kOptionsHint));  // one shot
  user->Click("&Cancel");
  EXPECT_FALSE(Run(user));
}

TEST_F(FOptionsTest, MovesWithinOneControlDoNotRestartTheWait) {
  auto user = User();
  auto hint = [](const std::string& expected) {
    return Check([expected](FOptions& d) { EXPECT_EQ(d.lblHint.Caption, expected); });
  };
  user->MouseMove("Command3", 100, 100).Wait(400);
  user->MouseMove("Command3", 100, 100).MouseMove("Command3", 300, 200).Wait(100).Do(hint(kHelpHint));
  // The scope label and the selector share one hint.
  user->MouseMove("Label1", 50, 50).Wait(500).MouseMove("cmbOperationScope", 60, 60).Wait(400);
  user->MouseMove("Command2", 70, 70).Wait(100).Do(hint(kScopeHint)).Wait(400).Do(hint(kCancelHint));
  user->Click("&Cancel");
  EXPECT_FALSE(Run(user));
}

TEST_F(FOptionsTest, TheBackgroundShowsTheRestingTextAfterTheWait) {
  auto user = User();
  auto hint = [](const std::string& expected) {
    return Check([expected](FOptions& d) { EXPECT_EQ(d.lblHint.Caption, expected); });
  };
  user->MouseMove("Command3", 100, 100).Wait(600).Do(hint(kHelpHint));
  user->MouseMoveAt(3000, 3700).Wait(499).Do(hint(kHelpHint)).Wait(1).Do(hint(kResting));
  // Leaving a box of a page over the page's background leads to the same text, through
  // the page's own timer.
  user->MouseMove("chkPublic", 10, 10).Wait(500);
  user->Do(Check([](FOptions& d) { EXPECT_EQ(d.lblHint.Caption.rfind("Check this to report public", 0), 0u); }));
  user->MouseMove("ctlXMLComments1", 5500, 700).Wait(499);
  user->Do(Check([](FOptions& d) { EXPECT_NE(d.lblHint.Caption, kResting); }));
  user->Wait(1).Do(hint(kResting));
  user->Click("&Cancel");
  EXPECT_FALSE(Run(user));
}

TEST_F(FOptionsTest, FocusByKeyboardShowsAHintAtOnce) {
  auto user = User();
  auto hint = [](const std::string& expected) {
    return Check([expected](FOptions& d) { EXPECT_EQ(d.lblHint.Caption, expected); });
  };
  user->Key(kTab).Do(hint(kScopeHint));  // the first stop is the scope selector
  user->Focus("Command3").Do(hint(kHelpHint));
  user->Key(kTab).Do(hint(kOptionsHint));
  user->Key(kTab, 1).Do(hint(kHelpHint));
  user->AccessKey('s').Do(hint(kScopeHint));  // the label's access key reaches the selector
  user->Focus("chkNonPublicXML")
      .Do(hint("Use this option to specify the comment type that non-public definitions should have, "
               "that is XML comment or regular descriptive comment."));
  user->Key(kEscape);
  EXPECT_FALSE(Run(user));
}

TEST_F(FOptionsTest, OptionsStoresTheRequiredTagsOnItsOwnOkEvenWhenTheDialogIsCancelled) {
  auto user = User();
  user->Click("&Options")
      .Click("&Uncheck All")
      .Check("TreeView1", "TMethod*param")
      .Click("&OK")                 // the template options' OK
      .Do(Check([](FOptions& d) { EXPECT_TRUE(d.IsVisible()); }))
      .Click("&Cancel");            // the dialog's Cancel
  EXPECT_FALSE(Run(user));
  EXPECT_EQ(Stored(key::XMLCheck),
            "{Class}|{Delegate}|{Enum}|{Method}|param|{Interface}|{Module}|{Structure}|{Event}|"
            "{Property}|{Field (variable, constant)}");
  EXPECT_EQ(Stored(key::LastScope), "<none>");

  // Cancelled there, the template options store nothing; the dialog goes on.
  Store(key::XMLCheck, "{Class}|summary");
  user = User();
  user->Click("&Options").Click("&Uncheck All").Click("&Cancel").Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(Stored(key::XMLCheck), "{Class}|summary");
}

TEST_F(FOptionsTest, HelpOpensTheTopicAndBeginWorksByItsAccessKey) {
  auto user = User();
  user->Click("&Help").AccessKey('b');
  ::testing::internal::CaptureStdout();
  bool ok = Run(user);
  std::string out = ::testing::internal::GetCapturedStdout();
  EXPECT_TRUE(ok);
  EXPECT_NE(out.find("Help: "), std::string::npos) << out;
  EXPECT_NE(out.find("help/htm/XMLAnalyzer_Using.htm"), std::string::npos) << out;
}

TEST_F(FOptionsTest, ADialogUnloadedAndShownAgainStartsAfresh) {
  auto user = User();
  user->Click("&Begin >>").Do(Check([](FOptions& d) {
    EXPECT_EQ(d.VsTabAreaEx1.TabsCount(), 2);
    EXPECT_EQ(d.cmbOperationScope.ScopesCount(), 6);
  }));
  user->Click("&Cancel");
  ScopedPresenter scope(user);
  FOptions dialog;
  EXPECT_TRUE(dialog.GetOptions());
  dialog.Unload();
  EXPECT_FALSE(dialog.GetOptions());
  dialog.Unload();
  EXPECT_TRUE(user->errors.empty());
  EXPECT_TRUE(m_report->entries.empty());
}

TEST_F(FOptionsTest, TheDialogComesBackWhereItWasLeft) {
  {
    auto user = User();
    user->Do([](Form& f) { f.Left = 1234, f.Top = 567; }).Click("&Cancel");
    Run(user);
  }
  auto user = User();
  user->Do(Check([](FOptions& d) {
         EXPECT_EQ(d.Left, 1234);
         EXPECT_EQ(d.Top, 567);
       }))
      .Click("&Cancel");
  Run(user);
}

}  // namespace
}  // namespace annotra
