#pragma once
#include <cstdint>

#include "common/ole_color.hpp"
#include "draw/cmdc.hpp"

namespace tarnbrook {

// The date picker's border styles.
enum dtpBorderStyles {
  dtpBorderNone = 0,
  dtpBorderFixedSingle = 1,
  dtpBorderRaised3D = 2,
  dtpBorderSunken3D = 3,
  dtpBorderSunkenThin = 4,
  dtpBorderRaisedThin = 5,
  dtpBorderEtched = 6,
};

// Pixels a border style takes on each side: 0 for none (and unknown styles), 1 for the single
// and thin ones, 2 for the 3D and etched ones.
int32_t BorderStyleWidth(int32_t style);

// Draws a border style on the outermost pixels of the rectangle (left, top, width, height) of
// a surface; the fixed single line takes `fixedSingleColor`. Unknown styles draw nothing.
void DrawBorderStyle(cMDC& surface, int32_t style, int32_t left, int32_t top, int32_t width,
                     int32_t height, OleColor fixedSingleColor);

} // namespace tarnbrook
