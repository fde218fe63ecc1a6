#include "picker/date_picker.hpp"

namespace tarnbrook {

void DatePicker::OnMouseDown(int16_t, int16_t, float, float) {}
void DatePicker::OnMouseMove(int16_t, int16_t, float, float) {}
void DatePicker::OnMouseUp(int16_t, int16_t, float, float) {}
void DatePicker::OnKeyDown(int16_t&, int16_t) {}
void DatePicker::OnKeyPress(int16_t&) {}
void DatePicker::OnKeyUp(int16_t&, int16_t) {}
void DatePicker::OnGotFocus() {}
void DatePicker::OnLostFocus() {}
void DatePicker::SelectField(int32_t) {}
void DatePicker::StepCurrent(int16_t) {}
void DatePicker::ButtonAction(const std::string&) {}
void DatePicker::ClampToLimits() {}
void DatePicker::TimerTick() {}
void DatePicker::CommitTyped() {}
void DatePicker::SetFieldsValue(tarnbrook::DateValue) {}
tarnbrook::DateValue DatePicker::Clamp(tarnbrook::DateValue value) const {
  return value;
}
int32_t DatePicker::NextEditableField(int32_t, int) const {
  return -1;
}

} // namespace tarnbrook
