#include "draw/cmdc.hpp"

#include <cmath>
#include <limits>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/picture.hpp"

namespace tarnbrook {

namespace {

constexpr int32_t PixelsPerInch = 96;
constexpr COLORREF White = 0xFFFFFF;

int32_t AddLong(int32_t a, int32_t b) {
  int64_t sum = static_cast<int64_t>(a) + b;
  if (sum < std::numeric_limits<int32_t>::min() || sum > std::numeric_limits<int32_t>::max()) {
    RaiseRuntimeError(rtOverflow);
  }
  return static_cast<int32_t>(sum);
}

// Runs a drawing operation, raising its errors again under the operation's own Source.
template <typename Body> void Trapped(const char* source, Body body) {
  try {
    body();
  } catch (const ControlError& error) {
    throw ControlError(error.Number(), source, error.Description());
  }
}

// Selects the pen of DrawBox and DrawLine: solid of lLineWidth, dotted when it is 0.
void SelectLinePen(Canvas& canvas, int32_t lineWidth, int32_t rgb) {
  if (lineWidth != 0) {
    canvas.SelectPen(PS_SOLID, lineWidth, static_cast<COLORREF>(rgb));
  } else {
    canvas.SelectPen(PS_DOT, 1, static_cast<COLORREF>(rgb));
  }
}

// Puts back the stock black pen the drawing context started with.
void RestorePen(Canvas& canvas) {
  canvas.SelectPen(PS_SOLID, 1, 0);
}

} // namespace

cMDC::~cMDC() {
  Destroy();
}

OleColor cMDC::ForeColor() const {
  return canvas_ ? foreColor_ : 0;
}

void cMDC::SetForeColor(OleColor color) {
  if (!canvas_) {
    return;
  }
  int32_t rgb = TranslateColor(color);
  if (rgb != -1) {
    canvas_->SetTextColor(static_cast<COLORREF>(rgb));
  }
  foreColor_ = color;
}

void cMDC::DrawBox(int32_t lLeft, int32_t lTop, int32_t lWidth, int32_t lHeight, int32_t lLineWidth,
                   OleColor lFColor, OleColor lBColor) {
  Trapped("cMDC.DrawBox", [&] {
    int32_t right = AddLong(lLeft, lWidth);
    int32_t bottom = AddLong(lTop, lHeight);
    if (!canvas_) {
      return;
    }
    int32_t fill = lBColor == -1 ? -1 : TranslateColor(lBColor);
    if (fill != -1) {
      canvas_->FillRect({lLeft, lTop, right, bottom}, static_cast<COLORREF>(fill));
    }
    int32_t outline = lFColor == -1 ? -1 : TranslateColor(lFColor);
    if (outline != -1) {
      SelectLinePen(*canvas_, lLineWidth, outline);
      canvas_->MoveTo(lLeft, lTop);
      canvas_->LineTo(right, lTop);
      canvas_->LineTo(right, bottom);
      canvas_->LineTo(lLeft, bottom);
      canvas_->LineTo(lLeft, lTop);
      RestorePen(*canvas_);
    }
  });
}

void cMDC::SetBackColor(OleColor color) {
  backColor_ = TranslateColor(color);
}

void cMDC::DrawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, OleColor lColor,
                    int32_t lLineWidth) {
  Trapped("cMDC.DrawLine", [&] {
    int32_t rgb = TranslateColor(lColor);
    if (!canvas_ || rgb == -1) {
      return;
    }
    SelectLinePen(*canvas_, lLineWidth, rgb);
    canvas_->MoveTo(x1, y1);
    canvas_->LineTo(x2, y2);
    RestorePen(*canvas_);
  });
}

void cMDC::DrawText(std::string_view sText, int32_t lLeft, int32_t lTop, int32_t lWidth,
                    int32_t lHeight, OleColor lFColor, OleColor lBColor, int32_t lFlags,
                    bool DrawTransparent) {
  Trapped("cMDC.DrawText", [&] {
    Rect rect{lLeft, lTop, AddLong(lLeft, lWidth), AddLong(lTop, lHeight)};
    if (!canvas_) {
      return;
    }
    uint32_t flags =
        lFlags == 0 ? DT_CENTER | DT_VCENTER | DT_SINGLELINE : static_cast<uint32_t>(lFlags);
    int32_t fill = lBColor == -1 ? -1 : TranslateColor(lBColor);
    if (fill != -1) {
      canvas_->FillRect(rect, static_cast<COLORREF>(fill));
    }
    int32_t text = lFColor == -1 ? 0 : TranslateColor(lFColor);
    if (text != -1) {
      canvas_->SetTextColor(static_cast<COLORREF>(text));
    }
    int previousMode = DrawTransparent ? canvas_->SetBkMode(TRANSPARENT) : 0;
    canvas_->DrawText(sText, rect, flags);
    if (DrawTransparent) {
      canvas_->SetBkMode(previousMode);
    }
  });
}

