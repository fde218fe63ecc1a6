#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

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
  canvas.FillRect({0, 7, 10, 9}, Blue); // whole rows, filled as one run
  EXPECT_EQ(canvas.GetPixel(5, 6), White);
  EXPECT_EQ(canvas.GetPixel(0, 7), Blue);
  EXPECT_EQ(canvas.GetPixel(9, 8), Blue);
  EXPECT_EQ(canvas.GetPixel(0, 9), White);
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

constexpr COLORREF Black = 0x000000;
constexpr COLORREF Face = 0xC0C0C0;
constexpr COLORREF Shadow = 0x808080;
constexpr COLORREF Light = 0xC0C0C0;

TEST(CanvasLines, EndPointIsExcludedWhateverTheSlope) {
  Canvas canvas(20, 20);
  canvas.MoveTo(2, 2);
  canvas.LineTo(10, 2);
  EXPECT_EQ(canvas.GetPixel(2, 2), Black);
  EXPECT_EQ(canvas.GetPixel(9, 2), Black);
  EXPECT_EQ(canvas.GetPixel(10, 2), 0xFFFFFFu);
  canvas.MoveTo(2, 5);
  canvas.LineTo(8, 11); // diagonal: (2,5) .. (7,10)
  EXPECT_EQ(canvas.GetPixel(5, 8), Black);
  EXPECT_EQ(canvas.GetPixel(7, 10), Black);
  EXPECT_EQ(canvas.GetPixel(8, 11), 0xFFFFFFu);
  canvas.MoveTo(15, 15);
  canvas.LineTo(15, 12); // upwards
  EXPECT_EQ(canvas.GetPixel(15, 13), Black);
  EXPECT_EQ(canvas.GetPixel(15, 12), 0xFFFFFFu);
}

// Level and upright lines of a wide pen are the squares it would plot along them.
TEST(CanvasLines, WidePenCoversItsSquaresAlongLevelAndUprightLines) {
  auto inked = [](Point from, Point to) {
    Canvas canvas(30, 30);
    canvas.SelectPen(PS_SOLID, 3, Red);
    canvas.MoveTo(from.x, from.y);
    canvas.LineTo(to.x, to.y);
    Rect box{30, 30, 0, 0};
    for (int32_t y = 0; y < 30; ++y)
      for (int32_t x = 0; x < 30; ++x)
        if (canvas.GetPixel(x, y) == Red)
          box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                 std::max(box.bottom, y + 1)};
    return box;
  };
  EXPECT_EQ(inked({5, 10}, {12, 10}), (Rect{4, 9, 13, 12}));   // squares at x = 5..11
  EXPECT_EQ(inked({12, 10}, {5, 10}), (Rect{5, 9, 14, 12}));   // x = 12..6
  EXPECT_EQ(inked({10, 20}, {10, 14}), (Rect{9, 14, 12, 22})); // y = 20..15
  EXPECT_EQ(inked({10, 10}, {10, 10}), (Rect{30, 30, 0, 0}));  // no line at all
}

TEST(CanvasShapes, EllipseAndRectangleFillLeftTopToRightBottomMinusOne) {
  Canvas canvas(30, 30);
  canvas.SelectPen(PS_SOLID, 1, Red);
  canvas.SelectBrush(Blue);
  canvas.Rectangle({2, 2, 10, 8});
  EXPECT_EQ(canvas.GetPixel(2, 2), Red);
  EXPECT_EQ(canvas.GetPixel(9, 7), Red);
  EXPECT_EQ(canvas.GetPixel(10, 7), White);
  EXPECT_EQ(canvas.GetPixel(5, 5), Blue);
  canvas.Ellipse({10, 10, 26, 20});
  EXPECT_EQ(canvas.GetPixel(18, 15), Blue); // centre
  EXPECT_EQ(canvas.GetPixel(10, 15), Red);  // left rim
  EXPECT_EQ(canvas.GetPixel(25, 15), Red);  // right rim, at right - 1
  EXPECT_EQ(canvas.GetPixel(26, 15), White);
  EXPECT_EQ(canvas.GetPixel(10, 10), White); // corners stay clear
}

