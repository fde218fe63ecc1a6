#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "constituents/number_spin.hpp"
#include "host/container.hpp"
#include "host/control_registry.hpp"
#include "platform/memory/memory_platform.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

using Keys = std::vector<std::string>;

// A year box of 80 x 21 on a form: its up button covers x 64..80, y 0..10, the down one
// y 10..21.
class NumberSpinTest : public ::testing::Test, public NumberSpinEvents {
protected:
  static constexpr int32_t Width = 80;
  static constexpr int32_t Height = 21;

  NumberSpinTest() {
    spin = &static_cast<NumberSpin&>(
        form.Add(std::make_unique<NumberSpin>(), "spnYear", 20, 30, Width, Height));
    spin->Connect(this);
    spin->SetValue(2000);
    form.ClearChangedKeys();
  }
  void Change() override { ++changes; }

  Point At(int32_t x, int32_t y) { return platform.ClientToScreen(spin->hWnd(), {x, y}); }
  void PressAt(Point p) { platform.MouseDown(VK_LBUTTON, p.x, p.y); }
  void ReleaseAt(Point p) { platform.MouseUp(VK_LBUTTON, p.x, p.y); }
  void ClickAt(Point p) { platform.Click(p.x, p.y); }
  Point Up() { return At(Width - 8, 4); }
  Point Down() { return At(Width - 8, 15); }

  std::vector<COLORREF> Pixels(int32_t left, int32_t top, int32_t right, int32_t bottom) {
    std::vector<COLORREF> pixels;
    for (int32_t y = top; y < bottom; ++y)
      for (int32_t x = left; x < right; ++x)
        pixels.push_back(platform.WindowCanvas(spin->hWnd())->GetPixel(x, y));
    return pixels;
  }
  // Inside the border, left of the buttons.
  int CountPixels(COLORREF color, int32_t right) {
    int count = 0;
    for (COLORREF pixel : Pixels(3, 3, right, Height - 3))
      count += pixel == color;
    return count;
  }

  MemoryPlatform platform;
  Container form;
  NumberSpin* spin = nullptr;
  int changes = 0;
};

TEST_F(NumberSpinTest, StepsAreTakenUnderTheLopsidedRangeRuleAndRefusalsBeep) {
  spin->SetValue(1601);
  ClickAt(Down());
  EXPECT_EQ(spin->Value(), 1601);
  EXPECT_EQ(platform.BeepCount(), 1);
  EXPECT_EQ(changes, 0);

  spin->SetValue(9999);
  ClickAt(Up());
  EXPECT_EQ(spin->Value(), 10000); // the old value was still in range
  EXPECT_EQ(changes, 1);
  ClickAt(Up());
  ClickAt(Down());
  EXPECT_EQ(spin->Value(), 10000);
  EXPECT_EQ(platform.BeepCount(), 3);
  EXPECT_EQ(changes, 1);

  spin->SetValue(2000);
  platform.Key(VK_UP);
  platform.Key(VK_DOWN);
  platform.Key(VK_DOWN);
  platform.Key(VK_LEFT); // other keys do nothing
  EXPECT_EQ(spin->Value(), 1999);
  EXPECT_EQ(changes, 4);

  platform.DoubleClick(Up().x, Up().y); // the press and the double click: a step each
  EXPECT_EQ(spin->Value(), 2001);
  EXPECT_EQ(changes, 6);
}

TEST_F(NumberSpinTest, HoldingAButtonRepeatsAfter750msThenEvery100msWhileThePointerStaysOnIt) {
  PressAt(Up());
  EXPECT_EQ(spin->Value(), 2001);
  platform.Advance(749);
  EXPECT_EQ(spin->Value(), 2001);
  platform.Advance(1);
  EXPECT_EQ(spin->Value(), 2002);
  platform.Advance(300);
  EXPECT_EQ(spin->Value(), 2005);
  platform.MouseMove(Down().x, Down().y); // off the pressed button: the repeat ends
  platform.Advance(100);
  platform.MouseMove(Up().x, Up().y);
  platform.Advance(1000);
  EXPECT_EQ(spin->Value(), 2005);
  ReleaseAt(Up());
  EXPECT_EQ(changes, 5);

  // A refused step ends the repeat: one beep, however long the button is held.
  spin->SetValue(1603);
  PressAt(Down());
  platform.Advance(750 + 100 + 1000);
  ReleaseAt(Down());
  EXPECT_EQ(spin->Value(), 1601);
  EXPECT_EQ(platform.BeepCount(), 1);
}

