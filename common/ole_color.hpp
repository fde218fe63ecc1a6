#pragma once
#include <cstdint>

namespace tarnbrook {

// An automation colour: 0x00BBGGRR, or a system colour index with the top bit set.
// -1 means "none" or "transparent" where a property says so.
using OleColor = int32_t;

constexpr OleColor OleColorNone = -1;

constexpr OleColor SystemColor(int index) {
  return static_cast<OleColor>(0x80000000u | static_cast<uint32_t>(index));
}

// System colour indexes (the platform's COLOR_ numbers).
enum SystemColorIndex : int {
  COLOR_SCROLLBAR = 0,
  COLOR_BACKGROUND = 1,
  COLOR_ACTIVECAPTION = 2,
  COLOR_INACTIVECAPTION = 3,
  COLOR_MENU = 4,
  COLOR_WINDOW = 5,
  COLOR_WINDOWFRAME = 6,
  COLOR_MENUTEXT = 7,
  COLOR_WINDOWTEXT = 8,
  COLOR_CAPTIONTEXT = 9,
  COLOR_ACTIVEBORDER = 10,
  COLOR_INACTIVEBORDER = 11,
  COLOR_APPWORKSPACE = 12,
  COLOR_HIGHLIGHT = 13,
  COLOR_HIGHLIGHTTEXT = 14,
  COLOR_BTNFACE = 15,
  COLOR_BTNSHADOW = 16,
  COLOR_GRAYTEXT = 17,
  COLOR_BTNTEXT = 18,
  COLOR_INACTIVECAPTIONTEXT = 19,
  COLOR_BTNHIGHLIGHT = 20,
  COLOR_3DDKSHADOW = 21,
  COLOR_3DLIGHT = 22,
  COLOR_INFOTEXT = 23,
  COLOR_INFOBK = 24,
  COLOR_HOTLIGHT = 26,
  COLOR_GRADIENTACTIVECAPTION = 27,
  COLOR_GRADIENTINACTIVECAPTION = 28,
  COLOR_MENUHILIGHT = 29,
  COLOR_MENUBAR = 30,
};

// The automation names of the system colours.
constexpr OleColor vbButtonFace = SystemColor(COLOR_BTNFACE);
constexpr OleColor vbWindowBackground = SystemColor(COLOR_WINDOW);
constexpr OleColor vbWindowText = SystemColor(COLOR_WINDOWTEXT);
constexpr OleColor vbTitleBarText = SystemColor(COLOR_CAPTIONTEXT);
constexpr OleColor vbHighlight = SystemColor(COLOR_HIGHLIGHT);
constexpr OleColor vbHighlightText = SystemColor(COLOR_HIGHLIGHTTEXT);
constexpr OleColor vbButtonShadow = SystemColor(COLOR_BTNSHADOW);
constexpr OleColor vbGrayText = SystemColor(COLOR_GRAYTEXT);
constexpr OleColor vbButtonText = SystemColor(COLOR_BTNTEXT);
constexpr OleColor vb3DHighlight = SystemColor(COLOR_BTNHIGHLIGHT);
constexpr OleColor vb3DDKShadow = SystemColor(COLOR_3DDKSHADOW);
constexpr OleColor vb3DLight = SystemColor(COLOR_3DLIGHT);

constexpr int32_t RGB(int r, int g, int b) {
  return r | (g << 8) | (b << 16);
}

// The RGB (0x00BBGGRR) of one system colour, classic desktop scheme; -1 for an unknown index.
int32_t GetSysColor(int index);

// OleTranslateColor: plain RGB for a colour, system colours looked up; -1 when it cannot be
// translated (unknown system index or an unknown high byte).
int32_t TranslateColor(OleColor color);

} // namespace tarnbrook
