#include <filesystem>

#include "winplumb/drop_down.hpp"
#include "winplumb/drop_down_placement.hpp"
#include "winplumb_fixture.hpp"

namespace tarnbrook {
namespace {

constexpr COLORREF Red = 0x0000FF;

// The owner: notes the events and keeps the pop-up open as often as it is told.
struct Owner : cDropDownEvents {
  int keepOpen = 0;
  void MouseDownOutside(bool& DontHide) override {
    trail += "outside;";
    DontHide = keepOpen-- > 0;
  }
  void Hidden() override { trail += "hidden;"; }
};

class DropDownTest : public WinplumbTest {
protected:
  DropDownTest() {
    p.SetWorkArea({0, 0, 1024, 738});
    dropDown.Connect(&owner);
  }
  void Show(int32_t y, int32_t eType, bool autoHide = true) {
    trail.clear();
    dropDown.Show(control, 300, y, 120, 90, 20, eType, autoHide);
  }
  // Where the control is, whether it is seen and whether the pop-up watches the mouse.
  std::string State() {
    return std::string(p.GetParent(control) == form ? "in form" : "on desktop") +
           (p.IsWindowVisible(control) ? ", visible" : ", hidden") +
           (dropDown.IsShown() ? ", shown" : "") + ", hooks " +
           std::to_string(p.HookCount(WH_MOUSE));
  }
  COLORREF Screen(const std::string& png, int32_t x, int32_t y) {
    p.PumpMessages();
    std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
    p.WriteScreenPng(std::string(TARNBROOK_TEST_OUTPUT) + "/" + png);
    return p.ComposeScreen()->GetPixel(x, y);
  }

  // A captioned form (client area from (100, 120)) with the control and a button on it.
  HWND form = Window(100, 100, 400, 300, 0, "Form", TestProc<'F'>);
  HWND control = p.CreateWindowEx(WS_EX_APPWINDOW, "", WS_CHILD | WS_VISIBLE, 10, 10, 120, 90, form,
                                  TestProc<'C', Red>);
  HWND button = Window(200, 200, 80, 30, form, "", TestProc<'B', 0x808080>);
  Owner owner; // outlives the pop-up objects
  cDropDown dropDown;
};

TEST_F(DropDownTest, NearTheBottomItRollsUpAboveTheAnchorAndClosesOnAnOutsideClick) {
  Show(700, 3);
  EXPECT_EQ(p.GetWindowRect(control), (Rect{300, 590, 420, 680}));
  ASSERT_EQ(p.Animations().size(), 1u);
  EXPECT_EQ(p.Animations()[0].milliseconds, 100u);
  EXPECT_EQ(p.Animations()[0].flags, static_cast<uint32_t>(AW_VER_NEGATIVE | AW_ACTIVATE));
  EXPECT_EQ(p.GetWindowLong(control, GWL_EXSTYLE), WS_EX_TOOLWINDOW);
  EXPECT_EQ(State(), "on desktop, visible, shown, hooks 1");
  EXPECT_EQ(Screen("drop_down_open.png", 350, 620), Red);
  Show(700, 0); // shown again where it is up: still one hook, and it still goes home
  EXPECT_EQ(State(), "on desktop, visible, shown, hooks 1");

  p.Click(350, 620);
  owner.keepOpen = 1;
  p.Click(310, 330);
  p.Click(310, 330); // asks again, closes, and the button still gets both clicks
  EXPECT_EQ(trail, "C513;outside;B513;outside;hidden;B513;");
  EXPECT_EQ(State(), "in form, hidden, hooks 0");
  p.MoveWindow(control, 10, 10, 120, 90, true); // its owner puts it back in place
  p.ShowWindow(control, SW_SHOW);
  EXPECT_EQ(Screen("drop_down_closed.png", 115, 135), Red);
}

TEST_F(DropDownTest, BelowTheAnchorItSlidesOrBlendsAndAnyOutsidePressClosesIt) {
  Show(100, 2);
  EXPECT_EQ(p.GetWindowRect(control).top, 100);
  EXPECT_EQ(p.Animations().back().flags, AW_SLIDE | AW_VER_POSITIVE | AW_ACTIVATE);
  p.Click(200, 105); // the form's caption
  EXPECT_EQ(trail, "outside;hidden;F161;");
  Show(100, 1);
  EXPECT_EQ(p.Animations().back().flags, AW_BLEND | AW_ACTIVATE);
  p.MouseDown(VK_RBUTTON, 450, 350);
  EXPECT_EQ(trail, "outside;hidden;F516;");
  {
    cDropDown ending; // ends while shown
    ending.Connect(&owner);
    bool autoHide = true;
    ending.Show(control, 300, 100, 120, 90, 20, 0, autoHide);
  }
  EXPECT_EQ(trail, "outside;hidden;F516;hidden;");
  EXPECT_EQ(State(), "in form, hidden, hooks 0");
  bool autoHide = false;
  dropDown.Show(control, 1000, 100, 120, 90, 20, 0, autoHide); // no horizontal correction
  EXPECT_EQ(p.GetWindowRect(control).left, 1000);
  dropDown.Hide();
}

TEST_F(DropDownTest, WithoutAutoHideNothingWatchesTheMouse) {
  p.FailSystemParametersInfo(true); // the whole screen, 768 high, has room below
  Show(660, 0, false);
  EXPECT_EQ(p.GetWindowRect(control).top, 660);
  EXPECT_TRUE(p.Animations().empty());
  EXPECT_EQ(State(), "on desktop, visible, hooks 0");
  p.Click(310, 330);
  dropDown.Hide();
  EXPECT_EQ(trail, "B513;hidden;");
  EXPECT_EQ(State(), "in form, hidden, hooks 0");
  control = Window(0, 0, 50, 50); // has no parent to go back to
  Show(10, 0, false);
  dropDown.Hide();
  EXPECT_EQ(State(), "on desktop, hidden, hooks 0");
}

TEST(DropDownPlacement, GoesAboveOnlyWhenTheBottomWouldPassTheWorkArea) {
  EXPECT_EQ(PlaceDropDown(648, 90, 20, 738).Y, 648);
  EXPECT_EQ(PlaceDropDown(649, 90, 20, 738).Y, 539);
  EXPECT_EQ(PlaceDropDown(649, 90, 20, 738).direction, static_cast<uint32_t>(AW_VER_NEGATIVE));
  EXPECT_EQ(PlaceDropDown(50, 500, 20, 300).Y, -470); // fits neither way: still above
  EXPECT_EQ(DropDownAnimationFlags(3, AW_VER_POSITIVE), AW_VER_POSITIVE | AW_ACTIVATE);
  EXPECT_EQ(DropDownAnimationFlags(0x10, AW_VER_POSITIVE), AW_CENTER | AW_ACTIVATE);
}

} // namespace
} // namespace tarnbrook
