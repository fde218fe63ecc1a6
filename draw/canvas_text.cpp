#include <algorithm>

#include "draw/canvas_impl.hpp"
#include "draw/text_engine.hpp"

namespace tarnbrook {

namespace {

// Text placed this far out cannot show on any surface; sums on it must not overflow.
constexpr int64_t FarAway = int64_t(1) << 30;

bool IsFar(int64_t coordinate) {
  return coordinate < -FarAway || coordinate > FarAway;
}

int32_t ToInt32(int64_t value) {
  return static_cast<int32_t>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

} // namespace

void Canvas::Impl::Blend(const ShapedText& shaped, int32_t x, int32_t y, Rect clip,
                         COLORREF color) {
  clip = Intersect(clip, {0, 0, width, height});
  Rect mask{x + shaped.maskX, y + shaped.maskY, x + shaped.maskX + shaped.maskWidth,
            y + shaped.maskY + shaped.maskHeight};
  Rect area = Intersect(clip, mask);
  uint32_t ink = ToPixel(color);
  for (int32_t py = area.top; py < area.bottom; ++py) {
    const uint8_t* coverage =
        shaped.coverage.data() + static_cast<ptrdiff_t>(py - mask.top) * shaped.maskWidth;
    uint32_t* row = Row(py);
    for (int32_t px = area.left; px < area.right; ++px) {
      uint32_t a = coverage[px - mask.left];
      if (a == 255) {
        row[px] = ink;
      } else if (a != 0) {
        uint32_t blended = 0xFF000000u;
        for (int shift = 0; shift < 24; shift += 8) {
          uint32_t under = row[px] >> shift & 0xFF;
          uint32_t over = ink >> shift & 0xFF;
          blended |= ((over * a + under * (255 - a) + 127) / 255) << shift;
        }
        row[px] = blended;
      }
    }
  }
}

int32_t Canvas::DrawText(std::string_view text, Rect rect, uint32_t flags) {
  return DrawText(text, &rect, flags);
}

// Places the text in the rectangle by the DT_ flags (vertical placement on a single line
// only); with DT_CALCRECT only measures, setting the rectangle's right and bottom.
int32_t Canvas::DrawText(std::string_view text, Rect* rect, uint32_t flags) {
  if (text.empty()) {
    if (flags & DT_CALCRECT) {
      rect->right = rect->left;
      rect->bottom = rect->top;
    }
    return 0;
  }
  const int64_t left = rect->left, top = rect->top, right = rect->right, bottom = rect->bottom;
  const ShapedText& shaped =
      TextEngine::ForThisThread().Shape(impl_->font, text, flags, ToInt32(right - left));
  if (flags & DT_CALCRECT) {
    rect->right = ToInt32(left + shaped.width);
    rect->bottom = ToInt32(top + shaped.height);
    return shaped.height;
  }
  const int64_t x = flags & DT_CENTER  ? left + (right - left - shaped.width) / 2
                    : flags & DT_RIGHT ? right - shaped.width
                                       : left;
  int64_t y = top;
  if (flags & DT_SINGLELINE) {
    if (flags & DT_VCENTER) {
      y = top + (bottom - top - shaped.height) / 2;
    } else if (flags & DT_BOTTOM) {
      y = bottom - shaped.height;
    }
  }
  if (IsFar(x) || IsFar(y))
    return shaped.height;
  Rect clip = flags & DT_NOCLIP ? Rect{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX} : *rect;
  if (impl_->bkMode == OPAQUE) {
    impl_->Fill(Intersect(clip, {int32_t(x), int32_t(y), int32_t(x + shaped.width),
                                 int32_t(y + shaped.height)}),
                ToPixel(impl_->bkColor));
  }
  impl_->Blend(shaped, int32_t(x), int32_t(y), clip, impl_->textColor);
  return shaped.height;
}

Size Canvas::GetTextExtent(std::string_view text) {
  const ShapedText& shaped =
      TextEngine::ForThisThread().Shape(impl_->font, text, DT_SINGLELINE | DT_NOPREFIX, -1);
  return {shaped.width, shaped.height};
}

} // namespace tarnbrook
