// Text a user types, as a date and as a number.
#include <cstdlib>
#include <string_view>

#include "common/control_error.hpp"
#include "common/conversions.hpp"

using namespace tarnbrook;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const bool isDate = IsDate(text);
  try {
    const DateValue date = CDate(text);
    if (!isDate || date < MinDateValue || date > MaxDateValue)
      std::abort(); // CDate and IsDate must agree, and a date is in range
  } catch (const ControlError&) {
    if (isDate)
      std::abort();
  }
  try {
    Val(text); // overflows raise 6
  } catch (const ControlError&) {
  }
  try {
    CDbl(text);
  } catch (const ControlError&) {
  }
  return 0;
}
