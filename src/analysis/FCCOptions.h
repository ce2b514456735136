#pragma once
#include <string>

#include "platform/core/Ref.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/ImageList.h"
#include "platform/forms/Label.h"
#include "platform/forms/Separator.h"
#include "platform/forms/TreeView.h"

namespace platform::suite {
class FormHelper;
}

namespace annotra {

/// The XML options form, "Annotra - XML Options": shows, per kind of code element with
/// an enabled XML comment template, the tags of that template as check boxes, and
/// stores the tags the user keeps checked as the "XMLCheck" setting (the required-tag
/// list of the analysis). Used shown from the options dialog, and unshown by an
/// analysis that finds no "XMLCheck" stored.
class FCCOptions : public platform::forms::Form {
 public:
  FCCOptions();
  ~FCCOptions() override;

  /// Loads the templates. Shown (`bShowForm`): shows the form modally; "XMLCheck" is
  /// written only when the user closes it with OK. Not shown: checks every tag and
  /// writes "XMLCheck" at once. The caller unloads the form afterwards.
  void GetOptions(bool bShowForm);
  /// Fills the tree from the enabled templates of the team database's "XMLComments":
  /// a kind node per template, under it one tag node per distinct element name of the
  /// template (but "ignore"). Says so and leaves the tree empty when the grammar cannot
  /// be loaded, the table cannot be opened or holds no templates.
  void LoadTemplates();
  /// The "XMLCheck" value of the tree: "{Kind}" per kind node, each followed by the
  /// names of its checked tags, joined by "|".
  std::string GetCheckedNodes();
  /// Gives the tree the form's check-box pictures: none on kind nodes, unchecked on
  /// tag nodes.
  void SetStateImages();
  /// Sets one node's check-box picture (0 none, 1 unchecked, 2 checked).
  void SetStateImage(platform::forms::TreeNode& node, int iStatePicture);
  /// Checks every tag node.
  void CheckAllNodes();

  platform::forms::Label Label1;
  platform::forms::TreeView TreeView1;
  platform::forms::CommandButton cmdCheckAll;
  platform::forms::CommandButton cmdUncheckAll;
  platform::forms::CommandButton cmdXMLTemplates;
  platform::forms::Separator AreaSeparator1;
  platform::forms::CommandButton Command1;
  platform::forms::CommandButton Command2;
  platform::forms::CommandButton Command3;
  platform::forms::ImageList ImageList1;
  platform::forms::ImageList imgState;

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_QueryUnload(int& cancel, int unloadMode) override;
  void Form_Unload(int& cancel) override;

 private:
  void cmdCheckAll_Click();
  void cmdUncheckAll_Click();
  void cmdXMLTemplates_Click();
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();

  platform::Ref<platform::suite::FormHelper> m_oFormHelper;
};

}  // namespace annotra
