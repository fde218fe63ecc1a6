// The calendar's picture: buttons, fixed size, and the whole paint in one pass.
#include "common/scoped_flag.hpp"
#include <charconv>
#include <optional>

#include "calendar/month_calendar.hpp"
#include "calendar/month_calendar_defaults.hpp"
#include "calendar/month_calendar_layout.hpp"
#include "common/date_format.hpp"
#include "common/date_value.hpp"
#include "common/locale.hpp"
#include "common/text.hpp"

namespace tarnbrook {

namespace layout = month_calendar_layout;

namespace {

constexpr uint32_t SingleLineRight = DT_RIGHT | DT_VCENTER | DT_SINGLELINE;
constexpr uint32_t SingleLineCentred = 0; // cMDC's centred single line

void DrawTextIn(cMDC& surface, std::string_view text, const Rect& rect, OleColor color,
                uint32_t flags = SingleLineCentred) {
  surface.DrawText(text, rect.left, rect.top, rect.Width(), rect.Height(), color, OleColorNone,
                   static_cast<int32_t>(flags), true);
}

// A caption rectangle moves one pixel right and down while its button is pushed.
Rect CaptionRect(const Rect& rect, const CFrame& button) {
  int32_t shift = (button.State & DFCS_PUSHED) ? 1 : 0;
  return {rect.left + shift, rect.top + shift, rect.right + shift, rect.bottom + shift};
}

void SelectFont(cMDC& surface, const Font& font, bool forceBold) {
  surface.SetFont(font.Name, font.Size, font.Bold || forceBold, font.Italic, font.Strikethrough,
                  font.Underline);
}

// Two characters of each abbreviated weekday name, the first column being `firstDay`
// (0: the locale's first day).
void PaintWeekdayNames(cMDC& surface, int32_t firstDay, OleColor color) {
  const Locale& locale = CurrentLocale();
  int32_t first = firstDay == vbUseSystemDayOfWeek ? locale.FirstDayOfWeek : firstDay;
  for (int32_t column = 0; column < layout::Columns; ++column) {
    int32_t weekday = ((first - 1 + column) % 7 + 7) % 7 + 1;
    int32_t left = layout::GridRect.left + layout::CellWidth * column;
    Rect cell{left, layout::WeekdayTop, left + layout::CellWidth, layout::WeekdayBottom};
    DrawTextIn(surface, Utf8Left(locale.WeekdayName(weekday, true), 2), cell, color);
  }
}

CivilDate NextDay(CivilDate date) {
  if (++date.Day > DaysInMonth(date.Year, date.Month)) {
    date.Day = 1;
    if (++date.Month > 12) {
      date.Month = 1;
      ++date.Year;
    }
  }
  return date;
}

} // namespace

void MonthCalendar::CreateButtons() {
  for (const layout::ButtonLayout& place : layout::Buttons) {
    CFrame& button = buttons_[place.name];
    button.Name = place.name;
    button.Init(place.frameType, place.style, Surface().hDC(), place.top, place.left, place.height,
                place.width);
    button.Border = buttonStyle_;
    button.Visible = place.visible;
  }
  t_.SetEnabled(false);
  t_.SetInterval(layout::FirstRepeatDelay);
  t_.SetCallback([this] { TimerTick(); });
  KeepFixedSize();
  Paint();
}

void MonthCalendar::Paint() {
  Refresh();
}

// Steps 1 to 11 of the picture; the base class then copies the surface to the window.
void MonthCalendar::OnPaint() {
  cMDC& surface = Surface();
  if (surface.hDC() == 0) {
    return;
  }
  int32_t width = surface.Width();
  int32_t height = surface.Height();

  surface.DrawBox(0, 0, width, height, 1, OleColorNone, backColor_);
  surface.DrawPicture(backDrawMode_, backgroundImage_.get());
  SelectFont(surface, font_, false);
  PaintWeekdayNames(surface, firstDayofWeek_, weekDayColor_);
  PaintDayCells();

  surface.DrawLine(layout::SeparatorLeft, layout::UpperSeparatorY, layout::SeparatorRight,
                   layout::UpperSeparatorY, vbButtonShadow);
  surface.DrawLine(layout::SeparatorLeft, layout::LowerSeparatorY, layout::SeparatorRight,
                   layout::LowerSeparatorY, vbButtonShadow);
  // -1 leaves the header unfilled, so the background shows through.
  surface.DrawBox(0, 0, width + 4, layout::HeaderHeight, 1, OleColorNone, headerColor_);

  for (auto& [name, button] : buttons_) {
    button.hDC = surface.hDC(); // the surface is new after a resize
    if (emptyButton_ || name != "Empty") {
      button.Draw();
    }
  }

  SelectFont(surface, font_, false);
  surface.SetBackColor(headerColor_);
  DrawTextIn(surface, cboMonth_->Text(), layout::MonthNameRect, headerForeColor_, SingleLineRight);
  DrawTextIn(surface, displayedYear_, layout::YearRect, headerForeColor_);

  DrawTextIn(surface, todayButtonCaption_,
             CaptionRect(layout::TodayCaptionRect, buttons_.at("Today")), vbWindowText);
  if (emptyButton_) {
    DrawTextIn(surface, emptyButtonCaption_,
               CaptionRect(layout::EmptyCaptionRect, buttons_.at("Empty")), vbWindowText);
  } else {
    static const CompiledDateFormat mediumDate("Medium Date");
    DrawTextIn(surface, mediumDate.Format(value_), layout::ValueTextRect, vbWindowText,
               SingleLineRight);
  }

  Canvas::FromHandle(surface.hDC())->DrawEdge({0, 0, width, height}, BDR_RAISEDINNER, BF_RECT);
}

// The 42 day cells: the selected day on a highlight ellipse in bold caption text, today in
// bold PresentDateColor, the rest in the active or inactive month colour.
void MonthCalendar::PaintDayCells() {
  cMDC& surface = Surface();
  if (surface.hDC() == 0) {
    return;
  }
  Canvas& canvas = *Canvas::FromHandle(surface.hDC());
  ComputeGrid();
  DateValue today = Platform::Current().Today();
  int32_t displayedMonth = SelectedMonth();
  surface.SelectBrush(vbHighlight);
  canvas.SelectPen(PS_SOLID, 1, static_cast<COLORREF>(TranslateColor(vbHighlight)));

  bool bold = font_.Bold;
  SelectFont(surface, font_, false);
  const DateValue firstDate = DateSerial(month_calendar_defaults::FirstYear, 1, 1);
  std::optional<CivilDate> civil; // of the cell's date, stepped from cell to cell
  for (int32_t i = 0; i < layout::Cells; ++i) {
    DateValue date = gridStart_ + i;
    if (date < firstDate)
      continue; // the week before January 100 has no dates: its cells stay empty
    civil = civil ? NextDay(*civil) : CivilFromDays(static_cast<long>(date));
    int32_t left = layout::GridRect.left + layout::CellWidth * (i % layout::Columns);
    int32_t top = layout::GridRect.top + layout::CellHeight * (i / layout::Columns);
    Rect cell{left, top, left + layout::CellWidth, top + layout::CellHeight};

    bool forceBold = true;
    OleColor color = presentDateColor_;
    if (date == value_) {
      canvas.Ellipse({cell.left + 2, cell.top, cell.right - 3, cell.bottom});
      color = vbTitleBarText;
    } else if (date != today) {
      forceBold = false;
      color = civil->Month == displayedMonth ? activeMonthColor_ : inactiveMonthColor_;
    }
    // Reselecting only on a change draws the same as selecting for every cell.
    if ((font_.Bold || forceBold) != bold) {
      SelectFont(surface, font_, forceBold);
      bold = font_.Bold || forceBold;
    }
    char digits[4];
    auto end = std::to_chars(digits, digits + sizeof digits, civil->Day).ptr;
    DrawTextIn(surface, std::string_view(digits, end - digits), cell, color);
  }
  surface.SetForeColor(headerForeColor_);
}

void MonthCalendar::OnResize() {
  KeepFixedSize();
}

// Puts the window back to 204 x 180 pixels whatever size it was given.
void MonthCalendar::KeepFixedSize() {
  if (keepingSize_ || (ScaleWidth() == FixedWidth && ScaleHeight() == FixedHeight)) {
    return;
  }
  const ScopedFlag keeping(keepingSize_);
  Platform::Current().SetWindowPos(hWnd(), 0, 0, 0, FixedWidth, FixedHeight,
                                   SWP_NOMOVE | SWP_NOZORDER);
}

} // namespace tarnbrook
