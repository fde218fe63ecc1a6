#include <algorithm>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

Size MemoryPlatform::ClientSize(const MemoryWindow& window) const {
  int32_t top = window.caption ? CaptionHeight : 0;
  return {std::max(0, window.rect.Width()), std::max(0, window.rect.Height() - top)};
}

Point MemoryPlatform::ClientOrigin(const MemoryWindow& window) {
  Point origin{window.rect.left, window.rect.top + (window.caption ? CaptionHeight : 0)};
  if (MemoryWindow* parent = Find(window.parent)) {
    Point parentOrigin = ClientOrigin(*parent);
    origin.x += parentOrigin.x;
    origin.y += parentOrigin.y;
  }
  return origin;
}

Rect MemoryPlatform::ClientScreenRect(const MemoryWindow& window) {
  Point origin = ClientOrigin(window);
  Size size = ClientSize(window);
  return {origin.x, origin.y, origin.x + size.cx, origin.y + size.cy};
}

void MemoryPlatform::SetScreenSize(int32_t width, int32_t height) {
  MemoryWindow* desktop = Find(desktop_);
  desktop->rect = {0, 0, width, height};
  workArea_ = {0, 0, width, height - 30}; // less the taskbar
}

bool MemoryPlatform::MoveWindow(HWND hwnd, int32_t x, int32_t y, int32_t width, int32_t height,
                                bool repaint) {
  MemoryWindow* window = Find(hwnd);
  if (!window || IsDesktop(hwnd)) {
    return false;
  }
  Rect old = window->rect;
  window->rect = {x, y, SaturatedSum(x, width), SaturatedSum(y, height)};
  Size client = ClientSize(*window);
  bool resized = old.Width() != width || old.Height() != height;
  if (resized) {
    window->canvas->Resize(client.cx, client.cy);
  }
  window->invalid = window->invalid || resized || repaint;
  if (old.left != x || old.top != y) {
    SendMessage(hwnd, WM_MOVE, 0, MAKELPARAM(x, y));
  }
  if (resized) {
    SendMessage(hwnd, WM_SIZE, 0, MAKELPARAM(client.cx, client.cy));
  }
  return true;
}

bool MemoryPlatform::SetWindowPos(HWND hwnd, HWND insertAfter, int32_t x, int32_t y, int32_t cx,
                                  int32_t cy, UINT flags) {
  MemoryWindow* window = Find(hwnd);
  if (!window || IsDesktop(hwnd)) {
    return false;
  }
  if (!(flags & SWP_NOZORDER)) {
    Raise(*window, insertAfter);
  }
  if ((flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE)) {
    Rect r = window->rect;
    if (flags & SWP_NOMOVE) {
      x = r.left;
      y = r.top;
    }
    if (flags & SWP_NOSIZE) {
      cx = r.Width();
      cy = r.Height();
    }
    MoveWindow(hwnd, x, y, cx, cy, true);
  }
  if (flags & SWP_SHOWWINDOW) {
    SetVisible(hwnd, true);
  } else if (flags & SWP_HIDEWINDOW) {
    SetVisible(hwnd, false);
  }
  return true;
}

// HWND_TOP and HWND_TOPMOST put the window above its siblings; a sibling handle puts it
// just below that sibling.
void MemoryPlatform::Raise(MemoryWindow& window, HWND insertAfter) {
  MemoryWindow* parent = Find(window.parent);
  std::vector<HWND>& siblings = parent->children;
  std::erase(siblings, window.handle);
  auto after = std::find(siblings.begin(), siblings.end(), insertAfter);
  if (insertAfter == HWND_TOP || insertAfter == HWND_TOPMOST || after == siblings.end()) {
    siblings.push_back(window.handle);
  } else {
    siblings.insert(after, window.handle);
  }
  window.invalid = true;
}

Rect MemoryPlatform::GetWindowRect(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return {};
  }
  Point origin{0, 0};
  if (MemoryWindow* parent = Find(window->parent)) {
    origin = ClientOrigin(*parent);
  }
  const Rect& r = window->rect;
  return {r.left + origin.x, r.top + origin.y, r.right + origin.x, r.bottom + origin.y};
}

Rect MemoryPlatform::GetClientRect(HWND hwnd) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return {};
  }
  Size size = ClientSize(*window);
  return {0, 0, size.cx, size.cy};
}

Point MemoryPlatform::ScreenToClient(HWND hwnd, Point p) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return p;
  }
  Point origin = ClientOrigin(*window);
  return {p.x - origin.x, p.y - origin.y};
}

Point MemoryPlatform::ClientToScreen(HWND hwnd, Point p) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return p;
  }
  Point origin = ClientOrigin(*window);
  return {p.x + origin.x, p.y + origin.y};
}

// The topmost visible, enabled window under the point, the deepest child first; the
// desktop when there is none.
HWND MemoryPlatform::WindowFromPoint(Point screen) {
  HWND found = ChildFromPoint(*Find(desktop_), screen);
  return found ? found : desktop_;
}

HWND MemoryPlatform::ChildFromPoint(const MemoryWindow& parent, Point screen) {
  if (!ClientScreenRect(parent).Contains(screen)) {
    return 0;
  }
  for (auto it = parent.children.rbegin(); it != parent.children.rend(); ++it) {
    MemoryWindow* child = Find(*it);
    if (!(child->style & WS_VISIBLE) || (child->style & WS_DISABLED) ||
        !GetWindowRect(child->handle).Contains(screen)) {
      continue;
    }
    HWND deeper = ChildFromPoint(*child, screen);
    return deeper ? deeper : child->handle;
  }
  return 0;
}

int MemoryPlatform::HitTest(HWND hwnd, Point screen) {
  MemoryWindow* window = Find(hwnd);
  if (!window) {
    return HTNOWHERE;
  }
  if (ClientScreenRect(*window).Contains(screen)) {
    return HTCLIENT;
  }
  return window->caption && GetWindowRect(hwnd).Contains(screen) ? HTCAPTION : HTNOWHERE;
}

} // namespace tarnbrook
