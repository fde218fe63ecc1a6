#include <gtest/gtest.h>

#include <cstring>

#include "common/ole_color.hpp"
#include "draw/border_style.hpp"
#include "draw/cdrawedge.hpp"
#include "draw/cframe.hpp"

namespace tarnbrook {
namespace {

constexpr COLORREF White = 0xFFFFFF;
constexpr COLORREF Black = 0x000000;
constexpr COLORREF Face = 0xC0C0C0;
constexpr COLORREF Shadow = 0x808080;

bool SameImage(const Canvas& a, const Canvas& b) {
  return a.Width() == b.Width() && a.Height() == b.Height() &&
         std::memcmp(a.Data(), b.Data(), static_cast<size_t>(a.Stride()) * a.Height()) == 0;
}

// A 20 x 20 frame at (0, 0) drawn on a white canvas.
struct Drawn {
  Canvas canvas{20, 20};
  CFrame frame;
  Drawn(int32_t frameType, int32_t style, int32_t border, int32_t state = 0, bool enabled = true) {
    frame.Init(frameType, style, canvas.Handle(), 0, 0, 20, 20);
    frame.Border = border;
    frame.State = state;
    frame.Enabled = enabled;
    frame.Draw();
  }
  COLORREF At(int32_t x, int32_t y) const { return canvas.GetPixel(x, y); }
};

// Each style's rims at the left and right edges: two pixels in from each side.
TEST(CFrame, ThreeButtonStylesShowTheirRims) {
  const struct {
    int32_t border, state;
    COLORREF left[2], right[2];
  } styles[] = {
      {0, 0, {Face, White}, {Shadow, Black}}, {0, DFCS_PUSHED, {Shadow, Black}, {Face, White}},
      {1, 0, {White, Face}, {Face, Shadow}},  {1, DFCS_PUSHED, {Shadow, Face}, {Face, White}},
      {2, 0, {Shadow, Face}, {Face, Shadow}}, {3, 0, {White, White}, {White, White}}};
  for (const auto& style : styles) {
    SCOPED_TRACE(std::to_string(style.border) + " " + std::to_string(style.state));
    Drawn drawn(DFC_BUTTON, DFCS_BUTTONPUSH, style.border, style.state);
    EXPECT_EQ(drawn.At(0, 5), style.left[0]);
    EXPECT_EQ(drawn.At(1, 5), style.left[1]);
    EXPECT_EQ(drawn.At(18, 5), style.right[0]);
    EXPECT_EQ(drawn.At(19, 5), style.right[1]);
    EXPECT_EQ(drawn.At(10, 10), style.border < 3 ? Face : White);
  }
}

TEST(CFrame, FlatPushedIsExactlyThePushed3DFace) {
  Drawn flat(DFC_SCROLL, DFCS_SCROLLRIGHT, 2, DFCS_PUSHED);
  Drawn raised(DFC_SCROLL, DFCS_SCROLLRIGHT, 0, DFCS_PUSHED);
  EXPECT_TRUE(SameImage(flat.canvas, raised.canvas));
}

TEST(CFrame, DisabledIsInactiveInEveryStyleAlsoPushed) {
  for (int32_t border = 0; border < 3; ++border) {
    for (int32_t pushed : {0, static_cast<int32_t>(DFCS_PUSHED)}) {
      Drawn disabled(DFC_SCROLL, DFCS_SCROLLLEFT, border, pushed, false);
      Drawn inactive(DFC_SCROLL, DFCS_SCROLLLEFT, border, pushed | DFCS_INACTIVE);
      Drawn enabled(DFC_SCROLL, DFCS_SCROLLLEFT, border, pushed);
      EXPECT_TRUE(SameImage(disabled.canvas, inactive.canvas)) << border << " " << pushed;
      EXPECT_FALSE(SameImage(disabled.canvas, enabled.canvas)) << border << " " << pushed;
    }
  }
}

TEST(CFrame, HiddenDrawsNothingButStillAnswersCheckPoint) {
  Canvas canvas(40, 40);
  CFrame frame;
  frame.Init(DFC_BUTTON, DFCS_BUTTONPUSH, canvas.Handle(), 10, 20, 5, 8);
  EXPECT_EQ(frame.rectangle, (Rect{20, 10, 28, 15}));
  frame.Visible = false;
  frame.Draw();
  EXPECT_EQ(canvas.GetPixel(20, 10), White);
  EXPECT_TRUE(frame.CheckPoint(20, 10));
  EXPECT_TRUE(frame.CheckPoint(27, 14));
  EXPECT_FALSE(frame.CheckPoint(28, 12));
  EXPECT_FALSE(frame.CheckPoint(22, 15));
  EXPECT_FALSE(frame.CheckPoint(19, 12));
  frame.Move(0, 0, 2, 3);
  EXPECT_EQ(frame.rectangle, (Rect{0, 0, 3, 2}));
}

TEST(CDrawEdge, DrawsTheStoredEdgeAroundItsRectangle) {
  Canvas canvas(20, 20), expected(20, 20);
  CDrawEdge edge;
  edge.Init(canvas.Handle(), EDGE_SUNKEN, 2, 3, 6, 8);
  EXPECT_EQ(edge.rectangle, (Rect{3, 2, 11, 8}));
  edge.Draw();
  expected.DrawEdge({3, 2, 11, 8}, EDGE_SUNKEN, BF_RECT);
  EXPECT_TRUE(SameImage(canvas, expected));
}

// Each style on the outermost pixels of a 10 x 8 border at (2, 2) on the button face.
TEST(BorderStyles, EachStyleOnTheOutermostPixels) {
  constexpr COLORREF Red = 0x0000FF;
  const struct {
    int32_t style, x, y;
    COLORREF colour;
  } pixels[] = {{dtpBorderNone, 2, 2, Face},         {dtpBorderFixedSingle, 2, 2, Red},
                {dtpBorderFixedSingle, 11, 9, Red},  {dtpBorderFixedSingle, 12, 9, Face},
                {dtpBorderFixedSingle, 3, 3, Face},  {dtpBorderRaised3D, 3, 5, White},
                {dtpBorderRaised3D, 11, 5, Black},   {dtpBorderSunken3D, 2, 5, Shadow},
                {dtpBorderSunken3D, 3, 5, Black},    {dtpBorderSunkenThin, 2, 5, Shadow},
                {dtpBorderSunkenThin, 11, 5, White}, {dtpBorderSunkenThin, 3, 5, Face},
                {dtpBorderRaisedThin, 2, 5, White},  {dtpBorderRaisedThin, 11, 5, Shadow},
                {dtpBorderEtched, 2, 5, Shadow},     {dtpBorderEtched, 3, 5, White},
                {dtpBorderEtched, 10, 5, Shadow},    {dtpBorderEtched, 11, 5, White}};
  for (const auto& pixel : pixels) {
    cMDC surface;
    surface.SetBackColor(vbButtonFace);
    surface.Resize(20, 20);
    DrawBorderStyle(surface, pixel.style, 2, 2, 10, 8, Red);
    EXPECT_EQ(Canvas::FromHandle(surface.hDC())->GetPixel(pixel.x, pixel.y), pixel.colour)
        << "style " << pixel.style << " at " << pixel.x << "," << pixel.y;
  }
}

TEST(TranslateColor, PlainPaletteAndSystemColoursElseMinusOne) {
  EXPECT_EQ(TranslateColor(0x00123456), 0x123456);
  EXPECT_EQ(TranslateColor(0x02123456), 0x123456);
  EXPECT_EQ(TranslateColor(vbButtonFace), 0xC0C0C0);
  EXPECT_EQ(TranslateColor(SystemColor(COLOR_INFOBK)), RGB(255, 255, 225));
  EXPECT_EQ(TranslateColor(vbHighlight), RGB(0, 0, 128));
  EXPECT_EQ(TranslateColor(SystemColor(COLOR_MENUBAR)), 0xC0C0C0);
  EXPECT_EQ(TranslateColor(static_cast<OleColor>(0x80000050u)), -1);
  EXPECT_EQ(TranslateColor(static_cast<OleColor>(0x8000FF0Fu)), -1);
  EXPECT_EQ(TranslateColor(0x01000000), -1);
  EXPECT_EQ(TranslateColor(-1), -1);
  EXPECT_EQ(GetSysColor(31), -1);
  EXPECT_EQ(GetSysColor(-1), -1);
}

} // namespace
} // namespace tarnbrook
