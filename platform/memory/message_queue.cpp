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

// The WH_CALLWNDPROC hooks see the message before the window does, WH_CALLWNDPROCRET
// hooks see it with its result; neither can stop it.
LRESULT MemoryPlatform::SendMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
  if (!Find(hwnd)) {
    return 0;
  }
  constexpr WPARAM SentByThisThread = 1;
  CWPSTRUCT call{lParam, wParam, msg, hwnd};
  RunHookChain(WH_CALLWNDPROC, HC_ACTION, SentByThisThread, reinterpret_cast<LPARAM>(&call));
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return 0;
  }
  if (msg == WM_PAINT) {
    ++paints_;
  }
  LRESULT result = CallWindowProc(window->proc, hwnd, msg, wParam, lParam);
  CWPRETSTRUCT done{result, lParam, wParam, msg, hwnd};
  RunHookChain(WH_CALLWNDPROCRET, HC_ACTION, SentByThisThread, reinterpret_cast<LPARAM>(&done));
  return result;
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

// When the queue runs dry, a window that needs painting gets its WM_PAINT.
void MemoryPlatform::PumpMessages() {
  for (;;) {
    QueuedMessage entry;
    if (!queue_.empty()) {
      entry = queue_.front();
      queue_.pop_front();
    } else if (HWND hwnd = NextToPaint(*Find(desktop_))) {
      Find(hwnd)->invalid = false;
      entry.msg = {hwnd, WM_PAINT, 0, 0, GetTickCount(), cursorPos_};
    } else {
      return;
    }
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
// A button going down also moves the focus to its window, unless the window answers
// WM_MOUSEACTIVATE with MA_NOACTIVATE (a label) or MA_NOACTIVATEANDEAT (the focused control
// refused to let go, so the press is dropped too). Any other answer focuses it.
bool MemoryPlatform::RunInputHooks(QueuedMessage& entry) {
  const MSG& msg = entry.msg;
  if (IsMouseMessage(msg.message)) {
    MOUSEHOOKSTRUCT info{msg.pt, msg.hwnd, static_cast<UINT>(entry.hitTest), 0};
    if (RunHookChain(WH_MOUSE, HC_ACTION, msg.message, reinterpret_cast<LPARAM>(&info))) {
      return false;
    }
    if (clickFocus_ && IsButtonDown(msg.message) && focus_ != msg.hwnd) {
      HWND topLevel = msg.hwnd;
      while (HWND parent = GetParent(topLevel)) {
        topLevel = parent;
      }
      LRESULT answer = SendMessage(msg.hwnd, WM_MOUSEACTIVATE, topLevel,
                                   MAKELPARAM(entry.hitTest, static_cast<int32_t>(msg.message)));
      if (answer == MA_NOACTIVATEANDEAT) {
        return false;
      }
      if (answer != MA_NOACTIVATE && focus_ != msg.hwnd) {
        SetFocus(msg.hwnd);
      }
      return answer != MA_ACTIVATEANDEAT;
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

// Posted messages go straight to the window procedure, passing no WH_CALLWNDPROC hook;
// WM_TIMER with a procedure in lParam calls that procedure, as DispatchMessage does.
void MemoryPlatform::Dispatch(const MSG& msg) {
  struct Depth {
    explicit Depth(int& depth) : depth_(depth) { ++depth_; }
    ~Depth() { --depth_; }
    int& depth_;
  } depth(dispatching_);
  if (msg.message == WM_TIMER && msg.lParam != 0) {
    reinterpret_cast<TIMERPROC>(msg.lParam)(msg.hwnd, WM_TIMER, msg.wParam, GetTickCount());
    return;
  }
  if (MemoryWindow* window = Find(msg.hwnd)) {
    if (msg.message == WM_PAINT) {
      ++paints_;
    }
    CallWindowProc(window->proc, msg.hwnd, msg.message, msg.wParam, msg.lParam);
  }
}

// The first invalid visible window, parents before children and lower windows before
// upper ones; 0 when nothing needs painting.
HWND MemoryPlatform::NextToPaint(const MemoryWindow& window) {
  if (!(window.style & WS_VISIBLE)) {
    return 0;
  }
  if (window.invalid && !IsDesktop(window.handle)) {
    return window.handle;
  }
  for (HWND child : window.children) {
    if (HWND found = NextToPaint(*Find(child))) {
      return found;
    }
  }
  return 0;
}

HDC MemoryPlatform::GetDC(HWND hwnd) {
  if (MemoryWindow* window = Find(hwnd)) {
    window->painted = true;
  }
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
