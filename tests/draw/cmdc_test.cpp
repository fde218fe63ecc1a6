#include <gtest/gtest.h>

#include "common/control_error.hpp"
#include "common/picture.hpp"
#include "draw/cmdc.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

constexpr COLORREF White = 0xFFFFFF;
constexpr COLORREF Black = 0x000000;
constexpr OleColor Red = 0x0000FF;
constexpr OleColor Green = 0x00FF00;

COLORREF Pixel(const cMDC& surface, int32_t x, int32_t y) {
  return Canvas::FromHandle(surface.hDC())->GetPixel(x, y);
}

// The box around every pixel that is not white: left, top, right, bottom (inclusive).
Rect Ink(const cMDC& surface) {
  Rect ink{INT32_MAX, INT32_MAX, -1, -1};
  for (int32_t y = 0; y < surface.Height(); ++y) {
    for (int32_t x = 0; x < surface.Width(); ++x) {
      if (Pixel(surface, x, y) != White) {
        ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x),
               std::max(ink.bottom, y)};
      }
    }
  }
  return ink;
}

// The error an action raises: number, Source and description.
std::string Failure(const std::function<void()>& action) {
  const ControlError error = Raised(action);
  return std::to_string(error.Number()) + " " + error.Source() + " " + error.Description();
}

TEST(cMDC, NoSurfaceUntilResizedAndSameSizeKeepsThePicture) {
  cMDC surface;
  EXPECT_EQ(surface.hDC(), 0u);
  surface.SetForeColor(Red);
  EXPECT_EQ(surface.ForeColor(), 0);
  surface.DrawBox(0, 0, 5, 5, 1, Red, Red); // no surface: nothing, no error
  surface.SetBackColor(vbButtonFace);
  EXPECT_EQ(surface.BackColor(), 0xC0C0C0);
  surface.Resize(20, 10);
  ASSERT_NE(surface.hDC(), 0u);
  EXPECT_EQ(Pixel(surface, 19, 9), 0xC0C0C0u);
  surface.DrawBox(0, 0, 5, 5, 1, -1, Red);
  surface.Resize(20, 10);
  EXPECT_EQ(Pixel(surface, 0, 0), static_cast<COLORREF>(Red));
  surface.SetBackColor(Green);
  surface.Resize(21, 10);
  EXPECT_EQ(Pixel(surface, 0, 0), static_cast<COLORREF>(Green));
  surface.SetForeColor(vbHighlight);
  EXPECT_EQ(surface.ForeColor(), vbHighlight);
}

TEST(cMDC, DrawBoxOutlineLiesOnePixelRightAndBelowItsFill) {
  cMDC surface;
  surface.Resize(20, 20);
  surface.DrawBox(2, 2, 6, 4, -1, -1, -1);
  EXPECT_EQ(Ink(surface).right, -1);
  surface.DrawBox(2, 2, 6, 4, 1, -1, Green);
  EXPECT_EQ(Ink(surface), (Rect{2, 2, 7, 5}));
  surface.DrawBox(2, 2, 6, 4, 1, Red, -1);
  EXPECT_EQ(Ink(surface), (Rect{2, 2, 8, 6}));
  EXPECT_EQ(Pixel(surface, 8, 6), static_cast<COLORREF>(Red));
  EXPECT_EQ(Pixel(surface, 5, 4), static_cast<COLORREF>(Green));
}

TEST(cMDC, LineWidthZeroDrawsDotted) {
  cMDC surface;
  surface.Resize(20, 20);
  surface.DrawLine(0, 3, 10, 3, Red, 0); // every other pixel, the end point left out
  for (int32_t x = 0; x <= 10; ++x)
    EXPECT_EQ(Pixel(surface, x, 3), x % 2 == 0 && x < 10 ? COLORREF(Red) : White) << x;
  surface.DrawBox(0, 10, 6, 6, 0, Red, -1);
  EXPECT_EQ(Pixel(surface, 0, 10), static_cast<COLORREF>(Red));
  EXPECT_EQ(Pixel(surface, 1, 10), White);
}

TEST(cMDC, OverflowsAreRaisedAgainWithTheOperationsSource) {
  cMDC surface;
  surface.Resize(10, 10);
  EXPECT_EQ(Failure([&] { surface.DrawBox(INT32_MAX, 0, 1, 1, 1, Red, Red); }),
            "6 cMDC.DrawBox Overflow");
  EXPECT_EQ(Failure([&] { surface.DrawText("x", 0, INT32_MAX, 1, 1); }),
            "6 cMDC.DrawText Overflow");
  EXPECT_EQ(Failure([&] { surface.SetFont("Arial", 8, false, false, false, false, 3277); }),
            "6 Tarnbrook Overflow");
}

