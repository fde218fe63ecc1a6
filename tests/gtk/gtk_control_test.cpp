// The GTK example under its own Xvfb, driven with xdotool as a person would: the picker's
// drop-down, Tab through the controls with typing, and the selection's option list.
#include "tests/support/example_window.hpp"

namespace tarnbrook {
namespace {

class GtkExample : public ::testing::Test {
protected:
  void SetUp() override {
    std::string whyNot;
    if (!program_.Start(TARNBROOK_GTK_EXAMPLE,
                        {{"GDK_BACKEND", "x11"},
                         {"GSK_RENDERER", "cairo"},
                         {"NO_AT_BRIDGE", "1"},
                         {"GTK_A11Y", "none"}},
                        whyNot))
      GTEST_SKIP() << whyNot;
    ASSERT_TRUE(program_.WaitForLine("ready"));
    auto bounds = program_.Bounds();
    picker_ = bounds["picker1"];
    select_ = bounds["select1"];
    entry_ = bounds["entry1"];
  }

  bool WaitForLine(const std::string& prefix) { return program_.WaitForLine(prefix); }
  void Command(const std::string& line) { program_.Command(line); }
  void Xdotool(const std::string& arguments) { program_.Xdotool(arguments); }
  // Window-relative points: the example's window is the only one, at the screen's corner
  // without a window manager.
  void ClickAt(int x, int y) { program_.Click(x, y); }
  const std::string& Seen() { return program_.Seen(); }

  ExampleWindow program_;
  Box picker_, select_, entry_;
};

TEST_F(GtkExample, PickerDropsItsCalendarAsAPopoverAndTakesTheClickedDay) {
  ASSERT_GT(picker_.width, 0);
  ClickAt(picker_.x + picker_.width - 8, picker_.y + picker_.height / 2); // the drop-down button
  ASSERT_TRUE(WaitForLine("picker1 AfterCalendarDropDown")) << Seen();
  Command("shot " TARNBROOK_TEST_OUTPUT "/gtk-dropdown");
  ASSERT_TRUE(WaitForLine("shot")) << Seen();

  // The calendar opens under the picker, its left edge at the picker's: March 2026 with
  // 1 March on the first Sunday, rows about 16 pixels apart; Friday 20 March is on the third.
  ClickAt(picker_.x + 157, picker_.y + picker_.height + 93);
  ASSERT_TRUE(WaitForLine("picker1 Value")) << Seen();
  EXPECT_EQ(program_.Line(), "picker1 Value 3/20/2026");
  EXPECT_TRUE(WaitForLine("picker1 AfterCalendarCloseUp")) << Seen();
}

TEST_F(GtkExample, TabGoesIntoThePickerWhichTakesTypingAndOutToTheNextWidget) {
  ClickAt(picker_.x + 20, picker_.y + picker_.height / 2);
  ASSERT_TRUE(WaitForLine("focus picker1")) << Seen();
  ClickAt(entry_.x + 20, entry_.y + entry_.height / 2);
  ASSERT_TRUE(WaitForLine("focus entry1")) << Seen();
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus picker1")) << Seen();
  Xdotool("type --delay 40 4/1/2026");
  Xdotool("key Tab");
  ASSERT_TRUE(WaitForLine("focus select1")) << Seen();
  Command("shot " TARNBROOK_TEST_OUTPUT "/gtk-typed");
  ASSERT_TRUE(WaitForLine("shot")) << Seen();
  EXPECT_NE(Seen().find("picker1 Value 4/1/2026"), std::string::npos) << Seen();
  // Shift+Tab comes back to the picker.
  Xdotool("key shift+Tab");
  EXPECT_TRUE(WaitForLine("focus picker1")) << Seen();
}

TEST_F(GtkExample, LastMonthFromTheOptionListWritesItsCriteria) {
  ClickAt(select_.x + select_.width - 8, select_.y + 10); // the option list's button
  Command("shot " TARNBROOK_TEST_OUTPUT "/gtk-options");
  ASSERT_TRUE(WaitForLine("shot")) << Seen();
  // Nine entries below "Today", then Return.
  Xdotool("key --delay 40 Down Down Down Down Down Down Down Down Down Return");
  ASSERT_TRUE(WaitForLine("select1 SQL")) << Seen();
  EXPECT_EQ(program_.Line(), "select1 SQL  Date BETWEEN 2/1/2026 AND 2/28/2026 ");
}

} // namespace
} // namespace tarnbrook
