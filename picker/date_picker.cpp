// The picker's creation, its value and limits, and its plain properties.
#include "picker/date_picker.hpp"
#include "picker/date_picker_keys.hpp"

#include "calendar/month_calendar_defaults.hpp"
#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_runtime.hpp"
#include "common/property_bag.hpp"
#include "host/about_box.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t DefaultWidth = 120; // pixels, until the container places the picker
constexpr int32_t DefaultHeight = 21;
constexpr uint32_t ValidateDelay = 750; // ms

// A text the runtime reads as a date counts as a date.
bool IsDateValue(const Variant& value) {
  return value.VarType() == vbDate || (value.VarType() == vbString && IsDate(value.ToString()));
}

bool IsZeroLength(const Variant& value) {
  return value.IsEmpty() || (value.VarType() == vbString && value.ToString().empty());
}

} // namespace

DatePicker::DatePicker(HWND parent) : Control(parent) {
  PaintBatch batch(false); // painted by its container, once placed
  calendarLook_.font = month_calendar_defaults::DefaultFont();
  LoadPickerPatterns();

  minDate_ = DateSerial(1601, 1, 1);
  maxDate_ = DateSerial(9999, 12, 31);
  lastDate_ = Platform::Current().Today(); // what an empty picker offers when editing starts
  timer_.SetEnabled(false);
  timer_.SetInterval(ValidateDelay);
  timer_.SetCallback([this] { TimerTick(); });
  Move(0, 0, DefaultWidth, DefaultHeight);
}

DatePicker::~DatePicker() {
  if (calendar_)
    calendar_->Disconnect(&calendarRelay_);
}

// --- The value and its limits ---

Variant DatePicker::Value() const {
  return empty_ ? Variant::Null() : Variant::Date(value_);
}

void DatePicker::SetValue(const Variant& value) {
  if (value.IsNull() || IsZeroLength(value)) {
    if (!empty_)
      lastDate_ = value_;
    empty_ = true;
  } else if (IsDateValue(value)) {
    const tarnbrook::DateValue date = value.ToDate();
    CheckInLimits(date);
    value_ = date;
    empty_ = false;
    SetFieldsValue(date);
  }
  PropertyChanged(PickerKey::Value);
  Redraw();
}

void DatePicker::CheckInLimits(tarnbrook::DateValue date) const {
  // Not a number fails every comparison: it is outside the limits too.
  if (!(date >= minDate_ && date <= maxDate_))
    throw ControlError(2050, "DatePicker",
                       "The Date specified doesn't fall within the Min/Max Values");
}

tarnbrook::DateValue DatePicker::DateValue() const {
  return empty_ ? 0 : DateOnly(value_);
}

tarnbrook::DateValue DatePicker::TimeValue() const {
  return empty_ ? 0 : TimeOfDay(value_);
}

void DatePicker::SetMinDate(tarnbrook::DateValue value) {
  CheckDateRange(value);
  if (value > maxDate_)
    throw ControlError(1068, "DatePicker", "MinDate can't be larger than MaxDate");
  minDate_ = value;
  ClampToLimits();
  PropertyChanged(PickerKey::MinDate);
}

void DatePicker::SetMaxDate(tarnbrook::DateValue value) {
  CheckDateRange(value);
  if (value < minDate_)
    throw ControlError(1070, "DatePicker", "MaxDate can't be smaller than MinDate");
  maxDate_ = value;
  ClampToLimits();
  PropertyChanged(PickerKey::MaxDate);
}

// --- Behaviour ---

void DatePicker::SetFormat(int32_t format) {
  format_ = format;
  RebuildFields();
  Redraw();
  PropertyChanged(PickerKey::Format);
}

void DatePicker::SetCustomFormat(const std::string& format) {
  CheckTextLength(format);
  customFormat_ = format;
  RebuildFields();
  Redraw();
  PropertyChanged(PickerKey::CustomFormat);
}

void DatePicker::SetChangeOnDrag(bool on) {
  changeOnDrag_ = on;
  PropertyChanged(PickerKey::ChangeOnDrag);
}

void DatePicker::SetExitOnReturn(bool on) {
  exitOnReturn_ = on;
  PropertyChanged(PickerKey::ExitOnReturn);
}

void DatePicker::SetLocked(bool locked) {
  locked_ = locked;
  PropertyChanged(PickerKey::Locked);
}

void DatePicker::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  LayoutButtons();
  Redraw();
  PropertyChanged(PickerKey::Enabled);
}

// --- Appearance ---

void DatePicker::SetButton(int32_t buttons) {
  button_ = buttons;
  LayoutButtons();
  Redraw();
  PropertyChanged(PickerKey::Button);
}

void DatePicker::SetButtonWidth(int32_t width) {
  if (width < INT16_MIN || width > INT16_MAX) // it is saved as a 16-bit integer
    RaiseRuntimeError(rtOverflow);
  buttonWidth_ = width;
  LayoutButtons();
  Redraw();
  PropertyChanged(PickerKey::ButtonWidth);
}

void DatePicker::SetButtonStyle(int32_t style) {
  if (style > dtpButtonFlat)
    throw ControlError(5065, "Tarnbrook.DatePicker", "Invalid ButtonStyle!");
  buttonStyle_ = style;
  LayoutButtons();
  Redraw();
  PropertyChanged(PickerKey::ButtonStyle);
}

void DatePicker::SetBorderStyle(int32_t style) {
  borderStyle_ = style;
  RebuildFields(); // the text starts inside the border
  Redraw();
  PropertyChanged(PickerKey::BorderStyle);
}

void DatePicker::SetBackColor(OleColor color) {
  backColor_ = color;
  Redraw();
  PropertyChanged(PickerKey::BackColor);
}

void DatePicker::SetForeColor(OleColor color) {
  foreColor_ = color;
  Redraw();
  PropertyChanged(PickerKey::ForeColor);
}

void DatePicker::SetFocusColor(OleColor color) {
  focusColor_ = color;
  Redraw();
  PropertyChanged(PickerKey::FocusColor);
}

void DatePicker::SetUseFocusColor(bool use) {
  useFocusColor_ = use;
  Redraw();
  PropertyChanged(PickerKey::UseFocusColor);
}

void DatePicker::SetShowFocusRect(bool show) {
  showFocusRect_ = show;
  Redraw();
  PropertyChanged(PickerKey::ShowFocusRect);
}

void DatePicker::SetFont(const tarnbrook::Font& font) {
  font_ = CheckedFont(font);
  RebuildFields();
  Redraw();
  PropertyChanged(PickerKey::Font);
}

void DatePicker::About() {
  ShowAboutBox(ClassName(), Site().ContainerWindow() ? Site().ContainerWindow() : hWnd());
}

} // namespace tarnbrook
