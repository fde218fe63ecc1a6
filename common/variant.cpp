#include "common/variant.hpp"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_format.hpp"
#include "common/font.hpp"
#include "common/picture.hpp"
#include "common/text.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t rtInvalidUseOfNull = 94;

// Variant's alternatives, by index.
enum Alternative : size_t {
  kEmpty,
  kNull,
  kBoolean,
  kInteger,
  kLong,
  kDouble,
  kDate,
  kString,
  kObject,
};

// The runtime shows a double with at most 15 significant digits, in exponent form
// ("1E+20", "1.5E-07") below 1E-04 and from 1E+15 on.
std::string DoubleToText(double value) {
  if (value == 0)
    return "0";
  if (std::isnan(value))
    return "NaN";
  if (std::isinf(value))
    return value < 0 ? "-Infinity" : "Infinity";
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.14E", value);
  std::string text(buffer);
  size_t e = text.find('E');
  int exponent = std::atoi(text.c_str() + e + 1);
  bool negative = text[0] == '-';
  std::string digits;
  for (size_t i = negative ? 1 : 0; i < e; ++i)
    if (text[i] != '.')
      digits += text[i];
  while (digits.size() > 1 && digits.back() == '0')
    digits.pop_back();

  std::string result = negative ? "-" : "";
  if (exponent < -4 || exponent >= 15) {
    result += digits[0];
    if (digits.size() > 1)
      result.append(".").append(digits, 1);
    std::snprintf(buffer, sizeof buffer, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return result + buffer;
  }
  if (exponent < 0)
    return result + "0." + std::string(size_t(-exponent - 1), '0') + digits;
  if (digits.size() <= size_t(exponent) + 1)
    return result + digits + std::string(exponent + 1 - digits.size(), '0');
  return result + digits.substr(0, exponent + 1) + "." + digits.substr(exponent + 1);
}

bool SameObject(const std::shared_ptr<Object>& a, const std::shared_ptr<Object>& b) {
  if (a == b)
    return true;
  if (auto fa = std::dynamic_pointer_cast<Font>(a), fb = std::dynamic_pointer_cast<Font>(b);
      fa && fb)
    return *fa == *fb;
  if (auto pa = std::dynamic_pointer_cast<Picture>(a), pb = std::dynamic_pointer_cast<Picture>(b);
      pa && pb)
    return *pa == *pb;
  return false;
}

} // namespace

VbVarType Variant::VarType() const {
  switch (value_.index()) {
  case kEmpty:
    return vbEmpty;
  case kNull:
    return vbNull;
  case kBoolean:
    return vbBoolean;
  case kInteger:
    return vbInteger;
  case kLong:
    return vbLong;
  case kDouble:
    return vbDouble;
  case kDate:
    return vbDate;
  case kString:
    return vbString;
  default:
    return vbObject;
  }
}

bool Variant::ToBoolean() const {
  if (auto* s = std::get_if<std::string>(&value_)) {
    if (EqualsIgnoreCaseAscii(*s, "True"))
      return true;
    if (EqualsIgnoreCaseAscii(*s, "False"))
      return false;
    return CDbl(*s) != 0;
  }
  if (auto* b = std::get_if<bool>(&value_))
    return *b;
  return ToDouble() != 0;
}

int16_t Variant::ToInteger() const {
  if (auto* i = std::get_if<int16_t>(&value_))
    return *i;
  return CInt(ToDouble());
}

int32_t Variant::ToLong() const {
  if (auto* l = std::get_if<int32_t>(&value_))
    return *l;
  return CLng(ToDouble());
}

double Variant::ToDouble() const {
  switch (value_.index()) {
  case kEmpty:
    return 0;
  case kNull:
    RaiseRuntimeError(rtInvalidUseOfNull);
  case kBoolean:
    return std::get<bool>(value_) ? -1 : 0;
  case kInteger:
    return std::get<int16_t>(value_);
  case kLong:
    return std::get<int32_t>(value_);
  case kDouble:
    return std::get<double>(value_);
  case kDate:
    return std::get<DateTag>(value_).value;
  case kString:
    return CDbl(std::get<std::string>(value_));
  default:
    RaiseRuntimeError(rtTypeMismatch);
  }
}

DateValue Variant::ToDate() const {
  if (auto* d = std::get_if<DateTag>(&value_))
    return d->value;
  if (auto* s = std::get_if<std::string>(&value_))
    return CDate(*s);
  double number = ToDouble();
  if (!(number >= MinDateValue && number <= MaxDateValue))
    RaiseRuntimeError(rtOverflow);
  return number;
}

std::string Variant::ToString() const {
  switch (value_.index()) {
  case kEmpty:
    return "";
  case kNull:
    RaiseRuntimeError(rtInvalidUseOfNull);
  case kBoolean:
    return std::get<bool>(value_) ? "True" : "False";
  case kInteger:
    return std::to_string(std::get<int16_t>(value_));
  case kLong:
    return std::to_string(std::get<int32_t>(value_));
  case kDouble:
    return DoubleToText(std::get<double>(value_));
  case kDate:
    return DateToText(std::get<DateTag>(value_).value);
  case kString:
    return std::get<std::string>(value_);
  default:
    RaiseRuntimeError(rtTypeMismatch);
  }
}

std::shared_ptr<Object> Variant::ToObject() const {
  if (auto* o = std::get_if<std::shared_ptr<Object>>(&value_))
    return *o;
  if (IsNull())
    RaiseRuntimeError(rtInvalidUseOfNull);
  RaiseRuntimeError(rtTypeMismatch);
}

bool Variant::operator==(const Variant& other) const {
  auto numeric = [](size_t index) { return index >= kInteger && index <= kDouble; };
  size_t a = value_.index(), b = other.value_.index();
  if (numeric(a) && numeric(b))
    return ToDouble() == other.ToDouble();
  if (a != b)
    return false;
  if (a == kObject)
    return SameObject(std::get<kObject>(value_), std::get<kObject>(other.value_));
  return value_ == other.value_;
}

} // namespace tarnbrook
