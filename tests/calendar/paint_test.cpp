#include <algorithm>

#include "common/ole_color.hpp"
#include "common/picture.hpp"
#include "tests/calendar/calendar_fixture.hpp"

namespace tarnbrook {

namespace {

// The calendar as it shows on the screen: November 2026, today and the selection the 21st
// (row 2, column 6 of a grid that starts on Sunday the 1st).
class CalendarPaintTest : public CalendarTest {
protected:
  CalendarPaintTest() { platform.PumpMessages(); }

  const Canvas& Window() { return *platform.WindowCanvas(calendar->hWnd()); }
  COLORREF Pixel(int32_t x, int32_t y) { return Window().GetPixel(x, y); }
  static std::vector<COLORREF> Region(const Canvas& canvas, const Rect& rect) {
    std::vector<COLORREF> pixels;
    for (int32_t y = rect.top; y < rect.bottom; ++y)
      for (int32_t x = rect.left; x < rect.right; ++x)
        pixels.push_back(canvas.GetPixel(x, y));
    return pixels;
  }
  // How many pixels of `rect` have the colour.
  long Count(const Rect& rect, OleColor color) {
    return std::ranges::count(Region(Window(), rect), COLORREF(TranslateColor(color)));
  }
  static Rect Cell(int row, int column) {
    return {4 + 28 * column, 52 + 16 * row, 32 + 28 * column, 68 + 16 * row};
  }
};

TEST_F(CalendarPaintTest, SelectedDayThatIsTodayLiesOnTheEllipseInCaptionText) {
  Rect cell = Cell(2, 6);
  EXPECT_EQ(Pixel(cell.left + 3, cell.top + 8), COLORREF(TranslateColor(vbHighlight)));
  EXPECT_EQ(Pixel(cell.left + 1, cell.top + 8), COLORREF(TranslateColor(vbWindowBackground)));
  EXPECT_GT(Count(cell, vbTitleBarText), 10);
  EXPECT_EQ(Count(cell, calendar->PresentDateColor()), 0);
}

TEST_F(CalendarPaintTest, TodayAndTheMonthsHaveTheirColours) {
  calendar->SetValue(DateSerial(2026, 11, 10));
  calendar->SetActiveMonthColor(RGB(0, 160, 0));
  calendar->SetInactiveMonthColor(RGB(0, 0, 200));
  EXPECT_GT(Count(Cell(2, 6), calendar->PresentDateColor()), 10); // the 21st
  EXPECT_EQ(Count(Cell(2, 6), vbHighlight), 0);
  EXPECT_GT(Count(Cell(1, 2), vbHighlight), 100); // the 10th
  EXPECT_GT(Count(Cell(0, 4), RGB(0, 160, 0)), 5);
  EXPECT_GT(Count(Cell(4, 3), RGB(0, 0, 200)), 2); // 2 December
}

TEST_F(CalendarPaintTest, HeaderIsFilledUnlessItsColourIsNone) {
  const Point free{60, 30}; // in the band, below the texts
  constexpr COLORREF Magenta = 0xFF00FF;
  calendar->SetBackgroundImage(
      std::make_shared<Picture>(5, 5, std::vector<uint32_t>(25, 0xFFFF00FF)));
  calendar->SetHeaderColor(RGB(0, 128, 0));
  EXPECT_EQ(Pixel(free.x, free.y), COLORREF(RGB(0, 128, 0)));
  EXPECT_EQ(Pixel(free.x, 40), Magenta); // the picture is the background elsewhere
  calendar->SetHeaderColor(OleColorNone);
  EXPECT_EQ(Pixel(free.x, free.y), Magenta);
}

// The header's texts are drawn over the header's colour, which the surface keeps.
TEST_F(CalendarPaintTest, TheSurfaceKeepsTheHeadersColourAsItsBackColour) {
  struct Probe : MonthCalendar {
    using MonthCalendar::MonthCalendar;
    int32_t SurfaceBackColor() { return Surface().BackColor(); }
  } probe(form.hWnd());
  probe.Move(0, 0, 204, 180);
  probe.SetHeaderColor(RGB(0, 128, 0));
  probe.Refresh();
  EXPECT_EQ(probe.SurfaceBackColor(), RGB(0, 128, 0));
}

TEST_F(CalendarPaintTest, SeparatorsAndTheRaisedEdge) {
  for (int32_t y : {51, 148}) {
    EXPECT_EQ(Pixel(4, y), COLORREF(TranslateColor(vbButtonShadow)));
    EXPECT_EQ(Pixel(197, y), COLORREF(TranslateColor(vbButtonShadow)));
    EXPECT_NE(Pixel(198, y), COLORREF(TranslateColor(vbButtonShadow)));
  }
  EXPECT_EQ(Pixel(0, 90), COLORREF(TranslateColor(vb3DHighlight)));
  EXPECT_EQ(Pixel(203, 90), COLORREF(TranslateColor(vbButtonShadow)));
}

TEST_F(CalendarPaintTest, WeekdaysAreTwoCharactersFromTheFirstDayOfWeek) {
  calendar->SetFirstDayofWeek(vbMonday);
  cMDC expected;
  expected.Resize(28, 16);
  const Font& font = calendar->Font();
  expected.SetFont(font.Name, font.Size, font.Bold);
  expected.DrawText("Mo", 0, 0, 28, 16, calendar->WeekDayColor(), -1, 0, true);
  EXPECT_EQ(Region(Window(), {4, 36, 32, 51}),
            Region(*Canvas::FromHandle(expected.hDC()), {0, 0, 28, 15}));
}

TEST_F(CalendarPaintTest, WithoutEmptyButtonTheValueShowsBottomRight) {
  const Rect emptyFace{125, 158, 184, 171};
  EXPECT_EQ(Count(emptyFace, vbButtonFace), 0);
  EXPECT_GT(Count({120, 156, 192, 173}, vbWindowText), 20); // "21-Nov-26"
  calendar->SetEmptyButton(true);
  EXPECT_GT(Count(emptyFace, vbButtonFace), 400);
}

TEST_F(CalendarPaintTest, PushedButtonSinksAndItsCaptionMoves) {
  const Rect caption{20, 159, 76, 171};
  std::vector<COLORREF> released = Region(Window(), caption);
  Point today = platform.ClientToScreen(calendar->hWnd(), {50, 165});
  platform.MouseDown(VK_LBUTTON, today.x, today.y);
  EXPECT_EQ(Pixel(16, 156), COLORREF(TranslateColor(vbButtonShadow)));
  EXPECT_EQ(Region(Window(), {21, 160, 77, 172}), released);
  platform.MouseUp(VK_LBUTTON, today.x, today.y);
  EXPECT_NE(Pixel(16, 156), COLORREF(TranslateColor(vbButtonShadow)));
}

} // namespace
} // namespace tarnbrook
