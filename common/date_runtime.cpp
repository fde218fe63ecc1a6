#include "common/date_runtime.hpp"
#include "common/text.hpp"

#include <algorithm>
#include <cmath>

#include "common/control_error.hpp"
#include "common/locale.hpp"

namespace tarnbrook {

namespace {

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

Interval ParseInterval(std::string_view text) {
  static constexpr struct {
    std::string_view Name;
    Interval Value;
  } names[] = {{"yyyy", Interval::Year},   {"q", Interval::Quarter}, {"m", Interval::Month},
               {"y", Interval::DayOfYear}, {"d", Interval::Day},     {"w", Interval::Weekday},
               {"ww", Interval::Week},     {"h", Interval::Hour},    {"n", Interval::Minute},
               {"s", Interval::Second}};
  for (const auto& name : names) {
    if (EqualsIgnoreCaseAscii(text, name.Name)) {
      return name.Value;
    }
  }
  RaiseRuntimeError(rtInvalidProcedureCall);
}

long FloorDiv(long long a, long b) {
  return static_cast<long>(a / b - (a % b < 0 ? 1 : 0));
}

long FloorMod(long a, long b) {
  const long r = a % b;
  return r < 0 ? r + b : r;
}

void CheckDay(long days) {
  if (days < MinDateDay || days > MaxDateDay) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
}

int ResolveFirstDayOfWeek(int firstDayOfWeek) {
  if (firstDayOfWeek < vbUseSystemDayOfWeek || firstDayOfWeek > vbSaturday) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  return firstDayOfWeek == vbUseSystemDayOfWeek ? CurrentLocale().FirstDayOfWeek : firstDayOfWeek;
}

int ResolveFirstWeekOfYear(int firstWeekOfYear) {
  if (firstWeekOfYear < vbUseSystem || firstWeekOfYear > vbFirstFullWeek) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  return firstWeekOfYear == vbUseSystem ? CurrentLocale().FirstWeekOfYear : firstWeekOfYear;
}

// 1 for the first day of the week ... 7; day 0 (30 December 1899) was a Saturday.
int WeekdayOfDay(long days, int firstDayOfWeek) {
  const long sundayBased = FloorMod(days + 6, 7) + 1;
  return static_cast<int>(FloorMod(sundayBased - firstDayOfWeek, 7) + 1);
}

// The first day of week 1 of `year`.
long FirstWeekStart(int year, int firstDayOfWeek, int firstWeekOfYear) {
  const long jan1 = DaysFromCivil(year, 1, 1);
  const int jan1Weekday = WeekdayOfDay(jan1, firstDayOfWeek);
  const bool jan1WeekCounts = firstWeekOfYear == vbFirstJan1 ||
                              (firstWeekOfYear == vbFirstFourDays && jan1Weekday <= 4) ||
                              jan1Weekday == 1;
  return jan1WeekCounts ? jan1 - (jan1Weekday - 1) : jan1 + (8 - jan1Weekday);
}

// Days before week 1 belong to the previous year's last week. Late December days are still
// counted in their own year (week 53), as the runtime does, even where that week is the
// next year's week 1.
int WeekOfYear(long days, int firstDayOfWeek, int firstWeekOfYear) {
  const int year = CivilFromDays(days).Year;
  long start = FirstWeekStart(year, firstDayOfWeek, firstWeekOfYear);
  if (days < start) {
    start = FirstWeekStart(year - 1, firstDayOfWeek, firstWeekOfYear);
  }
  return static_cast<int>((days - start) / 7 + 1);
}

DateValue AddMonths(DaySeconds split, long months) {
  const CivilDate date = CivilFromDays(split.Days);
  const long monthIndex = date.Year * 12L + (date.Month - 1) + months;
  const long year = monthIndex / 12;
  if (year < 100 || year > 9999) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  const int month = static_cast<int>(monthIndex % 12 + 1);
  const int day = std::min(date.Day, DaysInMonth(static_cast<int>(year), month));
  return DateValueFromDaySeconds(DaysFromCivil(static_cast<int>(year), month, day), split.Seconds);
}

DateValue AddSeconds(DaySeconds split, long long seconds) {
  const long long total = split.Days * 86400LL + split.Seconds + seconds;
  CheckDay(FloorDiv(total, 86400));
  return DateValueFromDaySeconds(0, total);
}

DateValue AddDays(DaySeconds split, long days) {
  CheckDay(split.Days + days);
  return DateValueFromDaySeconds(split.Days + days, split.Seconds);
}

} // namespace

void CheckDateRange(DateValue value) {
  SplitDateValue(value);
}

// Years 0..29 are taken as 2000..2029 and 30..99 as 1930..1999, the runtime's two-digit
// year rule, before the month rolls over.
std::optional<DateValue> IsoDate(std::string_view text) {
  auto digits = [&](size_t from, size_t count) {
    int value = 0;
    for (size_t i = from; i < from + count; ++i) {
      if (text[i] < '0' || text[i] > '9')
        return -1;
      value = value * 10 + (text[i] - '0');
    }
    return value;
  };
  if (text.size() != 10 || text[4] != '-' || text[7] != '-')
    return std::nullopt;
  const int year = digits(0, 4), month = digits(5, 2), day = digits(8, 2);
  if (year < 100 || month < 1 || month > 12 || day < 1)
    return std::nullopt;
  const DateValue date = DateSerial(year, month, day);
  if (Month(date) != month) // the day ran into the next month
    return std::nullopt;
  return date;
}

DateValue DateSerial(int year, int month, int day) {
  long y = year;
  if (y >= 0 && y <= 29) {
    y += 2000;
  } else if (y >= 30 && y <= 99) {
    y += 1900;
  }
  const long monthIndex = month - 1L;
  y += FloorDiv(monthIndex, 12);
  // Beyond this no day offset of an int can come back into range.
  if (y < -6000000 || y > 6000000) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  const int m = static_cast<int>(FloorMod(monthIndex, 12) + 1);
  const long days = DaysFromCivil(static_cast<int>(y), m, 1) + (day - 1L);
  CheckDay(days);
  return DateValueFromDaySeconds(days, 0);
}

DateValue TimeSerial(int hour, int minute, int second) {
  return AddSeconds({}, hour * 3600LL + minute * 60LL + second);
}

DateValue DateAdd(std::string_view interval, double number, DateValue date) {
  const Interval unit = ParseInterval(interval);
  const DaySeconds split = SplitDateValue(date);
  // No whole number of seconds this large stays in range; the bound keeps the cast defined.
  if (!(std::fabs(number) < 1e12)) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  const long n = static_cast<long>(std::trunc(number));
  switch (unit) {
  case Interval::Year:
    return AddMonths(split, n * 12);
  case Interval::Quarter:
    return AddMonths(split, n * 3);
  case Interval::Month:
    return AddMonths(split, n);
  case Interval::DayOfYear:
  case Interval::Day:
  case Interval::Weekday:
    return AddDays(split, n);
  case Interval::Week:
    return AddDays(split, n * 7);
  case Interval::Hour:
    return AddSeconds(split, n * 3600LL);
  case Interval::Minute:
    return AddSeconds(split, n * 60LL);
  case Interval::Second:
    break;
  }
  return AddSeconds(split, n);
}

int DatePart(std::string_view interval, DateValue date, int firstDayOfWeek, int firstWeekOfYear) {
  const Interval unit = ParseInterval(interval);
  const int dayOfWeekStart = ResolveFirstDayOfWeek(firstDayOfWeek);
  const int weekOfYearRule = ResolveFirstWeekOfYear(firstWeekOfYear);
  const DaySeconds split = SplitDateValue(date);
  const CivilDate civil = CivilFromDays(split.Days);
  switch (unit) {
  case Interval::Year:
    return civil.Year;
  case Interval::Quarter:
    return (civil.Month - 1) / 3 + 1;
  case Interval::Month:
    return civil.Month;
  case Interval::DayOfYear:
    return static_cast<int>(split.Days - DaysFromCivil(civil.Year, 1, 1) + 1);
  case Interval::Day:
    return civil.Day;
  case Interval::Weekday:
    return WeekdayOfDay(split.Days, dayOfWeekStart);
  case Interval::Week:
    return WeekOfYear(split.Days, dayOfWeekStart, weekOfYearRule);
  case Interval::Hour:
    return split.Seconds / 3600;
  case Interval::Minute:
    return split.Seconds / 60 % 60;
  case Interval::Second:
    break;
  }
  return split.Seconds % 60;
}

int Weekday(DateValue date, int firstDayOfWeek) {
  const int dayOfWeekStart = ResolveFirstDayOfWeek(firstDayOfWeek);
  return WeekdayOfDay(SplitDateValue(date).Days, dayOfWeekStart);
}

int Year(DateValue date) {
  return CivilFromDateValue(date).Date.Year;
}
int Month(DateValue date) {
  return CivilFromDateValue(date).Date.Month;
}
int Day(DateValue date) {
  return CivilFromDateValue(date).Date.Day;
}
int Hour(DateValue date) {
  return SplitDateValue(date).Seconds / 3600;
}
int Minute(DateValue date) {
  return SplitDateValue(date).Seconds / 60 % 60;
}
int Second(DateValue date) {
  return SplitDateValue(date).Seconds % 60;
}

DateValue DateOnly(DateValue date) {
  return DateValueFromDaySeconds(SplitDateValue(date).Days, 0);
}

double TimeOfDay(DateValue date) {
  return SplitDateValue(date).Seconds / 86400.0;
}

} // namespace tarnbrook
