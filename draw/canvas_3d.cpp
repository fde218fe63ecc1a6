#include <algorithm>

#include "common/ole_color.hpp"
#include "draw/canvas_impl.hpp"

namespace tarnbrook {

namespace {

COLORREF Sys(int index) {
  return static_cast<COLORREF>(GetSysColor(index));
}

// The two colours of one ring of an edge: top-left and bottom-right.
struct RingColors {
  COLORREF topLeft;
  COLORREF bottomRight;
};

RingColors OuterColors(uint32_t edge, uint32_t flags) {
  if (flags & BF_MONO) {
    return {Sys(COLOR_WINDOWFRAME), Sys(COLOR_WINDOWFRAME)};
  }
  if (flags & BF_FLAT) {
    return {Sys(COLOR_BTNSHADOW), Sys(COLOR_BTNSHADOW)};
  }
  if (edge & BDR_RAISEDOUTER) {
    return {Sys(COLOR_3DLIGHT), Sys(COLOR_3DDKSHADOW)};
  }
  return {Sys(COLOR_BTNSHADOW), Sys(COLOR_BTNHIGHLIGHT)};
}

RingColors InnerColors(uint32_t edge, uint32_t flags) {
  if (flags & BF_MONO) {
    return {Sys(COLOR_WINDOW), Sys(COLOR_WINDOW)};
  }
  if (flags & BF_FLAT) {
    return {Sys(COLOR_BTNFACE), Sys(COLOR_BTNFACE)};
  }
  if (edge & BDR_RAISEDINNER) {
    return {Sys(COLOR_BTNHIGHLIGHT), Sys(COLOR_BTNSHADOW)};
  }
  return {Sys(COLOR_3DDKSHADOW), Sys(COLOR_3DLIGHT)};
}

// One pixel ring on the chosen sides; the bottom-right colour takes the two shared corners.
// Returns the rectangle inside it.
Rect Ring(Canvas& canvas, Rect r, RingColors colors, uint32_t flags) {
  if (flags & BF_LEFT) {
    canvas.FillRect({r.left, r.top, r.left + 1, r.bottom}, colors.topLeft);
  }
  if (flags & BF_TOP) {
    canvas.FillRect({r.left, r.top, r.right, r.top + 1}, colors.topLeft);
  }
  if (flags & BF_RIGHT) {
    canvas.FillRect({r.right - 1, r.top, r.right, r.bottom}, colors.bottomRight);
  }
  if (flags & BF_BOTTOM) {
    canvas.FillRect({r.left, r.bottom - 1, r.right, r.bottom}, colors.bottomRight);
  }
  return {r.left + (flags & BF_LEFT ? 1 : 0), r.top + (flags & BF_TOP ? 1 : 0),
          r.right - (flags & BF_RIGHT ? 1 : 0), r.bottom - (flags & BF_BOTTOM ? 1 : 0)};
}

// The classic small solid arrow, `depth` pixels from base to tip, centred in `face`.
void Arrow(Canvas& canvas, Rect face, uint32_t kind, COLORREF color) {
  int32_t depth = std::max(1, (std::min(face.Width(), face.Height()) + 4) / 4);
  int32_t base = 2 * depth - 1;
  bool vertical = kind == DFCS_SCROLLUP || kind == DFCS_SCROLLDOWN || kind == DFCS_SCROLLCOMBOBOX;
  int32_t boxWidth = vertical ? base : depth;
  int32_t boxHeight = vertical ? depth : base;
  int32_t x = face.left + (face.Width() - boxWidth) / 2;
  int32_t y = face.top + (face.Height() - boxHeight) / 2;
  for (int32_t k = 0; k < depth; ++k) {
    // k counts from the tip; that line is 2k + 1 long.
    switch (kind) {
    case DFCS_SCROLLUP:
      canvas.FillRect({x + depth - 1 - k, y + k, x + depth + k, y + k + 1}, color);
      break;
    case DFCS_SCROLLDOWN:
    case DFCS_SCROLLCOMBOBOX:
      canvas.FillRect({x + depth - 1 - k, y + depth - 1 - k, x + depth + k, y + depth - k}, color);
      break;
    case DFCS_SCROLLLEFT:
      canvas.FillRect({x + k, y + depth - 1 - k, x + k + 1, y + depth + k}, color);
      break;
    case DFCS_SCROLLRIGHT:
      canvas.FillRect({x + depth - 1 - k, y + depth - 1 - k, x + depth - k, y + depth + k}, color);
      break;
    }
  }
}

} // namespace

Rect Canvas::DrawEdge(Rect rect, uint32_t edge, uint32_t flags) {
  Rect inside = rect;
  if (edge & (BDR_RAISEDOUTER | BDR_SUNKENOUTER)) {
    inside = Ring(*this, inside, OuterColors(edge, flags), flags);
  }
  if (edge & (BDR_RAISEDINNER | BDR_SUNKENINNER)) {
    inside = Ring(*this, inside, InnerColors(edge, flags), flags);
  }
  if (flags & BF_MIDDLE) {
    FillRect(inside, Sys(flags & BF_MONO ? COLOR_WINDOW : COLOR_BTNFACE));
  }
  return flags & BF_ADJUST ? inside : rect;
}

// A raised face, sunk when pushed, a one-pixel shadow frame when flat; scroll arrows carry
// their glyph, moved one pixel right and down when pushed and etched grey when inactive.
void Canvas::DrawFrameControl(Rect rect, uint32_t type, uint32_t state) {
  uint32_t edge = state & DFCS_PUSHED ? EDGE_SUNKEN : EDGE_RAISED;
  uint32_t flags = BF_RECT | BF_MIDDLE | BF_ADJUST | (state & DFCS_FLAT ? BF_FLAT : 0u);
  Rect face = DrawEdge(rect, edge, flags);
  if (type != DFC_SCROLL) {
    return;
  }
  if (state & DFCS_PUSHED) {
    face = {face.left + 1, face.top + 1, face.right + 1, face.bottom + 1};
  }
  uint32_t kind = state & 0xFF;
  if (state & DFCS_INACTIVE) {
    Arrow(*this, {face.left + 1, face.top + 1, face.right + 1, face.bottom + 1}, kind,
          Sys(COLOR_BTNHIGHLIGHT));
    Arrow(*this, face, kind, Sys(COLOR_BTNSHADOW));
  } else {
    Arrow(*this, face, kind, Sys(COLOR_BTNTEXT));
  }
}

// Every other pixel of the outline, inverted; drawing it twice removes it.
void Canvas::DrawFocusRect(const Rect& rect) {
  auto invert = [this](int32_t x, int32_t y) {
    if (impl_->Inside(x, y) && (x + y) % 2 == 0) {
      impl_->Row(y)[x] ^= 0xFFFFFFu;
    }
  };
  for (int32_t x = rect.left; x < rect.right; ++x) {
    invert(x, rect.top);
    if (rect.bottom - 1 > rect.top) {
      invert(x, rect.bottom - 1);
    }
  }
  for (int32_t y = rect.top + 1; y < rect.bottom - 1; ++y) {
    invert(rect.left, y);
    if (rect.right - 1 > rect.left) {
      invert(rect.right - 1, y);
    }
  }
}

} // namespace tarnbrook
