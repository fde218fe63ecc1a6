#include "picker/date_picker.hpp"

namespace tarnbrook {

DatePicker::DatePicker(HWND parent) : Control(parent) {}
DatePicker::~DatePicker() = default;

Variant DatePicker::Value() const {
  return Variant::Null();
}
void DatePicker::SetValue(const Variant&) {}
tarnbrook::DateValue DatePicker::DateValue() const {
  return 0;
}
tarnbrook::DateValue DatePicker::TimeValue() const {
  return 0;
}
void DatePicker::SetMinDate(tarnbrook::DateValue) {}
void DatePicker::SetMaxDate(tarnbrook::DateValue) {}
void DatePicker::SetAllowEmpty(bool) {}
void DatePicker::SetFormat(int32_t) {}
void DatePicker::SetCustomFormat(const std::string&) {}
void DatePicker::SetChangeOnDrag(bool) {}
void DatePicker::SetExitOnReturn(bool) {}
void DatePicker::SetLocked(bool) {}
void DatePicker::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
}
void DatePicker::SetButton(int32_t) {}
void DatePicker::SetButtonWidth(int32_t) {}
void DatePicker::SetButtonStyle(int32_t) {}
void DatePicker::SetBorderStyle(int32_t) {}
void DatePicker::SetBackColor(OleColor) {}
void DatePicker::SetForeColor(OleColor) {}
void DatePicker::SetFocusColor(OleColor) {}
void DatePicker::SetUseFocusColor(bool) {}
void DatePicker::SetShowFocusRect(bool) {}
void DatePicker::SetFont(const tarnbrook::Font&) {}
void DatePicker::About() {}

} // namespace tarnbrook
