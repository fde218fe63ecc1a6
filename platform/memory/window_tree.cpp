#include <algorithm>

#include "common/text.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

bool PropNameLess::operator()(const std::string& a, const std::string& b) const {
  return CompareIgnoreCaseAscii(a, b) < 0;
}

namespace {

// Windows created without a procedure still have one, so that replacing it returns nonzero.
LRESULT DefaultWindowProc(HWND, UINT, WPARAM, LPARAM) {
  return 0;
}

} // namespace

MemoryPlatform::MemoryPlatform() {
  auto desktop = std::make_unique<MemoryWindow>();
  desktop->handle = desktop_ = nextHandle_;
  nextHandle_ += 2;
  desktop->style = WS_VISIBLE;
  desktop->proc = DefaultWindowProc;
  desktop->processId = ForeignProcessId; // the desktop belongs to the system
  windows_[desktop_] = std::move(desktop);
  SetScreenSize(1024, 768);
  Platform::SetCurrent(this);
}

MemoryPlatform::~MemoryPlatform() {
  if (Platform::HasCurrent() && &Platform::Current() == this) {
    Platform::SetCurrent(nullptr);
  }
}

MemoryWindow* MemoryPlatform::Find(HWND hwnd) {
  auto it = windows_.find(hwnd);
  return it == windows_.end() ? nullptr : it->second.get();
}

HWND MemoryPlatform::CreateWindowEx(uint32_t exStyle, const std::string& title, uint32_t style,
                                    int32_t x, int32_t y, int32_t width, int32_t height,
                                    HWND parent, WNDPROC proc) {
  if (parent == 0) {
    parent = desktop_;
  }
  MemoryWindow* parentWindow = Find(parent);
  if (!parentWindow) {
    lastError_ = ErrorInvalidWindowHandle;
    return 0;
  }
  auto window = std::make_unique<MemoryWindow>();
  HWND hwnd = window->handle = nextHandle_;
  nextHandle_ += 2;
  window->parent = parent;
  window->title = title;
  window->style = style;
  window->exStyle = exStyle;
  window->proc = proc ? proc : DefaultWindowProc;
  window->rect = {x, y, x + width, y + height};
  window->caption = IsDesktop(parent) && !title.empty();
  window->processId = ProcessId;
  window->threadId = ThreadId;
  window->invalid = true;
  Size client = ClientSize(*window);
  window->canvas = std::make_unique<Canvas>(client.cx, client.cy);
  parentWindow->children.push_back(hwnd);
  windows_[hwnd] = std::move(window);

  if (SendMessage(hwnd, WM_CREATE, 0, 0) == -1) {
    DestroyWindow(hwnd);
    return 0;
  }
  SendMessage(hwnd, WM_SIZE, 0, MAKELPARAM(client.cx, client.cy));
  SendMessage(hwnd, WM_MOVE, 0, MAKELPARAM(x, y));
  return IsWindow(hwnd) ? hwnd : 0;
}

HWND MemoryPlatform::CreateForeignWindow(int32_t x, int32_t y, int32_t width, int32_t height) {
  HWND hwnd = CreateWindowEx(0, "", WS_VISIBLE, x, y, width, height, 0, nullptr);
  MemoryWindow* window = Find(hwnd);
  window->processId = ForeignProcessId;
  window->threadId = ForeignProcessId + 4;
  return hwnd;
}

bool MemoryPlatform::DestroyWindow(HWND hwnd) {
  if (!Find(hwnd) || IsDesktop(hwnd)) {
    lastError_ = ErrorInvalidWindowHandle;
    return false;
  }
  DestroyTree(hwnd);
  return true;
}

// Children go first; each window hears WM_DESTROY, then loses its properties and timers.
void MemoryPlatform::DestroyTree(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return; // destroyed meanwhile by a WM_DESTROY handler
  }
  std::vector<HWND> children = window->children;
  for (auto it = children.rbegin(); it != children.rend(); ++it) {
    DestroyTree(*it);
  }
  SendMessage(hwnd, WM_DESTROY, 0, 0);
  window = Find(hwnd);
  if (!window) {
    return;
  }
  window->props.clear();
  std::erase_if(timers_, [hwnd](const Timer& t) { return t.hwnd == hwnd; });
  if (focus_ == hwnd) {
    focus_ = 0;
  }
  if (capture_ == hwnd) {
    capture_ = 0;
  }
  Unlink(*window);
  windows_.erase(hwnd);
}

void MemoryPlatform::Unlink(MemoryWindow& window) {
  if (MemoryWindow* parent = Find(window.parent)) {
    std::erase(parent->children, window.handle);
  }
}

bool MemoryPlatform::IsWindow(HWND hwnd) {
  return Find(hwnd) != nullptr;
}

HWND MemoryPlatform::GetParent(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  return window && !IsDesktop(window->parent) ? window->parent : 0;
}

