// AnimateWindow on screen: the simulator has the window paint itself through
// WM_PRINTCLIENT and shows it; the X window then reveals that picture step by step.

#include "platform/x11/x11_platform.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>
#include <vector>

namespace tarnbrook {

namespace {

constexpr auto FrameTime = std::chrono::milliseconds(10);

// One axis of a revealed window at a moment: where its visible part starts within the
// whole, how long it is, and which part of the picture it shows. A roll uncovers the
// picture in place; a slide pushes it in, leading edge first.
struct Span {
  int32_t offset;
  int32_t length;
  int32_t source;
};

Span Reveal(int32_t whole, double progress, bool positive, bool negative, bool centre, bool slide) {
  if (!positive && !negative && !centre) {
    return {0, whole, 0};
  }
  int32_t length = std::max(1, static_cast<int32_t>(std::lround(whole * progress)));
  if (centre) {
    int32_t offset = (whole - length) / 2;
    return {offset, length, offset};
  }
  if (positive) {
    return {0, length, slide ? whole - length : 0};
  }
  return {whole - length, length, slide ? 0 : whole - length};
}

// Calls `frame` with the progress from 0 to 1, every few milliseconds for `milliseconds`,
// the last call with 1.
template <typename Frame> void Animate(uint32_t milliseconds, Frame frame) {
  using namespace std::chrono;
  auto start = steady_clock::now();
  for (;;) {
    double progress =
        milliseconds
            ? duration<double, std::milli>(steady_clock::now() - start).count() / milliseconds
            : 1.0;
    frame(std::min(progress, 1.0));
    if (progress >= 1.0) {
      return;
    }
    std::this_thread::sleep_for(FrameTime);
  }
}

uint32_t Mix(uint32_t from, uint32_t to, double progress) {
  uint32_t mixed = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    double a = (from >> shift) & 0xFF, b = (to >> shift) & 0xFF;
    mixed |= static_cast<uint32_t>(std::lround(a + (b - a) * progress)) << shift;
  }
  return mixed;
}

} // namespace

bool X11Platform::AnimateWindow(HWND hwnd, uint32_t milliseconds, uint32_t flags) {
  // The window stands in its place, not yet shown, over windows that repainted what the
  // server uncovered: that is what a blend starts from.
  XSync(display_, False);
  for (XEvent exposed; XCheckTypedEvent(display_, Expose, &exposed);) {
    HandleEvent(exposed);
  }
  Sync();
  Mirror* mirror = FindMirror(hwnd);
  bool wasShown = mirror && mirror->mapped;
  if (!MemoryPlatform::AnimateWindow(hwnd, milliseconds, flags)) {
    return false;
  }
  mirror = FindMirror(hwnd);
  if (mirror && mirror->window && !wasShown && !(flags & AW_HIDE) && IsWindowVisible(hwnd)) {
    const Canvas& picture = *WindowCanvas(hwnd);
    if (flags & AW_BLEND) {
      Blend(hwnd, *mirror, picture, milliseconds);
    } else {
      Unroll(*mirror, picture, milliseconds, flags);
    }
    mirror->mapped = true;
  }
  if (mirror) {
    mirror->dirty = true; // the picture is the window's canvas now
  }
  Sync();
  return true;
}

void X11Platform::Unroll(Mirror& mirror, const Canvas& picture, uint32_t milliseconds,
                         uint32_t flags) {
  const Rect whole = mirror.placed;
  bool slide = flags & AW_SLIDE, centre = flags & AW_CENTER;
  bool mapped = false;
  Animate(milliseconds, [&](double progress) {
    Span across = Reveal(whole.Width(), progress, flags & AW_HOR_POSITIVE, flags & AW_HOR_NEGATIVE,
                         centre, slide);
    Span down = Reveal(whole.Height(), progress, flags & AW_VER_POSITIVE, flags & AW_VER_NEGATIVE,
                       centre, slide);
    XMoveResizeWindow(display_, mirror.window, whole.left + across.offset, whole.top + down.offset,
                      across.length, down.length);
    if (!mapped) {
      XMapRaised(display_, mirror.window);
      mapped = true;
    }
    Rect source{across.source, down.source, across.source + across.length,
                down.source + down.length};
    source.right = std::min(source.right, picture.Width());
    source.bottom = std::min(source.bottom, picture.Height());
    PutPixels(mirror.window, picture.Data(), picture.Stride(), source, {0, 0});
    XSync(display_, False);
  });
  XMoveResizeWindow(display_, mirror.window, whole.left, whole.top, whole.Width(), whole.Height());
}

// Fades from what the screen showed under the window to the picture. Only the part of the
// window on the screen is blended; the rest is never seen.
void X11Platform::Blend(HWND hwnd, Mirror& mirror, const Canvas& picture, uint32_t milliseconds) {
  Point origin = ClientToScreen(hwnd, {0, 0});
  Rect visible{std::max(0, origin.x), std::max(0, origin.y),
               std::min(GetSystemMetrics(SM_CXSCREEN), origin.x + picture.Width()),
               std::min(GetSystemMetrics(SM_CYSCREEN), origin.y + picture.Height())};
  XImage* under = visible.Width() > 0 && visible.Height() > 0
                      ? XGetImage(display_, root_, visible.left, visible.top, visible.Width(),
                                  visible.Height(), AllPlanes, ZPixmap)
                      : nullptr;
  XMapRaised(display_, mirror.window);
  if (!under) {
    return;
  }
  const int32_t width = visible.Width(), height = visible.Height();
  const Point inPicture{visible.left - origin.x, visible.top - origin.y};
  std::vector<uint32_t> frame(static_cast<size_t>(width) * height);
  Animate(milliseconds, [&](double progress) {
    for (int32_t y = 0; y < height; ++y) {
      const uint32_t* row = picture.Data() + (inPicture.y + y) * (picture.Stride() / 4);
      for (int32_t x = 0; x < width; ++x) {
        frame[y * width + x] = Mix(XGetPixel(under, x, y), row[inPicture.x + x], progress);
      }
    }
    PutPixels(mirror.window, frame.data(), width * 4, {0, 0, width, height}, inPicture);
    XSync(display_, False);
  });
  XDestroyImage(under);
}

} // namespace tarnbrook
