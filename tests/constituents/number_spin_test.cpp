#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "constituents/number_spin.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

// A year box of 80 x 21 on a form, showing 2000: its up button covers x 64..80, y 0..10, the
// down one y 10..21. Changes and typed years are counted.
class NumberSpinTest : public ::testing::Test, public NumberSpinEvents {
protected:
  static constexpr int32_t Width = 80;

  NumberSpinTest() {
    spin = &static_cast<NumberSpin&>(
        form.Add(std::make_unique<NumberSpin>(), "spnYear", 20, 30, Width, 21));
    spin->Connect(this);
    spin->SetValue(2000);
    form.ClearChangedKeys();
  }
  void Change() override { ++changes; }
  void Typed() override { ++typed; }

  Point At(int32_t x, int32_t y) { return platform.ClientToScreen(spin->hWnd(), {x, y}); }
  Point Up() { return At(Width - 8, 4); }
  Point Down() { return At(Width - 8, 15); }
  void Click(Point p) { platform.Click(p.x, p.y); }
  std::vector<COLORREF> UpFace() {
    std::vector<COLORREF> pixels;
    for (int32_t y = 2; y < 10; ++y)
      for (int32_t x = Width - 16; x < Width - 2; ++x)
        pixels.push_back(platform.WindowCanvas(spin->hWnd())->GetPixel(x, y));
    return pixels;
  }

  MemoryPlatform platform;
  Container form;
  NumberSpin* spin = nullptr;
  int changes = 0, typed = 0;
};

// The new value's floor and the old value's ceiling: 9999 steps to 10000, and no further.
TEST_F(NumberSpinTest, StepsFollowTheLopsidedRangeRuleAndRefusalsBeep) {
  spin->SetValue(1601);
  Click(Down());
  EXPECT_EQ(spin->Value(), 1601);
  spin->SetValue(9999);
  platform.Key(VK_UP);
  EXPECT_EQ(spin->Value(), 10000);
  Click(Up());
  Click(Down());
  EXPECT_EQ(spin->Value(), 10000);
  EXPECT_EQ(platform.BeepCount(), 3);
  EXPECT_EQ(changes, 1);
  spin->SetValue(2000);
  platform.DoubleClick(Up().x, Up().y); // the press and the double click: a step each
  EXPECT_EQ(spin->Value(), 2002);
  EXPECT_EQ(changes, 3);
}

TEST_F(NumberSpinTest, HoldingAButtonRepeatsAfter750msThenEvery100msWhileThePointerStaysOnIt) {
  const std::vector<COLORREF> raised = UpFace();
  platform.MouseDown(VK_LBUTTON, Up().x, Up().y);
  EXPECT_NE(UpFace(), raised);
  platform.Advance(749);
  EXPECT_EQ(spin->Value(), 2001);
  platform.Advance(1 + 300);
  EXPECT_EQ(spin->Value(), 2005);
  platform.MouseMove(Down().x, Down().y); // off the pressed button: the repeat ends
  platform.Advance(100);
  platform.MouseMove(Up().x, Up().y);
  platform.Advance(1000);
  platform.MouseUp(VK_LBUTTON, Up().x, Up().y);
  EXPECT_EQ(spin->Value(), 2005);
  EXPECT_EQ(UpFace(), raised);

  spin->SetValue(1603); // a refused step ends the repeat: one beep however long it is held
  platform.MouseDown(VK_LBUTTON, Down().x, Down().y);
  platform.Advance(2000);
  EXPECT_EQ(spin->Value(), 1601);
  EXPECT_EQ(platform.BeepCount(), 1);
}

// A typed year raises no Change; its owner hears of it as a typed year.
TEST_F(NumberSpinTest, TypedDigitsBecomeTheYearAfterAPause) {
  spin->SetFocus();
  platform.Type("1999");
  EXPECT_TRUE(spin->Typing());
  platform.Advance(749);
  EXPECT_EQ(spin->Value(), 2000);
  platform.Advance(1);
  EXPECT_EQ(spin->Value(), 1999);
  EXPECT_EQ(typed, 1);
  platform.Type("0042"); // outside the range: dropped
  platform.Advance(750);
  platform.Type("12x005"); // a fifth digit pushes the oldest out; letters are ignored
  EXPECT_EQ(spin->Typed(), 2005);
  platform.Advance(750);
  EXPECT_EQ(spin->Value(), 2005);
  EXPECT_EQ(typed, 2);
  EXPECT_EQ(changes, 0);
}

// What is saved, and that only ButtonWidth and Enabled are, is held by the saved-forms fixture.
TEST_F(NumberSpinTest, AYearOutsideTheRangeIsIgnoredYetReported) {
  spin->SetValue(10000);
  EXPECT_EQ(spin->Value(), 2000);
  EXPECT_EQ(form.ChangedKeys("spnYear"), std::vector<std::string>{"Value"});
  ControlError error = Raised([&] { spin->SetButtonStyle(3); });
  EXPECT_EQ(error.Source() + " " + std::to_string(error.Number()), "Tarnbrook.DatePicker 5065");
}

TEST_F(NumberSpinTest, FocusAndTheDisabledStateShowOnTheWindow) {
  auto count = [&](COLORREF color) {
    int n = 0;
    for (int32_t y = 3; y < 18; ++y)
      for (int32_t x = 3; x < Width - 16; ++x)
        n += platform.WindowCanvas(spin->hWnd())->GetPixel(x, y) == color;
    return n;
  };
  const COLORREF gray = static_cast<COLORREF>(GetSysColor(COLOR_GRAYTEXT));
  const std::vector<COLORREF> enabled = UpFace();
  spin->SetFocus();
  const int focused = count(0x000000); // the digits and the focus dots
  EXPECT_GT(focused, 20);
  platform.SetFocus(form.hWnd());
  EXPECT_LT(count(0x000000), focused);
  spin->SetEnabled(false);
  EXPECT_EQ(count(0x000000), 0);
  EXPECT_GT(count(gray), 0);
  EXPECT_NE(UpFace(), enabled); // the arrow is greyed
}

// The wheel steps the year only while the spin has the focus, as the arrow keys do.
TEST_F(NumberSpinTest, TheWheelStepsAFocusedYearOnly) {
  const Point middle = At(20, 10);
  platform.MouseWheel(WHEEL_DELTA, middle.x, middle.y);
  EXPECT_EQ(spin->Value(), 2000);
  spin->SetFocus();
  platform.MouseWheel(2 * WHEEL_DELTA, middle.x, middle.y);
  platform.MouseWheel(-WHEEL_DELTA, middle.x, middle.y);
  EXPECT_EQ(spin->Value(), 2001);
  EXPECT_EQ(changes, 3);
}

} // namespace
} // namespace tarnbrook