HWND MemoryPlatform::SetParent(HWND hwnd, HWND newParent) {
  if (newParent == 0) {
    newParent = desktop_;
  }
  MemoryWindow* window = Find(hwnd);
  MemoryWindow* parent = Find(newParent);
  if (!window || !parent || IsDesktop(hwnd)) {
    lastError_ = ErrorInvalidWindowHandle;
    return 0;
  }
  // A window cannot become a descendant of itself.
  for (MemoryWindow* p = parent; p; p = Find(p->parent)) {
    if (p == window) {
      return 0;
    }
  }
  HWND former = window->parent;
  Unlink(*window);
  window->parent = newParent;
  parent->children.push_back(hwnd);
  InvalidateRect(hwnd);
  return former;
}

HWND MemoryPlatform::GetDesktopWindow() {
  return desktop_;
}

LONG_PTR MemoryPlatform::GetWindowLong(HWND hwnd, int index) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    lastError_ = ErrorInvalidWindowHandle;
    return 0;
  }
  switch (index) {
  case GWL_WNDPROC:
    return reinterpret_cast<LONG_PTR>(window->proc);
  case GWL_STYLE:
    return window->style;
  case GWL_EXSTYLE:
    return window->exStyle;
  case GWL_USERDATA:
    return window->userData;
  default:
    return 0;
  }
}

LONG_PTR MemoryPlatform::SetWindowLong(HWND hwnd, int index, LONG_PTR value) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    lastError_ = ErrorInvalidWindowHandle;
    return 0;
  }
  LONG_PTR previous = GetWindowLong(hwnd, index);
  switch (index) {
  case GWL_WNDPROC:
    if (window->processId != ProcessId || value == 0) {
      lastError_ = ErrorAccessDenied;
      return 0;
    }
    window->proc = reinterpret_cast<WNDPROC>(value);
    break;
  case GWL_STYLE:
    window->style = static_cast<uint32_t>(value);
    break;
  case GWL_EXSTYLE:
    window->exStyle = static_cast<uint32_t>(value);
    break;
  case GWL_USERDATA:
    window->userData = value;
    break;
  default:
    return 0;
  }
  return previous;
}

LRESULT MemoryPlatform::CallWindowProc(WNDPROC proc, HWND hwnd, UINT msg, WPARAM wParam,
                                       LPARAM lParam) {
  return proc ? proc(hwnd, msg, wParam, lParam) : 0;
}

bool MemoryPlatform::ShowWindow(HWND hwnd, int command) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return false;
  }
  bool wasVisible = window->style & WS_VISIBLE;
  SetVisible(hwnd, command != SW_HIDE);
  return wasVisible;
}

// Changes WS_VISIBLE, telling the window; a window that appears needs painting.
bool MemoryPlatform::SetVisible(HWND hwnd, bool visible) {
  MemoryWindow* window = Find(hwnd);
  if (!window || static_cast<bool>(window->style & WS_VISIBLE) == visible) {
    return false;
  }
  SendMessage(hwnd, WM_SHOWWINDOW, visible, 0);
  if ((window = Find(hwnd))) {
    window->style = visible ? window->style | WS_VISIBLE : window->style & ~WS_VISIBLE;
    window->invalid = visible;
  }
  return true;
}

bool MemoryPlatform::IsWindowVisible(HWND hwnd) {
  for (MemoryWindow* window = Find(hwnd); window; window = Find(window->parent)) {
    if (!(window->style & WS_VISIBLE)) {
      return false;
    }
  }
  return Find(hwnd) != nullptr;
}

bool MemoryPlatform::EnableWindow(HWND hwnd, bool enable) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return false;
  }
  bool wasDisabled = window->style & WS_DISABLED;
  if (wasDisabled == enable) {
    window->style = enable ? window->style & ~WS_DISABLED : window->style | WS_DISABLED;
    SendMessage(hwnd, WM_ENABLE, enable, 0);
  }
  return wasDisabled;
}

bool MemoryPlatform::IsWindowEnabled(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  return window && !(window->style & WS_DISABLED);
}

uint32_t MemoryPlatform::GetWindowThreadProcessId(HWND hwnd, uint32_t* processId) {
  MemoryWindow* window = Find(hwnd);
  if (processId) {
    *processId = window ? window->processId : 0;
  }
  return window ? window->threadId : 0;
}

bool MemoryPlatform::SetProp(HWND hwnd, const std::string& name, intptr_t value) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return false;
  }
  window->props[name] = value;
  return true;
}

intptr_t MemoryPlatform::GetProp(HWND hwnd, const std::string& name) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return 0;
  }
  auto it = window->props.find(name);
  return it == window->props.end() ? 0 : it->second;
}

intptr_t MemoryPlatform::RemoveProp(HWND hwnd, const std::string& name) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return 0;
  }
  auto it = window->props.find(name);
  if (it == window->props.end()) {
    return 0;
  }
  intptr_t value = it->second;
  window->props.erase(it);
  return value;
}

std::vector<std::string> MemoryPlatform::PropertyNames(HWND hwnd) {
  std::vector<std::string> names;
  if (MemoryWindow* window = Find(hwnd)) {
    for (const auto& [name, value] : window->props) {
      names.push_back(name);
    }
  }
  return names;
}

std::vector<HWND> MemoryPlatform::Children(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  return window ? window->children : std::vector<HWND>{};
}

Canvas* MemoryPlatform::WindowCanvas(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  return window && window->canvas ? window->canvas.get() : nullptr;
}

} // namespace tarnbrook
