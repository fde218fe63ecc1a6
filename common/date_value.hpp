#pragma once

namespace tarnbrook {

// An automation date: days since 30 December 1899, the fraction being the time of day.
// Before 1899 the integer part is negative and the time fraction still counts forward,
// so -1.25 is 29 December 1899, 06:00.
using DateValue = double;

// The runtime's date range: 1 January 100 to 31 December 9999 23:59:59.
constexpr DateValue MinDateValue = -657434.0;
constexpr DateValue MaxDateValue = 2958465.99998843;
// The first and last day of that range as day numbers.
constexpr long MinDateDay = -657434;
constexpr long MaxDateDay = 2958465;

struct CivilDate {
  int Year = 1899;
  int Month = 12;
  int Day = 30;
  bool operator==(const CivilDate&) const = default;
};

struct CivilTime {
  int Hour = 0;
  int Minute = 0;
  int Second = 0;
  bool operator==(const CivilTime&) const = default;
};

struct CivilDateTime {
  CivilDate Date;
  CivilTime Time;
  bool operator==(const CivilDateTime&) const = default;
};

// A date value as a day number and the seconds of that day (0..86399).
struct DaySeconds {
  long Days = 0;
  int Seconds = 0;
};

// Exact conversions for valid dates; the time is rounded to the nearest second. A time
// beyond the day (or negative) carries into the date. CivilFromDateValue raises 5 for a
// value outside the runtime's range.
DateValue DateValueFromCivil(const CivilDate& date, const CivilTime& time = {});
CivilDateTime CivilFromDateValue(DateValue value);

// The civil day and time of `value`, rounded to the second (23:59:59.9999 is the next
// day's midnight); raises 5 for a value whose day is outside the runtime's range.
DaySeconds SplitDateValue(DateValue value);
// The value of a day number plus seconds; seconds outside 0..86399 carry into the day.
DateValue DateValueFromDaySeconds(long days, long long seconds);

// Days since 30 December 1899 of a proleptic Gregorian date; no range check.
long DaysFromCivil(int year, int month, int day);
CivilDate CivilFromDays(long days);

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);

} // namespace tarnbrook
