// The Qt example under its own Xvfb, driven with xdotool as a person would: the picker's
// drop-down and a day on it, Tab from the line edit into the picker and out with a typed date,
// and "Last Month" from the selection's option list.
#include <filesystem>

#include "tests/support/example_window.hpp"

namespace tarnbrook {
namespace {

class QtExample : public ::testing::Test {
protected:
  void SetUp() override {
    std::string whyNot;
    if (!program_.Start(TARNBROOK_QT_EXAMPLE, {{"QT_QPA_PLATFORM", "xcb"}}, whyNot))
      GTEST_SKIP() << whyNot;
    ASSERT_TRUE(program_.WaitForLine("ready"));
    ReadBounds();
  }

  bool WaitForLine(const std::string& prefix) { return program_.WaitForLine(prefix); }
  void Command(const std::string& line) { program_.Command(line); }
  void Xdotool(const std::string& arguments) { program_.Xdotool(arguments); }
  void Click(int x, int y) { program_.Click(x, y); }
  // The widgets and open pop-ups on the screen, by name.
  void ReadBounds() { bounds_ = program_.Bounds(); }
  // The class of the part holding the simulator's focus.
  std::string inner() {
    Command("inner");
    return WaitForLine("inner ") ? program_.Line().substr(6) : "(no answer)";
  }

  ExampleWindow program_;
  std::map<std::string, Box> bounds_;
};

TEST_F(QtExample, DropDownCalendarTakesADayAndShowsOnTheScreen) {
  const Box picker = bounds_["picker1"];
  ASSERT_EQ(picker.height, 21) << "the control's size is the widget's";
  ASSERT_EQ(bounds_.count("popup"), 0u);

  Click(picker.x + picker.width - 8, picker.y + picker.height / 2); // the drop-down button
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown"));
  ReadBounds();
  ASSERT_EQ(bounds_.count("popup"), 1u) << "the calendar shows as a window of its own";
  const Box calendar = bounds_["popup"];
  EXPECT_EQ(calendar.x, picker.x);
  EXPECT_EQ(calendar.y, picker.y + picker.height) << "right under the picker";

  const std::string shot = std::string(TARNBROOK_TEST_OUTPUT) + "/qt-calendar.png";
  std::filesystem::create_directories(TARNBROOK_TEST_OUTPUT);
  Command("shot " + shot);
  ASSERT_TRUE(WaitForLine("shot "));
  EXPECT_EQ(program_.Line(), "shot done");

  // The Thursday of the fourth row: March 2026 starts on a Sunday, so the 26th.
  Click(calendar.x + 18 + 28 * 4, calendar.y + 60 + 16 * 3);
  ASSERT_TRUE(WaitForLine("picker1 Value "));
  EXPECT_EQ(program_.Line(), "picker1 Value 3/26/2026");
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  ReadBounds();
  EXPECT_EQ(bounds_.count("popup"), 0u);

  // The click that picked the day hid the window it was on; the picker still takes the next.
  Click(picker.x + picker.width - 8, picker.y + picker.height / 2);
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown")) << "the calendar drops down again";
  ReadBounds();
  ASSERT_EQ(bounds_.count("popup"), 1u);

  // A press on another Qt widget is a press outside the calendar, which closes.
  const Box edit = bounds_["edit1"];
  Click(edit.x + 20, edit.y + edit.height / 2);
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp"));
  ReadBounds();
  EXPECT_EQ(bounds_.count("popup"), 0u);
  Command("value");
  ASSERT_TRUE(WaitForLine("picker1 Value "));
  EXPECT_EQ(program_.Line(), "picker1 Value 3/26/2026") << "closing without a pick keeps the day";
}

TEST_F(QtExample, TabGoesIntoThePickerTakesATypedDateAndGoesOn) {
  const Box edit = bounds_["edit1"];
  Click(edit.x + 20, edit.y + edit.height / 2);
  ASSERT_TRUE(WaitForLine("focus edit1"));
  EXPECT_EQ(inner(), "none");

  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus picker1"));
  EXPECT_EQ(inner(), "DatePicker");
  Xdotool("type 04/05/2027");
  ASSERT_TRUE(WaitForLine("picker1 Value 4/5/2027"));

  // Out of the picker to the DateSelect's option list, its one stop on "Today", and on.
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus select1"));
  EXPECT_EQ(inner(), "ComboBox");
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus edit2"));
  EXPECT_EQ(inner(), "none") << "the simulator lets the focus go with Qt's";

  // Shift+Tab comes back in at the last stop and out again the other way.
  Xdotool("key shift+Tab");
  ASSERT_TRUE(WaitForLine("focus select1"));
  EXPECT_EQ(inner(), "ComboBox");
  Xdotool("key shift+Tab");
  ASSERT_TRUE(WaitForLine("focus picker1"));
  EXPECT_EQ(inner(), "DatePicker");
  Xdotool("key shift+Tab");
  ASSERT_TRUE(WaitForLine("focus edit1"));
  Command("value");
  ASSERT_TRUE(WaitForLine("picker1 Value "));
  EXPECT_EQ(program_.Line(), "picker1 Value 4/5/2027");
}

TEST_F(QtExample, LastMonthFromTheOptionListWritesItsCriteria) {
  const Box options = bounds_["options"];
  Click(options.x + options.width - 8, options.y + options.height / 2);
  ReadBounds();
  ASSERT_EQ(bounds_.count("popup"), 1u) << "the option list drops down";
  // "Last Month" nine entries below "Today", chosen with keys as the list is open.
  Xdotool("key --delay 40 Down Down Down Down Down Down Down Down Down Return");
  ASSERT_TRUE(WaitForLine("select1 SelectionChange"));
  Command("value");
  ASSERT_TRUE(WaitForLine("select1 Selection "));
  EXPECT_EQ(program_.Line(), "select1 Selection 9") << "Last Month";
  ASSERT_TRUE(WaitForLine("select1 SQL "));
  EXPECT_EQ(program_.Line(), "select1 SQL  Date BETWEEN 2/1/2026 AND 2/28/2026 ");
  ReadBounds();
  EXPECT_EQ(bounds_.count("popup"), 0u);
}

} // namespace
} // namespace tarnbrook
