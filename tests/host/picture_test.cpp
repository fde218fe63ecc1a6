#include <gtest/gtest.h>

#include <fstream>

#include "common/picture.hpp"
#include "tests/host/test_support.hpp"

namespace tarnbrook {
namespace {

TEST(PictureTest, PngBytesAndRegularFilesReadBackPixelForPixel) {
  // Premultiplied: opaque colours, a half-transparent red and a clear pixel.
  Picture picture(3, 2, {0xFF0000FF, 0xFF00FF00, 0xFFFF0000, 0x80800000, 0x00000000, 0xFF123456});
  std::vector<uint8_t> png = picture.ToPngBytes();
  EXPECT_EQ(std::string(png.begin() + 1, png.begin() + 4), "PNG");
  EXPECT_EQ(Picture::FromPngBytes(png), picture);

  std::string path = std::string(TARNBROOK_TEST_OUTPUT) + "/picture_test.png";
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(png.data()), png.size());
  EXPECT_EQ(Picture::FromPngFile(path), picture);
  EXPECT_EQ(Raised([&] { Picture::FromPngFile(path + ".missing"); }).Number(), 53);
  // Only a regular file is read: a device could give bytes for ever.
  const ControlError device = Raised([] { Picture::FromPngFile("/dev/zero"); });
  EXPECT_EQ(device.Number(), 481);
  EXPECT_NE(device.Description().find("/dev/zero"), std::string::npos) << device.Description();
}

TEST(PictureTest, InvalidDataIsRefused) {
  std::vector<uint8_t> png = Picture(4, 4, std::vector<uint32_t>(16, 0xFF336699)).ToPngBytes();
  for (const std::vector<uint8_t>& bytes :
       {std::vector<uint8_t>{}, std::vector<uint8_t>{'G', 'I', 'F', '8', '9', 'a'},
        std::vector<uint8_t>(png.begin(), png.end() - 20)}) {
    ControlError error = Raised([&] { Picture::FromPngBytes(bytes); });
    EXPECT_EQ(error.Number(), 481);
    EXPECT_EQ(error.Description(), "Invalid picture");
  }
  EXPECT_EQ(Raised([] { Picture(2, 2, {1, 2, 3}); }).Number(), 481);
  png[17] = 0x40; // 4194308 wide: too large, and said so
  EXPECT_EQ(Raised([&] { Picture::FromPngBytes(png); }).Description(),
            "Invalid picture: it has 16777232 pixels, more than the 16777216 a picture may have");
}

} // namespace
} // namespace tarnbrook
