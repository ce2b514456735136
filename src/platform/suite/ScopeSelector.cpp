#include "platform/suite/ScopeSelector.h"

#include <cctype>

#include "platform/automation/DTE.h"
#include "platform/automation/Document.h"
#include "platform/core/Error.h"
#include "platform/suite/Scopes.h"

namespace platform::suite {

namespace {
constexpr int kKeyReturn = 13;
constexpr int kKeyEscape = 27;
constexpr int kKeyPageUp = 33;
constexpr int kKeyPageDown = 34;
constexpr int kKeyEnd = 35;
constexpr int kKeyHome = 36;
constexpr int kKeyUp = 38;
constexpr int kKeyDown = 40;
constexpr int kKeyF4 = 115;
constexpr int kShiftAlt = 4;

char Lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }
}  // namespace

ScopeSelector::ScopeSelector(forms::Form& owner, std::string name) : Control(owner, std::move(name)) {
  LostFocus.Connect([this] { SetDroppedDown(false); });
}

ScopeSelector::ScopeSelector(forms::Control& container, std::string name)
    : Control(container, std::move(name)) {
  LostFocus.Connect([this] { SetDroppedDown(false); });
}

void ScopeSelector::Init(const Ref<automation::DTE>& oDTE, bool bMethod, bool bSelection,
                         bool bSolutionFolder, bool bDescribe, int16_t iScope) {
  // The walk has no scope of the selected text (value 5 is no scope), so a caller that
  // needs one learns it here rather than from a list without it.
  if (bSelection) throw Error(err::kInvalidCall);
  std::vector<Item> items;
  for (const ScopeInfo& scope : kScopes) {
    if (scope.value == kScopeMethod && !bMethod) continue;
    if (scope.value == kScopeSolutionFolder && !bSolutionFolder) continue;
    std::string caption = scope.caption;
    if (bDescribe && oDTE) {
      if (scope.value == kScopeDocument && oDTE->ActiveDocument())
        caption += " (" + oDTE->ActiveDocument()->Name() + ")";
      if (scope.value == kScopeOpenDocuments)
        caption += " (" + std::to_string(oDTE->Documents()->Count()) + ")";
    }
    items.push_back({scope.value, std::move(caption)});
  }
  m_items = std::move(items);
  m_droppedDown = false;
  m_highlight = -1;
  m_listIndex = -1;
  int selected = 0;
  for (int i = 0; i < ScopesCount(); ++i)
    if (m_items[static_cast<size_t>(i)].value == iScope) {
      selected = i;
      break;
    }
  Select(selected);
}

void ScopeSelector::CheckPosition(int position) const {
  if (position < 0 || position >= ScopesCount()) throw Error(err::kInvalidCall);
}

int32_t ScopeSelector::ScopeValue(int position) const {
  CheckPosition(position);
  return m_items[static_cast<size_t>(position)].value;
}

const std::string& ScopeSelector::ScopeCaption(int position) const {
  CheckPosition(position);
  return m_items[static_cast<size_t>(position)].caption;
}

void ScopeSelector::SetListIndex(int position) {
  if (position != -1) CheckPosition(position);
  Select(position);
}

int32_t ScopeSelector::SelectedScope() const {
  CheckPosition(m_listIndex);
  return m_items[static_cast<size_t>(m_listIndex)].value;
}

void ScopeSelector::Select(int position) {
  // The box shows the selected caption, as a combo box's text does.
  Caption = position >= 0 ? m_items[static_cast<size_t>(position)].caption : "";
  if (position == m_listIndex) return;
  m_listIndex = position;
  Click.Raise();
}

void ScopeSelector::SetDroppedDown(bool dropped) {
  if (dropped && m_items.empty()) return;  // nothing to show
  m_droppedDown = dropped;
  m_highlight = dropped ? (m_listIndex >= 0 ? m_listIndex : 0) : -1;
}

bool ScopeSelector::UserClick() {
  if (!Reachable()) return false;
  SetDroppedDown(!m_droppedDown);
  return true;
}

bool ScopeSelector::UserKey(int& keyCode, int shift) {
  if (!Control::UserKey(keyCode, shift)) return false;
  if (keyCode == 0 || m_items.empty()) return true;
  const int last = ScopesCount() - 1;
  const bool alt = (shift & kShiftAlt) != 0;
  int moved = -2;  // the position an arrow key asks for; -2 when the key is no arrow
  int from = m_droppedDown ? m_highlight : m_listIndex;
  switch (keyCode) {
    case kKeyUp:
      if (!alt) moved = from > 0 ? from - 1 : 0;
      break;
    case kKeyDown:
      if (!alt) moved = from < last ? from + 1 : last;
      break;
    case kKeyHome:
    case kKeyPageUp:
      moved = 0;
      break;
    case kKeyEnd:
    case kKeyPageDown:
      moved = last;
      break;
    default:
      break;
  }
  if (moved != -2) {
    if (m_droppedDown) m_highlight = moved;
    else Select(moved);
    keyCode = 0;
    return true;
  }
  const bool toggle = keyCode == kKeyF4 || (alt && (keyCode == kKeyUp || keyCode == kKeyDown));
  if (!m_droppedDown) {
    if (toggle) {
      SetDroppedDown(true);
      keyCode = 0;
    }
    return true;
  }
  if (toggle || keyCode == kKeyReturn) {
    int chosen = m_highlight;
    SetDroppedDown(false);
    Select(chosen);
    keyCode = 0;
  } else if (keyCode == kKeyEscape) {
    SetDroppedDown(false);
    keyCode = 0;
  }
  return true;
}

bool ScopeSelector::UserType(const std::string& text) {
  if (!Reachable() || m_droppedDown || m_items.empty()) return false;
  for (char ch : text) {
    const int count = ScopesCount();
    for (int step = 1; step <= count; ++step) {
      int i = ((m_listIndex < 0 ? -1 : m_listIndex) + step) % count;
      const std::string& caption = m_items[static_cast<size_t>(i)].caption;
      if (!caption.empty() && Lower(caption[0]) == Lower(ch)) {
        Select(i);
        break;
      }
    }
  }
  return true;
}

bool ScopeSelector::UserHighlight(int position) {
  if (!Reachable() || !m_droppedDown || position < 0 || position >= ScopesCount()) return false;
  m_highlight = position;
  return true;
}

bool ScopeSelector::UserPick(int position) {
  if (!UserHighlight(position)) return false;
  SetDroppedDown(false);
  Select(position);
  return true;
}

void ScopeSelector::FormUnloaded() {
  m_items.clear();
  m_listIndex = -1;
  m_droppedDown = false;
  m_highlight = -1;
  Caption.clear();
}

}  // namespace platform::suite
