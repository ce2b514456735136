#pragma once
#include <string>
#include <vector>

#include "platform/core/Event.h"
#include "platform/core/Ref.h"
#include "platform/forms/Control.h"

namespace platform::suite {

class VsTabAreaEx;

/// One tab of a tab strip: its key, its caption, its place and whether it is the
/// selected one.
class VsTab : public Dispatch {
 public:
  const char* TypeName() const override { return "VsTab"; }
  const std::string& Key() const { return m_key; }
  const std::string& Caption() const { return m_caption; }
  /// Its place in the strip, from 1.
  int Index() const { return m_index; }
  /// Whether it is the strip's selected tab (false once the strip is gone).
  bool Selected() const;
  /// True makes it the selected tab, the tab that was selected losing that; false
  /// leaves the strip without a selected tab when this one was it. TabClick is not
  /// raised: code that selects a tab runs its own handling. Fails with 91 once the
  /// strip is gone.
  void SetSelected(bool selected);

 private:
  friend class VsTabAreaEx;
  VsTabAreaEx* m_strip = nullptr;
  std::string m_key;
  std::string m_caption;
  int m_index = 0;
};

/// The suite's tab strip: a row of tabs with keys and captions along its top edge, of
/// which at most one is selected, above an area where the form places its pages (as
/// controls inside the strip, below HeaderHeight). The user selects a tab with a click
/// on it, or with the Left and Right arrows (Home, End) while the strip has the focus;
/// either raises TabClick once the tab is selected. Showing the page of the selected
/// tab is the form's work, in its TabClick handler.
///
/// The tabs sit side by side from the strip's left edge, each as wide as its caption
/// in terminal cells plus a cell either side, so a terminal draws them as the model
/// places them.
class VsTabAreaEx : public forms::Control {
 public:
  /// The height of the row of tabs (twips).
  static constexpr int HeaderHeight = 360;

  VsTabAreaEx(forms::Form& owner, std::string name);
  VsTabAreaEx(forms::Control& container, std::string name);
  ~VsTabAreaEx() override;
  const char* TypeName() const override { return "VsTabAreaEx"; }

  /// Adds a tab at the end, not selected. Fails with 35602 (key is not unique in
  /// collection) when a tab has that key already; tabs without a key are not looked up.
  Ref<VsTab> AddTab(const std::string& key, const std::string& caption);
  int TabsCount() const { return static_cast<int>(m_tabs.size()); }
  /// The tab at `index` (from 1); fails with 35600 (index out of bounds) outside.
  Ref<VsTab> Tab(int index) const;
  /// The tab with `key`; fails with 35601 (element not found) when there is none.
  Ref<VsTab> Tab(const std::string& key) const;
  /// The selected tab; none when no tab is selected.
  Ref<VsTab> SelectedTab() const;

  /// A tab has become selected by the user.
  platform::Event<> TabClick;

  /// The place of tab `index` along the row (twips from the strip's left edge); fails
  /// with 35600 outside the tabs.
  int TabLeft(int index) const;
  int TabWidth(int index) const;
  /// The tab under x, y (twips inside the strip); 0 when the point is on no tab.
  int TabAt(int x, int y) const;

  // The user's actions.
  /// A click on tab `index`: it becomes selected and TabClick is raised. False when the
  /// strip cannot be reached or there is no such tab.
  bool UserClickTab(int index);
  /// The left button pressed on a tab clicks it.
  bool UserMouseDown(int button, int x, int y, int shift = 0) override;
  /// Left and Right select the neighbouring tab, Home and End the first and last; the
  /// key is taken.
  bool UserKey(int& keyCode, int shift) override;

  /// The form unloads: the tabs are removed (a tab still held says it is not selected).
  void FormUnloaded() override;

 private:
  friend class VsTab;
  std::vector<Ref<VsTab>> m_tabs;
  VsTab* m_selected = nullptr;
};

}  // namespace platform::suite
