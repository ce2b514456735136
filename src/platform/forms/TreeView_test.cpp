#include "platform/forms/TreeView.h"

#include <gtest/gtest.h>

#include "platform/core/Error.h"
#include "platform/forms/Form.h"
#include "testsupport/ErrorOf.h"

namespace platform::forms {
namespace {

using testsupport::ErrorOf;

class TreeForm : public Form {
 public:
  TreeForm() : Form("FTree") {}
  ImageList icons{*this, "ImageList1"};
  TreeView tree{*this, "TreeView1"};
};

TEST(TreeViewTest, NodesWithKeysChildrenAndLinks) {
  TreeForm f;
  f.icons.Add("imgClass", "class.png");
  f.icons.Add("imgComments", "comments.png");
  f.tree.Icons = &f.icons;
  auto cls = f.tree.Add("", tvwLast, "CClass", "Class", "imgClass");
  f.tree.Add("CClass", tvwChild, "TClass*summary", "<summary>", "imgComments");
  f.tree.Add("CClass", tvwChild, "TClass*remarks", "<remarks>", "imgComments");
  auto method = f.tree.Add("", tvwLast, "CMethod", "Method");
  EXPECT_EQ(f.tree.Count(), 4);
  EXPECT_EQ(f.tree.FirstRoot(), cls);
  EXPECT_EQ(cls->Next(), method);
  EXPECT_EQ(method->Next(), nullptr);
  EXPECT_EQ(cls->Child()->Text, "<summary>");
  EXPECT_EQ(cls->Child()->Next()->Text, "<remarks>");
  EXPECT_EQ(cls->Child()->Parent(), cls);
  EXPECT_EQ(cls->Children(), 2);
  EXPECT_EQ(method->Child(), nullptr);
  // Reading through a missing link fails as the control does.
  EXPECT_EQ(ErrorOf([&] { (void)method->Child()->Text; }), err::kObjectNotSet);
  EXPECT_EQ(f.tree.Item("TClass*remarks")->Index(), 3);
  f.tree.Add("CClass", tvwPrevious, "CFirst", "First");
  EXPECT_EQ(f.tree.FirstRoot()->Key, "CFirst");
}

TEST(TreeViewTest, DuplicateKeyFailsWith35602AndMissingOnesWith35601) {
  TreeForm f;
  f.tree.Add("", tvwLast, "CEnum", "Enum");
  EXPECT_EQ(ErrorOf([&] { f.tree.Add("", tvwLast, "CEnum", "Enum"); }), 35602);
  EXPECT_EQ(ErrorOf([&] { f.tree.Add("CNone", tvwChild, "x", "x"); }), 35601);
  EXPECT_EQ(ErrorOf([&] { f.tree.Item("CNone"); }), 35601);
  f.tree.Icons = &f.icons;
  EXPECT_EQ(ErrorOf([&] { f.tree.Add("", tvwLast, "y", "y", "imgNone"); }), 35601);
  EXPECT_EQ(f.tree.Count(), 1);
  EXPECT_EQ(ErrorOf([&] { f.icons.Add("a", "a"); f.icons.Add("a", "b"); }), 35602);
}

TEST(TreeViewTest, CheckBoxesFollowTheStatePictures) {
  TreeForm f;
  f.tree.Checkboxes = true;
  auto kind = f.tree.Add("", tvwLast, "CMethod", "Method");
  auto tag = f.tree.Add("CMethod", tvwChild, "TMethod*param", "<param>");
  EXPECT_EQ(tag->StateImage(), 1);
  f.tree.SetStateImage(*kind, 0);
  EXPECT_FALSE(f.tree.UserCheck("CMethod"));  // no box, nothing happens
  std::vector<std::string> checked;
  f.tree.NodeCheck.Connect([&](Ref<TreeNode> n) { checked.push_back(n->Key); });
  EXPECT_TRUE(f.tree.UserCheck("TMethod*param"));
  EXPECT_TRUE(tag->Checked());
  EXPECT_TRUE(f.tree.UserCheck("TMethod*param"));
  EXPECT_FALSE(tag->Checked());
  EXPECT_EQ(checked.size(), 2u);
  kind->SetChecked(false);  // as the control does: the kind node now shows a box
  EXPECT_EQ(kind->StateImage(), 1);
  EXPECT_EQ(ErrorOf([&] { f.tree.SetStateImage(*kind, 3); }), err::kInvalidCall);
}

TEST(TreeViewTest, UnloadingTheFormEmptiesTheTree) {
  TreeForm f;
  f.Load();
  auto n = f.tree.Add("", tvwLast, "a", "a");
  f.tree.Add("a", tvwChild, "b", "b");
  f.Unload();
  EXPECT_EQ(f.tree.Count(), 0);
  EXPECT_EQ(n->Next(), nullptr);
  f.tree.Add("", tvwLast, "a", "a");  // the key is free again
  f.tree.Remove("a");
  EXPECT_EQ(f.tree.Count(), 0);
}

}  // namespace
}  // namespace platform::forms
