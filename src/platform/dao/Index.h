#pragma once
#include <optional>
#include <string>

#include "platform/core/Ref.h"
#include "platform/dao/Collection.h"
#include "platform/dao/Field.h"

namespace platform::dao {

/// A DAO index of a table definition: its flags and the fields it orders by (each field's
/// Attributes 0 for ascending, dbDescending for descending). Changeable until its table
/// is stored; an index read from a file refuses changes with 3219.
class Index {
 public:
  explicit Index(std::string name = "");

  const std::string& Name() const { return m_name; }
  void SetName(const std::string& name);
  bool Primary() const { return m_primary; }
  void SetPrimary(bool value);
  bool Unique() const { return m_unique; }
  void SetUnique(bool value);
  bool Required() const { return m_required; }
  void SetRequired(bool value);
  bool IgnoreNulls() const { return m_ignoreNulls; }
  void SetIgnoreNulls(bool value);
  bool Clustered() const { return m_clustered; }
  void SetClustered(bool value);
  /// Always false: the layer keeps no relationships.
  bool Foreign() const { return false; }

  /// The fields of the index, in order.
  Ref<Collection<Field>> Fields() const { return m_fields; }
  /// A new field for this index (appended with Fields()->Append).
  Ref<Field> CreateField(const std::string& name = "", int type = 0,
                         std::optional<int32_t> size = {}) const;

  /// Freezes the definition and its fields (the index now describes a stored one).
  void Lock();

 private:
  void CheckUnlocked() const;

  std::string m_name;
  bool m_primary = false;
  bool m_unique = false;
  bool m_required = false;
  bool m_ignoreNulls = false;
  bool m_clustered = false;
  bool m_locked = false;
  Ref<Collection<Field>> m_fields;
};

}  // namespace platform::dao
