#pragma once
#include "common/date_runtime.hpp"
#include "common/font.hpp"

namespace tarnbrook::month_calendar_defaults {

// The lowest limit, kept as the text the runtime converts to a date.
inline constexpr const char* MinDateText = "1/1/1601";

// The highest limit, the last day the runtime can represent.
inline DateValue LastDate() {
  return DateSerial(9999, 12, 31);
}

// The first year the runtime's dates reach.
inline constexpr int FirstYear = 100;

// The font of a newly placed calendar.
inline Font DefaultFont() {
  Font font;
  font.Name = "Tahoma";
  font.Size = 8.5f;
  return font;
}

} // namespace tarnbrook::month_calendar_defaults
