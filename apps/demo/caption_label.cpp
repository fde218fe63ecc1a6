#include "apps/demo/caption_label.hpp"

namespace tarnbrook {

void CaptionLabel::ReadProperties(PropertyBag& bag) {
  SetCaption(bag.ReadProperty("Caption", "").ToString());
}

void CaptionLabel::WriteProperties(PropertyBag& bag) {
  bag.WriteProperty("Caption", caption_, "");
}

void CaptionLabel::SetCaption(const std::string& caption) {
  caption_ = caption;
  PropertyChanged("Caption");
  Refresh();
}

void CaptionLabel::OnPaint() {
  cMDC& surface = Surface();
  surface.DrawBox(0, 0, surface.Width(), surface.Height(), 1, OleColorNone,
                  Site().AmbientBackColor());
  surface.SetFont("MS Sans Serif", 8.25f);
  surface.DrawText(caption_, 0, 0, surface.Width(), surface.Height(), vbButtonText, OleColorNone,
                   DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX, true);
}

} // namespace tarnbrook
