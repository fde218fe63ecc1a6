// The calendar and the pickers in the user's own language: German, French, Japanese and
// Swedish, as ICU describes them, on Monday 15 March 2027.
#include <memory>
#include <string>

#include "apps/gallery/gallery.hpp"
#include "calendar/month_calendar.hpp"
#include "common/locale.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook::gallery {
namespace {

constexpr int32_t Margin = 12;
constexpr int32_t LabelHeight = 18;
constexpr int32_t PickerWidth = 230;
constexpr int32_t PickerHeight = 21;
constexpr int32_t ColumnWidth = PickerWidth + Margin;
constexpr int32_t CellHeight =
    LabelHeight + MonthCalendar::FixedHeight + Margin + 3 * (PickerHeight + 6) + Margin;

struct Language {
  const char* icuName;
  const char* caption;
};

constexpr Language Languages[] = {
    {"de_DE", "Deutsch (de_DE)"},
    {"fr_FR", "Français (fr_FR)"},
    {"ja_JP", "日本語 (ja_JP)"},
    {"sv_SE", "Svenska (sv_SE)"},
};

// One column: the calendar, then a long date, a short date and a time picker.
void WriteColumn(MemoryPlatform& platform, Container& form, cMDC& surface, int32_t left) {
  const int32_t top = Margin + LabelHeight;
  form.Add(std::make_unique<MonthCalendar>(form.hWnd()), "calendar" + std::to_string(left), left,
           top, MonthCalendar::FixedWidth, MonthCalendar::FixedHeight);
  int32_t pickerTop = top + MonthCalendar::FixedHeight + Margin;
  for (int format : {dtpLongDate, dtpShortDate, dtpTime}) {
    auto& picker = static_cast<DatePicker&>(
        form.Add(std::make_unique<DatePicker>(form.hWnd()),
                 "picker" + std::to_string(left) + "_" + std::to_string(format), left, pickerTop,
                 PickerWidth, PickerHeight));
    picker.SetFormat(format);
    picker.SetValue(Variant::Date(platform.Now()));
    pickerTop += PickerHeight + 6;
  }
  platform.PumpMessages();
  Point origin = platform.ClientToScreen(form.hWnd(), {left, top});
  std::unique_ptr<Canvas> screen = platform.ComposeScreen();
  surface.CopyFrom(screen->Handle(), left, top, PickerWidth, pickerTop - top, origin.x, origin.y);
}

void WriteLocales(const std::string& path) {
  const int32_t width = Margin + static_cast<int32_t>(std::size(Languages)) * ColumnWidth;
  MemoryPlatform platform;
  platform.SetNow(DateSerial(2027, 3, 15) + TimeSerial(14, 30, 0));
  Container form(width, CellHeight + MemoryPlatform::CaptionHeight);
  cMDC surface;
  StartPicture(surface, width, CellHeight);
  int32_t left = Margin;
  for (const Language& language : Languages) {
    SetCurrentLocale(Locale::FromIcu(language.icuName));
    Label(surface, language.caption, left, Margin, PickerWidth, LabelHeight);
    WriteColumn(platform, form, surface, left);
    left += ColumnWidth;
  }
  SetCurrentLocale(Locale::EnglishUS());
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

const bool registered = RegisterPicture("gallery-locales.png", WriteLocales);

} // namespace
} // namespace tarnbrook::gallery
