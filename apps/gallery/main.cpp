// Renders three PNGs: every button face, button style, state and border style; the
// MonthCalendar in its looks (today, colours, a background picture, button styles, disabled,
// a pressed button); and the DatePicker in its formats, buttons, borders and states, one with
// its calendar dropped down.
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "common/ole_color.hpp"
#include "common/picture.hpp"
#include "draw/border_style.hpp"
#include "draw/cframe.hpp"
#include "draw/cmdc.hpp"
#include "host/container.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"
#include "platform/system_clock.hpp"

using namespace tarnbrook;

namespace {

constexpr int32_t LabelWidth = 88;
constexpr int32_t CellWidth = 52;
constexpr int32_t GroupGap = 12;
constexpr int32_t RowHeight = 30;
constexpr int32_t HeaderHeight = 44;
constexpr int32_t BorderRowHeight = 56;

struct Kind {
  const char* label;
  int32_t frameType;
  int32_t style;
  int32_t width;
  int32_t height;
};

const std::vector<Kind> Kinds = {
    {"Push button", DFC_BUTTON, DFCS_BUTTONPUSH, 38, 21},
    {"Scroll up", DFC_SCROLL, DFCS_SCROLLUP, 17, 17},
    {"Scroll down", DFC_SCROLL, DFCS_SCROLLDOWN, 17, 17},
    {"Scroll left", DFC_SCROLL, DFCS_SCROLLLEFT, 17, 17},
    {"Scroll right", DFC_SCROLL, DFCS_SCROLLRIGHT, 17, 17},
    {"Combo arrow", DFC_SCROLL, DFCS_SCROLLCOMBOBOX, 17, 21},
    {"Left 14x20", DFC_SCROLL, DFCS_SCROLLLEFT, 14, 20},
    {"Up 16x10", DFC_SCROLL, DFCS_SCROLLUP, 16, 10},
};

struct State {
  const char* label;
  bool enabled;
  bool pushed;
};

const std::vector<State> States = {
    {"normal", true, false},
    {"pushed", true, true},
    {"inactive", false, false},
    {"inact.+p.", false, true},
};

const char* const ButtonStyles[] = {"0: 3D", "1: Thin 3D", "2: Flat"};

const char* const BorderNames[] = {"None",       "FixedSingle", "Raised3D", "Sunken3D",
                                   "SunkenThin", "RaisedThin",  "Etched"};

int32_t CellLeft(int32_t border, int32_t state) {
  return LabelWidth + border * (static_cast<int32_t>(States.size()) * CellWidth + GroupGap) +
         state * CellWidth;
}

void Label(cMDC& surface, const std::string& text, int32_t left, int32_t top, int32_t width,
           int32_t height, int32_t flags) {
  surface.DrawText(text, left, top, width, height, vbButtonText, OleColorNone, flags, true);
}

void DrawButtonGrid(cMDC& surface) {
  int32_t groupWidth = static_cast<int32_t>(States.size()) * CellWidth;
  for (int32_t border = 0; border < 3; ++border) {
    int32_t left = CellLeft(border, 0);
    Label(surface, ButtonStyles[border], left, 4, groupWidth, 16, 0);
    surface.DrawLine(left + 4, 21, left + groupWidth - 4, 21, vbButtonShadow);
    for (int32_t state = 0; state < static_cast<int32_t>(States.size()); ++state) {
      Label(surface, States[state].label, CellLeft(border, state), 24, CellWidth, 16, 0);
    }
  }
  for (int32_t row = 0; row < static_cast<int32_t>(Kinds.size()); ++row) {
    const Kind& kind = Kinds[row];
    int32_t top = HeaderHeight + row * RowHeight;
    Label(surface, kind.label, 6, top, LabelWidth - 6, RowHeight,
          DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    for (int32_t border = 0; border < 3; ++border) {
      for (int32_t state = 0; state < static_cast<int32_t>(States.size()); ++state) {
        CFrame frame;
        frame.Init(kind.frameType, kind.style, surface.hDC(), top + (RowHeight - kind.height) / 2,
                   CellLeft(border, state) + (CellWidth - kind.width) / 2, kind.height, kind.width);
        frame.Border = border;
        frame.Enabled = States[state].enabled;
        if (States[state].pushed) {
          frame.AddState(DFCS_PUSHED);
        }
        frame.Draw();
        if (kind.frameType == DFC_BUTTON) {
          const Rect& r = frame.rectangle;
          int32_t shift = States[state].pushed ? 1 : 0;
          OleColor color = States[state].enabled ? vbButtonText : vbGrayText;
          surface.DrawText("OK", r.left + shift, r.top + shift, r.Width(), r.Height(), color,
                           OleColorNone, 0, true);
        }
      }
    }
  }
}

void DrawBorderRow(cMDC& surface, int32_t top) {
  Label(surface, "Borders", 6, top, LabelWidth - 6, BorderRowHeight,
        DT_LEFT | DT_VCENTER | DT_SINGLELINE);
  constexpr int32_t BoxWidth = 72;
  constexpr int32_t BoxHeight = 22;
  for (int32_t style = 0; style <= dtpBorderEtched; ++style) {
    int32_t left = LabelWidth + style * (BoxWidth + 8);
    surface.DrawBox(left, top + 8, BoxWidth, BoxHeight, 1, OleColorNone, vbWindowBackground);
    DrawBorderStyle(surface, style, left, top + 8, BoxWidth, BoxHeight, vbWindowText);
    Label(surface, std::to_string(style), left, top + 8, BoxWidth, BoxHeight, 0);
    Label(surface, BorderNames[style], left - 4, top + 32, BoxWidth + 8, 16, 0);
  }
}

void WriteFramesPicture(const std::string& path) {
  int32_t width = CellLeft(3, 0) - GroupGap + 8;
  width = std::max(width, LabelWidth + 7 * 80 + 8);
  int32_t height = HeaderHeight + static_cast<int32_t>(Kinds.size()) * RowHeight + BorderRowHeight;
  cMDC surface;
  surface.SetBackColor(vbButtonFace);
  surface.Resize(width, height);
  surface.SetFont("MS Sans Serif", 8.25f);
  DrawButtonGrid(surface);
  DrawBorderRow(surface, HeaderHeight + static_cast<int32_t>(Kinds.size()) * RowHeight);
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

} // namespace

namespace calendars {

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
  surface.SetBackColor(vbButtonFace);
  surface.Resize(Margin + Columns * CellWidth, Margin + Rows * CellHeight);
  surface.SetFont("MS Sans Serif", 8.25f);
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

} // namespace calendars

namespace pickers {

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
  surface.SetBackColor(vbButtonFace);
  surface.Resize(Width, Height);
  surface.SetFont("MS Sans Serif", 8.25f);
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

} // namespace pickers

// gallery [frames.png [calendar.png [picker.png]]]: the calendar and picker pictures go beside
// the frames picture unless they are named.
int main(int argc, char** argv) {
  std::filesystem::path frames = argc > 1 ? argv[1] : "gallery.png";
  std::filesystem::path calendar =
      argc > 2 ? std::filesystem::path(argv[2]) : frames.parent_path() / "gallery-calendar.png";
  std::filesystem::path picker =
      argc > 3 ? std::filesystem::path(argv[3]) : frames.parent_path() / "gallery-picker.png";
  WriteFramesPicture(frames.string());
  calendars::WritePicture(calendar.string());
  pickers::WritePicture(picker.string());
  std::cout << frames.string() << "\n" << calendar.string() << "\n" << picker.string() << "\n";
  return 0;
}
