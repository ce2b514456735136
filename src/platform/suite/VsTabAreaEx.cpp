#include "platform/suite/VsTabAreaEx.h"

#include "platform/core/Error.h"
#include "platform/forms/Screen.h"

namespace platform::suite {

namespace {
constexpr int kIndexOutOfBounds = 35600;
constexpr int kElementNotFound = 35601;
constexpr int kKeyNotUnique = 35602;
constexpr int kKeyEnd = 35;
constexpr int kKeyHome = 36;
constexpr int kKeyLeft = 37;
constexpr int kKeyRight = 39;
}  // namespace

bool VsTab::Selected() const { return m_strip && m_strip->m_selected == this; }

void VsTab::SetSelected(bool selected) {
  if (!m_strip) throw Error(err::kObjectNotSet);
  if (selected) m_strip->m_selected = this;
  else if (m_strip->m_selected == this) m_strip->m_selected = nullptr;
}

VsTabAreaEx::VsTabAreaEx(forms::Form& owner, std::string name) : Control(owner, std::move(name)) {}

VsTabAreaEx::VsTabAreaEx(forms::Control& container, std::string name)
    : Control(container, std::move(name)) {}

VsTabAreaEx::~VsTabAreaEx() { FormUnloaded(); }

void VsTabAreaEx::FormUnloaded() {
  for (auto& tab : m_tabs) tab->m_strip = nullptr;
  m_tabs.clear();
  m_selected = nullptr;
}

Ref<VsTab> VsTabAreaEx::AddTab(const std::string& key, const std::string& caption) {
  if (!key.empty())
    for (const auto& tab : m_tabs)
      if (tab->m_key == key) throw Error(kKeyNotUnique, "Key is not unique in collection");
  auto tab = std::make_shared<VsTab>();
  tab->m_strip = this;
  tab->m_key = key;
  tab->m_caption = caption;
  tab->m_index = TabsCount() + 1;
  m_tabs.push_back(tab);
  return tab;
}

Ref<VsTab> VsTabAreaEx::Tab(int index) const {
  if (index < 1 || index > TabsCount()) throw Error(kIndexOutOfBounds, "Index out of bounds");
  return m_tabs[static_cast<size_t>(index - 1)];
}

Ref<VsTab> VsTabAreaEx::Tab(const std::string& key) const {
  if (!key.empty())
    for (const auto& tab : m_tabs)
      if (tab->m_key == key) return tab;
  throw Error(kElementNotFound, "Element not found");
}

Ref<VsTab> VsTabAreaEx::SelectedTab() const {
  for (const auto& tab : m_tabs)
    if (tab.get() == m_selected) return tab;
  return nullptr;
}

int VsTabAreaEx::TabWidth(int index) const {
  return (static_cast<int>(forms::PlainCaption(Tab(index)->m_caption).size()) + 2) *
         forms::Screen::TwipsPerCellX;
}

int VsTabAreaEx::TabLeft(int index) const {
  Tab(index);  // checks the index
  int left = 0;
  for (int i = 1; i < index; ++i) left += TabWidth(i);
  return left;
}

int VsTabAreaEx::TabAt(int x, int y) const {
  if (y < 0 || y >= HeaderHeight || x < 0) return 0;
  int left = 0;
  for (int i = 1; i <= TabsCount(); ++i) {
    left += TabWidth(i);
    if (x < left) return i;
  }
  return 0;
}

bool VsTabAreaEx::UserClickTab(int index) {
  if (!Reachable() || index < 1 || index > TabsCount()) return false;
  m_selected = m_tabs[static_cast<size_t>(index - 1)].get();
  TabClick.Raise();
  return true;
}

bool VsTabAreaEx::UserMouseDown(int button, int x, int y, int shift) {
  if (!Control::UserMouseDown(button, x, y, shift)) return false;
  if (button == forms::vbLeftButton) {
    int index = TabAt(x, y);
    if (index) UserClickTab(index);
  }
  return true;
}

bool VsTabAreaEx::UserKey(int& keyCode, int shift) {
  if (!Control::UserKey(keyCode, shift)) return false;
  if (m_tabs.empty()) return true;
  auto selected = SelectedTab();
  int current = selected ? selected->Index() : 0;
  int target = 0;
  switch (keyCode) {
    case kKeyLeft:
      target = current > 1 ? current - 1 : 1;
      break;
    case kKeyRight:
      target = current < TabsCount() ? current + 1 : TabsCount();
      break;
    case kKeyHome:
      target = 1;
      break;
    case kKeyEnd:
      target = TabsCount();
      break;
    default:
      return true;
  }
  keyCode = 0;
  if (target != current) UserClickTab(target);
  return true;
}

}  // namespace platform::suite
