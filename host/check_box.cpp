#include "host/check_box.hpp"

#include "common/control_error.hpp"

namespace tarnbrook {

CheckBox::CheckBox(HWND parent) : Control(parent) {}

CheckBox::~CheckBox() = default;

void CheckBox::InitProperties() {}
void CheckBox::ReadProperties(PropertyBag&) {}
void CheckBox::WriteProperties(PropertyBag&) {}

void CheckBox::SetCaption(const std::string& caption) {
  caption_ = caption;
  Refresh();
}

void CheckBox::SetValue(int32_t value) {
  if (value < vbUnchecked || value > vbGrayed)
    RaiseRuntimeError(rtInvalidPropertyValue);
  if (value == value_)
    return;
  value_ = value;
  Refresh();
  events_.Raise(&CheckBoxEvents::Click);
}

void CheckBox::SetBackColor(OleColor color) {
  backColor_ = color;
  Refresh();
}

void CheckBox::SetForeColor(OleColor color) {
  foreColor_ = color;
  Refresh();
}

void CheckBox::SetFont(const tarnbrook::Font& font) {
  font_ = font;
  Refresh();
}

void CheckBox::SetAlignment(int32_t alignment) {
  if (alignment < 0 || alignment > 1)
    RaiseRuntimeError(rtInvalidPropertyValue);
  alignment_ = alignment;
  Refresh();
}

void CheckBox::OnPaint() {}
void CheckBox::OnMouseDown(int16_t, int16_t, float, float) {}
void CheckBox::OnMouseMove(int16_t, int16_t, float, float) {}
void CheckBox::OnMouseUp(int16_t, int16_t, float, float) {}
void CheckBox::OnDblClick() {}
void CheckBox::OnKeyDown(int16_t&, int16_t) {}
void CheckBox::OnKeyUp(int16_t&, int16_t) {}
void CheckBox::OnGotFocus() {}
void CheckBox::OnLostFocus() {}

void CheckBox::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  Refresh();
}

void CheckBox::Toggle() {}
void CheckBox::SetPushed(bool) {}

} // namespace tarnbrook
