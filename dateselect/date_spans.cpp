#include "dateselect/date_spans.hpp"

#include <cmath>

#include "common/date_runtime.hpp"

namespace tarnbrook {

DateSpan MonthSpan(int year, int month) {
  DateValue first = DateSerial(year, month, 1);
  return {first, DateAdd("m", 1, first) - 1};
}

DateSpan YearSpan(int year) {
  return {DateSerial(year, 1, 1), DateSerial(year, 12, 31)};
}

std::optional<DateSpan> CustomSpan(DateValue today, double number, std::string_view unit,
                                   int firstDayOfWeek, bool includeToday) {
  DateSpan span;
  if (!std::isfinite(number)) {
    return std::nullopt;
  } else if (unit == "Days") {
    span = {today - number, today - 1};
  } else if (unit == "Weeks") {
    span.end = today - DatePart("w", today, firstDayOfWeek, vbFirstJan1) + 1;
    span.start = span.end - 7 * number + 1;
  } else if (unit == "Months") {
    DateValue thisMonth = DateSerial(Year(today), Month(today), 1);
    span = {DateAdd("m", -number, thisMonth), thisMonth - 1};
  } else if (unit == "Years") {
    DateValue thisYear = DateSerial(Year(today), 1, 1);
    span = {DateAdd("yyyy", -number, thisYear), thisYear - 1};
  } else {
    return std::nullopt;
  }
  if (includeToday)
    span.end = today;
  return span;
}

} // namespace tarnbrook
