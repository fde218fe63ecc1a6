// What the user does in the constituents becomes the control's own events, each followed by
// Change. Changes the control makes to its constituents itself are quiet.
#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "dateselect/date_select.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

// An error inside a constituent's handler ends the action with a beep, never the program.
template <class Action> void Handle(Action action) {
  try {
    action();
  } catch (const ControlError&) {
    Platform::Current().MessageBeep(MB_OK);
  }
}

} // namespace

void DateSelect::ConnectConstituents() {
  selectionRelay_.click = [this] { OptionPicked(); };
  operatorRelay_.click = [this] { OperatorPicked(); };
  monthRelay_.click = [this] {
    if (!quiet_)
      Handle([&] { SetSelectedMonth(cboMonth_->ListIndex() + 1); });
  };
  customChoiceRelay_.click = [this] { CustomChoicePicked(); };
  fromRelay_.change = [this] { FromChanged(); };
  toRelay_.change = [this] { ToChanged(); };
  yearRelay_.change = [this] { SpinChanged(); };
  cboSelection_->Connect(&selectionRelay_);
  cboOperator_->Connect(&operatorRelay_);
  cboMonth_->Connect(&monthRelay_);
  cboCustomChoice_->Connect(&customChoiceRelay_);
  dtpFrom_->Connect(&fromRelay_);
  dtpTo_->Connect(&toRelay_);
  spnYear_->Connect(&yearRelay_);
  txtCustomRange_->Connect(this);
  chkCustom_->Connect(this);
}

void DateSelect::RaiseWithChange(void (DateSelectEvents::*event)()) {
  events_.Raise(event);
  events_.Raise(&DateSelectEvents::Change);
}

void DateSelect::OptionPicked() {
  const int32_t index = cboSelection_->ListIndex();
  if (quiet_ || index < 0)
    return;
  Handle([&] { SetSelection(cboSelection_->ItemData(index)); });
}

void DateSelect::OperatorPicked() {
  if (quiet_)
    return;
  operator_ = cboOperator_->Text();
  RaiseWithChange(&DateSelectEvents::OperatorChange);
}

void DateSelect::SetOperator(const std::string& op) {
  try {
    Quietly([&] { cboOperator_->SetText(op); });
  } catch (const ControlError&) {
    throw ControlError(1000, "Tarnbrook.DateSelect", "Invalid Operator");
  }
  operator_ = cboOperator_->Text();
  PropertyChanged("Operator");
  RaiseWithChange(&DateSelectEvents::OperatorChange);
}

void DateSelect::CustomChoicePicked() {
  if (quiet_)
    return;
  Handle([&] {
    if (selection_ == dtsCustomRange)
      ApplyCustomRange();
    RaiseWithChange(&DateSelectEvents::CustomSelectionChange);
  });
}

void DateSelect::FromChanged() {
  if (!quiet_)
    Handle([&] { SetStartDate(StartDate()); });
}

void DateSelect::ToChanged() {
  if (!quiet_)
    Handle([&] { SetEndDate(EndDate()); });
}

// The spin can step one past the last year; the control keeps years it can show.
void DateSelect::SpinChanged() {
  if (quiet_)
    return;
  const int32_t year = spnYear_->Value();
  if (year < 1601 || year > 9999) {
    Quietly([&] { spnYear_->SetValue(selectedYear_); });
    return;
  }
  Handle([&] { YearChanged(year); });
}

// txtCustomRange.
void DateSelect::Change() {
  if (quiet_)
    return;
  Handle([&] {
    if (selection_ == dtsCustomRange)
      ApplyCustomRange();
    RaiseWithChange(&DateSelectEvents::CustomRangeChange);
  });
}

void DateSelect::Validate(bool& Cancel) {
  if (Val(txtCustomRange_->Text()) > 0)
    return;
  Site().MessageBox("Please Enter a value greater than zero", "DateSelect",
                    MB_OK | MB_ICONINFORMATION);
  Cancel = true;
}

void DateSelect::GotFocus() {
  if (useFocusColor_)
    txtCustomRange_->SetBackColor(focusColor_);
  txtCustomRange_->SetShowFocusRect(showFocusRect_);
}

void DateSelect::LostFocus() {
  txtCustomRange_->SetBackColor(controlBackColor_);
}

// chkCustom: the range moves, and only Change tells of it.
void DateSelect::Click() {
  if (quiet_)
    return;
  Handle([&] {
    if (selection_ == dtsCustomRange)
      ApplyCustomRange();
    events_.Raise(&DateSelectEvents::Change);
  });
}

} // namespace tarnbrook
