#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/core/Ref.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/TreeView.h"
#include "platform/grid/GridColumn.h"

namespace platform::grid {
class Grid;
}

namespace platform::suite {

class FormHelper;
class SettingsStore;

/// The dialog of the grid tools: a list of the grid's columns with check boxes, in an
/// order the user can change, for one of three tasks:
/// - group by: the checked columns, in list order, become the groupings;
/// - sort: the checked columns, in list order, become the sort keys;
/// - field chooser: the checked columns are shown, in list order.
/// For grouping and sorting, "Descending" turns the selected column's order. A node's
/// key is "C" followed by the column's key. OK applies the choice to the grid; Cancel
/// and the close box leave it as it was.
class FGridColumns : public forms::Form {
 public:
  enum Task { GroupBy, Sort, Fields };

  /// A dialog for `task` on `grid`; with `visibleOnly` the list offers only visible
  /// columns (and those the task uses already). The settings store (may be none) keeps
  /// the dialog's place.
  FGridColumns(Task task, grid::Grid& grid, bool visibleOnly, std::shared_ptr<SettingsStore> settings);
  ~FGridColumns() override;

  /// Shows the dialog modally; true when the user pressed OK (the grid changed).
  bool Run();

  forms::Label lblColumns{*this, "lblColumns"};
  forms::TreeView lstColumns{*this, "lstColumns"};
  forms::CommandButton cmdUp{*this, "cmdUp", "Move &Up"};
  forms::CommandButton cmdDown{*this, "cmdDown", "Move &Down"};
  forms::CheckBox chkDescending{*this, "chkDescending", "D&escending"};
  forms::CommandButton cmdOK{*this, "cmdOK", "&OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

 protected:
  void Form_Load() override;
  void Form_Unload(int& cancel) override;

 private:
  struct Entry {
    std::string key;
    std::string caption;
    bool checked;
    int order;
  };
  void Fill();
  void Move(int by);
  void Apply();
  std::string TextOf(const Entry& e) const;
  Entry* Selected();

  Task m_task;
  grid::Grid& m_grid;
  bool m_visibleOnly;
  std::shared_ptr<SettingsStore> m_settings;
  std::shared_ptr<FormHelper> m_helper;
  std::vector<Entry> m_entries;  // the list's order
  std::string m_selected;        // key of the selected entry
  bool m_ok = false;
};

}  // namespace platform::suite
