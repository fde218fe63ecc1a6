#include "host/label.hpp"

#include "common/control_error.hpp"
#include "host/persisted_objects.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

Label::Label(HWND parent) : StandardControl(parent, {vbButtonFace, vbButtonText, 2}) {
  SetTabStop(false);
}

Label::~Label() = default;

void Label::ReadProperties(PropertyBag& bag) {
  ReadFont(bag);
  ReadLook(bag);
  SetCaption(bag.ReadProperty("Caption", "").ToString());
}

void Label::WriteProperties(PropertyBag& bag) {
  WriteFont(bag);
  WriteLook(bag);
  bag.WriteProperty("Caption", caption_, "");
}

void Label::SetCaption(const std::string& caption) {
  CheckTextLength(caption);
  caption_ = caption;
  PropertyChanged("Caption");
  Refresh();
}

int32_t Label::CaptionWidth() const {
  return MeasureLine(Font(), caption_, true).cx;
}

int32_t Label::CaptionHeight() const {
  return MeasureLine(Font(), caption_, true).cy;
}

// One line from the top, placed by the alignment; a disabled label's text is etched.
void Label::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  SelectFont(surface, Font());
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  Rect all{0, 0, surface.Width(), surface.Height()};
  canvas.FillRect(all, static_cast<COLORREF>(TranslateColor(BackColor())));
  canvas.SetBkMode(TRANSPARENT);
  uint32_t flags = DT_SINGLELINE | (Alignment() == 1   ? DT_RIGHT
                                    : Alignment() == 2 ? DT_CENTER
                                                       : DT_LEFT);
  if (!Enabled()) {
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_BTNHIGHLIGHT)));
    canvas.DrawText(caption_, Rect{all.left + 1, all.top + 1, all.right + 1, all.bottom + 1},
                    flags);
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_GRAYTEXT)));
  } else {
    canvas.SetTextColor(static_cast<COLORREF>(TranslateColor(ForeColor())));
  }
  canvas.DrawText(caption_, all, flags);
}

} // namespace tarnbrook
