#pragma once
#include <cstdint>

#include "draw/canvas.hpp"

namespace tarnbrook {

// One rectangular 3D edge: `edge` holds the BDR_ bits (5 raised, 10 sunken, 6 etched ...),
// `flags` the sides and how (BF_RECT: all four).
class CDrawEdge {
public:
  HDC hDC = 0;
  uint32_t edge = 0;
  uint32_t flags = BF_RECT;
  Rect rectangle;

  void Init(HDC hDC, uint32_t edge, int32_t top, int32_t left, int32_t height, int32_t width);
  void Draw() const;
};

} // namespace tarnbrook
