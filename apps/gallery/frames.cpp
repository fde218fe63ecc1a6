// Every button face in every button style and state, and the seven border styles.
#include <algorithm>
#include <string>
#include <vector>

#include "apps/gallery/gallery.hpp"
#include "draw/border_style.hpp"
#include "draw/cframe.hpp"

namespace tarnbrook::gallery {
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
  StartPicture(surface, width, height);
  DrawButtonGrid(surface);
  DrawBorderRow(surface, HeaderHeight + static_cast<int32_t>(Kinds.size()) * RowHeight);
  Canvas::FromHandle(surface.hDC())->WritePng(path);
}

const bool registered = RegisterPicture("gallery.png", WriteFramesPicture);

} // namespace
} // namespace tarnbrook::gallery
