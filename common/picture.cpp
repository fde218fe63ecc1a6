#include "common/picture.hpp"

#include <cairo.h>

#include <cstring>
#include <memory>

#include "common/control_error.hpp"
#include "common/regular_file.hpp"
#include "common/text.hpp"

namespace tarnbrook {
namespace {

constexpr int32_t rtFileNotFound = 53;
constexpr int32_t rtInvalidPicture = 481;

using SurfacePtr = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

struct ReadCursor {
  const std::vector<uint8_t>* bytes;
  size_t position;
};

cairo_status_t ReadBytes(void* closure, unsigned char* data, unsigned int length) {
  auto* cursor = static_cast<ReadCursor*>(closure);
  if (cursor->bytes->size() - cursor->position < length)
    return CAIRO_STATUS_READ_ERROR;
  std::memcpy(data, cursor->bytes->data() + cursor->position, length);
  cursor->position += length;
  return CAIRO_STATUS_SUCCESS;
}

cairo_status_t WriteBytes(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::vector<uint8_t>*>(closure)->insert(
      static_cast<std::vector<uint8_t>*>(closure)->end(), data, data + length);
  return CAIRO_STATUS_SUCCESS;
}

} // namespace

Picture::Picture(int width, int height, std::vector<uint32_t> pixels)
    : width_(width), height_(height), pixels_(std::move(pixels)) {
  if (width < 0 || height < 0 || pixels_.size() != size_t(width) * size_t(height))
    RaiseRuntimeError(rtInvalidPicture);
}

namespace {} // namespace

uint64_t Picture::ClaimedPixels(const std::vector<uint8_t>& bytes) {
  if (bytes.size() < 24 || std::memcmp(bytes.data() + 12, "IHDR", 4) != 0)
    return 0;
  auto word = [&](size_t at) {
    return uint64_t(bytes[at]) << 24 | uint64_t(bytes[at + 1]) << 16 |
           uint64_t(bytes[at + 2]) << 8 | uint64_t(bytes[at + 3]);
  };
  return word(16) * word(20);
}

Picture Picture::FromPngBytes(const std::vector<uint8_t>& bytes) {
  if (const uint64_t claimed = ClaimedPixels(bytes); claimed > MaxPixels)
    throw ControlError(rtInvalidPicture, "Tarnbrook",
                       "Invalid picture: it has " + std::to_string(claimed) +
                           " pixels, more than the " + std::to_string(MaxPixels) +
                           " a picture may have");
  ReadCursor cursor{&bytes, 0};
  SurfacePtr loaded(cairo_image_surface_create_from_png_stream(ReadBytes, &cursor),
                    cairo_surface_destroy);
  if (cairo_surface_status(loaded.get()) != CAIRO_STATUS_SUCCESS)
    RaiseRuntimeError(rtInvalidPicture);

  // Cairo may load RGB24 or A8 images; painting onto ARGB32 gives one pixel format.
  int width = cairo_image_surface_get_width(loaded.get());
  int height = cairo_image_surface_get_height(loaded.get());
  SurfacePtr argb(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height),
                  cairo_surface_destroy);
  cairo_t* cr = cairo_create(argb.get());
  cairo_set_source_surface(cr, loaded.get(), 0, 0);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_paint(cr);
  cairo_destroy(cr);
  cairo_surface_flush(argb.get());

  std::vector<uint32_t> pixels(size_t(width) * size_t(height));
  const unsigned char* data = cairo_image_surface_get_data(argb.get());
  int stride = cairo_image_surface_get_stride(argb.get());
  for (int y = 0; y < height; ++y)
    std::memcpy(pixels.data() + size_t(y) * width, data + size_t(y) * stride, size_t(width) * 4);
  return Picture(width, height, std::move(pixels));
}

Picture Picture::FromPngFile(const std::string& path) {
  const FileRead file = ReadRegularFile(path, MaxPngFileBytes);
  if (file.missing)
    RaiseRuntimeError(rtFileNotFound);
  if (!file.bytes)
    throw ControlError(rtInvalidPicture, "Tarnbrook",
                       MendUtf8("Invalid picture: '" + path + "' " + file.problem));
  return FromPngBytes(std::vector<uint8_t>(file.bytes->begin(), file.bytes->end()));
}

std::vector<uint8_t> Picture::ToPngBytes() const {
  std::vector<uint8_t> bytes;
  if (width_ == 0 || height_ == 0)
    return bytes; // PNG has no empty image
  // ARGB32 rows of whole 32-bit pixels are always aligned, so the stride is width * 4.
  std::vector<uint32_t> copy = pixels_;
  SurfacePtr surface(
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(copy.data()),
                                          CAIRO_FORMAT_ARGB32, width_, height_, width_ * 4),
      cairo_surface_destroy);
  cairo_surface_write_to_png_stream(surface.get(), WriteBytes, &bytes);
  return bytes;
}

} // namespace tarnbrook
