// The MonthCalendar in its looks: today, colours, a background picture, button styles,
// disabled, a pressed button.
#include <memory>
#include <string>
#include <vector>

#include "apps/gallery/gallery.hpp"
#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "common/picture.hpp"
#include "platform/system_clock.hpp"

namespace tarnbrook::gallery {
namespace {

constexpr int32_t Margin = 12;
constexpr int32_t LabelHeight = 20;
constexpr int32_t Columns = 3;
constexpr int32_t CellWidth = MonthCalendar::FixedWidth + Margin;
constexpr int32_t CellHeight = LabelHeight + MonthCalendar::FixedHeight + Margin;

// One calendar of the picture: its caption and how it is set up once shown.
struct Look {
  const char* label;
  void (*setUp)(MemoryPlatform& platform, MonthCalendar& calendar);
};

// A small tile of two pale colours, so that tiling shows as a check pattern.
std::shared_ptr<Picture> CheckTile() {
  constexpr int Size = 12;
  std::vector<uint32_t> pixels(Size * Size);
  for (int y = 0; y < Size; ++y) {
    for (int x = 0; x < Size; ++x) {
      pixels[y * Size + x] = (x < Size / 2) == (y < Size / 2) ? 0xFFE8F0FF : 0xFFFFF4D8;
    }
  }
  return std::make_shared<Picture>(Size, Size, std::move(pixels));
}

const Look Looks[] = {
    {"Today's month, today selected", [](MemoryPlatform&, MonthCalendar&) {}},
    {"Another day selected",
     [](MemoryPlatform& platform, MonthCalendar& calendar) {
       DateValue today = platform.Today();
       calendar.SetValue(today + (Day(today) > 20 ? -7 : 7));
     }},
    {"HeaderColor -1 over a tiled picture",
     [](MemoryPlatform&, MonthCalendar& calendar) {
       calendar.SetBackgroundImage(CheckTile());
       calendar.SetBackDrawMode(mvwBackTile);
       calendar.SetHeaderColor(OleColorNone);
     }},
    {"Empty button, 3D",
     [](MemoryPlatform&, MonthCalendar& calendar) { calendar.SetEmptyButton(true); }},
    {"Empty button, thin 3D",
     [](MemoryPlatform&, MonthCalendar& calendar) {
       calendar.SetEmptyButton(true);
       calendar.SetButtonStyle(mvwButtonThin3D);
     }},
    {"Empty button, flat",
     [](MemoryPlatform&, MonthCalendar& calendar) {
       calendar.SetEmptyButton(true);
       calendar.SetButtonStyle(mvwButtonFlat);
     }},
    {"Colours, Monday first",
     [](MemoryPlatform&, MonthCalendar& calendar) {
       calendar.SetHeaderColor(RGB(0, 0, 128));
       calendar.SetHeaderForeColor(RGB(255, 255, 255));
       calendar.SetWeekDayColor(RGB(128, 0, 0));
       calendar.SetBackColor(RGB(255, 255, 240));
       calendar.SetFirstDayofWeek(vbMonday);
     }},
    {"Disabled", [](MemoryPlatform&, MonthCalendar& calendar) { calendar.SetEnabled(false); }},
    {"\"Right\" held down",
     [](MemoryPlatform& platform, MonthCalendar& calendar) {
       Point right = platform.ClientToScreen(calendar.hWnd(), {191, 16});
       platform.MouseDown(VK_LBUTTON, right.x, right.y);
     }},
};

void WritePicture(const std::string& path) {
  constexpr int32_t Count = static_cast<int32_t>(std::size(Looks));
  constexpr int32_t Rows = (Count + Columns - 1) / Columns;
  MemoryPlatform platform;
  platform.SetNow(SystemNow());
  cMDC surface;
  StartPicture(surface, Margin + Columns * CellWidth, Margin + Rows * CellHeight);
  for (int32_t i = 0; i < Count; ++i) {
    int32_t left = Margin + (i % Columns) * CellWidth;
    int32_t top = Margin + (i / Columns) * CellHeight;
    MonthCalendar calendar;
    calendar.Move(left, top + LabelHeight, MonthCalendar::FixedWidth, MonthCalendar::FixedHeight);
    calendar.SetVisible(true);
    platform.PumpMessages();
    Looks[i].setUp(platform, calendar);
    platform.PumpMessages();
    Label(surface, Looks[i].label, left, top, MonthCalendar::FixedWidth, LabelHeight,
          DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    surface.CopyFrom(platform.WindowCanvas(calendar.hWnd())->Handle(), left, top + LabelHeight,
                     MonthCalendar::FixedWidth, MonthCalendar::FixedHeight, 0, 0);
  }
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

const bool registered = RegisterPicture("gallery-calendar.png", WritePicture);

} // namespace
} // namespace tarnbrook::gallery
