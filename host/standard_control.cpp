#include "host/standard_control.hpp"

#include "common/control_error.hpp"
#include "common/property_bag.hpp"
#include "host/persisted_objects.hpp"

namespace tarnbrook {

StandardControl::StandardControl(HWND parent, Look look)
    : Control(parent), defaults_(look), backColor_(look.backColor), foreColor_(look.foreColor) {}

void StandardControl::SetFont(const tarnbrook::Font& font) {
  font_ = CheckedFont(font);
  OnFontChanged();
  PropertyChanged("Font");
  Refresh();
}

void StandardControl::SetBackColor(OleColor color) {
  backColor_ = color;
  PropertyChanged("BackColor");
  Refresh();
}

void StandardControl::SetForeColor(OleColor color) {
  foreColor_ = color;
  PropertyChanged("ForeColor");
  Refresh();
}

void StandardControl::SetAlignment(int32_t alignment) {
  if (alignment < 0 || alignment > defaults_.lastAlignment)
    RaiseRuntimeError(rtInvalidPropertyValue);
  alignment_ = alignment;
  PropertyChanged("Alignment");
  Refresh();
}

void StandardControl::InitProperties() {
  font_ = Site().AmbientFont();
  OnFontChanged();
  Refresh();
}

void StandardControl::SetEnabled(bool enabled) {
  Control::SetEnabled(enabled);
  Refresh();
}

void StandardControl::ReadFont(PropertyBag& bag) {
  SetFont(*ObjectOf<tarnbrook::Font>(bag.ReadProperty("Font", FontVariant(Site().AmbientFont()))));
}

void StandardControl::WriteFont(PropertyBag& bag) {
  bag.WriteProperty("Font", FontVariant(font_), FontVariant(Site().AmbientFont()));
}

void StandardControl::ReadLook(PropertyBag& bag) {
  SetAlignment(bag.ReadProperty("Alignment", int32_t(0)).ToLong());
  SetBackColor(bag.ReadProperty("BackColor", defaults_.backColor).ToLong());
  SetForeColor(bag.ReadProperty("ForeColor", defaults_.foreColor).ToLong());
}

void StandardControl::WriteLook(PropertyBag& bag) {
  bag.WriteProperty("Alignment", alignment_, int32_t(0));
  bag.WriteProperty("BackColor", backColor_, defaults_.backColor);
  bag.WriteProperty("ForeColor", foreColor_, defaults_.foreColor);
}

} // namespace tarnbrook
