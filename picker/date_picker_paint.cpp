#include "picker/date_picker.hpp"

namespace tarnbrook {

void DatePicker::OnPaint() {}
void DatePicker::OnResize() {}
void DatePicker::RebuildFields() {}
void DatePicker::LayoutButtons() {}
int32_t DatePicker::ButtonsWidth() const {
  return 0;
}
int32_t DatePicker::BorderWidth() const {
  return 0;
}
CFrame* DatePicker::ButtonAt(int32_t, int32_t) {
  return nullptr;
}
void DatePicker::Redraw() {}

} // namespace tarnbrook
