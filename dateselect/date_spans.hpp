#pragma once
#include <optional>
#include <string_view>

#include "common/date_value.hpp"

namespace tarnbrook {

// A range of whole days, both ends included.
struct DateSpan {
  DateValue start = 0;
  DateValue end = 0;
};

// The whole month and the whole year; they end on the last day without leaving 9999.
DateSpan MonthSpan(int year, int month);
DateSpan YearSpan(int year);

// The custom range: `number` days, weeks, months or years back from `today` ("Days", "Weeks",
// "Months", "Years", compared exactly; any other unit has no range). It ends before today, or
// on today with `includeToday`. Weeks end on the first day of this week, one day later than
// the other units' pattern would give; that shift is how saved criteria have always read.
std::optional<DateSpan> CustomSpan(DateValue today, double number, std::string_view unit,
                                   int firstDayOfWeek, bool includeToday);

} // namespace tarnbrook
