// The picker's page: its own properties and those it passes on to its drop-down calendar.
#include "design/pp_pages.hpp"

namespace tarnbrook {

PageDescription ppDatePickerProperties() {
  using K = EditorKind;
  PageDescription page{"ppDatePickerProperties", "General", "DatePicker", 3, {}};
  page.fields = {
      {"Format", K::Auto, 0, {}, {}, {}},
      {"CustomFormat", K::Format, 0, {}, {}, {}},
      {"Button", K::Auto, 0, {}, {}, {}},
      {"ButtonWidth", K::Number, 0, {}, {}, {}},
      {"ButtonStyle", K::Auto, 0, {}, {}, {}},
      {"BorderStyle", K::Auto, 0, {}, {}, {}},
      {"MinDate", K::Date, 0, {}, {}, {}},
      {"MaxDate", K::Date, 0, {}, {}, {}},
      {"AllowEmpty", K::Check, 0, {}, {}, {}},
      {"ExitOnReturn", K::Check, 0, {}, {}, {}},
      {"UseFocusColor", K::Check, 0, {}, {}, {}},
      {"ShowFocusRect", K::Check, 0, {}, {}, {}},
      {"Colors", K::Colors, 1, {"BackColor", "ForeColor", "FocusColor"}, {}, {}},
      {"Fonts", K::Fonts, 1, {"Font", "CalendarFont"}, {}, {}},
      {"Calendar colors",
       K::Colors,
       1,
       {"CalendarBackColor", "CalendarActiveMonthColor", "CalendarInactiveMonthColor",
        "CalendarPresentDateColor", "CalendarWeekdayColor", "CalendarHeaderColor",
        "CalendarHeaderForeColor"},
       {},
       {}},
      {"CalendarAnimation", K::Auto, 2, {}, {}, {}},
      {"CalendarButtonStyle", K::Auto, 2, {}, {}, {}},
      {"FirstDayofWeek", K::Choice, 2, {}, FirstDayChoices(), {}},
      {"TodayButtonCaption", K::Text, 2, {}, {}, {}},
      {"EmptyButtonCaption", K::Text, 2, {}, {}, {}},
      {"CalendarHoverIcon", K::Check, 2, {}, {}, {}},
      {"CalendarBackground", K::Picture, 2, {}, {}, {}},
      {"CalendarBackDrawMode", K::Auto, 2, {}, {}, {}},
  };
  return page;
}

} // namespace tarnbrook
