#include "calendar/month_calendar.hpp"

namespace tarnbrook {

void MonthCalendar::OnMouseDown(int16_t, int16_t, float, float) {}
void MonthCalendar::OnMouseMove(int16_t, int16_t, float, float) {}
void MonthCalendar::OnMouseUp(int16_t, int16_t, float, float) {}
void MonthCalendar::OnDblClick() {}
void MonthCalendar::OnKeyDown(int16_t&, int16_t) {}
void MonthCalendar::OnKeyPress(int16_t&) {}
void MonthCalendar::OnKeyUp(int16_t&, int16_t) {}
void MonthCalendar::PressButtonsAt(int32_t, int32_t) {}
void MonthCalendar::TimerTick() {}
void MonthCalendar::UpdateHoverCursor(int32_t, int32_t) {}

} // namespace tarnbrook