void cMDC::Draw(HDC lDestDC, int32_t lLeft, int32_t lTop, int32_t& lWidth, int32_t& lHeight,
                bool bStretch, int32_t lOrgX, int32_t lOrgY, bool bInvert) {
  if (lWidth == 0) {
    lWidth = width_;
  }
  if (lHeight == 0) {
    lHeight = height_;
  }
  if (!canvas_ || lDestDC == 0) {
    return;
  }
  Canvas& dest = *Canvas::FromHandle(lDestDC);
  if (bStretch && (lWidth != width_ || lHeight != height_)) {
    dest.SetBrushOrigin({0, 0});
    dest.StretchBlt(lLeft, lTop, lWidth, lHeight, *canvas_, lOrgX, lOrgY, width_, height_, SRCCOPY);
  } else {
    dest.BitBlt(lLeft, lTop, lWidth, lHeight, *canvas_, lOrgX, lOrgY,
                bInvert ? SRCINVERT : SRCCOPY);
  }
}

void cMDC::Draw(HDC lDestDC, int32_t lLeft, int32_t lTop) {
  int32_t width = 0;
  int32_t height = 0;
  Draw(lDestDC, lLeft, lTop, width, height);
}

void cMDC::SelectBrush(OleColor color) {
  ReleaseBrush();
  if (canvas_) {
    canvas_->SelectBrush(static_cast<COLORREF>(TranslateColor(color)));
    brushSelected_ = true;
  }
}

// The memory context's own brush was the stock white one.
void cMDC::ReleaseBrush() {
  if (canvas_ && brushSelected_) {
    canvas_->SelectBrush(White);
  }
  brushSelected_ = false;
}

int32_t cMDC::TextWidth(std::string_view sText) {
  return canvas_ ? canvas_->GetTextExtent(sText).cx : 0;
}

int32_t cMDC::TextHeight(std::string_view sText) {
  return canvas_ ? canvas_->GetTextExtent(sText).cy : 0;
}

void cMDC::SetFont(const std::string& sFaceName, float nSize, bool bBold, bool bItalic,
                   bool bStrikeOut, bool bUnderline, int16_t iRotation) {
  FontSpec font;
  if (canvas_) {
    canvas_->SelectFont(font); // the previous font is gone before the new one is made
  }
  font.FaceName = sFaceName;
  // Assigning the product to a whole-number field rounds it as the runtime does (half to even).
  font.Height = CLng(-(static_cast<double>(nSize) * PixelsPerInch / 72));
  int32_t tenths = iRotation * 10;
  if (tenths < std::numeric_limits<int16_t>::min() ||
      tenths > std::numeric_limits<int16_t>::max()) {
    RaiseRuntimeError(rtOverflow);
  }
  font.Escapement = tenths;
  font.Weight = bBold ? 700 : 400;
  font.Italic = bItalic;
  font.Underline = bUnderline;
  font.StrikeOut = bStrikeOut;
  if (canvas_) {
    canvas_->SelectFont(font);
  }
}

void cMDC::Resize(int32_t width, int32_t height) {
  if (width == width_ && height == height_) {
    return;
  }
  Destroy();
  if (width <= 0 || height <= 0) {
    return; // no bitmap of that size: no surface
  }
  canvas_ = std::make_unique<Canvas>(width, height); // may refuse: no surface, size 0
  width_ = width;
  height_ = height;
  // An untranslatable back colour leaves the new image white.
  if (backColor_ != -1) {
    canvas_->Clear(static_cast<COLORREF>(backColor_));
  }
}

void cMDC::CopyFrom(HDC source, int32_t lLeft, int32_t lTop, int32_t lWidth, int32_t lHeight,
                    int32_t SourceX, int32_t SourceY) {
  if (canvas_ && source != 0) {
    canvas_->BitBlt(lLeft, lTop, lWidth, lHeight, *Canvas::FromHandle(source), SourceX, SourceY);
  }
}

void cMDC::DrawPicture(int32_t DrawMode, const Picture* picture) {
  if (!picture || !canvas_ || DrawMode < 0 || DrawMode > 3) {
    return;
  }
  int32_t bw = picture->Width();
  int32_t bh = picture->Height();
  if (bw <= 0 || bh <= 0) {
    return;
  }
  switch (DrawMode) {
  case 0: // tile
    for (int32_t y = 0; y <= height_ + bh - 1; y += bh) {
      for (int32_t x = 0; x <= width_ + bw - 1; x += bw) {
        canvas_->DrawPicture(*picture, x, y);
      }
    }
    break;
  case 1: // centred; a half pixel rounds to even, as the runtime converts
    canvas_->DrawPicture(*picture, static_cast<int32_t>(std::nearbyint((width_ - bw) / 2.0)),
                         static_cast<int32_t>(std::nearbyint((height_ - bh) / 2.0)));
    break;
  case 2: // along the top
    for (int32_t x = 0; x <= width_ + bw - 1; x += bw) {
      canvas_->DrawPicture(*picture, x, 0);
    }
    break;
  case 3: // down the left
    for (int32_t y = 0; y <= height_ + bh - 1; y += bh) {
      canvas_->DrawPicture(*picture, 0, y);
    }
    break;
  }
}

void cMDC::Destroy() {
  ReleaseBrush();
  canvas_.reset();
  width_ = 0;
  height_ = 0;
}

} // namespace tarnbrook
