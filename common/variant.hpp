#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "common/date_value.hpp"
#include "common/object.hpp"

namespace tarnbrook {

// The automation type codes (VarType).
enum VbVarType : int {
  vbEmpty = 0,
  vbNull = 1,
  vbInteger = 2,
  vbLong = 3,
  vbDouble = 5,
  vbDate = 7,
  vbString = 8,
  vbObject = 9,
  vbBoolean = 11,
};

struct NullValue {
  bool operator==(const NullValue&) const = default;
};

// An automation variant: Empty, Null, Boolean, Integer, Long, Double, Date, String or object.
class Variant {
public:
  Variant() = default;
  static Variant Null() { return Variant(NullValue{}); }
  Variant(NullValue) : value_(NullValue{}) {}
  Variant(bool b) : value_(b) {}
  Variant(int16_t i) : value_(i) {}
  Variant(int32_t l) : value_(l) {}
  Variant(double d) : value_(d) {}
  static Variant Date(DateValue d) { return Variant(DateTag{d}); }
  Variant(std::string s) : value_(std::move(s)) {}
  Variant(const char* s) : value_(std::string(s)) {}
  Variant(std::shared_ptr<Object> o) : value_(std::move(o)) {}

  VbVarType VarType() const;
  bool IsEmpty() const { return VarType() == vbEmpty; }
  bool IsNull() const { return VarType() == vbNull; }
  bool IsObject() const { return VarType() == vbObject; }

  // Conversions as the runtime makes them; 13 (type mismatch) or 6 (overflow) on failure.
  bool ToBoolean() const;
  int16_t ToInteger() const;
  int32_t ToLong() const;
  double ToDouble() const;
  DateValue ToDate() const;
  std::string ToString() const;
  std::shared_ptr<Object> ToObject() const;

  // Same type and value; Integer, Long and Double compare by number.
  bool operator==(const Variant& other) const;

private:
  struct DateTag {
    DateValue value;
    bool operator==(const DateTag&) const = default;
  };
  explicit Variant(DateTag d) : value_(d) {}

  std::variant<std::monostate, NullValue, bool, int16_t, int32_t, double, DateTag, std::string,
               std::shared_ptr<Object>>
      value_;
};

} // namespace tarnbrook
