// The calendar's page.
#include "design/pp_pages.hpp"

namespace tarnbrook {

std::vector<std::pair<std::string, int32_t>> FirstDayChoices() {
  return {{"vbUseSystemDayOfWeek", 0}, {"vbSunday", 1},   {"vbMonday", 2}, {"vbTuesday", 3},
          {"vbWednesday", 4},          {"vbThursday", 5}, {"vbFriday", 6}, {"vbSaturday", 7}};
}

PageDescription ppMonthCalendar() {
  using K = EditorKind;
  PageDescription page{"ppMonthCalendar", "General", "MonthCalendar", 2, {}};
  page.fields = {
      {"TodayButtonCaption"},
      {"EmptyButtonCaption"},
      {"EmptyButton"},
      {"FirstDayofWeek", K::Choice, 0, {}, FirstDayChoices()},
      {"ButtonStyle"},
      {"HoverIcon"},
      {"MinDate"},
      {"MaxDate"},
      {"BackgroundImage"},
      {"BackDrawMode"},
      {"Colors",
       K::Colors,
       1,
       {"BackColor", "ActiveMonthColor", "InactiveMonthColor", "PresentDateColor", "WeekDayColor",
        "HeaderColor", "HeaderForeColor"}},
      {"Fonts", K::Fonts, 1, {"Font"}},
  };
  return page;
}

} // namespace tarnbrook
