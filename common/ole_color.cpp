#include "common/ole_color.hpp"

#include <array>
#include <cstddef>

namespace tarnbrook {

namespace {

// The classic "Windows Standard" scheme, by system colour index.
constexpr std::array<int32_t, 31> StandardScheme = {
    RGB(192, 192, 192), // COLOR_SCROLLBAR
    RGB(0, 128, 128),   // COLOR_BACKGROUND
    RGB(0, 0, 128),     // COLOR_ACTIVECAPTION
    RGB(128, 128, 128), // COLOR_INACTIVECAPTION
    RGB(192, 192, 192), // COLOR_MENU
    RGB(255, 255, 255), // COLOR_WINDOW
    RGB(0, 0, 0),       // COLOR_WINDOWFRAME
    RGB(0, 0, 0),       // COLOR_MENUTEXT
    RGB(0, 0, 0),       // COLOR_WINDOWTEXT
    RGB(255, 255, 255), // COLOR_CAPTIONTEXT
    RGB(192, 192, 192), // COLOR_ACTIVEBORDER
    RGB(192, 192, 192), // COLOR_INACTIVEBORDER
    RGB(128, 128, 128), // COLOR_APPWORKSPACE
    RGB(0, 0, 128),     // COLOR_HIGHLIGHT
    RGB(255, 255, 255), // COLOR_HIGHLIGHTTEXT
    RGB(192, 192, 192), // COLOR_BTNFACE
    RGB(128, 128, 128), // COLOR_BTNSHADOW
    RGB(128, 128, 128), // COLOR_GRAYTEXT
    RGB(0, 0, 0),       // COLOR_BTNTEXT
    RGB(192, 192, 192), // COLOR_INACTIVECAPTIONTEXT
    RGB(255, 255, 255), // COLOR_BTNHIGHLIGHT
    RGB(0, 0, 0),       // COLOR_3DDKSHADOW
    RGB(192, 192, 192), // COLOR_3DLIGHT
    RGB(0, 0, 0),       // COLOR_INFOTEXT
    RGB(255, 255, 225), // COLOR_INFOBK
    RGB(181, 181, 181), // 25, the unnamed alternate button face
    RGB(0, 0, 128),     // COLOR_HOTLIGHT
    RGB(16, 132, 208),  // COLOR_GRADIENTACTIVECAPTION
    RGB(181, 181, 181), // COLOR_GRADIENTINACTIVECAPTION
    RGB(0, 0, 128),     // COLOR_MENUHILIGHT
    RGB(192, 192, 192), // COLOR_MENUBAR
};

} // namespace

int32_t GetSysColor(int index) {
  if (index < 0 || index >= static_cast<int>(StandardScheme.size())) {
    return -1;
  }
  return StandardScheme[static_cast<size_t>(index)];
}

int32_t TranslateColor(OleColor color) {
  uint32_t value = static_cast<uint32_t>(color);
  uint32_t low = value & 0xFFFFFFu;
  switch (value >> 24) {
  case 0x00: // plain RGB
  case 0x02: // palette-relative RGB
    return static_cast<int32_t>(low);
  case 0x80: // system colour index
    return low < StandardScheme.size() ? GetSysColor(static_cast<int>(low)) : -1;
  default:
    return -1;
  }
}

} // namespace tarnbrook
