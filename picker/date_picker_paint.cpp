// The picker's fields, buttons, focus look and border, composed on its surface.
#include "picker/date_picker.hpp"

#include "picker/format_cutter.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t TextMargin = 2; // the focus rectangle lies between the border and the text

} // namespace

// Cuts the format into fields again on the present surface and font; the first field that
// is not a literal becomes current.
void DatePicker::RebuildFields() {
  if (loading_)
    return; // cut once, when every key has been read
  cMDC& surface = Surface();
  surface.SetFont(font_.Name, font_.Size, font_.Bold, font_.Italic, font_.Strikethrough,
                  font_.Underline);
  fields_ = CutDateFormat(surface, PickerFormatString(format_, customFormat_),
                          BorderWidth() + TextMargin, ScaleHeight());
  SetFieldsValue(value_);
  currentField_ = NextEditableField(-1, 1);
  if (currentField_ >= 0)
    fields_[currentField_].SetSelected(true);
}

void DatePicker::LayoutButtons() {
  const int32_t width = ScaleWidth();
  const int32_t height = ScaleHeight();
  const int32_t half = height / 2;
  const int32_t right = width - buttonWidth_; // the right-most button's left edge
  const int32_t stepRight = button_ == dtpBoth ? right : width;
  buttons_.clear();
  auto add = [&](const char* name, int32_t style, int32_t left, int32_t top, int32_t bottom) {
    CFrame& frame = buttons_.emplace_back();
    frame.Name = name;
    frame.Init(DFC_SCROLL, style, Surface().hDC(), top, left, bottom - top, buttonWidth_);
    frame.Border = buttonStyle_;
    frame.Enabled = Enabled();
    if (buttonStyle_ == dtpButtonFlat)
      frame.Move(top + 1, left + 1, bottom - top - 2, buttonWidth_ - 2);
  };
  if (button_ == dtpDropDown || button_ == dtpBoth)
    add("DropDown", DFCS_SCROLLCOMBOBOX, right, 0, height);
  if (button_ == dtpUpDown || button_ == dtpBoth) {
    add("Up", DFCS_SCROLLUP, stepRight - buttonWidth_, 0, half);
    add("Down", DFCS_SCROLLDOWN, stepRight - buttonWidth_, half, height);
  }
}

int32_t DatePicker::ButtonsWidth() const {
  switch (button_) {
  case dtpBoth:
    return 2 * buttonWidth_;
  case dtpNone:
    return 0;
  default:
    return buttonWidth_;
  }
}

int32_t DatePicker::BorderWidth() const {
  return BorderStyleWidth(borderStyle_);
}

CFrame* DatePicker::ButtonAt(int32_t x, int32_t y) {
  for (CFrame& frame : buttons_)
    if (frame.CheckPoint(x, y))
      return &frame;
  return nullptr;
}

void DatePicker::Redraw() {
  if (!loading_)
    Refresh();
}

void DatePicker::OnPaint() {
  cMDC& surface = Surface();
  if (loading_ || surface.hDC() == 0)
    return;
  const int32_t width = surface.Width();
  const int32_t height = surface.Height();
  const bool focused = Platform::Current().GetFocus() == hWnd();
  const bool enabled = Enabled();

  const OleColor back = focused && useFocusColor_ ? focusColor_ : backColor_;
  surface.DrawBox(0, 0, width, height, 1, OleColorNone, back);
  if (!empty_) {
    // Unselected fields draw in the surface's colours; a disabled picker shows no selection.
    surface.SetBackColor(back);
    surface.SetForeColor(enabled ? foreColor_ : vbGrayText);
    for (CDateMask& field : fields_) {
      const bool selected = field.Selected();
      field.SetSelected(selected && enabled);
      field.Draw();
      field.SetSelected(selected);
    }
  }
  for (CFrame& frame : buttons_) {
    frame.hDC = surface.hDC(); // the surface is new after a resize
    frame.Draw();
  }
  if (focused && showFocusRect_) {
    const int32_t inset = BorderWidth() + 1;
    Canvas::FromHandle(surface.hDC())
        ->DrawFocusRect({inset, inset, width - inset - ButtonsWidth(), height - inset});
  }
  DrawBorderStyle(surface, borderStyle_, 0, 0, width, height, SystemColor(COLOR_WINDOWFRAME));
}

void DatePicker::OnResize() {
  RebuildFields();
  LayoutButtons();
  Redraw();
}

} // namespace tarnbrook
