#include "host/text_box.hpp"

#include "common/control_error.hpp"

namespace tarnbrook {

TextBox::TextBox(HWND parent) : Control(parent) {}

TextBox::~TextBox() = default;

void TextBox::InitProperties() {}
void TextBox::ReadProperties(PropertyBag&) {}
void TextBox::WriteProperties(PropertyBag&) {}

void TextBox::SetText(const std::string& text) {
  if (text == text_)
    return;
  text_ = text;
  anchor_ = caret_ = 0;
  Refresh();
  events_.Raise(&TextBoxEvents::Change);
}

int32_t TextBox::SelStart() const {
  return 0;
}
void TextBox::SetSelStart(int32_t) {}
int32_t TextBox::SelLength() const {
  return 0;
}
void TextBox::SetSelLength(int32_t) {}
std::string TextBox::SelText() const {
  return {};
}
void TextBox::SetSelText(const std::string&) {}
void TextBox::SetMaxLength(int32_t maxLength) {
  maxLength_ = maxLength;
}
void TextBox::SetLocked(bool locked) {
  locked_ = locked;
}
void TextBox::SetAlignment(int32_t alignment) {
  alignment_ = alignment;
}
void TextBox::SetBackColor(OleColor color) {
  backColor_ = color;
  Refresh();
}
void TextBox::SetForeColor(OleColor color) {
  foreColor_ = color;
  Refresh();
}
void TextBox::SetFont(const tarnbrook::Font& font) {
  font_ = font;
  Refresh();
}
void TextBox::SetBorderStyle(int32_t style) {
  borderStyle_ = style;
  Refresh();
}
void TextBox::SetShowFocusRect(bool show) {
  showFocusRect_ = show;
  Refresh();
}
int32_t TextBox::CaretPosition() const {
  return 0;
}

void TextBox::OnPaint() {}
void TextBox::OnResize() {}
void TextBox::OnMouseDown(int16_t, int16_t, float, float) {}
void TextBox::OnMouseMove(int16_t, int16_t, float, float) {}
void TextBox::OnMouseUp(int16_t, int16_t, float, float) {}
void TextBox::OnDblClick() {}
void TextBox::OnKeyDown(int16_t&, int16_t) {}
void TextBox::OnKeyPress(int16_t&) {}
void TextBox::OnGotFocus() {
  events_.Raise(&TextBoxEvents::GotFocus);
}
void TextBox::OnLostFocus() {
  events_.Raise(&TextBoxEvents::LostFocus);
}
void TextBox::OnValidate(bool& cancel) {
  events_.Raise(&TextBoxEvents::Validate, cancel);
}
void TextBox::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  Refresh();
}

} // namespace tarnbrook
