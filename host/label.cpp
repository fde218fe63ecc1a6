#include "host/label.hpp"

#include "common/control_error.hpp"
#include "host/persisted_objects.hpp"
#include "host/standard_text.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

Label::Label(HWND parent) : Control(parent) {
  SetTabStop(false);
}

Label::~Label() = default;

void Label::InitProperties() {
  font_ = Site().AmbientFont();
  Refresh();
}

void Label::ReadProperties(PropertyBag& bag) {
  SetFont(*ObjectOf<tarnbrook::Font>(bag.ReadProperty("Font", FontVariant(Site().AmbientFont()))));
  SetAlignment(bag.ReadProperty("Alignment", int32_t(0)).ToLong());
  SetBackColor(bag.ReadProperty("BackColor", vbButtonFace).ToLong());
  SetForeColor(bag.ReadProperty("ForeColor", vbButtonText).ToLong());
  SetCaption(bag.ReadProperty("Caption", "").ToString());
}

void Label::WriteProperties(PropertyBag& bag) {
  bag.WriteProperty("Font", FontVariant(font_), FontVariant(Site().AmbientFont()));
  bag.WriteProperty("Alignment", alignment_, int32_t(0));
  bag.WriteProperty("BackColor", backColor_, vbButtonFace);
  bag.WriteProperty("ForeColor", foreColor_, vbButtonText);
  bag.WriteProperty("Caption", caption_, "");
}

void Label::SetCaption(const std::string& caption) {
  CheckTextLength(caption);
  caption_ = caption;
  PropertyChanged("Caption");
  Refresh();
}

void Label::SetAlignment(int32_t alignment) {
  if (alignment < 0 || alignment > 2)
    RaiseRuntimeError(rtInvalidPropertyValue);
  alignment_ = alignment;
  PropertyChanged("Alignment");
  Refresh();
}

void Label::SetBackColor(OleColor color) {
  backColor_ = color;
  PropertyChanged("BackColor");
  Refresh();
}

void Label::SetForeColor(OleColor color) {
  foreColor_ = color;
  PropertyChanged("ForeColor");
  Refresh();
}

void Label::SetFont(const tarnbrook::Font& font) {
  font_ = CheckedFont(font);
  PropertyChanged("Font");
  Refresh();
}

void Label::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  Refresh();
}

int32_t Label::CaptionWidth() const {
  return MeasureLine(font_, caption_, true).cx;
}

int32_t Label::CaptionHeight() const {
  return MeasureLine(font_, caption_, true).cy;
}

// One line from the top, placed by the alignment; a disabled label's text is etched.
void Label::OnPaint() {
  cMDC& surface = Surface();
  if (!surface.hDC())
    return;
  SelectFont(surface, font_);
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  Rect all{0, 0, surface.Width(), surface.Height()};
  canvas.FillRect(all, static_cast<COLORREF>(TranslateColor(backColor_)));
  canvas.SetBkMode(TRANSPARENT);
  uint32_t flags = DT_SINGLELINE | (alignment_ == 1   ? DT_RIGHT
                                    : alignment_ == 2 ? DT_CENTER
                                                      : DT_LEFT);
  if (!Enabled()) {
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_BTNHIGHLIGHT)));
    canvas.DrawText(caption_, Rect{all.left + 1, all.top + 1, all.right + 1, all.bottom + 1},
                    flags);
    canvas.SetTextColor(static_cast<COLORREF>(GetSysColor(COLOR_GRAYTEXT)));
  } else {
    canvas.SetTextColor(static_cast<COLORREF>(TranslateColor(foreColor_)));
  }
  canvas.DrawText(caption_, all, flags);
}

} // namespace tarnbrook
