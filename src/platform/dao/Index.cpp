#include "platform/dao/Index.h"

namespace platform::dao {

Index::Index(std::string name)
    : m_name(std::move(name)), m_fields(std::make_shared<Collection<Field>>()) {
  m_fields->SetAppendHook([this](const Ref<Field>&) { CheckUnlocked(); });
}

void Index::CheckUnlocked() const {
  if (m_locked) throw Error(err::kInvalidOperation);
}

void Index::SetName(const std::string& name) {
  CheckUnlocked();
  m_name = name;
}
void Index::SetPrimary(bool value) {
  CheckUnlocked();
  m_primary = value;
}
void Index::SetUnique(bool value) {
  CheckUnlocked();
  m_unique = value;
}
void Index::SetRequired(bool value) {
  CheckUnlocked();
  m_required = value;
}
void Index::SetIgnoreNulls(bool value) {
  CheckUnlocked();
  m_ignoreNulls = value;
}
void Index::SetClustered(bool value) {
  CheckUnlocked();
  m_clustered = value;
}

Ref<Field> Index::CreateField(const std::string& name, int type,
                              std::optional<int32_t> size) const {
  auto field = std::make_shared<Field>(name);
  if (type != 0) field->SetType(type);
  if (size) field->SetSize(*size);
  return field;
}

void Index::Lock() {
  m_locked = true;
  for (auto& field : *m_fields) field->Lock();
}

}  // namespace platform::dao
