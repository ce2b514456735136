#include "platform/forms/ImageList.h"

#include "platform/core/Error.h"

namespace platform::forms {

int ImageList::Add(const std::string& key, const std::string& picture) {
  if (!key.empty() && IndexOf(key)) throw Error(err::kKeyNotUnique);
  m_items.emplace_back(key, picture);
  return Count();
}

int ImageList::IndexOf(const std::string& key) const {
  for (size_t i = 0; i < m_items.size(); ++i)
    if (m_items[i].first == key) return static_cast<int>(i + 1);
  return 0;
}

const std::string& ImageList::Picture(const std::string& key) const {
  int i = IndexOf(key);
  if (!i) throw Error(35601, "Element not found");
  return m_items[i - 1].second;
}

}  // namespace platform::forms
