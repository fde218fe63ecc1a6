#pragma once
#include <cstdlib>
#include <string>

#include "host/control.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

// A person's hand on the simulator's mouse and keyboard, working in a control's client
// coordinates.
class Hand {
public:
  explicit Hand(MemoryPlatform& platform) : platform_(platform) {}

  Point At(const Control& control, int32_t x, int32_t y) const {
    return platform_.ClientToScreen(control.hWnd(), {x, y});
  }
  // A click at a point of the control, by default its middle.
  void Click(const Control& control, int32_t x = -1, int32_t y = -1) const {
    const Point p =
        At(control, x < 0 ? control.ScaleWidth() / 2 : x, y < 0 ? control.ScaleHeight() / 2 : y);
    platform_.Click(p.x, p.y);
  }
  // Clicks into a field, selects what it holds and types over it.
  void TypeOver(const Control& field, const std::string& text) const {
    Click(field);
    platform_.Key('A', MemoryPlatform::CtrlKey);
    platform_.Type(text);
  }
  // Drops a list with the keyboard, moves `steps` entries down (up when negative), picks.
  void PickWithKeys(const Control& list, int steps) const {
    platform_.SetFocus(list.hWnd());
    platform_.Key(VK_F4);
    for (int i = 0; i < std::abs(steps); ++i)
      platform_.Key(steps > 0 ? VK_DOWN : VK_UP);
    platform_.Key(VK_RETURN);
  }

private:
  MemoryPlatform& platform_;
};

} // namespace tarnbrook
