#include "options/OptionsChoices.h"

#include <memory>

#include "options/FOptions.h"
#include "platform/forms/ScriptedPresenter.h"

namespace annotra {

using platform::forms::CheckBox;
using platform::forms::Form;
using platform::forms::ScriptedPresenter;

namespace {

/// The dialog on top when an action plays; nullptr (and an error) when it is another.
FOptions* Dialog(ScriptedPresenter& user, Form& form) {
  auto* dialog = dynamic_cast<FOptions*>(&form);
  if (!dialog) user.errors.push_back("the options dialog is not on top (" + form.Name() + ")");
  return dialog;
}

/// Clicks `box`, noting a box that cannot be clicked.
void ClickBox(ScriptedPresenter& user, CheckBox& box) {
  if (!box.UserClick()) user.errors.push_back("'" + box.Name + "' cannot be clicked");
}

/// Brings `box` to `value` (checked or not) with clicks.
void SetBox(ScriptedPresenter& user, CheckBox& box, bool value) {
  if ((box.Value == 1) != value) ClickBox(user, box);
  if ((box.Value == 1) != value) ClickBox(user, box);  // a grayed box takes two clicks to clear
}

/// Sets a governing box and the box that depends on it. The dependent box can change
/// only while its governing box is checked, so that one is checked for the while.
void SetPair(ScriptedPresenter& user, CheckBox& governing, CheckBox& dependent, const std::optional<bool>& gov,
             const std::optional<bool>& dep) {
  const bool wasChecked = governing.Value == 1;
  if (dep && (dependent.Value == 1) != *dep) {
    SetBox(user, governing, true);
    SetBox(user, dependent, *dep);
  }
  SetBox(user, governing, gov ? *gov : wasChecked);
}

/// Shows the page of the tab with `key`, as a click on the tab does.
void ShowPage(ScriptedPresenter& user, FOptions& dialog, const char* key) {
  int index = 0;
  for (int i = 1; i <= dialog.VsTabAreaEx1.TabsCount(); ++i)
    if (dialog.VsTabAreaEx1.Tab(i)->Key() == key) index = i;
  if (!dialog.VsTabAreaEx1.UserClickTab(index)) user.errors.push_back(std::string("no page '") + key + "'");
}

}  // namespace

void QueueOptionsChoices(ScriptedPresenter& user, const OptionsChoices& choices, bool cancelOnProblems) {
  ScriptedPresenter* u = &user;
  if (choices.scope) {
    const int32_t value = *choices.scope;
    user.Focus("cmbOperationScope").Click("cmbOperationScope").Do([u, value](Form& form) {
      FOptions* dialog = Dialog(*u, form);
      if (!dialog) return;
      auto& selector = dialog->cmbOperationScope;
      for (int i = 0; i < selector.ScopesCount(); ++i)
        if (selector.ScopeValue(i) == value) {
          selector.UserPick(i);
          return;
        }
      selector.SetDroppedDown(false);
      u->errors.push_back("the scope selector offers no scope " + std::to_string(value));
    });
  }
  const OptionsChoices c = choices;
  if (c.enablePublic || c.xmlOnPublic || c.enableNonPublic || c.xmlOnNonPublic || c.acceptInheritDoc ||
      c.compareParamTypes || c.skipGenerated) {
    user.Do([u, c](Form& form) {
      FOptions* dialog = Dialog(*u, form);
      if (!dialog) return;
      ShowPage(*u, *dialog, "Def");
      auto& page = dialog->ctlXMLComments1;
      SetPair(*u, page.chkPublic, page.chkPublicXML, c.enablePublic, c.xmlOnPublic);
      SetPair(*u, page.chkNonPublic, page.chkNonPublicXML, c.enableNonPublic, c.xmlOnNonPublic);
      if (c.acceptInheritDoc) SetBox(*u, page.chkInheritDoc, *c.acceptInheritDoc);
      if (c.compareParamTypes) SetBox(*u, page.chkParamTypes, *c.compareParamTypes);
      if (c.skipGenerated) SetBox(*u, page.chkSkipGenerated, *c.skipGenerated);
    });
  }
  if (c.enableBody || c.maxLines) {
    user.Do([u, c](Form& form) {
      FOptions* dialog = Dialog(*u, form);
      if (!dialog) return;
      ShowPage(*u, *dialog, "Body");
      auto& page = dialog->ctlStdComments1;
      const bool wasChecked = page.chkEnabled.Value == 1;
      if (c.maxLines) {
        // The limit box takes typing only while the check is on.
        SetBox(*u, page.chkEnabled, true);
        if (!form.SetFocus(page.Text1)) u->errors.push_back("'Text1' cannot take the focus");
        std::string erase(page.Text1.Text().size(), '\b');
        if (!page.Text1.UserType(erase + *c.maxLines)) u->errors.push_back("nothing to type the limit into");
      }
      SetBox(*u, page.chkEnabled, c.enableBody ? *c.enableBody : wasChecked);
    });
  }
  if (c.requireAll || !c.requiredTags.empty()) {
    user.Click("&Options");
    if (c.requireAll) {
      user.Click("Check &All");
    } else {
      user.Click("&Uncheck All");
      for (const auto& [kind, tag] : c.requiredTags) user.Check("TreeView1", "T" + kind + "*" + tag);
    }
    user.Click("&OK");
  }
  if (!cancelOnProblems) {
    user.Click("&Begin >>");
    return;
  }
  user.Do([u](Form& form) {
    const char* button = u->errors.empty() ? "&Begin >>" : "&Cancel";
    platform::forms::Control* c = form.FindControl(button);
    if (!c) return u->errors.push_back(std::string("no control '") + button + "' on " + form.Name());
    u->log.push_back("click " + c->Name);
    if (!c->UserClick()) u->errors.push_back(std::string("'") + button + "' cannot be clicked");
  });
}

bool RunOptionsDialog(const OptionsChoices& choices, std::vector<std::string>& problems) {
  auto user = std::make_shared<ScriptedPresenter>();
  QueueOptionsChoices(*user, choices);
  platform::forms::ScopedPresenter scope(user);
  FOptions dialog;
  bool ok = dialog.GetOptions();
  dialog.Unload();
  problems = user->errors;
  return ok;
}

}  // namespace annotra
