#include <utility>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

namespace {

// The client message of a button: down, up or double click.
enum ButtonAction : UINT { Down = 0, Up = 1, DoubleClickAction = 2 };

UINT ButtonMessage(int button, ButtonAction action) {
  UINT base = button == VK_RBUTTON   ? WM_RBUTTONDOWN
              : button == VK_MBUTTON ? WM_MBUTTONDOWN
                                     : WM_LBUTTONDOWN;
  return base + action;
}

// Non-client messages mirror the client ones at a fixed distance.
constexpr UINT NonClientOffset = WM_MOUSEMOVE - WM_NCMOUSEMOVE;

} // namespace

WPARAM MemoryPlatform::MouseKeyFlags() {
  constexpr std::pair<int, WPARAM> KeyFlags[] = {{VK_LBUTTON, MK_LBUTTON},
                                                 {VK_RBUTTON, MK_RBUTTON},
                                                 {VK_MBUTTON, MK_MBUTTON},
                                                 {VK_SHIFT, MK_SHIFT},
                                                 {VK_CONTROL, MK_CONTROL}};
  WPARAM flags = 0;
  for (auto [key, flag] : KeyFlags) {
    if (GetKeyState(key)) {
      flags |= flag;
    }
  }
  return flags;
}

// Queues the message a person's mouse makes at a screen point, then pumps.
void MemoryPlatform::InjectMouse(UINT clientMessage, Point screen) {
  cursorPos_ = screen;
  HWND target = capture_ ? capture_ : WindowFromPoint(screen);
  if (Find(target) && !IsDesktop(target)) {
    QueuedMessage entry{{target, clientMessage, 0, 0, GetTickCount(), screen}, true, HTCLIENT};
    if (!capture_) {
      entry.hitTest = HitTest(target, screen);
    }
    if (entry.hitTest == HTCLIENT) {
      Point client = ScreenToClient(target, screen);
      entry.msg.wParam = MouseKeyFlags();
      entry.msg.lParam = MAKELPARAM(client.x, client.y);
    } else {
      entry.msg.message = clientMessage - NonClientOffset;
      entry.msg.wParam = static_cast<WPARAM>(entry.hitTest);
      entry.msg.lParam = MAKELPARAM(screen.x, screen.y);
    }
    queue_.push_back(entry);
  }
  PumpMessages();
}

// As desktops do today, the wheel turns what is under the pointer, not what has the focus;
// lParam holds the screen point, as the system's does.
void MemoryPlatform::MouseWheel(int32_t delta, int32_t x, int32_t y) {
  if (cursorPos_ != Point{x, y}) {
    MouseMove(x, y);
  }
  HWND target = capture_ ? capture_ : WindowFromPoint({x, y});
  if (Find(target) && !IsDesktop(target)) {
    WPARAM wParam = MouseKeyFlags() | (static_cast<WPARAM>(static_cast<uint16_t>(delta)) << 16);
    queue_.push_back({{target, WM_MOUSEWHEEL, wParam, MAKELPARAM(x, y), GetTickCount(), {x, y}},
                      true,
                      HTCLIENT});
  }
  PumpMessages();
}

void MemoryPlatform::MouseMove(int32_t x, int32_t y) {
  InjectMouse(WM_MOUSEMOVE, {x, y});
}

// The pointer travels to the point before the button goes down.
void MemoryPlatform::MouseDown(int button, int32_t x, int32_t y) {
  if (cursorPos_ != Point{x, y}) {
    MouseMove(x, y);
  }
  keysDown_[button] = true;
  InjectMouse(ButtonMessage(button, Down), {x, y});
}

void MemoryPlatform::MouseUp(int button, int32_t x, int32_t y) {
  if (cursorPos_ != Point{x, y}) {
    MouseMove(x, y);
  }
  keysDown_[button] = false;
  InjectMouse(ButtonMessage(button, Up), {x, y});
}

void MemoryPlatform::Click(int32_t x, int32_t y) {
  MouseDown(VK_LBUTTON, x, y);
  MouseUp(VK_LBUTTON, x, y);
}

// The second press arrives as a double click, as the system reports it.
void MemoryPlatform::DoubleClick(int32_t x, int32_t y) {
  Click(x, y);
  MouseDoubleClick(VK_LBUTTON, x, y);
  MouseUp(VK_LBUTTON, x, y);
}

void MemoryPlatform::MouseDoubleClick(int button, int32_t x, int32_t y) {
  if (cursorPos_ != Point{x, y}) {
    MouseMove(x, y);
  }
  keysDown_[button] = true;
  InjectMouse(ButtonMessage(button, DoubleClickAction), {x, y});
}

} // namespace tarnbrook
