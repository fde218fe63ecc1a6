#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "common/object.hpp"

namespace tarnbrook {

// A bitmap picture: premultiplied ARGB32 pixels, row by row, no padding.
class Picture : public Object {
public:
  Picture() = default;
  Picture(int width, int height, std::vector<uint32_t> pixels);

  // The most pixels a picture may have (4096 x 4096): a small file can claim a huge image.
  static constexpr uint64_t MaxPixels = 4096ull * 4096ull;
  // The largest PNG file read: every pixel stored whole, and room for the chunks around them.
  static constexpr uint64_t MaxPngFileBytes = MaxPixels * 4 + (1u << 20);

  // Raise ControlError 481 "Invalid picture" for data that is not a PNG image, or one of
  // more than MaxPixels pixels (refused before it is decoded, saying so). A file must be a
  // regular one of at most MaxPngFileBytes (481 saying why; 53 when it is not there).
  static Picture FromPngBytes(const std::vector<uint8_t>& bytes);
  static Picture FromPngFile(const std::string& path);
  // The width times the height a PNG's header claims; 0 for data that is no PNG.
  static uint64_t ClaimedPixels(const std::vector<uint8_t>& bytes);
  std::vector<uint8_t> ToPngBytes() const;

  int Width() const { return width_; }
  int Height() const { return height_; }
  const std::vector<uint32_t>& Pixels() const { return pixels_; }
  bool operator==(const Picture& other) const {
    return width_ == other.width_ && height_ == other.height_ && pixels_ == other.pixels_;
  }

private:
  int width_ = 0;
  int height_ = 0;
  std::vector<uint32_t> pixels_;
};

} // namespace tarnbrook
