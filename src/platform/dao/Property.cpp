#include "platform/dao/Property.h"

#include "platform/core/Error.h"
#include "platform/dao/DaoConstants.h"
#include "platform/dao/Field.h"

namespace platform::dao {

Variant Property::Convert(int type, const Variant& value) {
  if (value.IsEmpty()) return value;
  switch (type) {
    case dbBoolean: return Variant(ToBool(value));
    case dbByte: case dbInteger: return Variant(static_cast<int>(ToInt16(value)));
    case dbLong: return Variant(static_cast<int>(ToInt32(value)));
    case dbCurrency: case dbSingle: case dbDouble: case dbDate: case dbBigInt:
      return Variant(ToDouble(value));
    case dbText: case dbMemo: case dbGUID: return Variant(ToString(value));
    default: return value;
  }
}

Property::Property(std::string name, int type, const Variant& value)
    : m_name(std::move(name)), m_type(type), m_value(Convert(type, value)) {}

void Property::SetName(const std::string& name) {
  if (m_appended || m_readOnly) throw Error(err::kInvalidOperation);
  m_name = name;
}

void Property::SetType(int type) {
  if (m_appended || m_readOnly) throw Error(err::kInvalidOperation);
  if (!IsDataType(type)) throw Error(err::kInvalidFieldType);
  m_type = type;
  m_value = Convert(type, m_value);
}

void Property::SetValue(const Variant& value) {
  if (m_readOnly) throw Error(err::kInvalidOperation);
  Variant converted = Convert(m_type, value);
  Variant previous = m_value;
  m_value = converted;
  if (m_store) {
    try {
      m_store(*this);
    } catch (...) {
      m_value = previous;
      throw;
    }
  }
}

}  // namespace platform::dao
