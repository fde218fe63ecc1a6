// Keeps one X window per simulator window, matching its parent, place, size and
// visibility, with the window's canvas on it.

#include "platform/x11/x11_platform.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <bit>
#include <vector>

namespace tarnbrook {

namespace {

constexpr long InputEvents = ButtonPressMask | ButtonReleaseMask | PointerMotionMask |
                             KeyPressMask | KeyReleaseMask | FocusChangeMask;
constexpr long WindowEvents = InputEvents | ExposureMask | StructureNotifyMask;

} // namespace

X11Platform::Mirror* X11Platform::FindMirror(HWND hwnd) {
  auto it = mirrors_.find(hwnd);
  return it == mirrors_.end() ? nullptr : &it->second;
}

unsigned long X11Platform::XWindowOf(HWND hwnd) const {
  auto it = mirrors_.find(hwnd);
  return it == mirrors_.end() ? 0 : it->second.window;
}

HWND X11Platform::WindowOfX(unsigned long xWindow) const {
  auto it = byXWindow_.find(xWindow);
  return it == byXWindow_.end() ? 0 : it->second;
}

HWND X11Platform::TopLevelOf(HWND hwnd) {
  while (HWND parent = GetParent(hwnd)) {
    hwnd = parent;
  }
  return hwnd;
}

bool X11Platform::AnyFormShown() {
  return std::any_of(mirrors_.begin(), mirrors_.end(), [this](const auto& entry) {
    const Mirror& mirror = entry.second;
    return mirror.window && !mirror.popup && mirror.parent == root_ && mirror.mapped;
  });
}

HWND X11Platform::CreateWindowEx(uint32_t exStyle, const std::string& title, uint32_t style,
                                 int32_t x, int32_t y, int32_t width, int32_t height, HWND parent,
                                 WNDPROC proc) {
  HWND hwnd =
      MemoryPlatform::CreateWindowEx(exStyle, title, style, x, y, width, height, parent, proc);
  if (hwnd) {
    mirrors_[hwnd];
    Sync();
    if (!title.empty()) {
      XStoreName(display_, mirrors_[hwnd].window, title.c_str());
    }
  }
  return hwnd;
}

bool X11Platform::DestroyWindow(HWND hwnd) {
  bool destroyed = MemoryPlatform::DestroyWindow(hwnd);
  Sync();
  return destroyed;
}

// A sibling handle puts the window just below that sibling; anything else on top.
bool X11Platform::SetWindowPos(HWND hwnd, HWND insertAfter, int32_t x, int32_t y, int32_t cx,
                               int32_t cy, UINT flags) {
  if (!MemoryPlatform::SetWindowPos(hwnd, insertAfter, x, y, cx, cy, flags)) {
    return false;
  }
  Sync();
  Mirror* mirror = FindMirror(hwnd);
  if (!(flags & SWP_NOZORDER) && mirror) {
    Mirror* sibling = FindMirror(insertAfter);
    if (sibling && sibling->parent == mirror->parent) {
      XWindowChanges changes{};
      changes.sibling = sibling->window;
      changes.stack_mode = Below;
      XConfigureWindow(display_, mirror->window, CWSibling | CWStackMode, &changes);
    } else {
      XRaiseWindow(display_, mirror->window);
    }
    XFlush(display_);
  }
  return true;
}

void X11Platform::PumpMessages() {
  MemoryPlatform::PumpMessages();
  Sync();
}

void X11Platform::UpdateWindow(HWND hwnd) {
  MemoryPlatform::UpdateWindow(hwnd);
  Sync();
}

// Survivors move to their new X parents before the destroyed windows go, so that none
// goes down with a former parent.
void X11Platform::Sync() {
  for (auto& entry : mirrors_) {
    Reconcile(entry.first);
  }
  ForgetDestroyed();
  // Whoever took a window's drawing context painted it.
  for (HWND hwnd : TakePaintedWindows()) {
    if (Mirror* mirror = FindMirror(hwnd)) {
      mirror->dirty = true;
    }
  }
  for (auto& [hwnd, mirror] : mirrors_) {
    if (mirror.dirty && mirror.mapped) {
      PutCanvas(hwnd, mirror);
      mirror.dirty = false;
    }
  }
  XFlush(display_);
}

void X11Platform::Reconcile(HWND hwnd) {
  if (!IsWindow(hwnd)) {
    return;
  }
  HWND parent = GetParent(hwnd);
  unsigned long xParent = root_;
  Point origin = ClientToScreen(hwnd, {0, 0});
  if (parent) {
    if (!mirrors_[parent].window) {
      Reconcile(parent);
    }
    xParent = mirrors_[parent].window;
    Point parentOrigin = ClientToScreen(parent, {0, 0});
    origin = {origin.x - parentOrigin.x, origin.y - parentOrigin.y};
  }
  // X windows are never empty: an empty one is a 1-pixel window kept unmapped.
  Rect client = GetClientRect(hwnd);
  Rect placed{origin.x, origin.y, origin.x + std::max(1, client.Width()),
              origin.y + std::max(1, client.Height())};
  bool shown =
      (GetWindowLong(hwnd, GWL_STYLE) & WS_VISIBLE) && client.Width() > 0 && client.Height() > 0;
  // A top-level window without a caption is a pop-up the window manager leaves alone.
  bool popup = parent == 0 && GetWindowRect(hwnd).top == ClientToScreen(hwnd, {0, 0}).y;

  Mirror& mirror = mirrors_[hwnd];
  if (!mirror.window) {
    mirror.placed = placed;
    mirror.popup = popup;
    CreateMirror(hwnd, mirror, xParent);
  }
  if (mirror.popup != popup) {
    XSetWindowAttributes attributes{};
    attributes.override_redirect = popup;
    XChangeWindowAttributes(display_, mirror.window, CWOverrideRedirect, &attributes);
    mirror.popup = popup;
  }
  if (mirror.parent != xParent) {
    XReparentWindow(display_, mirror.window, xParent, placed.left, placed.top);
    mirror.parent = xParent;
    mirror.placed = {placed.left, placed.top, placed.left + mirror.placed.Width(),
                     placed.top + mirror.placed.Height()};
  }
  if (mirror.placed != placed) {
    XMoveResizeWindow(display_, mirror.window, placed.left, placed.top, placed.Width(),
                      placed.Height());
    mirror.placed = placed;
  }
  if (mirror.mapped != shown) {
    if (shown) {
      XMapWindow(display_, mirror.window);
      mirror.dirty = true;
    } else {
      XUnmapWindow(display_, mirror.window);
    }
    mirror.mapped = shown;
  }
}

// Without a background the server leaves the old pixels until the canvas arrives.
void X11Platform::CreateMirror(HWND hwnd, Mirror& mirror, unsigned long xParent) {
  XSetWindowAttributes attributes{};
  attributes.background_pixmap = None;
  attributes.override_redirect = mirror.popup;
  attributes.event_mask = WindowEvents;
  const Rect& r = mirror.placed;
  mirror.window = XCreateWindow(display_, xParent, r.left, r.top, r.Width(), r.Height(), 0, depth_,
                                InputOutput, static_cast<Visual*>(visual_),
                                CWBackPixmap | CWOverrideRedirect | CWEventMask, &attributes);
  mirror.parent = xParent;
  byXWindow_[mirror.window] = hwnd;
  if (xParent == root_ && !mirror.popup) {
    Atom deleteWindow = deleteWindowAtom_;
    XSetWMProtocols(display_, mirror.window, &deleteWindow, 1);
    XSizeHints* hints = XAllocSizeHints();
    hints->flags = USPosition;
    hints->x = r.left;
    hints->y = r.top;
    XSetWMNormalHints(display_, mirror.window, hints);
    XFree(hints);
  }
}

// A window whose X parent goes too is destroyed with it.
void X11Platform::ForgetDestroyed() {
  std::vector<HWND> gone;
  for (const auto& [hwnd, mirror] : mirrors_) {
    if (!IsWindow(hwnd)) {
      gone.push_back(hwnd);
    }
  }
  for (HWND hwnd : gone) {
    const Mirror& mirror = mirrors_[hwnd];
    bool parentGoes = std::any_of(gone.begin(), gone.end(), [&](HWND other) {
      return mirrors_[other].window == mirror.parent;
    });
    if (mirror.window && !parentGoes) {
      XDestroyWindow(display_, mirror.window);
    }
  }
  for (HWND hwnd : gone) {
    byXWindow_.erase(mirrors_[hwnd].window);
    mirrors_.erase(hwnd);
  }
}

void X11Platform::PutCanvas(HWND hwnd, const Mirror& mirror) {
  const Canvas* canvas = WindowCanvas(hwnd);
  if (canvas && canvas->Width() > 0 && canvas->Height() > 0) {
    PutPixels(mirror.window, canvas->Data(), canvas->Stride(),
              {0, 0, canvas->Width(), canvas->Height()}, {0, 0});
  }
}

// Puts a part of a 32-bit 0xAARRGGBB image, `stride` bytes a row, at a point of the window.
void X11Platform::PutPixels(unsigned long window, const uint32_t* pixels, int32_t stride,
                            Rect source, Point at) {
  char* data = reinterpret_cast<char*>(const_cast<uint32_t*>(pixels));
  XImage* image = XCreateImage(display_, static_cast<Visual*>(visual_), depth_, ZPixmap, 0, data,
                               source.right, source.bottom, 32, stride);
  if (!image) {
    return;
  }
  image->byte_order = std::endian::native == std::endian::little ? LSBFirst : MSBFirst;
  XPutImage(display_, window, gc_, image, source.left, source.top, at.x, at.y, source.Width(),
            source.Height());
  image->data = nullptr; // the pixels are the caller's
  XDestroyImage(image);
}

} // namespace tarnbrook
