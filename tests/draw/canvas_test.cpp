#include <gtest/gtest.h>

#include "draw/canvas.hpp"

namespace tarnbrook {
namespace {

constexpr COLORREF White = 0xFFFFFF;
constexpr COLORREF Red = 0x0000FF;
constexpr COLORREF Blue = 0xFF0000;

TEST(Canvas, NewAndResizedCanvasIsWhiteAndSameSizeKeepsPixels) {
  Canvas canvas(10, 8);
  EXPECT_EQ(canvas.Width(), 10);
  EXPECT_EQ(canvas.Height(), 8);
  EXPECT_EQ(canvas.GetPixel(9, 7), White);
  canvas.SetPixel(3, 3, Red);
  canvas.Resize(10, 8);
  EXPECT_EQ(canvas.GetPixel(3, 3), Red);
  canvas.Resize(12, 8);
  EXPECT_EQ(canvas.GetPixel(3, 3), White);
  EXPECT_EQ(canvas.GetPixel(12, 0), 0xFFFFFFFFu);
  EXPECT_EQ(canvas.Stride(), 48);
  EXPECT_EQ(canvas.Data()[3 * 12 + 3], 0xFFFFFFFFu);
}

TEST(Canvas, FillRectExcludesRightAndBottomAndClips) {
  Canvas canvas(10, 10);
  canvas.FillRect({2, 3, 5, 6}, Red);
  EXPECT_EQ(canvas.GetPixel(2, 3), Red);
  EXPECT_EQ(canvas.GetPixel(4, 5), Red);
  EXPECT_EQ(canvas.GetPixel(5, 5), White);
  EXPECT_EQ(canvas.GetPixel(4, 6), White);
  EXPECT_EQ(canvas.GetPixel(1, 3), White);
  canvas.FillRect({-5, -5, 20, 1}, Blue);
  EXPECT_EQ(canvas.GetPixel(9, 0), Blue);
}

TEST(Canvas, BitBltCopiesAndInvertsClipped) {
  Canvas source(4, 4);
  source.FillRect({0, 0, 2, 2}, Red);
  Canvas dest(6, 6);
  dest.FillRect({0, 0, 6, 6}, Blue);
  dest.BitBlt(3, 3, 4, 4, source, 0, 0);
  EXPECT_EQ(dest.GetPixel(3, 3), Red);
  EXPECT_EQ(dest.GetPixel(5, 5), White);
  EXPECT_EQ(dest.GetPixel(2, 2), Blue);
  dest.BitBlt(0, 0, 2, 2, source, 0, 0, SRCINVERT);
  EXPECT_EQ(dest.GetPixel(0, 0), Red ^ Blue);
  EXPECT_EQ(dest.Data()[0] >> 24, 0xFFu);
}

TEST(Canvas, PngBytesAreAPngImage) {
  Canvas canvas(3, 2);
  std::vector<uint8_t> png = canvas.PngBytes();
  ASSERT_GT(png.size(), 8u);
  EXPECT_EQ(png[1], 'P');
  EXPECT_EQ(png[2], 'N');
  EXPECT_EQ(png[3], 'G');
}

} // namespace
} // namespace tarnbrook
