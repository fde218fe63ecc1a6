#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/date_value.hpp"
#include "common/sql_criteria.hpp"
#include "common/variant.hpp"

namespace tarnbrook {

// The options of a DateSelect.
enum dtsOptions {
  dtsToday = 0,
  dtsDate = 1,
  dtsDateRange = 2,
  dtsLast7days = 3,
  dtsLast30days = 4,
  dtsThisWeekTillToday = 5,
  dtsThisMonthTillToday = 6,
  dtsThisYearTillToday = 7,
  dtsLastWeek = 8,
  dtsLastMonth = 9,
  dtsLastYear = 10,
  dtsCustomRange = 11,
  dtsExpression = 12,
  dtsMonth = 13,
  dtsYear = 14,
};

// What an option selects, which decides both what the control shows and how its criteria
// read: a day of the start field, the range of both fields, a month of the held year, the held
// year, the custom range, or the operator with the start field.
enum class OptionShape { None, Day, Fields, Month, Year, Custom, Operator };
OptionShape ShapeOf(int32_t option);

// A range of whole days, both ends included.
struct DateSpan {
  DateValue start = 0;
  DateValue end = 0;
};

// The whole month and the whole year. A month past December rolls into the next year; a year
// whose successor leaves 16 bits overflows (6), one outside the runtime's dates raises 5.
DateSpan MonthSpan(int year, int month);
DateSpan YearSpan(int year);

// The custom range: `number` days, weeks, months or years back from `today` ("Days", "Weeks",
// "Months", "Years", compared exactly; any other unit has no range). It ends before today, or
// on today with `includeToday`. Weeks end on the first day of this week, one day later than
// the other units' pattern would give; that shift is how saved criteria have always read.
std::optional<DateSpan> CustomSpan(DateValue today, double number, std::string_view unit,
                                   int firstDayOfWeek, bool includeToday);

// What an option's dates follow from. Needs no window: the control fills it from its state.
struct RangeInputs {
  DateValue today = 0;    // whole day
  int firstDayOfWeek = 0; // 0 = the locale's
  int year = 0;           // the selected year
  int month = 1;          // the selected month
  double customNumber = 0;
  std::string customUnit; // "Days", "Weeks", "Months" or "Years"
  bool includeToday = false;
};

// What applying an option writes: the start and end dates (an absent one leaves its field as
// it is) and, for Last Month and Last Year, the year and month they select.
struct OptionDates {
  std::optional<DateValue> from, to;
  std::optional<int> year, month;
};

// The dates of option `option` (a dtsOptions value); the runtime's errors when a date cannot
// be made.
OptionDates DatesOfOption(int32_t option, const RangeInputs& in);

// What an option's criteria read: besides the inputs, the dates the control holds (entered,
// or made when the option was applied; Null when a field is empty, which raises 94 only for an
// option that reads it) and the operator.
struct CriteriaInputs : RangeInputs {
  Variant start = Variant::Date(0), end = Variant::Date(0);
  std::string op = "=";
};

// The criterion of option `option` on what the control holds: the held dates for the options
// that made or took them, the held month and year for Last Month, Month, Last Year and Year,
// and the custom range computed afresh. Column "" (the caller's to name).
DateCriterion CriterionOfOption(int32_t option, const CriteriaInputs& in);

// The criterion of option `option` as a control would hold it right after applying it on
// `in.today`: what a program with no window turns into a query.
DateCriterion AppliedCriterion(int32_t option, CriteriaInputs in);

} // namespace tarnbrook
