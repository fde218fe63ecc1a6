#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "draw/canvas_impl.hpp"

namespace tarnbrook {

void Canvas::Impl::PlotPen(int32_t x, int32_t y) {
  if (pen.style == PS_DOT) {
    if (dotPhase++ % 2 == 0) {
      Put(x, y, ToPixel(pen.color));
    }
    return;
  }
  int32_t low = -(pen.width / 2);
  Fill({x + low, y + low, x + low + pen.width, y + low + pen.width}, ToPixel(pen.color));
}

// A level or upright solid line as one rectangle: the squares the pen would plot along it.
void Canvas::Impl::PenRun(Point from, Point to) {
  if (from == to)
    return;
  int64_t low = -(pen.width / 2);
  // The end point is left out: the run stops one pixel short of it.
  int64_t firstX = std::min<int64_t>(from.x, from.x < to.x ? to.x - 1 : to.x + 1);
  int64_t lastX = std::max<int64_t>(from.x, from.x < to.x ? to.x - 1 : to.x + 1);
  int64_t firstY = std::min<int64_t>(from.y, from.y < to.y ? to.y - 1 : to.y + 1);
  int64_t lastY = std::max<int64_t>(from.y, from.y < to.y ? to.y - 1 : to.y + 1);
  if (from.x == to.x)
    firstX = lastX = from.x;
  else
    firstY = lastY = from.y;
  auto clamp = [](int64_t v) {
    return static_cast<int32_t>(std::clamp<int64_t>(v, INT32_MIN, INT32_MAX));
  };
  Fill({clamp(firstX + low), clamp(firstY + low), clamp(lastX + low + pen.width),
        clamp(lastY + low + pen.width)},
       ToPixel(pen.color));
}

// Bresenham's line: the same pixels whichever way it slopes, the last one left out.
void Canvas::Impl::PenLine(Point from, Point to) {
  if (pen.style == PS_NULL) {
    return;
  }
  if (pen.style != PS_DOT && (from.x == to.x || from.y == to.y)) {
    PenRun(from, to);
    return;
  }
  int64_t dx = std::abs(static_cast<int64_t>(to.x) - from.x);
  int64_t dy = -std::abs(static_cast<int64_t>(to.y) - from.y);
  int32_t stepX = from.x < to.x ? 1 : -1;
  int32_t stepY = from.y < to.y ? 1 : -1;
  int64_t error = dx + dy;
  Point p = from;
  while (p != to) {
    PlotPen(p.x, p.y);
    int64_t twice = 2 * error;
    if (twice >= dy) {
      error += dy;
      p.x += stepX;
    }
    if (twice <= dx) {
      error += dx;
      p.y += stepY;
    }
  }
}

void Canvas::MoveTo(int32_t x, int32_t y) {
  impl_->position = {x, y};
  impl_->dotPhase = 0;
}

void Canvas::LineTo(int32_t x, int32_t y) {
  impl_->PenLine(impl_->position, {x, y});
  impl_->position = {x, y};
}

namespace {

// How deep each pixel of a shape lies: 0 outside, 1 on its rim, 2 just inside, ... up to
// `limit` + 1 for everything deeper.
std::vector<int32_t> Depths(const std::vector<bool>& inside, int32_t width, int32_t height,
                            int32_t limit) {
  std::vector<int32_t> depth(inside.size());
  for (size_t i = 0; i < inside.size(); ++i) {
    depth[i] = inside[i] ? limit + 1 : 0;
  }
  auto at = [&](int32_t x, int32_t y) {
    return x < 0 || y < 0 || x >= width || y >= height ? 0 : depth[y * width + x];
  };
  for (int32_t level = 1; level <= limit; ++level) {
    for (int32_t y = 0; y < height; ++y) {
      for (int32_t x = 0; x < width; ++x) {
        int32_t& d = depth[y * width + x];
        if (d > level &&
            std::min({at(x - 1, y), at(x + 1, y), at(x, y - 1), at(x, y + 1)}) < level) {
          d = level;
        }
      }
    }
  }
  return depth;
}

} // namespace

int32_t Canvas::Impl::ShapePenWidth() const {
  return pen.style == PS_NULL ? 0 : pen.style == PS_DOT ? 1 : pen.width;
}

void Canvas::Impl::PaintShape(const Rect& rect, const std::vector<int32_t>& depth) {
  int32_t width = rect.Width();
  int32_t height = rect.Height();
  int32_t penWidth = ShapePenWidth();
  uint32_t penPixel = ToPixel(pen.color);
  uint32_t brushPixel = ToPixel(brushColor);
  for (int32_t y = 0; y < height; ++y) {
    for (int32_t x = 0; x < width; ++x) {
      int32_t d = depth[y * width + x];
      if (d >= 1 && d <= penWidth) {
        Put(rect.left + x, rect.top + y, penPixel);
      } else if (d > penWidth && !nullBrush) {
        Put(rect.left + x, rect.top + y, brushPixel);
      }
    }
  }
}

// The ellipse inscribed in (left, top, right - 1, bottom - 1): pixels whose centres it holds.
void Canvas::Ellipse(const Rect& rect) {
  int32_t width = rect.Width();
  int32_t height = rect.Height();
  if (width <= 0 || height <= 0) {
    return;
  }
  // The calendar draws one ellipse size over and over: the last one's depths are kept.
  struct Kept {
    int32_t width = 0, height = 0, penWidth = -1;
    std::vector<int32_t> depth;
  };
  thread_local Kept kept;
  int32_t penWidth = impl_->ShapePenWidth();
  if (kept.width != width || kept.height != height || kept.penWidth != penWidth) {
    std::vector<bool> inside(static_cast<size_t>(width) * height);
    double a = width / 2.0;
    double b = height / 2.0;
    for (int32_t y = 0; y < height; ++y) {
      for (int32_t x = 0; x < width; ++x) {
        double u = (x + 0.5 - a) / a;
        double v = (y + 0.5 - b) / b;
        inside[y * width + x] = u * u + v * v <= 1.0;
      }
    }
    kept = {width, height, penWidth, Depths(inside, width, height, penWidth)};
  }
  impl_->PaintShape(rect, kept.depth);
}

void Canvas::Rectangle(const Rect& rect) {
  if (rect.Width() <= 0 || rect.Height() <= 0) {
    return;
  }
  std::vector<bool> inside(static_cast<size_t>(rect.Width()) * rect.Height(), true);
  impl_->PaintShape(rect, Depths(inside, rect.Width(), rect.Height(), impl_->ShapePenWidth()));
}

} // namespace tarnbrook
