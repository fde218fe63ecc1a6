// FormatDate with any value (NaN, infinities, out of range), any format and any first
// day and week.
#include <cstring>
#include <string_view>

#include "common/control_error.hpp"
#include "common/date_format.hpp"

using namespace tarnbrook;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < sizeof(double) + 2)
    return 0;
  DateValue value;
  std::memcpy(&value, data, sizeof value);
  // Mostly 0..7 and 0..3, now and then far outside.
  const int firstDay = static_cast<int8_t>(data[sizeof value]);
  const int firstWeek = static_cast<int8_t>(data[sizeof value + 1]);
  const size_t head = sizeof value + 2;
  const std::string_view format(reinterpret_cast<const char*>(data + head), size - head);
  try {
    FormatDate(value, format, firstDay, firstWeek);
  } catch (const ControlError&) {
  }
  try {
    DateToText(value);
  } catch (const ControlError&) {
  }
  return 0;
}
