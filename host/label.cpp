#include "host/label.hpp"

#include "common/control_error.hpp"

namespace tarnbrook {

Label::Label(HWND parent) : Control(parent) {
  SetTabStop(false);
}

Label::~Label() = default;

void Label::InitProperties() {}
void Label::ReadProperties(PropertyBag&) {}
void Label::WriteProperties(PropertyBag&) {}

void Label::SetCaption(const std::string& caption) {
  caption_ = caption;
  Refresh();
}

void Label::SetAlignment(int32_t alignment) {
  if (alignment < 0 || alignment > 2)
    RaiseRuntimeError(rtInvalidPropertyValue);
  alignment_ = alignment;
  Refresh();
}

void Label::SetBackColor(OleColor color) {
  backColor_ = color;
  Refresh();
}

void Label::SetForeColor(OleColor color) {
  foreColor_ = color;
  Refresh();
}

void Label::SetFont(const tarnbrook::Font& font) {
  font_ = font;
  Refresh();
}

int32_t Label::CaptionWidth() const {
  return 0;
}

int32_t Label::CaptionHeight() const {
  return 0;
}

void Label::OnPaint() {}

void Label::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  Refresh();
}

} // namespace tarnbrook
