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

TEST(CFrame, ThreeButtonStylesShowTheirRims) {
  Drawn raised(DFC_BUTTON, DFCS_BUTTONPUSH, 0);
  EXPECT_EQ(raised.At(0, 5), Face); // 3D light
  EXPECT_EQ(raised.At(1, 5), White);
  EXPECT_EQ(raised.At(18, 5), Shadow);
  EXPECT_EQ(raised.At(19, 5), Black);
  EXPECT_EQ(raised.At(10, 10), Face);
  Drawn pushed(DFC_BUTTON, DFCS_BUTTONPUSH, 0, DFCS_PUSHED);
  EXPECT_EQ(pushed.At(0, 5), Shadow);
  EXPECT_EQ(pushed.At(1, 5), Black);
  EXPECT_EQ(pushed.At(19, 5), White);
  Drawn thin(DFC_BUTTON, DFCS_BUTTONPUSH, 1);
  EXPECT_EQ(thin.At(0, 5), White);
  EXPECT_EQ(thin.At(1, 5), Face);
  EXPECT_EQ(thin.At(19, 5), Shadow);
  EXPECT_EQ(thin.At(18, 5), Face);
  Drawn thinPushed(DFC_BUTTON, DFCS_BUTTONPUSH, 1, DFCS_PUSHED);
  EXPECT_EQ(thinPushed.At(0, 5), Shadow);
  EXPECT_EQ(thinPushed.At(19, 5), White);
  EXPECT_EQ(thinPushed.At(1, 5), Face);
  Drawn flat(DFC_BUTTON, DFCS_BUTTONPUSH, 2);
  EXPECT_EQ(flat.At(0, 5), Shadow);
  EXPECT_EQ(flat.At(19, 5), Shadow);
  EXPECT_EQ(flat.At(1, 5), Face);
  Drawn unknown(DFC_BUTTON, DFCS_BUTTONPUSH, 3);
  EXPECT_EQ(unknown.At(0, 5), White);
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

TEST(CFrame, AddAndRemoveStateAreBitwise) {
  CFrame frame;
  frame.AddState(DFCS_PUSHED);
  frame.AddState(DFCS_PUSHED);
  EXPECT_EQ(frame.State, 0x200);
  frame.AddState(DFCS_INACTIVE);
  frame.RemoveState(DFCS_FLAT);
  EXPECT_EQ(frame.State, 0x300);
  frame.RemoveState(DFCS_PUSHED);
  EXPECT_EQ(frame.State, 0x100);
}

TEST(CDrawEdge, DrawsTheStoredEdgeAroundItsRectangle) {
  Canvas canvas(20, 20);
  CDrawEdge edge;
  edge.Init(canvas.Handle(), EDGE_SUNKEN, 2, 3, 6, 8);
  EXPECT_EQ(edge.rectangle, (Rect{3, 2, 11, 8}));
  edge.Draw();
  EXPECT_EQ(canvas.GetPixel(3, 4), Shadow);
  EXPECT_EQ(canvas.GetPixel(4, 4), Black);
  EXPECT_EQ(canvas.GetPixel(10, 4), White);
  EXPECT_EQ(canvas.GetPixel(11, 4), White);
  EXPECT_EQ(canvas.GetPixel(6, 7), White);
  EXPECT_EQ(canvas.GetPixel(6, 6), Face);
}

TEST(BorderStyles, EachStyleOnTheOutermostPixels) {
  auto drawn = [](int32_t style) {
    auto surface = std::make_unique<cMDC>();
    surface->SetBackColor(vbButtonFace);
    surface->Resize(20, 20);
    DrawBorderStyle(*surface, style, 2, 2, 10, 8, 0x0000FF);
    return surface;
  };
  auto at = [](const std::unique_ptr<cMDC>& surface, int32_t x, int32_t y) {
    return Canvas::FromHandle(surface->hDC())->GetPixel(x, y);
  };
  auto none = drawn(dtpBorderNone);
  EXPECT_EQ(at(none, 2, 2), Face);
  auto single = drawn(dtpBorderFixedSingle);
  EXPECT_EQ(at(single, 2, 2), 0x0000FFu);
  EXPECT_EQ(at(single, 11, 9), 0x0000FFu);
  EXPECT_EQ(at(single, 12, 9), Face);
  EXPECT_EQ(at(single, 3, 3), Face);
  auto raised = drawn(dtpBorderRaised3D);
  EXPECT_EQ(at(raised, 3, 5), White);
  EXPECT_EQ(at(raised, 11, 5), Black);
  auto sunken = drawn(dtpBorderSunken3D);
  EXPECT_EQ(at(sunken, 2, 5), Shadow);
  EXPECT_EQ(at(sunken, 3, 5), Black);
  auto sunkenThin = drawn(dtpBorderSunkenThin);
  EXPECT_EQ(at(sunkenThin, 2, 5), Shadow);
  EXPECT_EQ(at(sunkenThin, 11, 5), White);
  EXPECT_EQ(at(sunkenThin, 3, 5), Face);
  auto raisedThin = drawn(dtpBorderRaisedThin);
  EXPECT_EQ(at(raisedThin, 2, 5), White);
  EXPECT_EQ(at(raisedThin, 11, 5), Shadow);
  auto etched = drawn(dtpBorderEtched);
  EXPECT_EQ(at(etched, 2, 5), Shadow);
  EXPECT_EQ(at(etched, 3, 5), White);
  EXPECT_EQ(at(etched, 10, 5), Shadow);
  EXPECT_EQ(at(etched, 11, 5), White);
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
