#include "tests/picker/picker_fixture.hpp"

namespace tarnbrook {
namespace {

// A focused picker steps its current field a notch at a time, as the arrow keys do; an
// unfocused one leaves the wheel to the page, so that scrolling never changes a date.
TEST_F(PickerTest, TheWheelStepsOnlyAFocusedPickersField) {
  Start(DateSerial(2026, 11, 21));
  auto& other = static_cast<DatePicker&>(
      form.Add(std::make_unique<DatePicker>(), "DatePicker2", Left, 80, PickerWidth, 21));
  const Point onPicker = ScreenPoint(10, 10);
  platform.MouseWheel(WHEEL_DELTA, onPicker.x, onPicker.y); // the month, the first field
  platform.MouseWheel(-3 * WHEEL_DELTA, onPicker.x, onPicker.y);
  EXPECT_EQ(Date(), DateSerial(2026, 9, 21));
  EXPECT_EQ(log.Take(), (Log{"Change", "Change", "Change", "Change"}));
  EXPECT_EQ(ChangedKeys(), (Log{"Value", "Value"}));

  other.SetValue(Variant::Date(DateSerial(2000, 1, 1)));
  const Point onOther = platform.ClientToScreen(other.hWnd(), {10, 10});
  platform.MouseWheel(WHEEL_DELTA, onOther.x, onOther.y);
  EXPECT_EQ(other.Value().ToDate(), DateSerial(2000, 1, 1));
  EXPECT_EQ(Date(), DateSerial(2026, 9, 21));
}

// The dropped calendar turns a month a notch under the wheel, away from the user to the
// month before.
TEST_F(PickerTest, TheDroppedCalendarTurnsAMonthANotch) {
  Start(DateSerial(2026, 11, 21));
  platform.Key(VK_F4);
  ASSERT_TRUE(picker->IsDropped());
  const Rect calendar = platform.GetWindowRect(picker->Calendar().hWnd());
  platform.MouseWheel(WHEEL_DELTA, calendar.left + 20, calendar.top + 60);
  EXPECT_EQ(picker->Calendar().SelectedMonth(), 10);
  platform.MouseWheel(-2 * WHEEL_DELTA, calendar.left + 20, calendar.top + 60);
  EXPECT_EQ(picker->Calendar().SelectedMonth(), 12);
  EXPECT_TRUE(picker->IsDropped());
}

} // namespace
} // namespace tarnbrook
