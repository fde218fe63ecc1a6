// The picker's page: its own properties and those it passes on to its drop-down calendar.
#include "design/pp_pages.hpp"

namespace tarnbrook {

PageDescription ppDatePickerProperties() {
  using K = EditorKind;
  PageDescription page{"ppDatePickerProperties", "General", "DatePicker", 3, {}};
  page.fields = {
      {"Format"},
      {"CustomFormat", K::Format, 0},
      {"Button"},
      {"ButtonWidth"},
      {"ButtonStyle"},
      {"BorderStyle"},
      {"MinDate"},
      {"MaxDate"},
      {"AllowEmpty"},
      {"ExitOnReturn"},
      {"UseFocusColor"},
      {"ShowFocusRect"},
      {"Colors", K::Colors, 1, {"BackColor", "ForeColor", "FocusColor"}},
      {"Fonts", K::Fonts, 1, {"Font", "CalendarFont"}},
      {"Calendar colors",
       K::Colors,
       1,
       {"CalendarBackColor", "CalendarActiveMonthColor", "CalendarInactiveMonthColor",
        "CalendarPresentDateColor", "CalendarWeekdayColor", "CalendarHeaderColor",
        "CalendarHeaderForeColor"}},
      {"CalendarAnimation", K::Auto, 2},
      {"CalendarButtonStyle", K::Auto, 2},
      {"FirstDayofWeek", K::Choice, 2, {}, FirstDayChoices()},
      {"TodayButtonCaption", K::Auto, 2},
      {"EmptyButtonCaption", K::Auto, 2},
      {"CalendarHoverIcon", K::Auto, 2},
      {"CalendarBackground", K::Auto, 2},
      {"CalendarBackDrawMode", K::Auto, 2},
  };
  return page;
}

} // namespace tarnbrook
