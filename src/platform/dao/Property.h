#pragma once
#include <functional>
#include <string>

#include "platform/core/Variant.h"

namespace platform::dao {

/// A DAO property of a database: a name, a data type (DataTypeEnum) and a value. The
/// engine's own properties (Name, Version, ...) are read-only; a user-defined one keeps
/// its value in the file once it is appended, and a change of its value is stored at
/// once.
class Property {
 public:
  /// A property; `value` is converted to `type` when both are given (13 when it does
  /// not convert).
  Property(std::string name = "", int type = 0, const Variant& value = {});

  const std::string& Name() const { return m_name; }
  /// Sets the name; 3219 once the property is appended.
  void SetName(const std::string& name);
  int Type() const { return m_type; }
  /// Sets the type; 3219 once appended, 3259 for a number that is no data type.
  void SetType(int type);
  const Variant& Value() const { return m_value; }
  /// Sets the value, converted to the type; 3219 for a read-only property; the DAO error
  /// of the file when storing it fails (the value then stays as it was).
  void SetValue(const Variant& value);
  /// False: user-defined properties are the database's own.
  bool Inherited() const { return false; }

  // For the layer itself.
  /// Makes the property read-only (an engine property).
  void MakeReadOnly() { m_readOnly = true; }
  /// Marks the property appended; `store` keeps a new value in the file.
  void Bind(std::function<void(const Property&)> store) {
    m_appended = true;
    m_store = std::move(store);
  }
  /// `value` converted to `type` (Empty stays Empty; types without a conversion keep
  /// the value as it is).
  static Variant Convert(int type, const Variant& value);

 private:
  std::string m_name;
  int m_type;
  Variant m_value;
  bool m_readOnly = false;
  bool m_appended = false;
  std::function<void(const Property&)> m_store;
};

}  // namespace platform::dao
