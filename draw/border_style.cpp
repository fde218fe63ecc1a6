#include "draw/border_style.hpp"

#include "draw/cdrawedge.hpp"

namespace tarnbrook {

void DrawBorderStyle(cMDC& surface, int32_t style, int32_t left, int32_t top, int32_t width,
                     int32_t height, OleColor fixedSingleColor) {
  uint32_t edge = 0;
  switch (style) {
  case dtpBorderFixedSingle:
    // The outline runs one pixel outside its box: a box one smaller lands on the border.
    surface.DrawBox(left, top, width - 1, height - 1, 1, fixedSingleColor, OleColorNone);
    return;
  case dtpBorderRaised3D:
    edge = EDGE_RAISED;
    break;
  case dtpBorderSunken3D:
    edge = EDGE_SUNKEN;
    break;
  case dtpBorderSunkenThin:
    edge = BDR_SUNKENOUTER;
    break;
  case dtpBorderRaisedThin:
    edge = BDR_RAISEDINNER;
    break;
  case dtpBorderEtched:
    edge = EDGE_ETCHED;
    break;
  default:
    return;
  }
  CDrawEdge border;
  border.Init(surface.hDC(), edge, top, left, height, width);
  border.Draw();
}

int32_t BorderStyleWidth(int32_t style) {
  switch (style) {
  case dtpBorderFixedSingle:
  case dtpBorderSunkenThin:
  case dtpBorderRaisedThin:
    return 1;
  case dtpBorderRaised3D:
  case dtpBorderSunken3D:
  case dtpBorderEtched:
    return 2;
  default:
    return 0;
  }
}

} // namespace tarnbrook
