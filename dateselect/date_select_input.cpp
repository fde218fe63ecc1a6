// What the user does in the constituents becomes the control's own events, each followed by
// Change. Changes the control makes to its constituents itself are quiet.
#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "dateselect/date_select.hpp"
#include "dateselect/date_select_keys.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

void DateSelect::ConnectConstituents() {
  selectionRelay_.click = [this] { OptionPicked(); };
  operatorRelay_.click = [this] { OperatorPicked(); };
  monthRelay_.click = [this] { MonthPicked(); };
  customChoiceRelay_.click = [this] { CustomChoicePicked(); };
  fromRelay_.change = [this] { FromChanged(); };
  toRelay_.change = [this] { ToChanged(); };
  yearRelay_.change = [this] { SpinChanged(); };
  yearRelay_.typed = [this] { SpinChanged(); };
  customNumberRelay_.change = [this] { CustomInputChanged(&DateSelectEvents::CustomRangeChange); };
  customNumberRelay_.validate = [this](bool& cancel) { CustomNumberValidate(cancel); };
  customNumberRelay_.gotFocus = [this] { CustomNumberGotFocus(); };
  customNumberRelay_.lostFocus = [this] { CustomNumberLostFocus(); };
  includeTodayRelay_.click = [this] { CustomInputChanged(nullptr); }; // only Change tells
  cboSelection_->Connect(&selectionRelay_);
  cboOperator_->Connect(&operatorRelay_);
  cboMonth_->Connect(&monthRelay_);
  cboCustomChoice_->Connect(&customChoiceRelay_);
  dtpFrom_->Connect(&fromRelay_);
  dtpTo_->Connect(&toRelay_);
  spnYear_->Connect(&yearRelay_);
  txtCustomRange_->Connect(&customNumberRelay_);
  chkCustom_->Connect(&includeTodayRelay_);
}

void DateSelect::RaiseWithChange(void (DateSelectEvents::*event)()) {
  events_.Raise(event);
  events_.Raise(&DateSelectEvents::Change);
}

// A user's change the control cannot take goes to the container as an error, and the
// constituent shows again what the control holds: what is shown is what the SQL says.
template <class Action, class Undo> void DateSelect::Take(Action action, Undo undo) {
  try {
    action();
  } catch (const ControlError& error) {
    Quietly(undo);
    ReportError(error);
  }
}

void DateSelect::OptionPicked() {
  const int32_t index = cboSelection_->ListIndex();
  if (quiet_ || index < 0)
    return;
  Take([&] { SetSelection(cboSelection_->ItemData(index)); },
       [&] { cboSelection_->SetListIndex(ListEntryOf(selection_)); });
}

void DateSelect::OperatorPicked() {
  if (!quiet_)
    RaiseWithChange(&DateSelectEvents::OperatorChange);
}

// The list's current entry is the operator.
std::string DateSelect::Operator() const {
  return cboOperator_->Text();
}

void DateSelect::SetOperator(const std::string& op) {
  try {
    Quietly([&] { cboOperator_->SetText(op); });
  } catch (const ControlError&) {
    throw ControlError(1000, "Tarnbrook.DateSelect", "Invalid Operator");
  }
  PropertyChanged(DateSelectKey::Operator);
  RaiseWithChange(&DateSelectEvents::OperatorChange);
}

void DateSelect::MonthPicked() {
  if (!quiet_)
    Take([&] { SetSelectedMonth(cboMonth_->ListIndex() + 1); },
         [&] { cboMonth_->SetListIndex(selectedMonth_ - 1); });
}

// The spin's value changed, stepped or typed: it becomes the year unless the current option
// cannot make dates for it (10000, one step past the last year).
void DateSelect::SpinChanged() {
  const int32_t year = spnYear_->Value();
  if (quiet_ || year == selectedYear_)
    return;
  Take(
      [&] {
        RangeInputs in = Inputs();
        in.year = year;
        const OptionDates dates = FollowsYearAndMonth() ? DatesOf(selection_, in) : OptionDates{};
        selectedYear_ = static_cast<int16_t>(year);
        WriteDates(dates);
        RaiseWithChange(&DateSelectEvents::YearChange);
      },
      [&] { spnYear_->SetValue(selectedYear_); });
}

// The custom range follows its inputs while it is the current option. Its inputs changed
// either way, so their events come even when the range cannot be shown.
void DateSelect::CustomInputChanged(void (DateSelectEvents::*event)()) {
  if (quiet_)
    return;
  if (selection_ == dtsCustomRange)
    Take([&] { WriteDates(DatesOf(dtsCustomRange, Inputs())); }, [] {});
  if (event)
    events_.Raise(event);
  events_.Raise(&DateSelectEvents::Change);
}

void DateSelect::CustomChoicePicked() {
  CustomInputChanged(&DateSelectEvents::CustomSelectionChange);
}

void DateSelect::FromChanged() {
  if (!quiet_)
    Take([&] { SetStartDate(StartDate()); }, [] {});
}

void DateSelect::ToChanged() {
  if (!quiet_)
    Take([&] { SetEndDate(EndDate()); }, [] {});
}

void DateSelect::CustomNumberValidate(bool& cancel) {
  if (Val(txtCustomRange_->Text()) > 0)
    return;
  Site().MessageBox("Please Enter a value greater than zero", "DateSelect",
                    MB_OK | MB_ICONINFORMATION);
  cancel = true;
}

void DateSelect::CustomNumberGotFocus() {
  if (useFocusColor_)
    txtCustomRange_->SetBackColor(focusColor_);
  txtCustomRange_->SetShowFocusRect(showFocusRect_);
}

void DateSelect::CustomNumberLostFocus() {
  txtCustomRange_->SetBackColor(controlBackColor_);
}

} // namespace tarnbrook