// One ellipse drawn after others of other sizes and pens is the same as drawn alone.
TEST(CanvasShapes, EllipseDoesNotDependOnTheEllipsesBeforeIt) {
  auto draw = [](Canvas& canvas, int32_t penWidth, const Rect& rect) {
    canvas.SelectPen(PS_SOLID, penWidth, Red);
    canvas.SelectBrush(Blue);
    canvas.Ellipse(rect);
  };
  Canvas alone(40, 40);
  draw(alone, 2, {3, 3, 30, 21});
  Canvas after(40, 40);
  draw(after, 2, {3, 3, 25, 21});
  draw(after, 1, {3, 3, 30, 21});
  after.FillRect({0, 0, 40, 40}, White);
  draw(after, 2, {3, 3, 30, 21});
  for (int32_t y = 0; y < 40; ++y)
    for (int32_t x = 0; x < 40; ++x)
      ASSERT_EQ(after.GetPixel(x, y), alone.GetPixel(x, y)) << x << "," << y;
}

TEST(CanvasEdges, RaisedAndSunkenRingsInTheClassicColours) {
  Canvas canvas(20, 20);
  Rect inside = canvas.DrawEdge({0, 0, 10, 10}, EDGE_RAISED, BF_RECT | BF_MIDDLE | BF_ADJUST);
  EXPECT_EQ(inside, (Rect{2, 2, 8, 8}));
  EXPECT_EQ(canvas.GetPixel(0, 5), Light);
  EXPECT_EQ(canvas.GetPixel(1, 5), White);
  EXPECT_EQ(canvas.GetPixel(9, 5), Black);
  EXPECT_EQ(canvas.GetPixel(8, 5), Shadow);
  EXPECT_EQ(canvas.GetPixel(9, 0), Black); // the bottom-right colour takes the corners
  EXPECT_EQ(canvas.GetPixel(0, 9), Black);
  EXPECT_EQ(canvas.GetPixel(5, 5), Face);
  canvas.DrawEdge({10, 10, 20, 20}, EDGE_SUNKEN, BF_RECT);
  EXPECT_EQ(canvas.GetPixel(10, 15), Shadow);
  EXPECT_EQ(canvas.GetPixel(11, 15), Black);
  EXPECT_EQ(canvas.GetPixel(19, 15), White);
  EXPECT_EQ(canvas.GetPixel(18, 15), Light);
  EXPECT_EQ(canvas.GetPixel(15, 15), White); // no BF_MIDDLE
  EXPECT_EQ(canvas.DrawEdge({0, 0, 4, 4}, EDGE_ETCHED, BF_LEFT), (Rect{0, 0, 4, 4}));
}

TEST(CanvasEdges, FlatEdgeIsAShadowFrameAndSidesAreOptional) {
  Canvas canvas(10, 10);
  canvas.DrawEdge({0, 0, 10, 10}, EDGE_RAISED, BF_TOP | BF_FLAT);
  EXPECT_EQ(canvas.GetPixel(5, 0), Shadow);
  EXPECT_EQ(canvas.GetPixel(5, 1), Face);
  EXPECT_EQ(canvas.GetPixel(0, 5), White);
  EXPECT_EQ(canvas.GetPixel(5, 9), White);
}

TEST(CanvasFrames, ArrowGlyphIsCentredAndPushedMovesIt) {
  Canvas canvas(40, 20);
  canvas.DrawFrameControl({0, 0, 16, 16}, DFC_SCROLL, DFCS_SCROLLDOWN);
  // A 7 x 4 triangle, tip down, in the 12 x 12 face: rows 6..9.
  EXPECT_EQ(canvas.GetPixel(4, 6), Black);
  EXPECT_EQ(canvas.GetPixel(10, 6), Black);
  EXPECT_EQ(canvas.GetPixel(7, 9), Black);
  EXPECT_EQ(canvas.GetPixel(6, 9), Face);
  EXPECT_EQ(canvas.GetPixel(7, 10), Face);
  canvas.DrawFrameControl({20, 0, 36, 16}, DFC_SCROLL, DFCS_SCROLLDOWN | DFCS_PUSHED);
  EXPECT_EQ(canvas.GetPixel(28, 10), Black);
  EXPECT_EQ(canvas.GetPixel(20, 0), Shadow);
  EXPECT_EQ(canvas.GetPixel(21, 1), Black);
}

