#include "analysis/FCCOptions.h"

#include "host/FParser.h"
#include "host/SettingsKeys.h"
#include "host/MGlobals.h"
#include "host/Steps.h"
#include "platform/automation/DTE.h"
#include "platform/automation/StatusBar.h"
#include "platform/core/Error.h"
#include "platform/dao/DaoConstants.h"
#include "platform/dao/Database.h"
#include "platform/dao/Field.h"
#include "platform/dao/Recordset.h"
#include "platform/forms/DoEvents.h"
#include "platform/suite/ElementKinds.h"
#include "platform/forms/MessageBox.h"
#include "platform/forms/Screen.h"
#include "platform/suite/FormHelper.h"
#include "platform/suite/Help.h"
#include "platform/suite/SettingsStore.h"
#include "platform/suite/XMLCommentTemplatesManager.h"

namespace annotra {

namespace kind = platform::suite::kind;

using platform::Ref;
using platform::forms::TreeNode;

namespace {

// The icon of each kind of code element in ImageList1.
const struct {
  const char* kind;
  const char* icon;
} kKindIcons[] = {
    {kind::Class, "imgClass"},         {kind::Delegate, "imgDelegate"},
    {kind::Enum, "imgEnum"},           {kind::Method, "imgMethod"},
    {kind::Interface, "imgInterface"}, {kind::Module, "imgModule"},
    {kind::Namespace, "imgNamespace"}, {kind::Structure, "imgStructure"},
    {kind::Event, "imgEvent"},         {kind::Property, "imgProperty"},
    {kind::Field, "imgField"},
};

// A kind outside the table has no icon of its own.
std::string IconOf(const std::string& kind) {
  for (const auto& k : kKindIcons)
    if (kind == k.kind) return k.icon;
  return "";
}

bool IsTagNode(const TreeNode& node) { return !node.Text.empty() && node.Text[0] == '<'; }

}  // namespace

FCCOptions::FCCOptions()
    : Form("FCCOptions", "Annotra - XML Options"),
      Label1(*this, "Label1",
             "Specify the XML tags to be checked against the correspondent XML comment template:"),
      TreeView1(*this, "TreeView1"),
      cmdCheckAll(*this, "cmdCheckAll", "Check &All"),
      cmdUncheckAll(*this, "cmdUncheckAll", "&Uncheck All"),
      cmdXMLTemplates(*this, "cmdXMLTemplates", "&Templates"),
      AreaSeparator1(*this, "AreaSeparator1"),
      Command1(*this, "Command1", "&OK"),
      Command2(*this, "Command2", "&Cancel"),
      Command3(*this, "Command3", "&Help"),
      ImageList1(*this, "ImageList1"),
      imgState(*this, "imgState") {
  // In the cells of a terminal: the prompt over two lines, the tree on the left with
  // its buttons beside it, a separator, and the dialog's buttons along the bottom.
  constexpr int x = platform::forms::Screen::TwipsPerCellX, y = platform::forms::Screen::TwipsPerCellY;
  Width = 45 * x;
  Height = 5700;
  Label1.Move(1 * x, 1 * y, 43 * x, 2 * y);
  TreeView1.Move(1 * x, 4 * y, 29 * x, 15 * y);
  cmdCheckAll.Move(31 * x, 4 * y, 13 * x, 1 * y);
  cmdUncheckAll.Move(31 * x, 6 * y, 13 * x, 1 * y);
  cmdXMLTemplates.Move(31 * x, 8 * y, 13 * x, 1 * y);
  AreaSeparator1.Move(1 * x, 20 * y, 43 * x, 1 * y);
  Command3.Move(1 * x, 22 * y, 9 * x, 1 * y);
  Command1.Move(24 * x, 22 * y, 9 * x, 1 * y);
  Command2.Move(35 * x, 22 * y, 9 * x, 1 * y);
  for (const auto& k : kKindIcons) ImageList1.Add(k.icon, std::string(k.icon) + ".bmp");
  ImageList1.Add("imgComments", "imgComments.bmp");
  imgState.Add("", "stateNone.bmp");
  imgState.Add("", "stateUnchecked.bmp");
  imgState.Add("", "stateChecked.bmp");
  TreeView1.Checkboxes = true;
  TreeView1.Icons = &ImageList1;
  Command1.Default = true;
  Command2.Cancel = true;
  cmdCheckAll.Click.Connect([this] { cmdCheckAll_Click(); });
  cmdUncheckAll.Click.Connect([this] { cmdUncheckAll_Click(); });
  cmdXMLTemplates.Click.Connect([this] { cmdXMLTemplates_Click(); });
  Command1.Click.Connect([this] { Command1_Click(); });
  Command2.Click.Connect([this] { Command2_Click(); });
  Command3.Click.Connect([this] { Command3_Click(); });
}

FCCOptions::~FCCOptions() = default;

void FCCOptions::GetOptions(bool bShowForm) {
  Steps step("Quillmark.FCCOptions.GetOptions");
  step(1, [&] { LoadTemplates(); });
  if (bShowForm) {
    step(2, [&] { Show(platform::forms::vbModal); });
    return;
  }
  step(3, [&] { SetStateImages(); });
  step(4, [&] { CheckAllNodes(); });
  step(5, [&] {
    MGlobals::AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key::XMLCheck, GetCheckedNodes());
  });
}

