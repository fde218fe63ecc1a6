// Sizes and coordinates at the ends of the 32-bit range: refused with the control's error or
// held at the range's end, never wrapped around.
#include "automation_fixture.hpp"
#include "calendar/month_calendar.hpp"
#include "constituents/combo_list_x.hpp"
#include "constituents/number_spin.hpp"

namespace tarnbrook {
namespace {

TEST_F(AutomationTest, ValuesAtTheEndsOfTheRangeDoNotWrap) {
  auto& calendar = Place<MonthCalendar>("Tarnbrook.MonthCalendar", "Calendar1");
  EXPECT_NE(RaisedNumber([&] { calendar.SetSelectedMonth(INT32_MIN); }), 0);
  calendar.DropDown(INT32_MAX, INT32_MAX, INT32_MAX);
  EXPECT_TRUE(calendar.IsDropDownShown());
  calendar.HideDropDown();

  auto& spin = static_cast<NumberSpin&>(
      form->Add(std::make_unique<NumberSpin>(form->hWnd()), "Spin1", 5, 5, 80, 21));
  auto& list = static_cast<ComboListX&>(
      form->Add(std::make_unique<ComboListX>(form->hWnd()), "List1", 5, 40, 80, 21));
  for (int32_t width : {INT32_MIN, INT32_MAX}) {
    spin.SetButtonWidth(width); // kept as set, drawn within the box
    list.SetButtonWidth(width);
    spin.Refresh();
    list.Refresh();
    EXPECT_EQ(spin.ButtonWidth(), width);
  }
}

} // namespace
} // namespace tarnbrook
