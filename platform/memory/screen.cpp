#include <algorithm>
#include <utility>

#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

namespace {

constexpr COLORREF CaptionColor = 0x800000; // COLOR_ACTIVECAPTION, navy
constexpr COLORREF CaptionTextColor = 0xFFFFFF;

Rect Intersect(const Rect& a, const Rect& b) {
  Rect r{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
         std::min(a.bottom, b.bottom)};
  return r.left < r.right && r.top < r.bottom ? r : Rect{};
}

} // namespace

// The desktop colour, then every visible window bottom to top, each clipped to its
// parent's client area.
std::unique_ptr<Canvas> MemoryPlatform::ComposeScreen() {
  const MemoryWindow& desktop = *Find(desktop_);
  auto screen = std::make_unique<Canvas>(desktop.rect.Width(), desktop.rect.Height());
  screen->FillRect(desktop.rect, DesktopColor);
  for (HWND child : desktop.children) {
    DrawTree(*screen, *Find(child), desktop.rect, {0, 0});
  }
  return screen;
}

void MemoryPlatform::ComposeWindow(HWND hwnd, Canvas& target, const Rect& area) {
  MemoryWindow* window = Find(hwnd);
  if (!window || IsDesktop(hwnd)) {
    return;
  }
  Rect client = ClientScreenRect(*window);
  Rect clip{client.left + area.left, client.top + area.top, client.left + area.right,
            client.top + area.bottom};
  // Drawn as if shown, so that a backend can put a window's pixels up before it shows it.
  uint32_t style = window->style;
  window->style |= WS_VISIBLE;
  bool caption = std::exchange(window->caption, false);
  DrawTree(target, *window, Intersect(clip, client), {client.left, client.top});
  window->caption = caption;
  window->style = style;
}

std::vector<HWND> MemoryPlatform::TakePaintedWindows() {
  std::vector<HWND> painted;
  for (auto& [hwnd, window] : windows_) {
    if (std::exchange(window->painted, false)) {
      painted.push_back(hwnd);
    }
  }
  return painted;
}

void MemoryPlatform::DrawTree(Canvas& screen, const MemoryWindow& window, const Rect& clip,
                              Point origin) {
  if (!(window.style & WS_VISIBLE)) {
    return;
  }
  if (window.caption) {
    Rect bar = GetWindowRect(window.handle);
    bar.bottom = bar.top + CaptionHeight;
    bar = Intersect(bar, clip);
    bar = {bar.left - origin.x, bar.top - origin.y, bar.right - origin.x, bar.bottom - origin.y};
    screen.FillRect(bar, CaptionColor);
    screen.SetTextColor(CaptionTextColor);
    screen.SetBkMode(TRANSPARENT);
    Rect text{bar.left + 4, bar.top, bar.right, bar.bottom};
    screen.DrawText(window.title, text, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  }
  Rect client = ClientScreenRect(window);
  Rect shown = Intersect(client, clip);
  if (shown.Width() > 0) {
    screen.BitBlt(shown.left - origin.x, shown.top - origin.y, shown.Width(), shown.Height(),
                  *window.canvas, shown.left - client.left, shown.top - client.top);
  }
  for (HWND child : window.children) {
    DrawTree(screen, *Find(child), shown, origin);
  }
}

void MemoryPlatform::WriteScreenPng(const std::string& path) {
  ComposeScreen()->WritePng(path);
}

} // namespace tarnbrook
