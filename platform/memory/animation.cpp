#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

// Records the animation and jumps to its end: a window being shown paints itself through
// WM_PRINTCLIENT into a fresh canvas, and that picture is what the screen then shows.
bool MemoryPlatform::AnimateWindow(HWND hwnd, uint32_t milliseconds, uint32_t flags) {
  if (!Find(hwnd)) {
    lastError_ = ErrorInvalidWindowHandle;
    return false;
  }
  animations_.push_back({hwnd, milliseconds, flags});
  if (flags & AW_HIDE) {
    SetVisible(hwnd, false);
    return true;
  }
  Size size = ClientSize(*Find(hwnd));
  Canvas picture(size.cx, size.cy);
  SendMessage(hwnd, WM_PRINTCLIENT, picture.Handle(), PRF_CLIENT);
  SetVisible(hwnd, true);
  if (MemoryWindow* window = Find(hwnd)) {
    Size now = ClientSize(*window);
    window->canvas->BitBlt(0, 0, now.cx, now.cy, picture, 0, 0);
    window->invalid = false;
  }
  return true;
}

} // namespace tarnbrook
