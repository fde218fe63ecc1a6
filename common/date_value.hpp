#pragma once

namespace tarnbrook {

// An automation date: days since 30 December 1899, the fraction being the time of day.
// Before 1899 the integer part is negative and the time fraction still counts forward,
// so -1.25 is 29 December 1899, 06:00.
using DateValue = double;

// The runtime's date range: 1 January 100 to 31 December 9999 23:59:59.
constexpr DateValue MinDateValue = -657434.0;
constexpr DateValue MaxDateValue = 2958465.99998843;

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

// Exact conversions for valid dates; the time is rounded to the nearest second.
DateValue DateValueFromCivil(const CivilDate& date, const CivilTime& time = {});
CivilDateTime CivilFromDateValue(DateValue value);

// Days since 30 December 1899 of a proleptic Gregorian date; no range check.
long DaysFromCivil(int year, int month, int day);
CivilDate CivilFromDays(long days);

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);

} // namespace tarnbrook
