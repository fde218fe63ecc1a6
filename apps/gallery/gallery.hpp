#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "draw/cmdc.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook::gallery {

// Each file of the gallery registers its pictures; `gallery DIR` writes them all into DIR.
// Registered at start-up: `const bool registered = RegisterPicture("gallery-x.png", Write);`
using PictureWriter = void (*)(const std::string& path);
bool RegisterPicture(const char* fileName, PictureWriter write);

// A caption in the gallery's look.
void Label(cMDC& surface, const std::string& text, int32_t left, int32_t top, int32_t width,
           int32_t height, int32_t flags = DT_LEFT | DT_VCENTER | DT_SINGLELINE);

// A blank picture in the gallery's colours and font.
void StartPicture(cMDC& surface, int32_t width, int32_t height);

// One look of a control: its caption and how it is set up once placed on the form.
template <class C> struct Look {
  const char* label;
  void (*setUp)(MemoryPlatform& platform, C& control);
};

// Places one control per look on a form in a grid of `columns`, sets each up and copies it
// from the composed screen (so its child windows come along) under its caption.
template <class C>
void WriteLooks(const std::string& path, const std::vector<Look<C>>& looks, int32_t width,
                int32_t height, int32_t columns = 3) {
  constexpr int32_t Margin = 12, LabelHeight = 18;
  const int32_t count = static_cast<int32_t>(looks.size());
  const int32_t rows = (count + columns - 1) / columns;
  const int32_t cellWidth = width + Margin, cellHeight = LabelHeight + height + Margin;
  const int32_t pictureWidth = Margin + columns * cellWidth;
  const int32_t pictureHeight = Margin + rows * cellHeight;
  MemoryPlatform platform;
  platform.SetNow(DateSerial(2004, 5, 10) + TimeSerial(9, 30, 0));
  Container form(pictureWidth, pictureHeight + MemoryPlatform::CaptionHeight);
  cMDC surface;
  StartPicture(surface, pictureWidth, pictureHeight);
  std::vector<Control*> placed;
  for (int32_t i = 0; i < count; ++i) {
    int32_t left = Margin + (i % columns) * cellWidth;
    int32_t top = Margin + (i / columns) * cellHeight;
    auto& control =
        static_cast<C&>(form.Add(std::make_unique<C>(form.hWnd()), "Look" + std::to_string(i), left,
                                 top + LabelHeight, width, height));
    platform.PumpMessages();
    looks[i].setUp(platform, control);
    platform.PumpMessages();
    Label(surface, looks[i].label, left, top, width, LabelHeight);
    Point origin = platform.ClientToScreen(control.hWnd(), {0, 0});
    std::unique_ptr<Canvas> screen = platform.ComposeScreen();
    surface.CopyFrom(screen->Handle(), left, top + LabelHeight, width, height, origin.x, origin.y);
  }
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

} // namespace tarnbrook::gallery
