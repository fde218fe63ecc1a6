// The dates of each option, computed from today, the first day of the week, the selected year
// and month, and the custom range.
#include <algorithm>
#include <climits>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "dateselect/date_spans.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

DateValue DateSelect::StartDate() const {
  return dtpFrom_->Value().ToDate();
}

void DateSelect::SetStartDate(DateValue date) {
  SetFrom(date);
  PropertyChanged("StartDate");
  RaiseWithChange(&DateSelectEvents::StartDateChange);
}

DateValue DateSelect::EndDate() const {
  return dtpTo_->Value().ToDate();
}

// Reported under the start date's key, as forms have always recorded it.
void DateSelect::SetEndDate(DateValue date) {
  SetTo(date);
  PropertyChanged("StartDate");
  RaiseWithChange(&DateSelectEvents::EndDateChange);
}

void DateSelect::SetFrom(DateValue date) {
  Quietly([&] { dtpFrom_->SetValue(Variant::Date(date)); });
}

void DateSelect::SetTo(DateValue date) {
  Quietly([&] { dtpTo_->SetValue(Variant::Date(date)); });
}

void DateSelect::ApplyOption(int32_t option) {
  const DateValue today = Platform::Current().Today();
  const int32_t weekday = DatePart("w", today, firstDayofWeek_, vbFirstJan1);
  switch (option) {
  case dtsToday:
    SetFrom(today);
    break;
  case dtsLast7days:
  case dtsLast30days:
    SetFrom(today - (option == dtsLast7days ? 6 : 29));
    SetTo(today);
    break;
  case dtsThisWeekTillToday:
    SetFrom(today - weekday + 1);
    SetTo(today);
    break;
  case dtsThisMonthTillToday:
    SetFrom(DateSerial(Year(today), Month(today), 1));
    SetTo(today);
    break;
  case dtsThisYearTillToday:
    SetFrom(DateSerial(Year(today), 1, 1));
    SetTo(today);
    break;
  case dtsLastWeek:
    SetTo(today - weekday);
    SetFrom(EndDate() - 6);
    break;
  case dtsLastMonth:
    ApplyLastMonth();
    break;
  case dtsLastYear:
    Quietly([&] { spnYear_->SetValue(Year(today) - 1); });
    YearChanged(Year(today) - 1);
    ApplyYearRange();
    break;
  case dtsCustomRange:
    ApplyCustomRange();
    break;
  case dtsMonth:
    ApplyMonthRange();
    break;
  case dtsYear:
    ApplyYearRange();
    break;
  default: // Date, DateRange and Expression keep what the fields hold
    break;
  }
  ShowConstituents();
}

// Last month's year and month become the selected ones, through their own change handling.
void DateSelect::ApplyLastMonth() {
  const DateValue today = Platform::Current().Today();
  int32_t year = Year(today);
  int32_t month = Month(today) - 1;
  if (month < 1) {
    month += 12;
    --year;
  }
  Quietly([&] { spnYear_->SetValue(year); });
  YearChanged(year);
  SetSelectedMonth(month);
  ApplyMonthRange();
}

void DateSelect::ApplyMonthRange() {
  DateSpan span = MonthSpan(selectedYear_, selectedMonth_);
  SetFrom(span.start);
  SetTo(span.end);
}

void DateSelect::ApplyYearRange() {
  DateSpan span = YearSpan(selectedYear_);
  SetFrom(span.start);
  SetTo(span.end);
}

void DateSelect::ApplyCustomRange() {
  // A number so large that the range leaves the runtime's or the fields' dates keeps the
  // dates the fields hold.
  std::optional<DateSpan> span;
  try {
    span = CustomSpan(Platform::Current().Today(), Val(txtCustomRange_->Text()),
                      cboCustomChoice_->Text(), firstDayofWeek_, chkCustom_->Value() == vbChecked);
  } catch (const ControlError&) {
    return;
  }
  auto showable = [](const DatePicker& field, DateValue date) {
    return field.MinDate() <= date && date <= field.MaxDate();
  };
  if (!span || !showable(*dtpFrom_, span->start) || !showable(*dtpTo_, span->end))
    return;
  SetFrom(span->start);
  SetTo(span->end);
}

void DateSelect::YearChanged(int32_t year) {
  selectedYear_ = static_cast<int16_t>(year);
  if (selection_ == dtsYear)
    ApplyYearRange();
  else if (selection_ == dtsMonth)
    ApplyMonthRange();
  RaiseWithChange(&DateSelectEvents::YearChange);
}

void DateSelect::SetSelectedMonth(int32_t month) {
  if (month < dtsJanuary || month > dtsDecember)
    throw ControlError(1001, "Tarnbrook.DateSelect", "Invalid Month Value");
  Quietly([&] { cboMonth_->SetListIndex(month - 1); });
  selectedMonth_ = month;
  PropertyChanged("SelectedMonth");
  if (selection_ == dtsMonth)
    ApplyMonthRange();
  RaiseWithChange(&DateSelectEvents::MonthChange);
}

// Years the date fields can show; stored only once the dates for it can be made.
void DateSelect::SetSelectedYear(int16_t year) {
  if (year < 1601 || year > 9999)
    RaiseRuntimeError(rtInvalidPropertyValue, "Tarnbrook.DateSelect");
  Quietly([&] { spnYear_->SetValue(year); });
  selectedYear_ = year;
  ApplyOption(selection_);
  PropertyChanged("SelectedYear");
  RaiseWithChange(&DateSelectEvents::YearChange);
}

// A number beyond a Long reads as the nearest Long, so the control can always be saved.
int32_t DateSelect::CustomRange() const {
  double number = Val(txtCustomRange_->Text());
  return CLng(std::clamp(number, double(INT32_MIN), double(INT32_MAX)));
}

void DateSelect::SetCustomRange(int32_t number) {
  txtCustomRange_->SetText(std::to_string(number));
  PropertyChanged("CustomRange");
}

int32_t DateSelect::CustomSelection() const {
  return cboCustomChoice_->ListIndex();
}

// A unit must stay chosen: the custom range has no dates without one.
void DateSelect::SetCustomSelection(int32_t unit) {
  if (unit < dtsDays || unit > dtsYears)
    RaiseRuntimeError(rtInvalidPropertyValue, "Tarnbrook.DateSelect");
  cboCustomChoice_->SetListIndex(unit);
  PropertyChanged("CustomSelection");
}

} // namespace tarnbrook