void FCCOptions::LoadTemplates() {
  Steps step("Quillmark.FCCOptions.LoadTemplates");
  std::shared_ptr<FParser> frmParser;
  Ref<platform::grammar::GrammarParser> parser;
  step(1, [&] {
    frmParser = std::make_shared<FParser>();
    frmParser->Load();
    parser = frmParser->parserXML;
  });
  auto unloadParser = [&] {
    parser.reset();
    if (frmParser) Quietly([&] { frmParser->Unload(); });
    frmParser.reset();
  };
  bool loaded = false;
  step(2, [&] { loaded = parser->LoadGrammar(MGlobals::XMLGrammarFile()); });
  if (!loaded) {
    ReportMessage("Could not load grammar file: <" + MGlobals::XMLGrammarFile() + ">");
    unloadParser();
    return;
  }
  Ref<platform::dao::Recordset> rs;
  Quietly([&] {
    rs = MGlobals::TeamDB->OpenRecordset("XMLComments", platform::dao::dbOpenTable,
                                         platform::dao::dbReadOnly);
  });
  if (!rs) {
    platform::forms::MsgBox(
        "Problem opening the XML comment templates recordset. Cannot continue with the XML "
        "comment analysis.",
        platform::forms::vbCritical, "Scribane");
    Hide();
    unloadParser();
    return;
  }
  int32_t count = 0;
  step(4, [&] { count = rs->RecordCount(); });
  if (count == 0) {
    platform::forms::MsgBox(
        "No XML comment templates defined - cannot perform analysis. Please open the XML "
        "Comment Templates Manager and configure the templates first.",
        platform::forms::vbExclamation, "Scribane");
    Hide();
    Quietly([&] { rs->Close(); });
    unloadParser();
    return;
  }
  step(5, [&] { TreeView1.Clear(); });
  step(5, [&] { rs->MoveFirst(); });
  bool atEnd = true;
  step(5, [&] { atEnd = rs->Eof(); });
  while (!atEnd) {
    bool enabled = false;
    step(51, [&] {
      platform::Variant v = rs->Fields("Enabled")->Value();
      enabled = !v.IsEmpty() && platform::ToBool(v);
    });
    if (enabled) {
      std::string kind;
      step(52, [&] { kind = platform::ToString(rs->Fields("Prototype")->Value()); });
      step(52, [&] {
        auto node = TreeView1.Add("", platform::forms::tvwLast, "C" + kind, kind, IconOf(kind));
        node->Expanded = true;
      });
      std::string comment;
      step(53, [&] { comment = platform::ToString(rs->Fields("Comment")->Value()); });
      step(53, [&] {
        parser->SetInputText(comment);
        parser->Parse();
      });
      int32_t handle = 0;
      step(54, [&] { handle = parser->StartSearch("/.*element_name", 0); });
      if (handle) {
        for (int32_t n = parser->NextMatch(handle); n; n = parser->NextMatch(handle)) {
          std::string name = parser->NodeText(n);
          if (name == "ignore") continue;
          // The same element met again: its node exists, the addition is dropped.
          Quietly([&] {
            TreeView1.Add("C" + kind, platform::forms::tvwChild, "T" + kind + "*" + name,
                          "<" + name + ">", "imgComments");
          });
        }
        step(55, [&] { parser->EndSearch(handle); });
      }
    }
    if (!step(5, [&] {
          rs->MoveNext();
          atEnd = rs->Eof();
        }))
      break;
  }
  step(6, [&] { rs->Close(); });
  unloadParser();
}

