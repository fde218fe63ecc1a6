#include <fstream>
#include <sstream>

#include "tests/demo/demo_fixture.hpp"

namespace tarnbrook {
namespace {

// The demo starts on Saturday 21 November 2026: picker1 shows 11/21/2026 in the short date,
// picker2 11/21/2026 12:00:00 PM; picker1's calendar shows November from Sunday the 1st.
const Point DropDownButton{layout::Picker1.Width() - 8, 10};
const Rect Picker1Text{2, 2, 100, 19}; // left of the button
constexpr unsigned long ButtonFace = 0xC0C0C0, White = 0xFFFFFF, Navy = 0x000080;

std::string FileText(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

TEST_F(DemoTest, ADayPickedOnTheDroppedDownCalendarReachesThePickerAndTheSavedForm) {
  Click(OnScreen(layout::Picker1, DropDownButton.x, DropDownButton.y));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  // The header ends where the day area starts; the 21st (Saturday, third row) is circled.
  EXPECT_EQ(CalendarPixel(100, 2), ButtonFace);
  EXPECT_EQ(CalendarPixel(100, 32), ButtonFace);
  EXPECT_EQ(CalendarPixel(100, 33), White);
  EXPECT_EQ(CalendarPixel(18 + 28 * 6 - 9, 60 + 16 * 2), Navy);

  Grabbed before = Grab(layout::Picker1, Picker1Text);
  Click(OnCalendar(18 + 28 * 4, 60 + 16 * 3)); // Thursday the 26th
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  EXPECT_EQ(Take("picker1", {"MouseMove"}),
            (Lines{"MouseDown 1 0 142 10", "BeforeCalendarDropDown False", "AfterCalendarDropDown",
                   "MouseUp 1 0 142 10", "Change", "BeforeCalendarCloseUp False",
                   "AfterCalendarCloseUp"}));
  EXPECT_EQ(CalendarPixel(100, 33), ButtonFace); // the form again
  // "11/21/2026" became "11/26/2026": only the day's digits changed.
  std::set<int32_t> changed = ChangedColumns(before, layout::Picker1, Picker1Text);
  ASSERT_FALSE(changed.empty());
  EXPECT_GE(*changed.begin(), 20);
  EXPECT_LT(*changed.rbegin(), 45);

  Stop();
  std::string saved = FileText(formFile);
  EXPECT_NE(saved.find("\"picker1\""), std::string::npos);
  EXPECT_NE(saved.find(std::to_string(static_cast<int>(DateSerial(2026, 11, 26)))),
            std::string::npos)
      << saved;
}

TEST_F(DemoTest, DigitsTypedIntoTheCustomPickersFieldCountAfterAPause) {
  Click(OnScreen(layout::Picker2, 12, 10)); // the month
  ASSERT_TRUE(WaitForLine("picker2 MouseUp 1 0 12 10"));
  const Rect text{2, 2, 160, 19};
  Grabbed before = Grab(layout::Picker2, text);
  auto typed = std::chrono::steady_clock::now();
  Xdotool("type 07");
  ASSERT_TRUE(WaitForLine("picker2 Change"));
  EXPECT_GE(std::chrono::steady_clock::now() - typed, std::chrono::milliseconds(700));
  EXPECT_EQ(Take("picker2", {"MouseMove"}),
            (Lines{"MouseDown 1 0 12 10", "MouseUp 1 0 12 10", "KeyDown 48 0", "KeyPress 48",
                   "KeyUp 48 0", "KeyDown 55 0", "KeyPress 55", "KeyUp 55 0", "Change"}));
  // "11/21/2026 12:00:00 PM" became "07/21/2026 12:00:00 PM".
  std::set<int32_t> changed = ChangedColumns(before, layout::Picker2, text);
  ASSERT_FALSE(changed.empty());
  EXPECT_LT(*changed.rbegin(), 20);
}

TEST_F(DemoTest, EscapeClosesTheCalendarWithoutAskingAndAnOutsideClickAsks) {
  Click(OnScreen(layout::Picker1, DropDownButton.x, DropDownButton.y));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  Xdotool("key Escape");
  ASSERT_TRUE(WaitForLine("picker1 KeyUp 27 0"));
  EXPECT_EQ(
      Take("picker1", {"Mouse", "Key"}),
      (Lines{"BeforeCalendarDropDown False", "AfterCalendarDropDown", "AfterCalendarCloseUp"}));
  EXPECT_EQ(CalendarPixel(100, 33), ButtonFace);

  // A little lower, so that this press does not pair with the first as a double click.
  Click(OnScreen(layout::Picker1, DropDownButton.x, DropDownButton.y + 4));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  EXPECT_EQ(CalendarPixel(100, 33), White);
  Click(OnScreen({}, layout::EmptySpot.x, layout::EmptySpot.y));
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  EXPECT_EQ(Take("picker1", {"Mouse", "Key"}),
            (Lines{"BeforeCalendarDropDown False", "AfterCalendarDropDown",
                   "BeforeCalendarCloseUp False", "AfterCalendarCloseUp"}));
  EXPECT_EQ(CalendarPixel(100, 33), ButtonFace);
}

} // namespace
} // namespace tarnbrook
