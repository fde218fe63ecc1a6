#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "common/control_error.hpp"
#include "common/picture.hpp"
#include "draw/canvas_impl.hpp"

namespace tarnbrook {

namespace {

// The part of a width x height block at (x, y), with its source at (sx, sy), that lies inside
// both images; false when nothing does.
bool ClipCopy(int32_t& x, int32_t& y, int32_t& width, int32_t& height, int32_t& sx, int32_t& sy,
              int32_t destWidth, int32_t destHeight, int32_t sourceWidth, int32_t sourceHeight) {
  auto clipAxis = [](int32_t& d, int32_t& s, int32_t& n, int32_t destN, int32_t sourceN) {
    int32_t skip = std::max({0, -d, -s});
    d += skip;
    s += skip;
    n -= skip;
    n = std::min({n, destN - d, sourceN - s});
    return n > 0;
  };
  return clipAxis(x, sx, width, destWidth, sourceWidth) &&
         clipAxis(y, sy, height, destHeight, sourceHeight);
}

// Wide stores where the processor has them: filling is most of a full repaint.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
__attribute__((target_clones("avx2", "default")))
#endif
void FillPixels(uint32_t* pixels, size_t count, uint32_t pixel) {
  std::fill_n(pixels, count, pixel);
}

} // namespace

void Canvas::Impl::Fill(Rect r, uint32_t pixel) {
  r.left = std::max(r.left, 0);
  r.top = std::max(r.top, 0);
  r.right = std::min(r.right, width);
  r.bottom = std::min(r.bottom, height);
  if (r.right <= r.left || r.bottom <= r.top)
    return;
  const auto width = static_cast<size_t>(r.right - r.left);
  uint32_t* first = Row(r.top) + r.left;
  if (width == static_cast<size_t>(stride)) { // whole rows lie end to end: one run
    FillPixels(first, width * static_cast<size_t>(r.bottom - r.top), pixel);
    return;
  }
  // Narrow runs (lines, edges) are stored directly; a call per row would cost more.
  for (int32_t y = r.top; y < r.bottom; ++y) {
    uint32_t* run = first + static_cast<ptrdiff_t>(y - r.top) * stride;
    if (width < 8) {
      for (size_t x = 0; x < width; ++x)
        run[x] = pixel;
    } else {
      FillPixels(run, width, pixel);
    }
  }
}

Canvas::Canvas(int32_t width, int32_t height) : impl_(std::make_unique<Impl>()) {
  Resize(width, height);
}

Canvas::~Canvas() {
  if (impl_->surface) {
    cairo_surface_destroy(impl_->surface);
  }
}

// A new size gives a new white image; the same size keeps the pixels.
void Canvas::Resize(int32_t width, int32_t height) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  if (width == impl_->width && height == impl_->height) {
    return;
  }
  if (impl_->surface) {
    cairo_surface_destroy(impl_->surface);
    impl_->surface = nullptr;
  }
  impl_->pixels = nullptr;
  impl_->width = impl_->height = impl_->stride = 0;
  impl_->freshPixel = ToPixel(0xFFFFFF);
  if (width > MaxSize || height > MaxSize) {
    RaiseRuntimeError(rtOverflow, "Canvas");
  }
  impl_->width = width;
  impl_->height = height;
}

void Canvas::Impl::MakeImage() const {
  surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(surface);
    surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 0, 0);
    pixels = nullptr;
    width = height = stride = 0;
    RaiseRuntimeError(7, "Canvas"); // out of memory
  }
  pixels = reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(surface));
  stride = cairo_image_surface_get_stride(surface) / 4;
  for (int32_t y = 0; y < height; ++y) {
    std::fill(pixels + static_cast<ptrdiff_t>(y) * stride,
              pixels + static_cast<ptrdiff_t>(y) * stride + width, freshPixel);
  }
}

int32_t Canvas::Width() const {
  return impl_->width;
}
int32_t Canvas::Height() const {
  return impl_->height;
}

COLORREF Canvas::SetTextColor(COLORREF color) {
  return std::exchange(impl_->textColor, color & 0xFFFFFF);
}
COLORREF Canvas::TextColor() const {
  return impl_->textColor;
}
COLORREF Canvas::SetBkColor(COLORREF color) {
  return std::exchange(impl_->bkColor, color & 0xFFFFFF);
}
COLORREF Canvas::BkColor() const {
  return impl_->bkColor;
}
int Canvas::SetBkMode(int mode) {
  return std::exchange(impl_->bkMode, mode);
}
void Canvas::SelectFont(const FontSpec& font) {
  impl_->font = font;
}
const FontSpec& Canvas::SelectedFont() const {
  return impl_->font;
}
void Canvas::SelectPen(int style, int32_t width, COLORREF color) {
  impl_->pen = {style, std::max(width, 1), color & 0xFFFFFF};
  impl_->dotPhase = 0;
}
void Canvas::SelectBrush(COLORREF color) {
  impl_->nullBrush = false;
  impl_->brushColor = color & 0xFFFFFF;
}
void Canvas::SelectNullBrush() {
  impl_->nullBrush = true;
}
void Canvas::SetBrushOrigin(Point origin) {
  impl_->brushOrigin = origin;
}

void Canvas::Clear(COLORREF color) {
  if (impl_->surface)
    impl_->Fill({0, 0, impl_->width, impl_->height}, ToPixel(color));
  else
    impl_->freshPixel = ToPixel(color);
}

void Canvas::FillRect(const Rect& rect, COLORREF color) {
  impl_->Fill(rect, ToPixel(color));
}

