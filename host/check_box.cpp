#include "host/check_box.hpp"

#include "common/control_error.hpp"
#include "host/persisted_objects.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t CaptionGap = 4; // between the box and its caption

// The classic check mark: three pixels thick, seven wide, in the box's 9 x 9 inside.
void DrawCheckMark(Canvas& canvas, int32_t left, int32_t top, COLORREF color) {
  constexpr int32_t Tops[] = {3, 4, 5, 4, 3, 2, 1}; // column by column, left + 1 onwards
  for (int32_t column = 0; column < 7; ++column)
    canvas.FillRect(
        {left + 1 + column, top + Tops[column], left + 2 + column, top + Tops[column] + 3}, color);
}

COLORREF Sys(int index) {
  return static_cast<COLORREF>(GetSysColor(index));
}

} // namespace

CheckBox::CheckBox(HWND parent) : StandardControl(parent, {vbButtonFace, vbButtonText, 1}) {}

CheckBox::~CheckBox() = default;

void CheckBox::ReadProperties(PropertyBag& bag) {
  ReadFont(bag);
  ReadLook(bag);
  SetCaption(bag.ReadProperty("Caption", "").ToString());
  SetValue(bag.ReadProperty("Value", int32_t(vbUnchecked)).ToLong());
}

void CheckBox::WriteProperties(PropertyBag& bag) {
  WriteFont(bag);
  WriteLook(bag);
  bag.WriteProperty("Caption", caption_, "");
  bag.WriteProperty("Value", value_, int32_t(vbUnchecked));
}

void CheckBox::SetCaption(const std::string& caption) {
  CheckTextLength(caption);
  caption_ = caption;
  PropertyChanged("Caption");
  Refresh();
}

void CheckBox::SetValue(int32_t value) {
  if (value < vbUnchecked || value > vbGrayed)
    RaiseRuntimeError(rtInvalidPropertyValue);
  if (value == value_)
    return;
  value_ = value;
  PropertyChanged("Value");
  Refresh();
  events_.Raise(&CheckBoxEvents::Click);
}

void CheckBox::SetEnabled(bool enabled) {
  if (!enabled) {
    mouse_.Cancel();
    spaceHeld_ = false;
    pushed_ = false;
  }
  StandardControl::SetEnabled(enabled);
}

// A grayed box becomes checked, as the classic automatic check box does.
void CheckBox::Toggle() {
  SetValue(value_ == vbChecked ? vbUnchecked : vbChecked);
}

void CheckBox::ShowPushed() {
  const bool pushed = mouse_.Pushed() || spaceHeld_;
  if (pushed == pushed_)
    return;
  pushed_ = pushed;
  Refresh();
}

void CheckBox::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  SelectFont(surface, Font());
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  int32_t width = surface.Width(), height = surface.Height();
  canvas.FillRect({0, 0, width, height}, static_cast<COLORREF>(TranslateColor(BackColor())));
  bool enabled = Enabled();

  // The box: a sunken edge around a well that turns grey while pressed, disabled or grayed.
  int32_t boxLeft = Alignment() == 1 ? width - BoxSize : 0;
  Rect box{boxLeft, (height - BoxSize) / 2, boxLeft + BoxSize, (height - BoxSize) / 2 + BoxSize};
  Rect well = canvas.DrawEdge(box, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
  bool greyWell = pushed_ || !enabled || value_ == vbGrayed;
  canvas.FillRect(well, Sys(greyWell ? COLOR_BTNFACE : COLOR_WINDOW));
  if (value_ != vbUnchecked)
    DrawCheckMark(canvas, well.left, well.top,
                  Sys(enabled && value_ == vbChecked ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));

  // The caption beside it, centred on the box; the focus rectangle goes round it.
  Size caption = MeasureLine(Font(), caption_, true);
  Rect text{0, (height - caption.cy) / 2, 0, 0};
  text.bottom = text.top + caption.cy;
  if (Alignment() == 1) {
    text.right = box.left - CaptionGap;
    text.left = std::max(0, text.right - caption.cx);
  } else {
    text.left = box.right + CaptionGap;
    text.right = std::min(width, text.left + caption.cx);
  }
  canvas.SetBkMode(TRANSPARENT);
  constexpr uint32_t Flags = DT_LEFT | DT_SINGLELINE;
  if (!enabled) {
    canvas.SetTextColor(Sys(COLOR_BTNHIGHLIGHT));
    canvas.DrawText(caption_, Rect{text.left + 1, text.top + 1, text.right + 1, text.bottom + 1},
                    Flags);
    canvas.SetTextColor(Sys(COLOR_GRAYTEXT));
  } else {
    canvas.SetTextColor(static_cast<COLORREF>(TranslateColor(ForeColor())));
  }
  canvas.DrawText(caption_, text, Flags);
  if (enabled && !caption_.empty() && Platform::Current().GetFocus() == hWnd())
    canvas.DrawFocusRect({std::max(0, text.left - 1), std::max(0, text.top - 1),
                          std::min(width, text.right + 1), std::min(height, text.bottom + 1)});
}

// A press pushes the box; the release over the control toggles it.
void CheckBox::OnMouseDown(int16_t button, int16_t, float, float) {
  if (button != vbLeftButton)
    return;
  mouse_.Press(true);
  ShowPushed();
}

void CheckBox::OnDblClick() {
  OnMouseDown(vbLeftButton, 0, 0, 0); // a quick second click is a click as well
}

void CheckBox::OnMouseMove(int16_t, int16_t, float x, float y) {
  mouse_.Move(x >= 0 && y >= 0 && x < float(ScaleWidth()) && y < float(ScaleHeight()));
  ShowPushed();
}

void CheckBox::OnMouseUp(int16_t button, int16_t, float, float) {
  if (button != vbLeftButton || !mouse_.Held())
    return;
  const bool over = mouse_.Release(mouse_.Pushed());
  ShowPushed();
  if (over)
    Toggle();
}

// Space works as the mouse does: down pushes, up toggles.
void CheckBox::OnKeyDown(int16_t& keyCode, int16_t) {
  if (keyCode == VK_SPACE && !spaceHeld_) {
    spaceHeld_ = true;
    ShowPushed();
  }
}

void CheckBox::OnKeyUp(int16_t& keyCode, int16_t) {
  if (keyCode != VK_SPACE || !spaceHeld_)
    return;
  spaceHeld_ = false;
  ShowPushed();
  Toggle();
}

void CheckBox::OnGotFocus() {
  Refresh();
}

// The focus going takes a held Space with it.
void CheckBox::OnLostFocus() {
  spaceHeld_ = false;
  pushed_ = mouse_.Pushed();
  Refresh();
}

} // namespace tarnbrook
