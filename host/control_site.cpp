#include "host/control_site.hpp"

#include "platform/platform.hpp"

namespace tarnbrook {

void ControlSite::PropertyChanged(const std::string&) {}

void ControlSite::ReportError(const ControlError&) {
  Platform::Current().MessageBeep(MB_OK);
}

int ControlSite::MessageBox(const std::string& text, const std::string& caption, UINT buttons) {
  return Platform::Current().MessageBox(ContainerWindow(), text, caption, buttons);
}

int32_t ControlSite::TwipsPerPixelX() const {
  return Platform::Current().TwipsPerPixelX();
}

int32_t ControlSite::TwipsPerPixelY() const {
  return Platform::Current().TwipsPerPixelY();
}

ControlSite& ControlSite::Standalone() {
  static ControlSite site;
  return site;
}

} // namespace tarnbrook