void Canvas::SetPixel(int32_t x, int32_t y, COLORREF color) {
  impl_->Put(x, y, ToPixel(color));
}

// CLR_INVALID outside the image.
COLORREF Canvas::GetPixel(int32_t x, int32_t y) const {
  if (!impl_->Inside(x, y))
    return 0xFFFFFFFFu;
  return ToColor(impl_->surface ? impl_->Row(y)[x] : impl_->freshPixel);
}

void Canvas::BitBlt(int32_t x, int32_t y, int32_t width, int32_t height, const Canvas& source,
                    int32_t sx, int32_t sy, uint32_t rop) {
  const Impl& src = *source.impl_;
  if (!ClipCopy(x, y, width, height, sx, sy, impl_->width, impl_->height, src.width, src.height)) {
    return;
  }
  // Rows are walked bottom-up when a canvas copies onto itself further down.
  bool upward = &src == impl_.get() && y > sy;
  for (int32_t i = 0; i < height; ++i) {
    int32_t row = upward ? height - 1 - i : i;
    const uint32_t* from = src.Row(sy + row) + sx;
    uint32_t* to = impl_->Row(y + row) + x;
    if (rop == SRCINVERT) {
      for (int32_t j = 0; j < width; ++j) {
        to[j] ^= from[j] & 0xFFFFFFu;
      }
    } else {
      std::memmove(to, from, static_cast<size_t>(width) * 4);
    }
  }
}

// Nearest-pixel scaling, as the platform's default stretch mode for colour images.
void Canvas::StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height, const Canvas& source,
                        int32_t sx, int32_t sy, int32_t sourceWidth, int32_t sourceHeight,
                        uint32_t rop) {
  if (width <= 0 || height <= 0 || sourceWidth <= 0 || sourceHeight <= 0) {
    return;
  }
  if (width == sourceWidth && height == sourceHeight) {
    BitBlt(x, y, width, height, source, sx, sy, rop);
    return;
  }
  const Impl& src = *source.impl_;
  std::vector<uint32_t> scaled(static_cast<size_t>(width) * height);
  for (int32_t j = 0; j < height; ++j) {
    int32_t srcY = sy + static_cast<int32_t>(static_cast<int64_t>(j) * sourceHeight / height);
    for (int32_t i = 0; i < width; ++i) {
      int32_t srcX = sx + static_cast<int32_t>(static_cast<int64_t>(i) * sourceWidth / width);
      scaled[static_cast<size_t>(j) * width + i] =
          src.Inside(srcX, srcY) ? src.Row(srcY)[srcX] : ToPixel(0);
    }
  }
  for (int32_t j = 0; j < height; ++j) {
    for (int32_t i = 0; i < width; ++i) {
      if (impl_->Inside(x + i, y + j)) {
        uint32_t& to = impl_->Row(y + j)[x + i];
        uint32_t from = scaled[static_cast<size_t>(j) * width + i];
        to = rop == SRCINVERT ? to ^ (from & 0xFFFFFFu) : from;
      }
    }
  }
}

// Opaque picture pixels are copied; translucent ones are laid over what is there.
void Canvas::DrawPicture(const Picture& picture, int32_t x, int32_t y) {
  int32_t width = picture.Width();
  int32_t height = picture.Height();
  int32_t sx = 0;
  int32_t sy = 0;
  if (picture.Pixels().size() < static_cast<size_t>(width) * height ||
      !ClipCopy(x, y, width, height, sx, sy, impl_->width, impl_->height, picture.Width(),
                picture.Height())) {
    return;
  }
  for (int32_t j = 0; j < height; ++j) {
    const uint32_t* from =
        picture.Pixels().data() + static_cast<size_t>(sy + j) * picture.Width() + sx;
    uint32_t* to = impl_->Row(y + j) + x;
    for (int32_t i = 0; i < width; ++i) {
      uint32_t p = from[i];
      uint32_t alpha = p >> 24;
      if (alpha == 255) {
        to[i] = p;
      } else if (alpha != 0) {
        uint32_t blended = 0xFF000000u;
        for (int shift = 0; shift < 24; shift += 8) {
          uint32_t under = to[i] >> shift & 0xFF;
          uint32_t over = p >> shift & 0xFF; // premultiplied
          blended |= std::min(255u, over + (under * (255 - alpha) + 127) / 255) << shift;
        }
        to[i] = blended;
      }
    }
  }
}

namespace {
cairo_status_t AppendBytes(void* closure, const unsigned char* data, unsigned int length) {
  auto* bytes = static_cast<std::vector<uint8_t>*>(closure);
  bytes->insert(bytes->end(), data, data + length);
  return CAIRO_STATUS_SUCCESS;
}
} // namespace

void Canvas::WritePng(const std::string& path) const {
  impl_->Row(0);
  cairo_surface_mark_dirty(impl_->surface);
  if (cairo_surface_write_to_png(impl_->surface, path.c_str()) != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error("cannot write " + path);
  }
}

std::vector<uint8_t> Canvas::PngBytes() const {
  std::vector<uint8_t> bytes;
  impl_->Row(0);
  cairo_surface_mark_dirty(impl_->surface);
  if (cairo_surface_write_to_png_stream(impl_->surface, AppendBytes, &bytes) !=
      CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error("cannot encode a PNG image");
  }
  return bytes;
}

const uint32_t* Canvas::Data() const {
  return impl_->Row(0);
}
size_t Canvas::ImageBytes() const {
  return impl_->surface ? size_t(impl_->stride) * 4 * size_t(impl_->height) : 0;
}

int32_t Canvas::Stride() const {
  impl_->Row(0);
  return impl_->stride * 4;
}

} // namespace tarnbrook
