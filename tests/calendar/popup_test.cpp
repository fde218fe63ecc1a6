#include <algorithm>

#include "calendar_fixture.hpp"
#include "common/property_bag.hpp"

namespace tarnbrook {
namespace {

int targetPresses = 0;
LRESULT CountingProc(HWND, UINT msg, WPARAM, LPARAM) {
  if (msg == WM_LBUTTONDOWN)
    ++targetPresses;
  return 0;
}

constexpr COLORREF Magenta = 0xFF00FF;
constexpr COLORREF Window = 0xFFFFFF;

// A calendar loaded in run mode, dropped down as a person's program would, with a window
// beside it on the form that counts the presses it receives.
class CalendarPopupTest : public CalendarTest {
protected:
  CalendarPopupTest() {
    MemoryPropertyBag bag;
    bag.WriteProperty("Value", Variant::Date(DateSerial(2026, 11, 21)));
    calendar->ReadProperties(bag);
    target = platform.CreateWindowEx(0, "", WS_CHILD | WS_VISIBLE, 300, 30, 100, 40, form.hWnd(),
                                     CountingProc);
    targetPresses = 0;
    platform.PumpMessages();
    log.withMouse = false;
    log.Take();
  }

  // The screen pixel at a point of the calendar's window.
  COLORREF ScreenPixel(int32_t x, int32_t y) {
    Rect r = platform.GetWindowRect(calendar->hWnd());
    return platform.ComposeScreen()->GetPixel(r.left + x, r.top + y);
  }
  void ClickTarget() {
    Point p = platform.ClientToScreen(target, {50, 20});
    platform.Click(p.x, p.y);
  }

  HWND target = 0;
};

TEST_F(CalendarPopupTest, NearTheBottomItOpensAboveAndPaintsThroughPrintClient) {
  // Cover the window's own picture: only WM_PRINTCLIENT can paint it before a pump.
  Canvas::FromHandle(platform.GetDC(calendar->hWnd()))->FillRect({0, 0, 204, 180}, Magenta);
  Rect work;
  platform.SystemParametersInfo(SPI_GETWORKAREA, &work);
  calendar->DropDown(100, work.bottom - 40, 21, mvwAnimateRoll);

  EXPECT_EQ(log.Take(), (Log{"BeforeDropDown", "DroppedDown"}));
  EXPECT_TRUE(calendar->IsDropDownShown());
  EXPECT_EQ(platform.GetWindowRect(calendar->hWnd()),
            (Rect{100, work.bottom - 61 - 180, 304, work.bottom - 61}));
  EXPECT_EQ(platform.GetParent(calendar->hWnd()), 0u); // on the desktop
  ASSERT_EQ(platform.Animations().size(), 1u);
  EXPECT_EQ(platform.Animations()[0].milliseconds, 100u);
  EXPECT_EQ(platform.Animations()[0].flags, uint32_t(AW_VER_NEGATIVE | AW_ACTIVATE));
  EXPECT_EQ(ScreenPixel(10, 60), Window); // the grid's background, painted for the animation
  EXPECT_EQ(ScreenPixel(60, 2), COLORREF(TranslateColor(vbButtonFace))); // the header band
  Rect r = platform.GetWindowRect(calendar->hWnd());
  EXPECT_EQ(platform.WindowFromPoint({r.left + 100, r.top + 100}), calendar->hWnd());
}

TEST_F(CalendarPopupTest, AnOutsideClickClosesItAndStillReachesItsTarget) {
  calendar->DropDown(50, 100, 21);
  EXPECT_TRUE(platform.Animations().empty()); // no animation when none is asked for
  Rect shown = platform.GetWindowRect(calendar->hWnd());
  log.Take();

  platform.Click(shown.left + 100, shown.top + 100); // inside: a day, the pop-up stays
  EXPECT_TRUE(calendar->IsDropDownShown());
  log.Take();
  log.cancelCloseUp = true; // refused: it stays, and the next press asks again
  ClickTarget();
  EXPECT_TRUE(calendar->IsDropDownShown());
  log.cancelCloseUp = false;

  ClickTarget();
  EXPECT_EQ(log.Take(), (Log{"BeforeCloseUp", "BeforeCloseUp", "AfterClosedUp"}));
  EXPECT_EQ(targetPresses, 2);
  EXPECT_FALSE(calendar->IsDropDownShown());
  EXPECT_EQ(platform.GetParent(calendar->hWnd()), form.hWnd());
  EXPECT_FALSE(calendar->Visible());
  EXPECT_EQ(platform.ComposeScreen()->GetPixel(shown.left + 100, shown.top + 100),
            COLORREF(TranslateColor(vbButtonFace))); // the form shows where it was

  // Shown again in its place on the form, it is there.
  calendar->Move(20, 30, 204, 180);
  calendar->SetVisible(true);
  platform.PumpMessages();
  EXPECT_EQ(ScreenPixel(10, 60), Window);
  EXPECT_EQ(platform.GetWindowRect(calendar->hWnd()).left, 20);
}

TEST_F(CalendarPopupTest, ProgramsOpenAndCloseItWithTheirOwnEvents) {
  log.cancelDropDown = true;
  calendar->DropDown(50, 100);
  EXPECT_EQ(log.Take(), (Log{"BeforeDropDown"}));
  EXPECT_FALSE(calendar->IsDropDownShown());
  EXPECT_TRUE(calendar->Visible()); // still in its place

  calendar->HideDropDown(); // not shown: nothing at all
  EXPECT_TRUE(log.Take().empty());

  log.cancelDropDown = false;
  calendar->DropDown(50, 100);
  log.Take();
  calendar->HideDropDown(); // no BeforeCloseUp on this path
  EXPECT_EQ(log.Take(), (Log{"AfterClosedUp"}));
}

TEST_F(CalendarPopupTest, PrintClientIsSubclassedOnlyWhenLoadedInRunMode) {
  auto subclassed = [&](HWND hwnd) {
    auto names = platform.PropertyNames(hwnd);
    return std::count(names.begin(), names.end(), "C" + std::to_string(hwnd)) == 1;
  };
  EXPECT_TRUE(subclassed(calendar->hWnd()));

  MemoryPropertyBag bag;
  Container designer;
  designer.SetUserMode(false);
  auto& designed = designer.Add(std::make_unique<MonthCalendar>(), "Designed", 0, 0, 204, 180);
  designed.ReadProperties(bag);
  EXPECT_FALSE(subclassed(designed.hWnd()));

  auto fresh = std::make_unique<MonthCalendar>(form.hWnd()); // new, never loaded
  EXPECT_FALSE(subclassed(fresh->hWnd()));
}

} // namespace
} // namespace tarnbrook
