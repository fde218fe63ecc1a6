#include "draw/cframe.hpp"

namespace tarnbrook {

void CFrame::Init(int32_t FrameType, int32_t Style, HDC hDC, int32_t Top, int32_t Left,
                  int32_t Height, int32_t Width) {
  this->FrameType = FrameType;
  this->Style = Style;
  this->hDC = hDC;
  Move(Top, Left, Height, Width);
}

void CFrame::Move(int32_t Top, int32_t Left, int32_t Height, int32_t Width) {
  rectangle = {Left, Top, Left + Width, Top + Height};
}

// A 3D button is the standard face; a thin-3D one a flat face under a one-pixel raised (or,
// pushed, sunken) rim; a flat one shows 3D only while pushed. Disabled means inactive.
void CFrame::Draw() const {
  if (!Visible || hDC == 0) {
    return;
  }
  Canvas& canvas = *Canvas::FromHandle(hDC);
  uint32_t base = static_cast<uint32_t>(Style | State);
  uint32_t inactive = Enabled ? 0u : DFCS_INACTIVE;
  uint32_t type = static_cast<uint32_t>(FrameType);
  bool pushed = (State & DFCS_PUSHED) != 0;
  switch (Border) {
  case 0:
    canvas.DrawFrameControl(rectangle, type, base | inactive);
    break;
  case 1:
    canvas.DrawFrameControl(rectangle, type, base | DFCS_FLAT | inactive);
    canvas.DrawEdge(rectangle, pushed ? BDR_SUNKENOUTER : BDR_RAISEDINNER, BF_RECT);
    break;
  case 2:
    if (pushed) {
      canvas.DrawFrameControl(rectangle, type, (base | inactive) & ~DFCS_FLAT);
    } else {
      canvas.DrawFrameControl(rectangle, type, base | DFCS_FLAT | inactive);
    }
    break;
  default:
    break;
  }
}

bool CFrame::CheckPoint(int32_t x, int32_t y) const {
  return rectangle.Contains({x, y});
}

} // namespace tarnbrook