TEST(CanvasFrames, InactiveGlyphIsEtched) {
  Canvas canvas(16, 16);
  canvas.DrawFrameControl({0, 0, 16, 16}, DFC_SCROLL, DFCS_SCROLLUP | DFCS_INACTIVE);
  EXPECT_EQ(canvas.GetPixel(7, 6), Shadow);  // tip
  EXPECT_EQ(canvas.GetPixel(8, 7), Shadow);  // grey over its own highlight
  EXPECT_EQ(canvas.GetPixel(11, 10), White); // the highlight shows right of the base
}

TEST(CanvasFrames, FocusRectInvertsAlternatePixelsAndTwiceRestores) {
  Canvas canvas(10, 10);
  canvas.DrawFocusRect({0, 0, 10, 10});
  EXPECT_EQ(canvas.GetPixel(0, 0), Black);
  EXPECT_EQ(canvas.GetPixel(1, 0), White);
  EXPECT_EQ(canvas.GetPixel(9, 1), Black);
  EXPECT_EQ(canvas.GetPixel(4, 4), White);
  canvas.DrawFocusRect({0, 0, 10, 10});
  EXPECT_EQ(canvas.GetPixel(0, 0), White);
}

TEST(CanvasText, OpaqueBackgroundCoversOnlyTheTextAndClipsToTheRectangle) {
  Canvas canvas(100, 30);
  canvas.SetBkColor(Blue);
  Size extent = canvas.GetTextExtent("Wide text");
  EXPECT_GT(extent.cx, 20);
  EXPECT_GT(extent.cy, 8);
  canvas.DrawText("Wide text", Rect{0, 0, 20, 30}, DT_LEFT | DT_SINGLELINE);
  EXPECT_EQ(canvas.GetPixel(0, 0), Blue);
  EXPECT_EQ(canvas.GetPixel(25, 2), White);            // clipped at the right
  EXPECT_EQ(canvas.GetPixel(2, extent.cy + 2), White); // below the text
  Rect calc{10, 5, 10, 5};
  canvas.DrawText("Wide text", &calc, DT_CALCRECT | DT_SINGLELINE);
  EXPECT_EQ(calc, (Rect{10, 5, 10 + extent.cx, 5 + extent.cy}));
}

