#include "platform/dao/Field.h"

#include <cmath>

#include "platform/core/Error.h"
#include "platform/dao/Recordset.h"
#include "platform/dao/SqlLexer.h"

namespace platform::dao {
namespace {

// Number of characters of UTF-8 text (bytes that do not continue a character).
size_t CharacterCount(const std::string& s) {
  size_t count = 0;
  for (unsigned char c : s)
    if ((c & 0xC0) != 0x80) ++count;
  return count;
}

// The conversion error of a field assignment: DAO reports a value that does not convert
// as 3421, one out of range as overflow.
[[noreturn]] void Rethrow(const Error& e) {
  if (e.number == err::kTypeMismatch) throw Error(err::kConversionError);
  throw e;
}

}  // namespace

bool IsDataType(int type) {
  switch (type) {
    case dbBoolean: case dbByte: case dbInteger: case dbLong: case dbCurrency:
    case dbSingle: case dbDouble: case dbDate: case dbBinary: case dbText:
    case dbLongBinary: case dbMemo: case dbGUID: case dbBigInt:
      return true;
    default:
      return false;
  }
}

int32_t DefaultSizeOf(int type) {
  switch (type) {
    case dbBoolean: case dbByte: return 1;
    case dbInteger: return 2;
    case dbLong: case dbSingle: return 4;
    case dbCurrency: case dbDouble: case dbDate: case dbBigInt: return 8;
    case dbGUID: return 16;
    case dbText: return 50;
    case dbBinary: return 255;
    default: return 0;
  }
}

Field::Field(std::string name, int type, std::optional<int32_t> size) : m_name(std::move(name)) {
  if (type != 0) SetType(type);
  if (size) SetSize(*size);
}

void Field::CheckUnlocked() const {
  if (m_locked) throw Error(err::kInvalidOperation);
}

void Field::SetName(const std::string& name) {
  CheckUnlocked();
  m_name = name;
}

void Field::SetType(int type) {
  CheckUnlocked();
  if (!IsDataType(type)) throw Error(err::kInvalidFieldType);
  m_type = type;
  m_size = DefaultSizeOf(type);
}

void Field::SetSize(int32_t size) {
  CheckUnlocked();
  if (m_type == dbText || m_type == dbBinary) {
    if (size < 1 || size > 255) throw Error(err::kInvalidArgument);
    m_size = size;
  } else if (m_type == 0) {
    m_size = size;  // kept until the type is known
  }
}

void Field::SetAttributes(int32_t attributes) {
  CheckUnlocked();
  m_attributes = attributes;
}
void Field::SetAllowZeroLength(bool allow) {
  CheckUnlocked();
  m_allowZeroLength = allow;
}
void Field::SetDefaultValue(const std::string& text) {
  CheckUnlocked();
  m_defaultValue = text;
}
void Field::SetOrdinalPosition(int16_t position) {
  CheckUnlocked();
  m_ordinalPosition = position;
}
void Field::SetRequired(bool required) {
  CheckUnlocked();
  m_required = required;
}
void Field::SetValidationRule(const std::string& rule) {
  CheckUnlocked();
  m_validationRule = rule;
}
void Field::SetValidationText(const std::string& text) {
  CheckUnlocked();
  m_validationText = text;
}

Variant Field::Value() const {
  if (m_index < 0) throw Error(err::kInvalidOperation);
  if (!m_owner) throw Error(err::kObjectInvalid);
  return m_owner->ReadValue(m_index);
}

void Field::SetValue(const Variant& value) {
  if (m_index < 0) throw Error(err::kInvalidOperation);
  if (!m_owner) throw Error(err::kObjectInvalid);
  m_owner->WriteValue(m_index, value);
}

Variant Field::Coerce(const Variant& value) const {
  if (value.IsEmpty()) return value;
  try {
    switch (m_type) {
      case dbBoolean: return Variant(ToBool(value));
      case dbByte: {
        int32_t v = ToInt32(value);
        if (v < 0 || v > 255) throw Error(err::kOverflow);
        return Variant(static_cast<int>(v));
      }
      case dbInteger: return Variant(static_cast<int>(ToInt16(value)));
      case dbLong: return Variant(static_cast<int>(ToInt32(value)));
      case dbBigInt: {
        double d = std::nearbyint(ToDouble(value));
        if (!(std::fabs(d) < 9.2e18)) throw Error(err::kOverflow);
        return Variant(d);
      }
      case dbCurrency: case dbSingle: case dbDouble: case dbDate:
        return Variant(ToDouble(value));
      case dbText: {
        std::string text = ToString(value);
        if (CharacterCount(text) > static_cast<size_t>(m_size)) throw Error(err::kFieldTooSmall);
        return Variant(std::move(text));
      }
      default:
        return Variant(ToString(value));
    }
  } catch (const Error& e) {
    Rethrow(e);
  }
}

Variant Field::DefaultAsValue() const {
  const std::string& text = m_defaultValue;
  SqlLexer lexer(text);
  SqlToken first;
  try {
    first = lexer.At(0);
  } catch (const Error&) {
    first = SqlToken();
    first.kind = SqlToken::Kind::Symbol;  // makes the check below fail
  }
  if (first.kind == SqlToken::Kind::End) return Variant();
  auto refuse = [&]() -> Variant {
    throw Error(err::kUnknownDefaultValue,
                "Unknown function in validation expression or default value on '" + m_name +
                    "'.");
  };
  bool negative = false;
  SqlToken token = first;
  if (token.Is("-") || token.Is("+")) {
    negative = token.Is("-");
    token = lexer.At(token.end);
    if (token.kind != SqlToken::Kind::Number) return refuse();
  }
  Variant value;
  if (token.kind == SqlToken::Kind::Number) {
    std::string digits = std::string(negative ? "-" : "") + token.text;
    double d = ToDouble(Variant(digits));
    if (digits.find_first_of(".eE") == std::string::npos && std::fabs(d) <= 2147483647.0)
      value = Variant(static_cast<int>(d));
    else
      value = Variant(d);
  } else if (token.kind == SqlToken::Kind::String) {
    value = Variant(token.text);
  } else if (token.Is("True")) {
    value = Variant(true);
  } else if (token.Is("False")) {
    value = Variant(false);
  } else if (token.Is("Null")) {
    value = Variant();
  } else {
    return refuse();
  }
  if (lexer.At(token.end).kind != SqlToken::Kind::End) return refuse();
  try {
    return Coerce(value);
  } catch (const Error&) {
    return refuse();
  }
}

}  // namespace platform::dao