std::string FCCOptions::GetCheckedNodes() {
  std::string result;
  for (Ref<TreeNode> root = TreeView1.FirstRoot(); root; root = root->Next()) {
    result += "{" + root->Text + "}|";
    Quietly([&] {
      for (Ref<TreeNode> child = root->Child(); child; child = child->Next()) {
        if (child->Checked() && child->Text.size() >= 2)
          result += child->Text.substr(1, child->Text.size() - 2) + "|";
      }
    });
  }
  if (!result.empty()) result.pop_back();
  return result;
}

void FCCOptions::SetStateImages() {
  TreeView1.StateImageList = &imgState;
  if (TreeView1.Count() == 0) return;
  for (const auto& node : TreeView1.Nodes()) {
    if (!node->Parent()) SetStateImage(*node, 0);
    if (IsTagNode(*node)) SetStateImage(*node, 1);
  }
}

void FCCOptions::SetStateImage(TreeNode& node, int iStatePicture) {
  TreeView1.SetStateImage(node, iStatePicture);
}

void FCCOptions::CheckAllNodes() {
  for (const auto& node : TreeView1.Nodes())
    if (IsTagNode(*node)) node->SetChecked(true);
}

void FCCOptions::Form_Load() {
  Quietly([&] {
    m_oFormHelper = std::make_shared<platform::suite::FormHelper>();
    m_oFormHelper->Init(MGlobals::AppSettingsObject_HKCU, true);
    m_oFormHelper->HandForm(*this);
  });
}

void FCCOptions::Form_Activate() {
  Steps step("Quillmark.FCCOptions.Form_Activate");
  platform::forms::DoEvents();
  step(2, [&] { SetStateImages(); });
  step(3, [&] { CheckAllNodes(); });
}

void FCCOptions::Form_QueryUnload(int& cancel, int unloadMode) {
  // The close box acts as Cancel: the form stays loaded, hidden.
  if (unloadMode == platform::forms::vbFormControlMenu) {
    cancel = 1;
    Hide();
  }
}

void FCCOptions::Form_Unload(int&) {
  Quietly([&] { m_oFormHelper->HandForm(*this); });
  m_oFormHelper.reset();
}

void FCCOptions::cmdCheckAll_Click() {
  Steps step("Quillmark.FCCOptions.cmdCheckAll_Click");
  step(1, [&] { CheckAllNodes(); });
}

void FCCOptions::cmdUncheckAll_Click() {
  Steps step("Quillmark.FCCOptions.cmdUncheckAll_Click");
  step(1, [&] {
    for (const auto& node : TreeView1.Nodes()) node->SetChecked(false);
  });
  step(2, [&] { SetStateImages(); });
}

void FCCOptions::cmdXMLTemplates_Click() {
  Steps step("Quillmark.FCCOptions.cmdXMLTemplates_Click");
  step(1, [&] {
    MGlobals::DTEObject->StatusBar()->SetText("Loading the XML Comment Templates Manager...");
  });
  Ref<platform::suite::XMLCommentTemplatesManager> manager;
  step(2, [&] {
    manager = std::make_shared<platform::suite::XMLCommentTemplatesManager>();
    manager->Init(MGlobals::DTEObject, MGlobals::AddInObject, MGlobals::AppSettingsObject_HKCU,
                  MGlobals::AppSettingsObject_HKLM, MGlobals::PersonalDB, MGlobals::TeamDB,
                  nullptr);
  });
  step(3, [&] { manager->Show(); });
  manager.reset();
}

void FCCOptions::Command1_Click() {
  Steps step("Quillmark.FCCOptions.Command1_Click");
  step(1, [&] {
    MGlobals::AppSettingsObject_HKCU->Write(section::CommentsAnalyzer, key::XMLCheck, GetCheckedNodes());
  });
  step(2, [&] { Hide(); });
}

void FCCOptions::Command2_Click() { Hide(); }

void FCCOptions::Command3_Click() {
  Steps step("Quillmark.FCCOptions.Command3_Click");
  step(1, [&] {
    platform::suite::Help(MGlobals::GetAppPath() + "help/").ShowHelp("htm/XMLAnalyzer_Using.htm");
  });
}

}  // namespace annotra