TEST(CanvasText, TextAtTheEndsOfTheCoordinateRangeDrawsNothingAndMeasuresClamped) {
  Canvas canvas(40, 20);
  canvas.DrawText("Edge", Rect{INT32_MAX - 32, 0, INT32_MAX, 20}, DT_LEFT | DT_SINGLELINE);
  canvas.DrawText("Edge", Rect{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX},
                  DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  canvas.DrawText("Edge", Rect{INT32_MIN, 0, INT32_MIN + 10, 20}, DT_RIGHT | DT_SINGLELINE);
  for (int32_t x = 0; x < 40; ++x)
    EXPECT_EQ(canvas.GetPixel(x, 10), White);
  Rect calc{INT32_MAX - 2, 0, INT32_MAX - 2, 0};
  canvas.DrawText("Edge", &calc, DT_CALCRECT | DT_SINGLELINE);
  EXPECT_EQ(calc.right, INT32_MAX);
}

TEST(CanvasText, PrefixUnderlinesTheMnemonicAndDoubleAmpersandIsOne) {
  Canvas canvas(10, 10);
  Rect doubled{0, 0, 0, 0};
  canvas.DrawText("a&&b", &doubled, DT_CALCRECT | DT_SINGLELINE);
  EXPECT_EQ(doubled.right, canvas.GetTextExtent("a&b").cx);
  Rect plain{0, 0, 0, 0};
  Rect prefixed{0, 0, 0, 0};
  canvas.DrawText("&Today", &prefixed, DT_CALCRECT | DT_SINGLELINE);
  canvas.DrawText("Today", &plain, DT_CALCRECT | DT_SINGLELINE);
  EXPECT_EQ(prefixed, plain);
  canvas.DrawText("&Today", &prefixed, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
  EXPECT_GT(prefixed.right, plain.right);
}

// Text drawn black on white shows its coverage; drawn in a colour over another, each channel
// is ink x coverage + background x (255 - coverage), over 255, rounded to nearest. Cut at any
// column on the left, the rest of it is the same.
TEST(CanvasText, TextIsItsInkMixedOverTheBackgroundByItsCoverage) {
  auto draw = [](COLORREF under, COLORREF ink, int32_t left) {
    auto canvas = std::make_unique<Canvas>(120, 30);
    canvas->FillRect({0, 0, 120, 30}, under);
    canvas->SetBkMode(TRANSPARENT);
    canvas->SetTextColor(ink);
    canvas->DrawText("Wednesday 2026", Rect{left, 0, 120, 30}, DT_RIGHT | DT_SINGLELINE);
    return canvas;
  };
  const COLORREF under = 0x82DC0A, ink = 0x5A28C8; // channels 10/220/130 and 200/40/90
  auto coverage = draw(White, Black, 0);
  auto coloured = draw(under, ink, 0);
  int partial = 0;
  for (int32_t y = 0; y < 30; ++y) {
    for (int32_t x = 0; x < 120; ++x) {
      uint32_t a = 255 - (coverage->GetPixel(x, y) & 0xFF);
      partial += a != 0 && a != 255;
      for (int shift : {0, 8, 16}) {
        uint32_t o = ink >> shift & 0xFF, u = under >> shift & 0xFF;
        ASSERT_EQ(coloured->GetPixel(x, y) >> shift & 0xFF, (o * a + u * (255 - a) + 127) / 255)
            << x << "," << y << " channel " << shift / 8;
      }
    }
  }
  EXPECT_GT(partial, 20);
  Size extent = coloured->GetTextExtent("Wednesday 2026");
  for (int32_t cut = 1; cut <= 4; ++cut) {
    int32_t left = 120 - extent.cx + cut;
    auto clipped = draw(under, ink, left);
    for (int32_t y = 0; y < 30; ++y)
      for (int32_t x = left; x < 120; ++x)
        ASSERT_EQ(clipped->GetPixel(x, y), coloured->GetPixel(x, y)) << x << "," << y;
  }
}

// Shaped texts are kept per font; many fonts in turn must not mix up what was kept.
TEST(CanvasText, TextLooksTheSameAfterManyOtherFonts) {
  auto draw = [](Canvas& canvas, int32_t height) {
    FontSpec font;
    font.Height = height;
    canvas.SelectFont(font);
    canvas.FillRect({0, 0, 60, 40}, White);
    canvas.DrawText("Ag", Rect{0, 0, 60, 40}, DT_LEFT | DT_SINGLELINE);
    return std::vector<uint32_t>(canvas.Data(), canvas.Data() + 60 * 40);
  };
  Canvas canvas(60, 40);
  const auto small = draw(canvas, -9);
  const auto large = draw(canvas, -20);
  ASSERT_NE(small, large);
  for (int32_t height = -8; height > -200; --height)
    draw(canvas, height);
  EXPECT_EQ(draw(canvas, -9), small);
  EXPECT_EQ(draw(canvas, -20), large);
}

// Text too large to keep whole is made only where the surface shows it: what a small surface
// shows of it is what a surface large enough for all of it shows there, turned text too.
TEST(CanvasText, HugeTextShowsTheSameWhereverTheSurfaceCutsIt) {
  for (int32_t escapement : {0, 300}) {
    FontSpec huge;
    huge.Height = -600;
    huge.Escapement = escapement;
    auto draw = [&](int32_t width, int32_t height) {
      auto canvas = std::make_unique<Canvas>(width, height);
      canvas->SelectFont(huge);
      canvas->SetBkMode(TRANSPARENT);
      canvas->DrawText("WWWW", Rect{-40, -30, 0, 0}, DT_LEFT | DT_SINGLELINE | DT_NOCLIP);
      return canvas;
    };
    auto whole = draw(2600, 1800);
    auto part = draw(300, 200);
    int inked = 0;
    for (int32_t y = 0; y < 200; ++y) {
      for (int32_t x = 0; x < 300; ++x) {
        ASSERT_EQ(part->GetPixel(x, y), whole->GetPixel(x, y)) << x << "," << y;
        inked += part->GetPixel(x, y) != White;
      }
    }
    EXPECT_GT(inked, 1000) << escapement;
  }
}

} // namespace
} // namespace tarnbrook
