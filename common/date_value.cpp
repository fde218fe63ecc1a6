#include "common/date_value.hpp"

#include <cmath>

#include "common/control_error.hpp"

namespace tarnbrook {

namespace {

constexpr long SecondsPerDay = 86400;
// Day 0 of the 400-year-era count below (1 March of year 0) lies this many days before
// 30 December 1899.
constexpr long EraEpochOffset = 693899;

long FloorDiv(long long a, long b) {
  return static_cast<long>(a / b - (a % b < 0 ? 1 : 0));
}

} // namespace

bool IsLeapYear(int year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInMonth(int year, int month) {
  static constexpr int days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : days[month - 1];
}

// Counts in 400-year eras starting on 1 March, so the leap day is the last day of a year.
long DaysFromCivil(int year, int month, int day) {
  const long y = static_cast<long>(year) - (month <= 2 ? 1 : 0);
  const long era = (y >= 0 ? y : y - 399) / 400;
  const long yearOfEra = y - era * 400;
  const long marchMonth = (month + 9) % 12;
  const long dayOfYear = (153 * marchMonth + 2) / 5 + day - 1;
  const long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - EraEpochOffset;
}

CivilDate CivilFromDays(long days) {
  const long z = days + EraEpochOffset;
  const long era = (z >= 0 ? z : z - 146096) / 146097;
  const long dayOfEra = z - era * 146097;
  const long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const long marchMonth = (5 * dayOfYear + 2) / 153;
  const int month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
  return {static_cast<int>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0)), month,
          static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1)};
}

DaySeconds SplitDateValue(DateValue value) {
  // Anything this far out is out of range; the bound keeps the casts below defined.
  if (!(std::fabs(value) < 1e7)) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  DaySeconds split{static_cast<long>(value), 0};
  const double fraction = std::fabs(value - static_cast<double>(split.Days));
  split.Seconds = static_cast<int>(std::llround(fraction * SecondsPerDay));
  if (split.Seconds == SecondsPerDay) {
    // The next civil day, which for a negative serial is the one nearer zero.
    ++split.Days;
    split.Seconds = 0;
  }
  if (split.Days < MinDateDay || split.Days > MaxDateDay) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  return split;
}

DateValue DateValueFromDaySeconds(long days, long long seconds) {
  const long carry = FloorDiv(seconds, SecondsPerDay);
  days += carry;
  const double time = static_cast<double>(seconds - carry * SecondsPerDay) / SecondsPerDay;
  return days >= 0 ? static_cast<double>(days) + time : static_cast<double>(days) - time;
}

DateValue DateValueFromCivil(const CivilDate& date, const CivilTime& time) {
  const long long seconds = time.Hour * 3600LL + time.Minute * 60LL + time.Second;
  return DateValueFromDaySeconds(DaysFromCivil(date.Year, date.Month, date.Day), seconds);
}

CivilDateTime CivilFromDateValue(DateValue value) {
  const DaySeconds split = SplitDateValue(value);
  return {CivilFromDays(split.Days),
          {split.Seconds / 3600, split.Seconds / 60 % 60, split.Seconds % 60}};
}

} // namespace tarnbrook
