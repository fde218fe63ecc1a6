// The dates of each option, computed from today, the first day of the week, the selected year
// and month, and the custom range; computed in full before anything is stored, so an option
// whose dates cannot be made or shown changes nothing.
#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "dateselect/date_select_keys.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

DateValue DateSelect::StartDate() const {
  return dtpFrom_->Value().ToDate();
}

void DateSelect::SetStartDate(DateValue date) {
  SetFrom(date);
  PropertyChanged(DateSelectKey::StartDate);
  RaiseWithChange(&DateSelectEvents::StartDateChange);
}

DateValue DateSelect::EndDate() const {
  return dtpTo_->Value().ToDate();
}

// Reported under the start date's key, as forms have always recorded it.
void DateSelect::SetEndDate(DateValue date) {
  SetTo(date);
  PropertyChanged(DateSelectKey::StartDate);
  RaiseWithChange(&DateSelectEvents::EndDateChange);
}

void DateSelect::SetFrom(DateValue date) {
  Quietly([&] { dtpFrom_->SetValue(Variant::Date(date)); });
}

void DateSelect::SetTo(DateValue date) {
  Quietly([&] { dtpTo_->SetValue(Variant::Date(date)); });
}

RangeInputs DateSelect::Inputs() const {
  RangeInputs in;
  in.today = Platform::Current().Today();
  in.firstDayOfWeek = firstDayofWeek_;
  in.year = selectedYear_;
  in.month = selectedMonth_;
  in.customNumber = Val(txtCustomRange_->Text());
  in.customUnit = cboCustomChoice_->Text();
  in.includeToday = chkCustom_->Value() == vbChecked;
  return in;
}

// The option's dates, refused with the fields' own error when a field cannot show one.
OptionDates DateSelect::DatesOf(int32_t option, const RangeInputs& in) const {
  OptionDates dates = DatesOfOption(option, in);
  if (dates.from)
    dtpFrom_->CheckInLimits(*dates.from);
  if (dates.to)
    dtpTo_->CheckInLimits(*dates.to);
  return dates;
}

// Last Month and Last Year select their year and month through the year's and the month's
// own change handling, so their events come first.
void DateSelect::WriteDates(const OptionDates& dates) {
  if (dates.year) {
    selectedYear_ = static_cast<int16_t>(*dates.year);
    Quietly([&] { spnYear_->SetValue(*dates.year); });
    RaiseWithChange(&DateSelectEvents::YearChange);
  }
  if (dates.month)
    SetSelectedMonth(*dates.month);
  if (dates.from)
    SetFrom(*dates.from);
  if (dates.to)
    SetTo(*dates.to);
}

// The options whose dates follow the selected year and month.
bool DateSelect::FollowsYearAndMonth() const {
  return selection_ == dtsMonth || selection_ == dtsYear;
}

void DateSelect::SetSelectedMonth(int32_t month) {
  if (month < 0 || month > dtsDecember) // the list takes no entry (-1) or one of its twelve
    throw ControlError(1001, "Tarnbrook.DateSelect", "Invalid Month Value");
  RangeInputs in = Inputs();
  in.month = month;
  const OptionDates dates = selection_ == dtsMonth ? DatesOf(selection_, in) : OptionDates{};
  Quietly([&] { cboMonth_->SetListIndex(month - 1); });
  selectedMonth_ = month;
  PropertyChanged(DateSelectKey::SelectedMonth);
  WriteDates(dates);
  RaiseWithChange(&DateSelectEvents::MonthChange);
}

// Any 16-bit year is held; the spin shows it only within its years, and an option that
// cannot make dates for it refuses it.
void DateSelect::SetSelectedYear(int16_t year) {
  RangeInputs in = Inputs();
  in.year = year;
  const OptionDates dates = DatesOf(selection_, in);
  selectedYear_ = year;
  Quietly([&] { spnYear_->SetValue(year); });
  WriteDates(dates);
  PropertyChanged(DateSelectKey::SelectedYear);
  RaiseWithChange(&DateSelectEvents::YearChange);
}

// Val rounded half to even; beyond a Long it overflows (6).
int32_t DateSelect::CustomRange() const {
  return CLng(Val(txtCustomRange_->Text()));
}

void DateSelect::SetCustomRange(int32_t number) {
  RangeInputs in = Inputs();
  in.customNumber = number;
  SetCustomInput(
      in, [&] { txtCustomRange_->SetText(std::to_string(number)); }, "CustomRange",
      &DateSelectEvents::CustomRangeChange);
}

int32_t DateSelect::CustomSelection() const {
  return cboCustomChoice_->ListIndex();
}

// -1 leaves no unit chosen: the custom range then has no dates of its own.
void DateSelect::SetCustomSelection(int32_t unit) {
  RangeInputs in = Inputs();
  const bool listed = unit >= 0 && unit < cboCustomChoice_->ListCount();
  in.customUnit = listed ? cboCustomChoice_->List(unit) : "";
  SetCustomInput(
      in, [&] { cboCustomChoice_->SetListIndex(unit); }, "CustomSelection",
      &DateSelectEvents::CustomSelectionChange);
}

// A program's change of a custom range input: the range first, while it is the current
// option, so that one the fields cannot show is refused before the input changes.
template <class Set>
void DateSelect::SetCustomInput(const RangeInputs& in, Set set, const char* key,
                                void (DateSelectEvents::*event)()) {
  const OptionDates dates =
      selection_ == dtsCustomRange ? DatesOf(dtsCustomRange, in) : OptionDates{};
  Quietly(set);
  PropertyChanged(key);
  WriteDates(dates);
  RaiseWithChange(event);
}

} // namespace tarnbrook
