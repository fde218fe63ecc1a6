#include "apps/demo/screenshot.hpp"

#include <stdexcept>

#include "common/ole_color.hpp"
#include "draw/canvas.hpp"

// Last: its macros clash with names above.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace tarnbrook {

void WriteScreenshot(Display* display, const std::string& path) {
  Window root = DefaultRootWindow(display);
  XWindowAttributes attributes{};
  XGetWindowAttributes(display, root, &attributes);
  XImage* image =
      XGetImage(display, root, 0, 0, attributes.width, attributes.height, AllPlanes, ZPixmap);
  if (!image)
    throw std::runtime_error("cannot read the screen for " + path);
  Canvas picture(attributes.width, attributes.height);
  for (int y = 0; y < attributes.height; ++y) {
    for (int x = 0; x < attributes.width; ++x) {
      unsigned long pixel = XGetPixel(image, x, y); // 0xRRGGBB on a TrueColor screen
      picture.SetPixel(x, y, RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF));
    }
  }
  XDestroyImage(image);
  picture.WritePng(path);
}

} // namespace tarnbrook
