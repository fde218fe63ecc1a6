#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

// The window losing the focus hears WM_KILLFOCUS before the new one hears WM_SETFOCUS.
HWND MemoryPlatform::SetFocus(HWND hwnd) {
  if (hwnd != 0 && (!Find(hwnd) || IsDesktop(hwnd))) {
    return 0;
  }
  HWND old = focus_;
  if (old == hwnd) {
    return old;
  }
  focus_ = hwnd;
  SendMessage(old, WM_KILLFOCUS, hwnd, 0);
  if (focus_ == hwnd) {
    SendMessage(hwnd, WM_SETFOCUS, old, 0);
  }
  return old;
}

HWND MemoryPlatform::GetFocus() {
  return focus_;
}

HWND MemoryPlatform::SetCapture(HWND hwnd) {
  HWND old = capture_;
  if (!Find(hwnd) || old == hwnd) {
    return old;
  }
  capture_ = hwnd;
  SendMessage(old, WM_CAPTURECHANGED, 0, static_cast<LPARAM>(hwnd));
  return old;
}

bool MemoryPlatform::ReleaseCapture() {
  HWND old = capture_;
  capture_ = 0;
  SendMessage(old, WM_CAPTURECHANGED, 0, 0);
  return true;
}

HWND MemoryPlatform::GetCapture() {
  return capture_;
}

Point MemoryPlatform::GetCursorPos() {
  return cursorPos_;
}

void MemoryPlatform::SetCursor(int shape) {
  cursor_ = shape;
}

int16_t MemoryPlatform::GetKeyState(int virtualKey) {
  auto it = keysDown_.find(virtualKey);
  return it != keysDown_.end() && it->second ? static_cast<int16_t>(0x8000) : 0;
}

} // namespace tarnbrook
