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

  // Raise ControlError 481 "Invalid picture" for data that is not a PNG image, or one of
  // more than MaxPixels pixels (refused before it is decoded).
  static Picture FromPngBytes(const std::vector<uint8_t>& bytes);
  static Picture FromPngFile(const std::string& path);
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
