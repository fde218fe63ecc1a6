#include "dateselect/date_spans.hpp"

#include <cmath>
#include <cstdint>

#include "common/control_error.hpp"
#include "common/date_runtime.hpp"

namespace tarnbrook {
namespace {

OptionDates Span(DateSpan span) {
  return {span.start, span.end, {}, {}};
}

} // namespace

DateSpan MonthSpan(int year, int month) {
  DateValue first = DateSerial(year, month, 1);
  return {first, DateAdd("m", 1, first) - 1};
}

DateSpan YearSpan(int year) {
  if (year >= INT16_MAX) // the year after it is a 16-bit number too
    RaiseRuntimeError(rtOverflow);
  return {DateSerial(year, 1, 1), DateSerial(year, 12, 31)};
}

std::optional<DateSpan> CustomSpan(DateValue today, double number, std::string_view unit,
                                   int firstDayOfWeek, bool includeToday) {
  DateSpan span;
  if (!std::isfinite(number)) {
    RaiseRuntimeError(rtOverflow);
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

OptionDates DatesOfOption(int32_t option, const RangeInputs& in) {
  const DateValue today = in.today;
  auto weekday = [&] { return DatePart("w", today, in.firstDayOfWeek, vbFirstJan1); };
  switch (option) {
  case dtsToday:
    return {today, {}, {}, {}};
  case dtsLast7days:
    return Span({today - 6, today});
  case dtsLast30days:
    return Span({today - 29, today});
  case dtsThisWeekTillToday:
    return Span({today - weekday() + 1, today});
  case dtsThisMonthTillToday:
    return Span({DateSerial(Year(today), Month(today), 1), today});
  case dtsThisYearTillToday:
    return Span({DateSerial(Year(today), 1, 1), today});
  case dtsLastWeek: {
    const DateValue end = today - weekday();
    return Span({end - 6, end});
  }
  case dtsLastMonth: {
    const int month = Month(today) == 1 ? 12 : Month(today) - 1;
    const int year = Month(today) == 1 ? Year(today) - 1 : Year(today);
    OptionDates dates = Span(MonthSpan(year, month));
    dates.year = year;
    dates.month = month;
    return dates;
  }
  case dtsLastYear: {
    OptionDates dates = Span(YearSpan(Year(today) - 1));
    dates.year = Year(today) - 1;
    return dates;
  }
  case dtsCustomRange:
    if (auto span =
            CustomSpan(today, in.customNumber, in.customUnit, in.firstDayOfWeek, in.includeToday))
      return Span(*span);
    return {};
  case dtsMonth:
    return Span(MonthSpan(in.year, in.month));
  case dtsYear:
    return Span(YearSpan(in.year));
  default: // Date, DateRange and Expression: the user enters the dates
    return {};
  }
}

OptionShape ShapeOf(int32_t option) {
  switch (option) {
  case dtsToday:
  case dtsDate:
    return OptionShape::Day;
  case dtsDateRange:
  case dtsLast7days:
  case dtsLast30days:
  case dtsThisWeekTillToday:
  case dtsThisMonthTillToday:
  case dtsThisYearTillToday:
  case dtsLastWeek:
    return OptionShape::Fields;
  case dtsLastMonth:
  case dtsMonth:
    return OptionShape::Month;
  case dtsLastYear:
  case dtsYear:
    return OptionShape::Year;
  case dtsCustomRange:
    return OptionShape::Custom;
  case dtsExpression:
    return OptionShape::Operator;
  default:
    return OptionShape::None;
  }
}

DateCriterion CriterionOfOption(int32_t option, const CriteriaInputs& in) {
  switch (ShapeOf(option)) {
  case OptionShape::Day:
    return CompareCriterion("=", in.start.ToDate());
  case OptionShape::Fields:
    return RangeCriterion(in.start.ToDate(), in.end.ToDate());
  case OptionShape::Month: {
    const DateSpan span = MonthSpan(in.year, in.month);
    return RangeCriterion(span.start, span.end);
  }
  case OptionShape::Year: {
    const DateSpan span = YearSpan(in.year);
    return RangeCriterion(span.start, span.end);
  }
  case OptionShape::Custom: {
    const std::optional<DateSpan> span =
        CustomSpan(in.today, in.customNumber, in.customUnit, in.firstDayOfWeek, in.includeToday);
    if (span)
      return RangeCriterion(span->start, span->end);
    return RangeCriterion(in.start.ToDate(), in.end.ToDate());
  }
  case OptionShape::Operator:
    return CompareCriterion(in.op, in.start.ToDate());
  default:
    return {};
  }
}

DateCriterion AppliedCriterion(int32_t option, CriteriaInputs in) {
  const OptionDates dates = DatesOfOption(option, in);
  if (dates.from)
    in.start = Variant::Date(*dates.from);
  if (dates.to)
    in.end = Variant::Date(*dates.to);
  in.year = dates.year.value_or(in.year);
  in.month = dates.month.value_or(in.month);
  return CriterionOfOption(option, in);
}

} // namespace tarnbrook
