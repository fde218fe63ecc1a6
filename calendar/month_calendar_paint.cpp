#include "calendar/month_calendar.hpp"

namespace tarnbrook {

void MonthCalendar::CreateButtons() {}

void MonthCalendar::Paint() {
  Refresh();
}

void MonthCalendar::OnPaint() {}

void MonthCalendar::PaintDayCells() {}

void MonthCalendar::OnResize() {}

} // namespace tarnbrook