TEST_F(NumberSpinTest, TypedDigitsBecomeTheYearAfterAPauseWithoutChange) {
  spin->SetFocus();
  platform.Type("1999");
  EXPECT_TRUE(spin->Typing());
  EXPECT_EQ(spin->Typed(), 1999);
  platform.Advance(749);
  EXPECT_EQ(spin->Value(), 2000);
  platform.Advance(1);
  EXPECT_EQ(spin->Value(), 1999);
  EXPECT_FALSE(spin->Typing());

  platform.Type("0042"); // outside the range: dropped
  platform.Advance(750);
  EXPECT_EQ(spin->Value(), 1999);

  platform.Type("12x005"); // a fifth digit pushes the oldest out; letters are ignored
  EXPECT_EQ(spin->Typed(), 2005);
  platform.Advance(750);
  EXPECT_EQ(spin->Value(), 2005);
  EXPECT_EQ(changes, 0);
}

TEST_F(NumberSpinTest, SettersValidateAndReportTheirKeys) {
  spin->SetValue(1600);
  spin->SetValue(10000);
  EXPECT_EQ(spin->Value(), 2000);
  spin->SetValue(9999);
  EXPECT_EQ(spin->Value(), 9999);

  spin->SetButtonStyle(2);
  ControlError error = Raised([&] { spin->SetButtonStyle(3); });
  EXPECT_EQ(error.Number(), 5065);
  EXPECT_EQ(error.Source(), "Tarnbrook.DatePicker");
  EXPECT_EQ(error.Description(), "Invalid ButtonStyle!");
  EXPECT_EQ(spin->ButtonStyle(), 2);
  spin->SetBorderStyle(dtpBorderFixedSingle);
  spin->SetForeColor(0xFF);
  EXPECT_EQ(form.ChangedKeys("spnYear"),
            (Keys{"Value", "Value", "Value", "ButtonStyle", "BorderStyle", "ForeColor"}));
  EXPECT_EQ(changes, 0);
}

TEST_F(NumberSpinTest, OnlyButtonWidthAndEnabledAreSavedAndReloaded) {
  MemoryPropertyBag fresh;
  spin->WriteProperties(fresh);
  EXPECT_TRUE(fresh.Entries().empty());

  spin->SetButtonWidth(20);
  spin->SetEnabled(false);
  spin->SetButtonStyle(1);
  spin->SetBorderStyle(dtpBorderNone);
  RegisterControlClass<NumberSpin>("NumberSpin");
  Container reloaded;
  reloaded.LoadFromText(form.SaveToText());
  auto& copy = static_cast<NumberSpin&>(*reloaded.Find("spnYear"));
  EXPECT_EQ(copy.ButtonWidth(), 20);
  EXPECT_FALSE(copy.Enabled());
  EXPECT_EQ(copy.ButtonStyle(), 0);
  EXPECT_EQ(copy.BorderStyle(), dtpBorderSunken3D);
  EXPECT_EQ(copy.Value(), 0);
  EXPECT_EQ(copy.PreferredHeight(), spin->PreferredHeight() + 4); // a border of 2 again
}

TEST_F(NumberSpinTest, PressedButtonsDisabledTextAndFocusShowOnTheWindow) {
  const auto upFace = [&] { return Pixels(Width - 16, 2, Width - 2, 10); };
  const std::vector<COLORREF> raised = upFace();
  PressAt(Up());
  EXPECT_NE(upFace(), raised);
  ReleaseAt(Up());
  EXPECT_EQ(upFace(), raised);

  const int32_t textRight = Width - 16;
  const COLORREF black = 0x000000, gray = static_cast<COLORREF>(GetSysColor(COLOR_GRAYTEXT));
  spin->SetFocus();
  const int focusedBlack = CountPixels(black, textRight); // the digits and the focus dots
  EXPECT_GT(focusedBlack, 20);
  EXPECT_EQ(CountPixels(gray, textRight), 0);
  platform.SetFocus(form.hWnd());
  EXPECT_LT(CountPixels(black, textRight), focusedBlack);

  spin->SetEnabled(false);
  EXPECT_EQ(CountPixels(black, textRight), 0);
  EXPECT_GT(CountPixels(gray, textRight), 10);
  EXPECT_NE(upFace(), raised); // the arrow is greyed
}

} // namespace
} // namespace tarnbrook
