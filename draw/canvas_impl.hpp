#pragma once
// The state behind a Canvas, shared by the files that implement its parts.
#include <algorithm>
#include <cairo.h>
#include <vector>

#include "draw/canvas.hpp"

namespace tarnbrook {

struct ShapedText;

// An opaque ARGB32 pixel from a COLORREF (0x00BBGGRR) and back.
inline uint32_t ToPixel(COLORREF c) {
  return 0xFF000000u | (c & 0xFFu) << 16 | (c & 0xFF00u) | (c >> 16 & 0xFFu);
}
inline COLORREF ToColor(uint32_t p) {
  return (p >> 16 & 0xFFu) | (p & 0xFF00u) | (p & 0xFFu) << 16;
}

inline Rect Intersect(const Rect& a, const Rect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

struct Pen {
  int style = PS_SOLID;
  int32_t width = 1;
  COLORREF color = 0;
};

struct Canvas::Impl {
  // The image is made, white, on first use: a hidden window's canvas may never be drawn.
  // Making it is no change the owner sees, hence mutable.
  mutable cairo_surface_t* surface = nullptr;
  mutable uint32_t* pixels = nullptr;
  mutable int32_t width = 0;
  mutable int32_t height = 0;
  mutable int32_t stride = 0;        // in pixels
  uint32_t freshPixel = 0xFFFFFFFFu; // what a new image is filled with

  // A fresh drawing context: black text on white, opaque, black pen, white brush.
  COLORREF textColor = 0;
  COLORREF bkColor = 0xFFFFFF;
  int bkMode = OPAQUE;
  FontSpec font;
  Pen pen;
  bool nullBrush = false;
  COLORREF brushColor = 0xFFFFFF;
  Point brushOrigin;
  Point position;
  int dotPhase = 0; // where a dotted pen is in its on/off pattern

  bool Inside(int32_t x, int32_t y) const { return x >= 0 && y >= 0 && x < width && y < height; }
  // Makes the image if it is not there yet; raises 7, leaving the canvas 0 x 0, when memory
  // runs out.
  void MakeImage() const;
  uint32_t* Row(int32_t y) const {
    if (!surface)
      MakeImage();
    return pixels + static_cast<ptrdiff_t>(y) * stride;
  }
  void Put(int32_t x, int32_t y, uint32_t pixel) {
    if (Inside(x, y)) {
      Row(y)[x] = pixel;
    }
  }
  // Fills (left, top, right, bottom) clipped to the image; right and bottom excluded.
  void Fill(Rect r, uint32_t pixel);
  // Plots one pixel of the current pen (its width spread around the point).
  void PlotPen(int32_t x, int32_t y);
  // Draws a level or upright line of a solid pen, the end point excluded.
  void PenRun(Point from, Point to);
  // Draws the pen's line from one point to another, the end point excluded.
  void PenLine(Point from, Point to);
  // The width of a shape's rim in the current pen.
  int32_t ShapePenWidth() const;
  // Paints a shape given by how deep each pixel over `rect` lies in it (0 outside, 1 on the
  // rim): the pen draws its rim, the brush its inside.
  void PaintShape(const Rect& rect, const std::vector<int32_t>& depth);
  // Lays a text's coverage over the image in one colour, within `clip`.
  void Blend(const ShapedText& shaped, int32_t x, int32_t y, Rect clip, COLORREF color);
};

} // namespace tarnbrook
