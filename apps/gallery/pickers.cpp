// The DatePicker in its formats, buttons, borders and states, one with its calendar dropped
// down.
#include <memory>
#include <string>

#include "apps/gallery/gallery.hpp"
#include "common/date_runtime.hpp"
#include "picker/date_picker.hpp"
#include "platform/system_clock.hpp"

namespace tarnbrook::gallery {
namespace {

constexpr int32_t Margin = 12;
constexpr int32_t LabelHeight = 18;
constexpr int32_t Columns = 3;
constexpr int32_t PickerWidth = 240;
constexpr int32_t PickerHeight = 21;
constexpr int32_t CellWidth = PickerWidth + Margin;
constexpr int32_t CellHeight = LabelHeight + PickerHeight + Margin;

// One picker of the picture: its caption and how it is set up once placed.
struct Look {
  const char* label;
  void (*setUp)(MemoryPlatform& platform, DatePicker& picker);
};

void ClickField(MemoryPlatform& platform, DatePicker& picker, const char* type) {
  for (const CDateMask& field : picker.Fields()) {
    if (field.MaskType() == type) {
      Point p = platform.ClientToScreen(picker.hWnd(), {field.Left() + field.Width() / 2, 10});
      platform.Click(p.x, p.y);
      return;
    }
  }
}

const Look Looks[] = {
    {"Format 0: long date", [](MemoryPlatform&, DatePicker& p) { p.SetFormat(dtpLongDate); }},
    {"Format 1: short date", [](MemoryPlatform&, DatePicker&) {}},
    {"Format 2: time", [](MemoryPlatform&, DatePicker& p) { p.SetFormat(dtpTime); }},
    {"Custom format",
     [](MemoryPlatform&, DatePicker& p) {
       p.SetCustomFormat("'Week' d, MMMM yyyy hh:mm tt");
       p.SetFormat(dtpCustom);
     }},
    {"Button 0: drop-down", [](MemoryPlatform&, DatePicker&) {}},
    {"Button 1: up/down", [](MemoryPlatform&, DatePicker& p) { p.SetButton(dtpUpDown); }},
    {"Button 2: none", [](MemoryPlatform&, DatePicker& p) { p.SetButton(dtpNone); }},
    {"Button 3: both", [](MemoryPlatform&, DatePicker& p) { p.SetButton(dtpBoth); }},
    {"Both, thin 3D buttons",
     [](MemoryPlatform&, DatePicker& p) {
       p.SetButton(dtpBoth);
       p.SetButtonStyle(dtpButtonThin3D);
     }},
    {"Both, flat buttons",
     [](MemoryPlatform&, DatePicker& p) {
       p.SetButton(dtpBoth);
       p.SetButtonStyle(dtpButtonFlat);
     }},
    {"Border 0: none", [](MemoryPlatform&, DatePicker& p) { p.SetBorderStyle(0); }},
    {"Border 1: fixed single", [](MemoryPlatform&, DatePicker& p) { p.SetBorderStyle(1); }},
    {"Border 2: raised 3D", [](MemoryPlatform&, DatePicker& p) { p.SetBorderStyle(2); }},
    {"Border 3: sunken 3D", [](MemoryPlatform&, DatePicker& p) { p.SetBorderStyle(3); }},
    {"Border 4: sunken thin", [](MemoryPlatform&, DatePicker& p) { p.SetBorderStyle(4); }},
    {"Border 5: raised thin", [](MemoryPlatform&, DatePicker& p) { p.SetBorderStyle(5); }},
    {"Border 6: etched", [](MemoryPlatform&, DatePicker& p) { p.SetBorderStyle(6); }},
    {"Focused: colour and rectangle", [](MemoryPlatform&, DatePicker& p) { p.SetFocus(); }},
    {"The year selected by a click",
     [](MemoryPlatform& platform, DatePicker& p) {
       p.SetUseFocusColor(false);
       ClickField(platform, p, "y");
     }},
    {"Empty", [](MemoryPlatform&, DatePicker& p) { p.SetValue(Variant::Null()); }},
    {"Disabled", [](MemoryPlatform&, DatePicker& p) { p.SetEnabled(false); }},
};

constexpr int32_t Count = static_cast<int32_t>(std::size(Looks));
constexpr int32_t Rows = (Count + Columns - 1) / Columns;
constexpr int32_t DroppedTop = Margin + Rows * CellHeight;
constexpr int32_t Width = Margin + Columns * CellWidth;
constexpr int32_t Height =
    DroppedTop + LabelHeight + PickerHeight + MonthCalendar::FixedHeight + Margin;

// The pickers stand on a form at the places they take in the picture; each is copied from its
// window once set up, the dropped-down one from the screen with its calendar.
void WritePicture(const std::string& path) {
  MemoryPlatform platform;
  const DateValue now = SystemNow();
  platform.SetNow(now);
  Container form(Width, Height + MemoryPlatform::CaptionHeight);
  cMDC surface;
  StartPicture(surface, Width, Height);
  auto place = [&](int32_t i, int32_t left, int32_t top) -> DatePicker& {
    auto& picker = static_cast<DatePicker&>(form.Add(std::make_unique<DatePicker>(),
                                                     "Picker" + std::to_string(i), left,
                                                     top + LabelHeight, PickerWidth, PickerHeight));
    picker.SetValue(Variant::Date(now));
    platform.PumpMessages();
    return picker;
  };
  for (int32_t i = 0; i < Count; ++i) {
    int32_t left = Margin + (i % Columns) * CellWidth;
    int32_t top = Margin + (i / Columns) * CellHeight;
    DatePicker& picker = place(i, left, top);
    Looks[i].setUp(platform, picker);
    platform.PumpMessages();
    Label(surface, Looks[i].label, left, top, PickerWidth, LabelHeight,
          DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    surface.CopyFrom(platform.WindowCanvas(picker.hWnd())->Handle(), left, top + LabelHeight,
                     PickerWidth, PickerHeight, 0, 0);
  }

  // A whole day: the calendar circles its value only when it has no time part.
  DatePicker& dropped = place(Count, Margin, DroppedTop);
  dropped.SetValue(Variant::Date(platform.Today()));
  dropped.SetFocus();
  platform.Key(VK_F4);
  platform.PumpMessages();
  Label(surface, "F4: the calendar dropped down", Margin, DroppedTop, PickerWidth, LabelHeight,
        DT_LEFT | DT_VCENTER | DT_SINGLELINE);
  Point origin = platform.ClientToScreen(form.hWnd(), {0, 0});
  std::unique_ptr<Canvas> screen = platform.ComposeScreen();
  const int32_t top = DroppedTop + LabelHeight;
  surface.CopyFrom(screen->Handle(), Margin, top, PickerWidth,
                   PickerHeight + MonthCalendar::FixedHeight, origin.x + Margin, origin.y + top);
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

const bool registered = RegisterPicture("gallery-picker.png", WritePicture);

} // namespace
} // namespace tarnbrook::gallery
