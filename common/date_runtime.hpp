#pragma once
#include <optional>
#include <string_view>

#include "common/date_value.hpp"

namespace tarnbrook {

// First day of the week constants (0 = the locale's setting).
enum VbDayOfWeek : int {
  vbUseSystemDayOfWeek = 0,
  vbSunday = 1,
  vbMonday = 2,
  vbTuesday = 3,
  vbWednesday = 4,
  vbThursday = 5,
  vbFriday = 6,
  vbSaturday = 7,
};

// First week of the year constants (0 = the locale's setting).
enum VbFirstWeekOfYear : int {
  vbUseSystem = 0,
  vbFirstJan1 = 1,
  vbFirstFourDays = 2,
  vbFirstFullWeek = 3,
};

// Date from year, month and day with roll-over both ways (month 13, month 0, day 0,
// negative days, day 40). Raises 5 outside the runtime's range.
DateValue DateSerial(int year, int month, int day);
// A day written "YYYY-MM-DD" (years 100 to 9999); nothing for other text or a day that does
// not exist, such as 2004-02-30.
std::optional<DateValue> IsoDate(std::string_view text);
// Time from hours, minutes and seconds with roll-over; may leave the day (negative or > 1).
DateValue TimeSerial(int hour, int minute, int second);

// Adds `number` intervals ("yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s"; any case)
// to `date`; months and years clip the day to the month's end. Raises 5 for an unknown
// interval or a result outside the runtime's range.
DateValue DateAdd(std::string_view interval, double number, DateValue date);

// The part of `date` named by `interval` ("yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s").
int DatePart(std::string_view interval, DateValue date, int firstDayOfWeek = vbSunday,
             int firstWeekOfYear = vbFirstJan1);

// 1 for `firstDayOfWeek` ... 7.
int Weekday(DateValue date, int firstDayOfWeek = vbSunday);
int Year(DateValue date);
int Month(DateValue date);
int Day(DateValue date);
int Hour(DateValue date);
int Minute(DateValue date);
int Second(DateValue date);

// The date without its time of day (toward the earlier midnight for negative serials).
DateValue DateOnly(DateValue date);
// The time of day as a fraction 0 <= t < 1.
double TimeOfDay(DateValue date);

// Raises 5 unless the value's day, the time rounded to the second, lies between
// 1 January 100 and 31 December 9999 (so 1 January 100 12:00, -657434.5, is valid).
void CheckDateRange(DateValue value);

} // namespace tarnbrook
