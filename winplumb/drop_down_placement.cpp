#include "winplumb/drop_down_placement.hpp"

#include "common/geometry.hpp"
#include "platform/messages.hpp"

namespace tarnbrook {

namespace {
enum DropDownAnimation : int32_t { AnimateBlend = 1, AnimateSlide = 2, AnimateRoll = 3 };
} // namespace

DropDownPlacement PlaceDropDown(int32_t Y, int32_t Height, int32_t ParentHeight,
                                int32_t workBottom) {
  if (int64_t(Y) + Height > workBottom) {
    return {SaturatedSum(int64_t(Y) - ParentHeight, -int64_t(Height)), AW_VER_NEGATIVE};
  }
  return {Y, AW_VER_POSITIVE};
}

uint32_t DropDownAnimationFlags(int32_t eType, uint32_t direction) {
  uint32_t flags = 0;
  switch (eType) {
  case AnimateBlend:
    flags = AW_BLEND;
    break;
  case AnimateSlide:
    flags = AW_SLIDE | direction;
    break;
  case AnimateRoll:
    flags = direction;
    break;
  default:
    flags = static_cast<uint32_t>(eType);
    break;
  }
  return flags | AW_ACTIVATE;
}

} // namespace tarnbrook
