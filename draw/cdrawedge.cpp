#include "draw/cdrawedge.hpp"

namespace tarnbrook {

void CDrawEdge::Init(HDC hDC, uint32_t edge, int32_t top, int32_t left, int32_t height,
                     int32_t width) {
  this->hDC = hDC;
  this->edge = edge;
  rectangle = {left, top, left + width, top + height};
}

void CDrawEdge::Draw() const {
  if (hDC != 0) {
    Canvas::FromHandle(hDC)->DrawEdge(rectangle, edge, flags);
  }
}

} // namespace tarnbrook
