#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "platform/core/Ref.h"
#include "platform/dao/Collection.h"
#include "platform/dao/Field.h"
#include "platform/dao/Index.h"

namespace platform::dao {

/// A DAO table definition: the table's properties, its fields and its indexes. One made
/// by CreateTableDef is filled in and then stored by appending it to the database's
/// TableDefs; one read from a file (or once stored) describes the stored table and
/// refuses changes with 3219.
class TableDef {
 public:
  explicit TableDef(std::string name = "", int32_t attributes = 0,
                    std::string sourceTableName = "", std::string connect = "");

  const std::string& Name() const { return m_name; }
  void SetName(const std::string& name);
  int32_t Attributes() const { return m_attributes; }
  void SetAttributes(int32_t attributes);
  /// The connect string of an attached table; "" for a local one.
  const std::string& Connect() const { return m_connect; }
  void SetConnect(const std::string& connect);
  const std::string& SourceTableName() const { return m_sourceTableName; }
  void SetSourceTableName(const std::string& name);
  const std::string& ValidationRule() const { return m_validationRule; }
  void SetValidationRule(const std::string& rule);
  const std::string& ValidationText() const { return m_validationText; }
  void SetValidationText(const std::string& text);
  /// True while the definition can be changed (before it is stored).
  bool Updatable() const { return !m_locked; }

  /// The fields, in ordinal position order once stored.
  Ref<Collection<Field>> Fields() const { return m_fields; }
  /// The indexes.
  Ref<Collection<Index>> Indexes() const { return m_indexes; }
  /// A new field for this table (appended with Fields()->Append). 3259 for a type that
  /// is no data type, 3001 for a text size outside 1..255.
  Ref<Field> CreateField(const std::string& name = "", int type = 0,
                         std::optional<int32_t> size = {}) const;
  /// A new index for this table (appended with Indexes()->Append).
  Ref<Index> CreateIndex(const std::string& name = "") const;

  /// Freezes the definition, its fields and indexes: appending to them now fails with
  /// 3219 (the layer does not change stored tables).
  void Lock();

 private:
  void CheckUnlocked() const;

  std::string m_name;
  int32_t m_attributes;
  std::string m_sourceTableName;
  std::string m_connect;
  std::string m_validationRule;
  std::string m_validationText;
  bool m_locked = false;
  Ref<Collection<Field>> m_fields;
  Ref<Collection<Index>> m_indexes;
};

}  // namespace platform::dao
