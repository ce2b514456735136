#include "platform/dao/TableDef.h"

namespace platform::dao {

TableDef::TableDef(std::string name, int32_t attributes, std::string sourceTableName,
                   std::string connect)
    : m_name(std::move(name)),
      m_attributes(attributes),
      m_sourceTableName(std::move(sourceTableName)),
      m_connect(std::move(connect)),
      m_fields(std::make_shared<Collection<Field>>()),
      m_indexes(std::make_shared<Collection<Index>>()) {
  m_fields->SetAppendHook([this](const Ref<Field>& field) {
    CheckUnlocked();
    if (field->Type() == 0) throw Error(err::kInvalidFieldType);
  });
  m_indexes->SetAppendHook([this](const Ref<Index>&) { CheckUnlocked(); });
}

void TableDef::CheckUnlocked() const {
  if (m_locked) throw Error(err::kInvalidOperation);
}

void TableDef::SetName(const std::string& name) {
  CheckUnlocked();
  m_name = name;
}
void TableDef::SetAttributes(int32_t attributes) {
  CheckUnlocked();
  m_attributes = attributes;
}
void TableDef::SetConnect(const std::string& connect) {
  CheckUnlocked();
  m_connect = connect;
}
void TableDef::SetSourceTableName(const std::string& name) {
  CheckUnlocked();
  m_sourceTableName = name;
}
void TableDef::SetValidationRule(const std::string& rule) {
  CheckUnlocked();
  m_validationRule = rule;
}
void TableDef::SetValidationText(const std::string& text) {
  CheckUnlocked();
  m_validationText = text;
}

Ref<Field> TableDef::CreateField(const std::string& name, int type,
                                 std::optional<int32_t> size) const {
  return std::make_shared<Field>(name, type, size);
}

Ref<Index> TableDef::CreateIndex(const std::string& name) const {
  return std::make_shared<Index>(name);
}

void TableDef::Lock() {
  m_locked = true;
  for (auto& field : *m_fields) field->Lock();
  for (auto& index : *m_indexes) index->Lock();
}

}  // namespace platform::dao
