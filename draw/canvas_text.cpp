#include <algorithm>
#include <cstring>

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

// `over` laid on `under` with coverage a, rounded to nearest: (over * a + under * (255 - a)
// + 127) / 255 per channel, the division done as (x + 1 + (x >> 8)) >> 8, which is exact for
// every sum that occurs. Coverage 0 gives `under` and 255 gives `over`, so no case is special.
uint32_t Mix(uint32_t over, uint32_t under, uint32_t a) {
  auto lanes = [a](uint32_t o, uint32_t u) { // two channels at once, in 16-bit lanes
    uint32_t x = o * a + u * (255 - a) + 0x007F007Fu;
    return (x + 0x00010001u + (x >> 8 & 0x00FF00FFu)) >> 8 & 0x00FF00FFu;
  };
  return 0xFF000000u | lanes(over & 0x00FF00FFu, under & 0x00FF00FFu) |
         lanes(over >> 8 & 0xFFu, under >> 8 & 0xFFu) << 8;
}

// The vectors for `Pixels` pixels: their coverage bytes, their four bytes each, and their
// channels in 16-bit lanes.
template <int Pixels> struct PixelVectors;
template <> struct PixelVectors<2> {
  using Cover = uint8_t __attribute__((vector_size(2)));
  using Bytes = uint8_t __attribute__((vector_size(8)));
  using Lanes = uint16_t __attribute__((vector_size(16)));
};
template <> struct PixelVectors<4> {
  using Cover = uint8_t __attribute__((vector_size(4)));
  using Bytes = uint8_t __attribute__((vector_size(16)));
  using Lanes = uint16_t __attribute__((vector_size(32)));
};

// Mix for a row of pixels, `Pixels` at a time in the compiler's portable vectors: each
// channel in a 16-bit lane, each coverage byte spread over its pixel's four lanes.
template <int Pixels>
[[gnu::always_inline]] inline void MixRow(uint32_t* row, const uint8_t* coverage, int32_t n,
                                          uint32_t ink) {
  using Cover = typename PixelVectors<Pixels>::Cover;
  using Bytes = typename PixelVectors<Pixels>::Bytes;
  using Lanes = typename PixelVectors<Pixels>::Lanes;
  uint32_t inks[Pixels];
  std::fill_n(inks, Pixels, ink);
  Bytes inkBytes;
  std::memcpy(&inkBytes, inks, sizeof inkBytes);
  const Lanes over = __builtin_convertvector(inkBytes, Lanes);
  int32_t i = 0;
  for (; i + Pixels <= n; i += Pixels) {
    Cover cover;
    std::memcpy(&cover, coverage + i, sizeof cover);
    Lanes a;
    if constexpr (Pixels == 4)
      a = __builtin_convertvector(
          __builtin_shufflevector(cover, cover, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3),
          Lanes);
    else
      a = __builtin_convertvector(__builtin_shufflevector(cover, cover, 0, 0, 0, 0, 1, 1, 1, 1),
                                  Lanes);
    Bytes under;
    std::memcpy(&under, row + i, sizeof under);
    Lanes x = over * a + __builtin_convertvector(under, Lanes) * (255 - a) + 127;
    x = (x + 1 + (x >> 8)) >> 8;
    Bytes mixed = __builtin_convertvector(x, Bytes);
    std::memcpy(row + i, &mixed, sizeof mixed);
  }
  for (; i < n; ++i)
    row[i] = Mix(ink, row[i], coverage[i]);
}

#if defined(__x86_64__) && defined(__GNUC__)
[[gnu::target("avx2")]] void MixRowWide(uint32_t* row, const uint8_t* coverage, int32_t n,
                                        uint32_t ink) {
  MixRow<4>(row, coverage, n, ink);
}
#endif

// Four pixels at a time where the processor has 256-bit vectors, else two.
void BlendRow(uint32_t* row, const uint8_t* coverage, int32_t n, uint32_t ink) {
#if defined(__x86_64__) && defined(__GNUC__)
  static const bool wide = __builtin_cpu_supports("avx2");
  if (wide)
    return MixRowWide(row, coverage, n, ink);
#endif
  MixRow<2>(row, coverage, n, ink);
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
    const uint8_t* coverage = shaped.coverage.data() +
                              static_cast<ptrdiff_t>(py - mask.top) * shaped.maskWidth +
                              (area.left - mask.left);
    BlendRow(Row(py) + area.left, coverage, area.right - area.left, ink);
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
  TextEngine& engine = TextEngine::ForThisThread();
  const TextPlace place{
      rect->left, rect->top, rect->right, rect->bottom,
      Intersect(flags & DT_NOCLIP ? Rect{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX} : *rect,
                {0, 0, impl_->width, impl_->height})};
  const int32_t wrapWidth = ToInt32(place.right - place.left);
  if (flags & DT_CALCRECT) {
    const Size size = engine.Measure(impl_->font, text, flags, wrapWidth);
    rect->right = ToInt32(place.left + size.cx);
    rect->bottom = ToInt32(place.top + size.cy);
    return size.cy;
  }
  const ShapedText& shaped = engine.Shape(impl_->font, text, flags, wrapWidth, place);
  const auto [x, y] = TextOrigin(place, shaped.width, shaped.height, flags);
  if (IsFar(x) || IsFar(y))
    return shaped.height;
  if (impl_->bkMode == OPAQUE) {
    impl_->Fill(Intersect(place.visible, {int32_t(x), int32_t(y), int32_t(x + shaped.width),
                                          int32_t(y + shaped.height)}),
                ToPixel(impl_->bkColor));
  }
  impl_->Blend(shaped, int32_t(x), int32_t(y), place.visible, impl_->textColor);
  return shaped.height;
}

Size Canvas::GetTextExtent(std::string_view text) {
  return TextEngine::ForThisThread().Measure(impl_->font, text, DT_SINGLELINE | DT_NOPREFIX, -1);
}

std::vector<int32_t> Canvas::CharacterEdges(std::string_view text) {
  return TextEngine::ForThisThread().CharacterEdges(impl_->font, text);
}

} // namespace tarnbrook
