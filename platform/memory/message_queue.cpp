#include "platform/memory/key_map.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

namespace {

bool IsMouseMessage(UINT msg) {
  return (msg >= WM_MOUSEMOVE && msg <= WM_MBUTTONDBLCLK) ||
         (msg >= WM_NCMOUSEMOVE && msg <= WM_NCMBUTTONDBLCLK);
}

bool IsButtonDown(UINT msg) {
  switch (msg) {
  case WM_LBUTTONDOWN:
  case WM_RBUTTONDOWN:
  case WM_MBUTTONDOWN:
  case WM_LBUTTONDBLCLK:
  case WM_RBUTTONDBLCLK:
  case WM_MBUTTONDBLCLK:
  case WM_NCLBUTTONDOWN:
  case WM_NCRBUTTONDOWN:
  case WM_NCMBUTTONDOWN:
  case WM_NCLBUTTONDBLCLK:
  case WM_NCRBUTTONDBLCLK:
  case WM_NCMBUTTONDBLCLK:
    return true;
  default:
    return false;
  }
}

} // namespace

LRESULT MemoryPlatform::SendMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return 0;
  }
  return CallWindowProc(window->proc, hwnd, msg, wParam, lParam);
}

// Handle 0 posts to the thread: only a WM_TIMER carrying its procedure does anything there.
bool MemoryPlatform::PostMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (hwnd != 0 && !Find(hwnd)) {
    lastError_ = ErrorInvalidWindowHandle;
    return false;
  }
  queue_.push_back({{hwnd, msg, wParam, lParam, GetTickCount(), cursorPos_}});
  return true;
}

void MemoryPlatform::PumpMessages() {
  for (;;) {
    if (queue_.empty()) {
      if (!PaintNext(*Find(desktop_))) {
        return;
      }
      continue;
    }
    QueuedMessage entry = queue_.front();
    queue_.pop_front();
    if (entry.input && !RunInputHooks(entry)) {
      continue;
    }
    if (entry.input && entry.msg.message == WM_KEYDOWN) {
      Translate(entry.msg);
    }
    // The hook may change the message; it is delivered all the same.
    RunHookChain(WH_GETMESSAGE, HC_ACTION, PM_REMOVE, reinterpret_cast<LPARAM>(&entry.msg));
    Dispatch(entry.msg);
  }
}

// The hooks a person's input passes before its message is retrieved; false discards it.
// A button going down also moves the focus to its window.
bool MemoryPlatform::RunInputHooks(QueuedMessage& entry) {
  const MSG& msg = entry.msg;
  if (IsMouseMessage(msg.message)) {
    MOUSEHOOKSTRUCT info{msg.pt, msg.hwnd, static_cast<UINT>(entry.hitTest), 0};
    if (RunHookChain(WH_MOUSE, HC_ACTION, msg.message, reinterpret_cast<LPARAM>(&info))) {
      return false;
    }
    if (clickFocus_ && IsButtonDown(msg.message) && focus_ != msg.hwnd) {
      SetFocus(msg.hwnd);
    }
    return true;
  }
  if (msg.message == WM_KEYDOWN || msg.message == WM_KEYUP) {
    return RunHookChain(WH_KEYBOARD, HC_ACTION, msg.wParam, msg.lParam) == 0;
  }
  return true;
}

// Queues the WM_CHAR a key makes next in line, as TranslateMessage does; none while Ctrl
// or Alt is held.
void MemoryPlatform::Translate(const MSG& keyDown) {
  if (GetKeyState(VK_CONTROL) || GetKeyState(VK_MENU)) {
    return;
  }
  char ch = CharForKey(static_cast<int>(keyDown.wParam), GetKeyState(VK_SHIFT) != 0);
  if (ch != 0) {
    MSG charMessage = keyDown;
    charMessage.message = WM_CHAR;
    charMessage.wParam = static_cast<unsigned char>(ch);
    queue_.push_front({charMessage});
  }
}

// WM_TIMER with a procedure in lParam calls that procedure, as DispatchMessage does.
void MemoryPlatform::Dispatch(const MSG& msg) {
  if (msg.message == WM_TIMER && msg.lParam != 0) {
    reinterpret_cast<TIMERPROC>(msg.lParam)(msg.hwnd, WM_TIMER, msg.wParam, GetTickCount());
    return;
  }
  SendMessage(msg.hwnd, msg.message, msg.wParam, msg.lParam);
}

// Sends WM_PAINT to the first invalid visible window, parents before children and
// lower windows before upper ones; false when nothing needs painting.
bool MemoryPlatform::PaintNext(const MemoryWindow& window) {
  if (!(window.style & WS_VISIBLE)) {
    return false;
  }
  if (window.invalid && !IsDesktop(window.handle)) {
    UpdateWindow(window.handle);
    return true;
  }
  for (HWND child : window.children) {
    if (PaintNext(*Find(child))) {
      return true;
    }
  }
  return false;
}

HDC MemoryPlatform::GetDC(HWND hwnd) {
  Canvas* canvas = WindowCanvas(hwnd);
  return canvas ? canvas->Handle() : 0;
}

void MemoryPlatform::InvalidateRect(HWND hwnd) {
  if (MemoryWindow* window = Find(hwnd)) {
    window->invalid = true;
  }
}

void MemoryPlatform::UpdateWindow(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  if (window && window->invalid && IsWindowVisible(hwnd)) {
    window->invalid = false;
    SendMessage(hwnd, WM_PAINT, 0, 0);
  }
}

} // namespace tarnbrook
