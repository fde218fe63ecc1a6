#pragma once
#include <cstdint>

#include "platform/platform.hpp"

namespace tarnbrook {

// The WH_MOUSE hook's lParam as readable fields.
class cMouselParam {
public:
  // X position of the mouse relative to the screen, in pixels.
  int32_t X() const { return record_.pt.x; }
  // Y position of the mouse relative to the screen, in pixels.
  int32_t Y() const { return record_.pt.y; }
  // X position of the mouse relative to the client window, in pixels.
  int32_t ClientX(HWND lhWNd) const;
  // Y position of the mouse relative to the client window, in pixels.
  int32_t ClientY(HWND lhWNd) const;
  // Window handle the mouse message will be sent to.
  HWND hwnd() const { return record_.hwnd; }
  // Windows Hit Test Code for the mouse message.
  int32_t HitTestCode() const { return static_cast<int32_t>(record_.wHitTestCode); }
  // Extra information associated with the mouse message.
  uintptr_t ExtraInfo() const { return record_.dwExtraInfo; }

  // Copies the record `lParam` points to.
  void Init(LPARAM lParam);

private:
  MOUSEHOOKSTRUCT record_{};
};

} // namespace tarnbrook
