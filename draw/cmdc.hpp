#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "common/ole_color.hpp"
#include "draw/canvas.hpp"

namespace tarnbrook {

class Picture;

// The off-screen surface a control composes its whole picture on before copying it to the
// screen in one step. Colours are OleColor values, translated here; -1 means "none" where an
// operation says so. Without a surface (size 0) drawing does nothing.
class cMDC {
public:
  cMDC() = default;
  ~cMDC();
  cMDC(const cMDC&) = delete;
  cMDC& operator=(const cMDC&) = delete;

  // The kept value, 0 while no surface exists; setting it changes the text colour.
  OleColor ForeColor() const;
  void SetForeColor(OleColor color);

  // A fill (lBColor, right and bottom excluded) and/or an outline (lFColor) whose path runs
  // through (left + width, top + height), so it lies one pixel right of and below the fill.
  // lLineWidth 0 draws a dotted outline. Errors are raised with the Source "cMDC.DrawBox".
  void DrawBox(int32_t lLeft, int32_t lTop, int32_t lWidth, int32_t lHeight, int32_t lLineWidth,
               OleColor lFColor, OleColor lBColor);

  // The translated back colour that clears a new surface; initially white.
  int32_t BackColor() const { return backColor_; }
  void SetBackColor(OleColor color);

  // One line, end point excluded; lLineWidth 0 draws it dotted.
  void DrawLine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, OleColor lColor,
                int32_t lLineWidth = 1);

  // Text in a rectangle with the canvas's DT_ flags; lFlags 0 means centred both ways on a
  // single line (DT_CENTER | DT_VCENTER | DT_SINGLELINE). lFColor -1 is black and stays the
  // text colour; lBColor fills the rectangle first unless it is -1.
  void DrawText(std::string_view sText, int32_t lLeft, int32_t lTop, int32_t lWidth,
                int32_t lHeight, OleColor lFColor = -1, OleColor lBColor = -1, int32_t lFlags = 0,
                bool DrawTransparent = false);

  // Copies the surface to lDestDC; a width or height of 0 means the surface's and is written
  // back. Stretches when bStretch and the size differs, else copies (inverting with bInvert).
  void Draw(HDC lDestDC, int32_t lLeft, int32_t lTop, int32_t& lWidth, int32_t& lHeight,
            bool bStretch = false, int32_t lOrgX = 0, int32_t lOrgY = 0, bool bInvert = false);
  // The whole surface at (lLeft, lTop).
  void Draw(HDC lDestDC, int32_t lLeft = 0, int32_t lTop = 0);

  // The solid brush of filled shapes (the selection ellipse) and its release.
  void SelectBrush(OleColor color);
  void ReleaseBrush();

  // One line of text measured with the current font.
  int32_t TextWidth(std::string_view sText);
  int32_t TextHeight(std::string_view sText);

  // The drawing context (a Canvas handle), 0 while no surface exists.
  HDC hDC() const { return canvas_ ? canvas_->Handle() : 0; }
  int32_t Width() const { return width_; }
  int32_t Height() const { return height_; }

  // Height -(nSize x 96 / 72) rounded half to even, escapement iRotation x 10 (error 6 beyond 16 bits).
  void SetFont(const std::string& sFaceName, float nSize, bool bBold = false, bool bItalic = false,
               bool bStrikeOut = false, bool bUnderline = false, int16_t iRotation = 0);

  // A new surface, cleared to the back colour, unless the size is the present one.
  void Resize(int32_t width, int32_t height);

  void CopyFrom(HDC source, int32_t lLeft, int32_t lTop, int32_t lWidth, int32_t lHeight,
                int32_t SourceX, int32_t SourceY);

  // Paints the picture over the surface: 0 tile, 1 centred, 2 a row along the top, 3 a column
  // down the left; nothing for other modes or without a picture.
  void DrawPicture(int32_t DrawMode, const Picture* picture);

private:
  void Destroy();

  std::unique_ptr<Canvas> canvas_;
  int32_t width_ = 0;
  int32_t height_ = 0;
  OleColor foreColor_ = 0;
  int32_t backColor_ = 0xFFFFFF;
  bool brushSelected_ = false;
};

} // namespace tarnbrook