TEST(cMDC, SetFontHeightFromPointsAndRotationInTenths) {
  cMDC surface;
  surface.Resize(10, 10);
  surface.SetFont("Tahoma", 8.25f, true, true, true, false, 90);
  const FontSpec& font = Canvas::FromHandle(surface.hDC())->SelectedFont();
  EXPECT_EQ(font.Height, -11);
  EXPECT_EQ(font.Weight, 700);
  EXPECT_EQ(font.Escapement, 900);
  EXPECT_TRUE(font.Italic && font.StrikeOut && !font.Underline);
  surface.SetFont("Tahoma", 8.0f);
  EXPECT_EQ(Canvas::FromHandle(surface.hDC())->SelectedFont().Height, -11); // 10.67 rounded
  EXPECT_EQ(Canvas::FromHandle(surface.hDC())->SelectedFont().Weight, 400);
  surface.SetFont("Tahoma", 8.625f);
  EXPECT_EQ(Canvas::FromHandle(surface.hDC())->SelectedFont().Height, -12); // 11.5 to even
}

TEST(cMDC, DrawTextFlagsPlaceTheInk) {
  cMDC surface;
  surface.Resize(120, 40);
  auto inkOf = [&](int32_t flags) {
    surface.DrawBox(0, 0, 120, 40, 1, -1, vbWindowBackground);
    surface.DrawText("12", 0, 0, 120, 40, -1, -1, flags);
    return Ink(surface);
  };
  Rect left = inkOf(DT_LEFT | DT_SINGLELINE);
  EXPECT_LE(left.left, 2);
  EXPECT_LE(left.top, 6);
  Rect right = inkOf(DT_RIGHT | DT_SINGLELINE | DT_BOTTOM);
  EXPECT_GE(right.right, 116);
  EXPECT_GE(right.bottom, 34);
  Rect centred = inkOf(0); // centred both ways on one line
  EXPECT_NEAR((centred.left + centred.right) / 2.0, 60, 2);
  EXPECT_NEAR((centred.top + centred.bottom) / 2.0, 20, 3);
  bool black = false; // lFColor -1 is black
  for (int32_t x = centred.left; x <= centred.right; ++x) {
    black = black || Pixel(surface, x, (centred.top + centred.bottom) / 2) == Black;
  }
  EXPECT_TRUE(black);
  surface.DrawText("12", 0, 0, 120, 40, Red, Green, 0, true);
  EXPECT_EQ(Pixel(surface, 0, 0), static_cast<COLORREF>(Green));
  EXPECT_GT(surface.TextWidth("1212"), surface.TextWidth("12"));
  EXPECT_EQ(surface.TextHeight("12"), surface.TextHeight("1212"));
}

TEST(cMDC, DrawWithZeroSizeCopiesAllAndWritesTheSizeBack) {
  cMDC surface;
  surface.Resize(30, 20);
  surface.DrawBox(0, 0, 30, 20, 1, -1, Red);
  Canvas dest(40, 40);
  int32_t width = 0;
  int32_t height = 0;
  surface.Draw(dest.Handle(), 5, 5, width, height);
  EXPECT_EQ(width, 30);
  EXPECT_EQ(height, 20);
  EXPECT_EQ(dest.GetPixel(34, 24), static_cast<COLORREF>(Red));
  EXPECT_EQ(dest.GetPixel(35, 24), White);
  surface.Draw(dest.Handle(), 5, 5, width, height, false, 0, 0, true);
  EXPECT_EQ(dest.GetPixel(5, 5), Black); // red XOR red
  width = 60;
  surface.Draw(dest.Handle(), 0, 0, width, height, true);
  EXPECT_EQ(dest.GetPixel(39, 10), static_cast<COLORREF>(Red));
}

TEST(cMDC, DrawPictureModes) {
  auto picture = std::make_shared<Picture>(4, 3, std::vector<uint32_t>(12, 0xFF0000FFu)); // blue
  constexpr COLORREF Blue = 0xFF0000;
  auto painted = [&](int32_t mode) {
    cMDC surface;
    surface.Resize(10, 7);
    surface.DrawPicture(mode, picture.get());
    return Ink(surface);
  };
  EXPECT_EQ(painted(0), (Rect{0, 0, 9, 6}));
  EXPECT_EQ(painted(1), (Rect{3, 2, 6, 4})); // (10 - 4) / 2, (7 - 3) / 2
  EXPECT_EQ(painted(2), (Rect{0, 0, 9, 2}));
  EXPECT_EQ(painted(3), (Rect{0, 0, 3, 6}));
  EXPECT_EQ(painted(4).right, -1);
  cMDC surface;
  surface.Resize(10, 7);
  surface.DrawPicture(0, nullptr);
  surface.DrawPicture(1, picture.get());
  EXPECT_EQ(Pixel(surface, 3, 2), Blue);
}

} // namespace
} // namespace tarnbrook
