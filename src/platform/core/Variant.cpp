#include "platform/core/Variant.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "platform/core/Error.h"

namespace platform {
namespace {

// Parses a decimal number the way the automation conversions accept it: optional blanks,
// a sign, digits with an optional fraction and exponent, optional blanks. Written by hand
// because strtod also takes hexadecimal, "inf" and "nan", which must be type mismatches.
bool ParseDecimal(const std::string& s, double& out) {
  size_t b = 0, e = s.size();
  while (b < e && (s[b] == ' ' || s[b] == '\t')) ++b;
  while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t')) --e;
  if (b == e) return false;
  size_t i = b;
  if (s[i] == '+' || s[i] == '-') ++i;
  size_t digits = 0;
  while (i < e && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
  if (i < e && s[i] == '.') {
    ++i;
    while (i < e && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
  }
  if (digits == 0) return false;
  if (i < e && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < e && (s[i] == '+' || s[i] == '-')) ++i;
    size_t exp = 0;
    while (i < e && s[i] >= '0' && s[i] <= '9') ++i, ++exp;
    if (exp == 0) return false;
  }
  if (i != e) return false;
  std::string text = s.substr(b, e - b);
  if (text[0] == '+') text.erase(0, 1);
  auto res = std::from_chars(text.data(), text.data() + text.size(), out);
  return res.ec == std::errc() && res.ptr == text.data() + text.size();
}

double NumberOf(const Variant& v) {
  switch (v.type()) {
    case Variant::Type::Empty: return 0;
    case Variant::Type::Boolean: return v.AsBool() ? -1 : 0;
    case Variant::Type::Long: return v.AsLong();
    case Variant::Type::Double: return v.AsDouble();
    case Variant::Type::String: {
      double d;
      if (!ParseDecimal(v.AsString(), d)) throw Error(err::kTypeMismatch);
      return d;
    }
  }
  throw Error(err::kTypeMismatch);
}

int64_t RoundToInteger(double d, int64_t lo, int64_t hi) {
  if (std::isnan(d)) throw Error(err::kOverflow);
  double r = std::nearbyint(d);  // default rounding mode: half to even
  if (r < static_cast<double>(lo) || r > static_cast<double>(hi)) throw Error(err::kOverflow);
  return static_cast<int64_t>(r);
}

}  // namespace

int16_t ToInt16(const Variant& v) {
  return static_cast<int16_t>(RoundToInteger(NumberOf(v), -32768, 32767));
}

int32_t ToInt32(const Variant& v) {
  return static_cast<int32_t>(RoundToInteger(NumberOf(v), INT32_MIN, INT32_MAX));
}

double ToDouble(const Variant& v) { return NumberOf(v); }

bool ToBool(const Variant& v) {
  if (v.type() == Variant::Type::String) {
    std::string lower;
    for (char c : v.AsString()) lower += static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    size_t b = lower.find_first_not_of(" \t"), e = lower.find_last_not_of(" \t");
    lower = b == std::string::npos ? "" : lower.substr(b, e - b + 1);
    if (lower == "true") return true;
    if (lower == "false") return false;
  }
  return NumberOf(v) != 0;
}

std::string ToString(const Variant& v) {
  switch (v.type()) {
    case Variant::Type::Empty: return "";
    case Variant::Type::Boolean: return v.AsBool() ? "True" : "False";
    case Variant::Type::Long: return std::to_string(v.AsLong());
    case Variant::Type::Double: {
      char buf[64];
      auto res = std::to_chars(buf, buf + sizeof buf, v.AsDouble());
      return std::string(buf, res.ptr);
    }
    case Variant::Type::String: return v.AsString();
  }
  return "";
}

}  // namespace platform
