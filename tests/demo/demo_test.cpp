#include <fstream>

#include "tests/demo/demo_fixture.hpp"

namespace tarnbrook {
namespace {

// The demo starts on Saturday 21 November 2026: picker1 shows 11/21/2026, picker2
// 11/21/2026 12:00:00 PM; picker1's calendar shows November from Sunday the 1st.
const Point Button{layout::Picker1.Width() - 8, 10}; // picker1's drop-down button

TEST_F(DemoTest, ADayPickedOnTheDroppedDownCalendarReachesThePickerAndTheSavedForm) {
  Click(In(layout::Picker1, Button.x, Button.y));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  // The header ends where the day area starts; the 21st (Saturday, third row) is circled.
  EXPECT_EQ(Pixel(OnCalendar(100, 2)), ButtonFace);
  EXPECT_EQ(Pixel(OnCalendar(100, 32)), ButtonFace);
  EXPECT_EQ(Pixel(OnCalendar(100, 33)), White);
  EXPECT_EQ(Pixel(OnCalendar(18 + 28 * 6 - 9, 60 + 16 * 2)), Navy);

  Grabbed before = Grab(In(layout::Picker1, 0, 2), 100, 17); // the text, left of the button
  Click(OnCalendar(18 + 28 * 4, 60 + 16 * 3));               // Thursday the 26th
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  EXPECT_EQ(Take("picker1", "MouseMove"),
            (Lines{"MouseDown 1 0 142 10", "BeforeCalendarDropDown False", "AfterCalendarDropDown",
                   "MouseUp 1 0 142 10", "Change", "BeforeCalendarCloseUp False",
                   "AfterCalendarCloseUp"}));
  // The form again, and "11/21/2026" became "11/26/2026": only the day's digits changed, once
  // the X server shows the picker's new picture.
  EXPECT_TRUE(WaitUntil([&] { return Pixel(OnCalendar(100, 33)) == ButtonFace; }));
  std::pair<int32_t, int32_t> changed;
  EXPECT_TRUE(WaitUntil([&] {
    changed = ChangedColumns(before, In(layout::Picker1, 0, 2));
    return changed.first >= 20 && changed.second < 45 && changed.first <= changed.second;
  })) << changed.first
      << ".." << changed.second;

  Stop();
  std::string saved{std::istreambuf_iterator<char>(std::ifstream(formFile).rdbuf()), {}};
  EXPECT_NE(saved.find("\"Date\": 46352.0"), std::string::npos) << saved; // the 26th
}

TEST_F(DemoTest, DigitsTypedIntoTheCustomPickersFieldCountAfterAPause) {
  Click(In(layout::Picker2, 12, 10)); // the month
  ASSERT_TRUE(WaitForLine("picker2 MouseUp 1 0 12 10"));
  auto typed = std::chrono::steady_clock::now();
  Xdotool("type 07");
  ASSERT_TRUE(WaitForLine("picker2 Change"));
  EXPECT_GE(std::chrono::steady_clock::now() - typed, std::chrono::milliseconds(700));
  EXPECT_EQ(Take("picker2", "MouseMove"),
            (Lines{"MouseDown 1 0 12 10", "MouseUp 1 0 12 10", "KeyDown 48 0", "KeyPress 48",
                   "KeyUp 48 0", "KeyDown 55 0", "KeyPress 55", "KeyUp 55 0", "Change"}));
}

TEST_F(DemoTest, EscapeClosesTheCalendarWithoutAskingAndAnOutsideClickAsks) {
  Click(In(layout::Picker1, Button.x, Button.y));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  Xdotool("key Escape");
  ASSERT_TRUE(WaitForLine("picker1 KeyUp 27 0"));
  EXPECT_EQ(Take("picker1", "Mouse"),
            (Lines{"BeforeCalendarDropDown False", "AfterCalendarDropDown", "KeyDown 27 0",
                   "AfterCalendarCloseUp", "KeyPress 27", "KeyUp 27 0"}));
  EXPECT_EQ(Pixel(OnCalendar(100, 33)), ButtonFace);

  // A little lower, so that this press does not pair with the first as a double click.
  Click(In(layout::Picker1, Button.x, Button.y + 4));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  EXPECT_EQ(Pixel(OnCalendar(100, 33)), White);
  Click(In({}, layout::EmptySpot.x, layout::EmptySpot.y));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  EXPECT_EQ(Take("picker1", "Mouse"),
            (Lines{"BeforeCalendarDropDown False", "AfterCalendarDropDown",
                   "BeforeCalendarCloseUp False", "AfterCalendarCloseUp"}));
  EXPECT_EQ(Pixel(OnCalendar(100, 33)), ButtonFace);
}

} // namespace
} // namespace tarnbrook
