#include "options/ctlXMLComments.h"

#include <gtest/gtest.h>

#include "options/FOptions.h"
#include "options/OptionsFixture_test.h"

namespace annotra {
namespace {

using platform::forms::Form;

class ctlXMLCommentsTest : public testing::OptionsFixture {
 protected:
  /// Checks the page while the script plays.
  static std::function<void(Form&)> Page(std::function<void(ctlXMLComments&)> check) {
    return [check](Form& form) { check(dynamic_cast<FOptions&>(form).ctlXMLComments1); };
  }
  /// The values of the seven boxes, "-" after a disabled one.
  static std::string Boxes(const ctlXMLComments& p) {
    std::string s;
    for (const auto* box : {&p.chkPublic, &p.chkPublicXML, &p.chkNonPublic, &p.chkNonPublicXML,
                            &p.chkInheritDoc, &p.chkParamTypes, &p.chkSkipGenerated})
      s += std::to_string(box->Value) + (box->Enabled ? " " : "- ");
    return s;
  }
  std::string StoredBoxes() {
    std::string s;
    for (const char* k : {key::EnablePublic, key::XMLOnPublic, key::EnableNonPublic, key::XMLOnNonPublic,
                          key::AcceptInheritDoc, key::CompareParamTypes, key::SkipGenerated})
      s += Stored(k) + " ";
    return s;
  }
};

TEST_F(ctlXMLCommentsTest, IsDesignedAtItsOwnSizeInTahoma) {
  Form host("FHost");
  ctlXMLComments panel(host, "ctlXMLComments1");
  EXPECT_EQ(panel.Width, 5220);
  EXPECT_EQ(panel.Height, 2940);
  EXPECT_EQ(panel.Font.Name, "Tahoma");
  EXPECT_EQ(panel.chkPublicXML.Left - panel.chkPublic.Left, 240);  // indented under its box
}

TEST_F(ctlXMLCommentsTest, WithNothingStoredPublicNeedsXmlAndNonPublicAPlainComment) {
  auto user = User();
  user->Do(Page([](ctlXMLComments& p) { EXPECT_EQ(Boxes(p), "1 1 1 0 0 1 0 "); })).Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(StoredBoxes(), "1 1 1 0 0 1 0 ");
}

TEST_F(ctlXMLCommentsTest, ADisabledDependentBoxKeepsAndStoresItsValue) {
  auto user = User();
  user->Click("chkPublic");
  user->Do(Page([](ctlXMLComments& p) {
    EXPECT_EQ(Boxes(p), "0 1- 1 0 0 1 0 ");
    EXPECT_FALSE(p.chkPublicXML.UserClick());  // the user cannot change it
    EXPECT_EQ(p.chkPublicXML.Value, 1);
  }));
  user->Click("chkNonPublicXML").Click("chkNonPublic").Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(StoredBoxes(), "0 1 0 1 0 1 0 ");

  // Opened again, the stored values come back with the dependent boxes disabled; a
  // check enables its box again.
  user = User();
  user->Do(Page([](ctlXMLComments& p) { EXPECT_EQ(Boxes(p), "0 1- 0 1- 0 1 0 "); }))
      .Click("chkNonPublic")
      .Do(Page([](ctlXMLComments& p) { EXPECT_EQ(Boxes(p), "0 1- 1 1 0 1 0 "); }))
      .Click("&Cancel");
  EXPECT_FALSE(Run(user));
}

TEST_F(ctlXMLCommentsTest, AnyNonZeroValueReadsAsCheckedAndAGrayedBoxIsStoredAsZero) {
  Store(key::EnablePublic, -1);
  Store(key::XMLOnNonPublic, 7);
  Store(key::SkipGenerated, "True");
  auto user = User();
  user->Do(Page([](ctlXMLComments& p) {
    EXPECT_EQ(Boxes(p), "1 1 1 1 0 1 1 ");
    p.chkPublicXML.Value = 2;  // grayed
  }));
  user->Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(StoredBoxes(), "1 0 1 1 0 1 1 ");
}

TEST_F(ctlXMLCommentsTest, TheRulesBeyondTheCommentRulesAreReadAndStoredLikeTheOthers) {
  Store(key::AcceptInheritDoc, 1);
  Store(key::CompareParamTypes, 0);
  auto user = User();
  user->Do(Page([](ctlXMLComments& p) { EXPECT_EQ(Boxes(p), "1 1 1 0 1 0 0 "); }))
      .Click("chkInheritDoc")
      .Click("chkParamTypes")
      .Click("chkSkipGenerated")
      .Click("&Begin >>");
  EXPECT_TRUE(Run(user));
  EXPECT_EQ(StoredBoxes(), "1 1 1 0 0 1 1 ");
}

TEST_F(ctlXMLCommentsTest, EachBoxHasItsHintForTheFocusAndForTheRestingMouse) {
  const struct {
    const char* box;
    const char* hint;
  } kHints[] = {
      {"chkPublic",
       "Check this to report public definitions (i.e elements marked as 'public' or 'protected') with "
       "missing or non-standard comments."},
      {"chkPublicXML",
       "Use this option to specify the comment type that public definitions should have, that is XML "
       "comment or regular descriptive comment."},
      {"chkNonPublic", "Check this to report non-public definitions with missing or non-standard comments."},
      {"chkNonPublicXML",
       "Use this option to specify the comment type that non-public definitions should have, that is "
       "XML comment or regular descriptive comment."},
      {"chkInheritDoc",
       "Check this to accept an XML comment holding <inheritdoc/> as one that has every required tag "
       "and every parameter tag."},
      {"chkParamTypes",
       "Use this option to specify whether parameter tags should also match the parameter types, or "
       "only the parameter names and count."},
      {"chkSkipGenerated",
       "Check this to skip generated documents (i.e. marked as auto-generated, or named like '*.g.cs' "
       "or '*.generated.cs') as designer files are skipped."},
  };
  auto user = User();
  std::vector<std::string> seen;
  auto hint = [&seen](Form& f) { seen.push_back(dynamic_cast<FOptions&>(f).lblHint.Caption); };
  int x = 10;
  for (const auto& h : kHints) {
    user->Focus(h.box).Do(hint);                                   // at once
    user->Focus("Command4").MouseMove(h.box, x += 10, 20).Wait(499).Do(hint);  // not yet
    user->Wait(1).Do(hint);                                        // now
  }
  user->Click("&Cancel");
  Run(user);
  ASSERT_EQ(seen.size(), 3 * std::size(kHints));
  for (size_t i = 0; i < std::size(kHints); ++i) {
    SCOPED_TRACE(kHints[i].box);
    EXPECT_EQ(seen[3 * i], kHints[i].hint);
    EXPECT_EQ(seen[3 * i + 1], "Click to detail the comment options.");
    EXPECT_EQ(seen[3 * i + 2], kHints[i].hint);
  }
}

}  // namespace
}  // namespace annotra
