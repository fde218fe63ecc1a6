#pragma once
#include <cstdint>

namespace tarnbrook {

// Where a pop-up goes vertically, and the direction it unrolls in.
struct DropDownPlacement {
  int32_t Y = 0;
  uint32_t direction = 0; // AW_VER_POSITIVE (down) or AW_VER_NEGATIVE (up)
};

// Below the anchor when the pop-up fits above the work area's bottom, else above the anchor.
// Nothing is corrected further: a pop-up that fits neither way still goes above.
DropDownPlacement PlaceDropDown(int32_t Y, int32_t Height, int32_t ParentHeight,
                                int32_t workBottom);

// The AnimateWindow flags for animation type `eType` (1 blend, 2 slide, 3 roll, any other
// nonzero value taken as flag bits), AW_ACTIVATE included.
uint32_t DropDownAnimationFlags(int32_t eType, uint32_t direction);

} // namespace tarnbrook
