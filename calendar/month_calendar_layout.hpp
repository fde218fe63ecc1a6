#pragma once
// The calendar's fixed layout in pixels and the hit areas of its input, in one place.
#include <cstdint>

#include "common/geometry.hpp"
#include "draw/canvas.hpp"

namespace tarnbrook::month_calendar_layout {

constexpr int32_t HeaderHeight = 33;
constexpr Rect MonthNameRect{24, 5, 104, 26}; // right-aligned
constexpr Rect YearRect{110, 5, 144, 26};     // centred

constexpr int32_t WeekdayTop = 36;
constexpr int32_t WeekdayBottom = 52;
constexpr Rect GridRect{4, 52, 200, 148};
constexpr int32_t CellWidth = 28;
constexpr int32_t CellHeight = 16;
constexpr int32_t Columns = 7;
constexpr int32_t Cells = 42;

constexpr int32_t SeparatorLeft = 4;
constexpr int32_t SeparatorRight = 198;
constexpr int32_t UpperSeparatorY = 51;
constexpr int32_t LowerSeparatorY = 148;

constexpr Rect TodayCaptionRect{16, 156, 81, 173};
constexpr Rect EmptyCaptionRect{123, 156, 188, 173};
constexpr Rect ValueTextRect{72, 156, 192, 173};

// The six buttons as they are created.
struct ButtonLayout {
  const char* name;
  int32_t frameType;
  int32_t style;
  int32_t left;
  int32_t top;
  int32_t width;
  int32_t height;
  bool visible;
};
constexpr ButtonLayout Buttons[] = {
    {"Empty", DFC_BUTTON, DFCS_BUTTONPUSH, 121, 156, 65, 17, true},
    {"Today", DFC_BUTTON, DFCS_BUTTONPUSH, 16, 156, 65, 17, true},
    {"Left", DFC_SCROLL, DFCS_SCROLLLEFT, 4, 6, 14, 20, true},
    {"Right", DFC_SCROLL, DFCS_SCROLLRIGHT, 184, 6, 14, 20, true},
    {"Up", DFC_SCROLL, DFCS_SCROLLUP, 148, 6, 16, 10, false},
    {"Down", DFC_SCROLL, DFCS_SCROLLDOWN, 148, 16, 16, 10, false},
};

// Hit areas: the month name and the year are their text rectangles; the button area is
// where "Up" and "Down" appear, so the hover cursor stays while the pointer goes there.
constexpr Rect MonthNameArea = MonthNameRect;
constexpr Rect YearArea = YearRect;
constexpr Rect YearButtonArea{148, 6, 164, 26};

// Auto-repeat of a held button: the first repeat after FirstRepeatDelay, then every
// RepeatInterval. The first delay equals the interval, so holding a button steps evenly.
constexpr uint32_t FirstRepeatDelay = 100;
constexpr uint32_t RepeatInterval = 100;
// A year drag steps once the pointer has moved more than this many pixels up or down.
constexpr int32_t DragThreshold = 2;

} // namespace tarnbrook::month_calendar_layout
