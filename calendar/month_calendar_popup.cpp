// The calendar as a pop-up next to an anchor, closed by a click outside it.
#include "calendar/month_calendar.hpp"

#include "common/conversions.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

void MonthCalendar::DropDown(int32_t X, int32_t Y, int32_t ParentHeight, int32_t Animate) {
  bool cancel = false;
  events_.Raise(&MonthCalendarEvents::BeforeDropDown, cancel);
  if (cancel)
    return;
  // The container measures in twips; the pop-up wants whole pixels, halves to even.
  const int32_t width = CLng(static_cast<double>(Width()) / Site().TwipsPerPixelX());
  const int32_t height = CLng(static_cast<double>(Height()) / Site().TwipsPerPixelY());
  bool autoHide = true;
  dropDown_.Show(hWnd(), X, Y, width, height, ParentHeight, Animate, autoHide);
  Platform::Current().SetWindowPos(hWnd(), HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
  events_.Raise(&MonthCalendarEvents::DroppedDown);
}

// A program closing the pop-up itself gets AfterClosedUp only, never BeforeCloseUp.
void MonthCalendar::HideDropDown() {
  if (dropDown_.IsShown())
    dropDown_.Hide();
}

bool MonthCalendar::IsDropDownShown() const {
  return dropDown_.IsShown();
}

void MonthCalendar::MouseDownOutside(bool& DontHide) {
  events_.Raise(&MonthCalendarEvents::BeforeCloseUp, DontHide);
}

void MonthCalendar::Hidden() {
  events_.Raise(&MonthCalendarEvents::AfterClosedUp);
}

// An animated show asks the window for its picture through WM_PRINTCLIENT.
void MonthCalendar::AttachPrintClient() {
  if (printClientAttached_ || !Site().UserMode())
    return;
  AttachMessage(this, hWnd(), WM_PRINTCLIENT);
  printClientAttached_ = true;
}

LRESULT MonthCalendar::WindowProc(HWND, int32_t iMsg, WPARAM wParam, LPARAM) {
  if (iMsg == WM_PRINTCLIENT)
    PrintClient(static_cast<HDC>(wParam));
  return 0;
}

} // namespace tarnbrook
