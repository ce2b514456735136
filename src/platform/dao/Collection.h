#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/core/Error.h"
#include "platform/core/Ref.h"

namespace platform::dao {

/// Compares two object names the way the database engine does: ASCII letters without
/// regard to case.
inline bool SameName(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x + 32);
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y + 32);
    if (x != y) return false;
  }
  return true;
}

/// A DAO collection (TableDefs, Fields, Indexes, Properties): objects in order, reached
/// by zero-based position or by name (without regard to case). Appending may do real
/// work (storing a table in the file); the owner installs that as the append hook, which
/// runs before the object joins the collection and may refuse it by throwing.
template <class T>
class Collection {
 public:
  using Hook = std::function<void(const Ref<T>&)>;

  /// A collection whose failed look-up by name throws `missingError` (3265, or 3270 for
  /// properties).
  explicit Collection(int missingError = err::kItemNotFound) : m_missingError(missingError) {}

  int32_t Count() const { return static_cast<int32_t>(m_items.size()); }

  /// The object at zero-based `index`; 3265 when there is none.
  Ref<T> Item(int32_t index) const {
    if (index < 0 || index >= Count()) throw Error(err::kItemNotFound);
    return m_items[static_cast<size_t>(index)];
  }
  /// The object named `name`; the collection's missing error when there is none.
  Ref<T> Item(const std::string& name) const {
    for (auto& item : m_items)
      if (SameName(item->Name(), name)) return item;
    if (m_missingError == err::kItemNotFound) throw Error(err::kItemNotFound);
    throw Error(m_missingError, DescriptionOf(m_missingError) + " '" + name + "'");
  }
  Ref<T> operator[](const std::string& name) const { return Item(name); }
  Ref<T> operator[](int32_t index) const { return Item(index); }

  bool Contains(const std::string& name) const {
    for (auto& item : m_items)
      if (SameName(item->Name(), name)) return true;
    return false;
  }

  /// Appends `item`: 91 when there is none, 3367 (or the owner's number) when an object
  /// of that name is already here, 3001 when it has no name; then the hook (whose error stops the append).
  void Append(const Ref<T>& item) {
    if (!item) throw Error(err::kObjectNotSet);
    if (item->Name().empty()) throw Error(err::kInvalidArgument);
    if (Contains(item->Name())) throw Error(m_duplicateError);
    if (m_onAppend) m_onAppend(item);
    m_items.push_back(item);
  }

  /// For the owner: installs what Append does before the object joins.
  void SetAppendHook(Hook hook) { m_onAppend = std::move(hook); }
  /// For the owner: the error of appending a name already here (3367 unless set; 3010
  /// for tables).
  void SetDuplicateError(int number) { m_duplicateError = number; }
  /// For the owner: adds an object read from the file, without the hook.
  void Load(const Ref<T>& item) { m_items.push_back(item); }

  auto begin() const { return m_items.begin(); }
  auto end() const { return m_items.end(); }

 private:
  std::vector<Ref<T>> m_items;
  Hook m_onAppend;
  int m_missingError;
  int m_duplicateError = err::kObjectExists;
};

}  // namespace platform::dao
