#pragma once
#include <cstdint>
#include <string>

#include "draw/canvas.hpp"

namespace tarnbrook {

// One push-button face (a scroll arrow or a push button) in one of three button styles:
// Border 0 = 3D, 1 = thin 3D, 2 = flat. It draws into the context it was given.
class CFrame {
public:
  int32_t FrameType = 0; // DFC_SCROLL (3) or DFC_BUTTON (4)
  int32_t Border = 0;
  int32_t Style = 0; // DFCS_SCROLLUP ... DFCS_SCROLLCOMBOBOX, or DFCS_BUTTONPUSH
  int32_t State = 0; // DFCS_INACTIVE, DFCS_PUSHED, DFCS_FLAT bits
  std::string Name;
  bool Visible = true;
  bool Enabled = true;
  Rect rectangle;
  HDC hDC = 0;

  void Init(int32_t FrameType, int32_t Style, HDC hDC, int32_t Top, int32_t Left, int32_t Height,
            int32_t Width);
  void Move(int32_t Top, int32_t Left, int32_t Height, int32_t Width);
  void Draw() const;
  // Left and top lines inside, right and bottom lines outside.
  bool CheckPoint(int32_t x, int32_t y) const;
  void AddState(int32_t StatetoAdd) { State |= StatetoAdd; }
  void RemoveState(int32_t StatetoRemove) { State &= ~StatetoRemove; }
};

} // namespace tarnbrook
