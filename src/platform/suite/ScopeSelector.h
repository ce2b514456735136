#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "platform/core/Ref.h"
#include "platform/forms/Control.h"

namespace platform::automation {
class DTE;
}

namespace platform::suite {

/// The suite's scope selector: a drop-down list of the scopes an analysis can walk, each
/// with the value the walk acts on (see Scopes.h) and a caption a user understands.
///
/// The list is closed or dropped down. Closed, the arrow keys (and Home, End, Page Up,
/// Page Down) change the selected scope at once, and a letter selects the next scope
/// whose caption begins with it. Dropped down (a click, F4 or Alt+Down), the arrow keys
/// move a highlight through the list; Enter, F4, Alt+Up or a click on an item takes the
/// highlighted (or clicked) scope and closes the list; Escape, a click on the box or
/// leaving the control closes it and keeps the scope that was selected. Keys the list
/// takes are cleared (code 0), so the form does not act on them as well; the KeyDown
/// handlers see every key first, with the list still in the state the key found it in.
///
/// Click is raised whenever the selected position changes, by the user or by code.
class ScopeSelector : public forms::Control {
 public:
  ScopeSelector(forms::Form& owner, std::string name);
  ScopeSelector(forms::Control& container, std::string name);
  const char* TypeName() const override { return "ScopeSelector"; }

  /// Fills the list with the scopes of the walk, in the order of kScopes, and selects
  /// `iScope` (the first scope when that one is not offered). `bMethod` offers the method
  /// at the caret, `bSolutionFolder` the current solution folder; the document, open
  /// documents, project and solution scopes are always offered. `bSelection` asks for a
  /// scope of the selected text, which the walk does not have: true fails with 5 (invalid
  /// procedure call or argument) and leaves the selector as it was. `bDescribe` adds to
  /// the captions what the environment `oDTE` holds now: the active document's name, the
  /// number of open documents (nothing when `oDTE` is none). The list is closed after.
  void Init(const Ref<automation::DTE>& oDTE, bool bMethod, bool bSelection, bool bSolutionFolder,
            bool bDescribe, int16_t iScope);

  /// The number of scopes offered (0 before Init).
  int ScopesCount() const { return static_cast<int>(m_items.size()); }
  /// The scope value at `position` (from 0); fails with 5 outside the list.
  int32_t ScopeValue(int position) const;
  /// The caption at `position` (from 0); fails with 5 outside the list.
  const std::string& ScopeCaption(int position) const;
  /// The selected position; -1 when nothing is selected (before Init).
  int ListIndex() const { return m_listIndex; }
  /// Selects `position`, -1 for none; fails with 5 outside -1..ScopesCount()-1.
  void SetListIndex(int position);
  /// The value of the selected scope; fails with 5 when nothing is selected.
  int32_t SelectedScope() const;

  /// Whether the list is dropped down.
  bool IsDroppedDown() const { return m_droppedDown; }
  /// Drops the list down (the highlight on the selected scope) or closes it, keeping the
  /// selection.
  void SetDroppedDown(bool dropped);
  /// The highlighted row of the dropped-down list; -1 while it is closed.
  int HighlightIndex() const { return m_droppedDown ? m_highlight : -1; }

  // The user's actions.
  /// A click on the box: drops the list down, or closes a dropped one.
  bool UserClick() override;
  bool UserKey(int& keyCode, int shift) override;
  /// Letters typed while the list is closed: each selects the next scope, after the
  /// selected one and wrapping round, whose caption begins with it (any case).
  bool UserType(const std::string& text) override;
  /// The mouse rests on row `position` of the dropped-down list: the row is highlighted.
  bool UserHighlight(int position);
  /// A click on row `position` of the dropped-down list: selects it and closes the list.
  bool UserPick(int position);

  /// The form unloads: the list is emptied, as before Init.
  void FormUnloaded() override;

 private:
  struct Item {
    int32_t value;
    std::string caption;
  };
  void Select(int position);
  void CheckPosition(int position) const;

  std::vector<Item> m_items;
  int m_listIndex = -1;
  bool m_droppedDown = false;
  int m_highlight = -1;
};

}  // namespace platform::suite
