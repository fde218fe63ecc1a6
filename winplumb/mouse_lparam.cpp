#include "winplumb/mouse_lparam.hpp"

namespace tarnbrook {

int32_t cMouselParam::ClientX(HWND lhWNd) const {
  return Platform::Current().ScreenToClient(lhWNd, record_.pt).x;
}

int32_t cMouselParam::ClientY(HWND lhWNd) const {
  return Platform::Current().ScreenToClient(lhWNd, record_.pt).y;
}

void cMouselParam::Init(LPARAM lParam) {
  record_ = *reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam);
}

} // namespace tarnbrook
