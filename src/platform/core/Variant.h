#pragma once
#include <cstdint>
#include <string>
#include <variant>

namespace platform {

/// A value of one of the automation types that settings and fields hold: empty,
/// Boolean, 32-bit integer, double or string.
class Variant {
 public:
  enum class Type { Empty, Boolean, Long, Double, String };

  Variant() = default;
  Variant(bool b) : m_value(b) {}                      // NOLINT: implicit by design
  Variant(int i) : m_value(static_cast<int32_t>(i)) {}  // NOLINT
  Variant(double d) : m_value(d) {}                       // NOLINT
  Variant(std::string s) : m_value(std::move(s)) {}       // NOLINT
  Variant(const char* s) : m_value(std::string(s)) {}     // NOLINT

  Type type() const { return static_cast<Type>(m_value.index()); }
  bool IsEmpty() const { return type() == Type::Empty; }

  /// The held value of that exact type; undefined unless type() says so.
  bool AsBool() const { return std::get<bool>(m_value); }
  int32_t AsLong() const { return std::get<int32_t>(m_value); }
  double AsDouble() const { return std::get<double>(m_value); }
  const std::string& AsString() const { return std::get<std::string>(m_value); }

  bool operator==(const Variant& other) const = default;

 private:
  std::variant<std::monostate, bool, int32_t, double, std::string> m_value;
};

/// Conversions with the automation rules. Each throws platform::Error 13 (type mismatch)
/// for a value that does not convert and 6 (overflow) for one outside the target range.
/// Numbers round half to even; a string converts when it is a decimal number (blanks
/// around it allowed); True is -1; Empty is 0 or "".
int16_t ToInt16(const Variant& v);
int32_t ToInt32(const Variant& v);
double ToDouble(const Variant& v);
/// Non-zero numbers are true; strings "True"/"False" (any case) or numbers convert.
bool ToBool(const Variant& v);
/// Numbers in their shortest decimal form, Booleans as "True"/"False", Empty as "".
std::string ToString(const Variant& v);

}  // namespace platform
