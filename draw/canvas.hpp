#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/geometry.hpp"

typedef struct _cairo cairo_t;
typedef struct _cairo_surface cairo_surface_t;

namespace tarnbrook {

class Picture;

// A plain colour 0x00BBGGRR (the platform's COLORREF).
using COLORREF = uint32_t;

// A drawing-context handle: the address of a Canvas, pointer-sized.
using HDC = uintptr_t;

enum DrawTextFlags : uint32_t {
  DT_LEFT = 0x0,
  DT_CENTER = 0x1,
  DT_RIGHT = 0x2,
  DT_VCENTER = 0x4,
  DT_BOTTOM = 0x8,
  DT_WORDBREAK = 0x10,
  DT_SINGLELINE = 0x20,
  DT_NOCLIP = 0x100,
  DT_CALCRECT = 0x400,
  DT_NOPREFIX = 0x800,
};

enum RasterOp : uint32_t {
  SRCCOPY = 0x00CC0020,
  SRCINVERT = 0x00660046,
};

enum BkMode : int { TRANSPARENT = 1, OPAQUE = 2 };

enum PenStyle : int { PS_SOLID = 0, PS_DOT = 2, PS_NULL = 5 };

// DrawEdge edge kinds and flags.
enum EdgeKind : uint32_t {
  BDR_RAISEDOUTER = 0x1,
  BDR_SUNKENOUTER = 0x2,
  BDR_RAISEDINNER = 0x4,
  BDR_SUNKENINNER = 0x8,
  EDGE_RAISED = 0x5,
  EDGE_SUNKEN = 0xA,
  EDGE_ETCHED = 0x6,
  EDGE_BUMP = 0x9,
};
enum EdgeFlags : uint32_t {
  BF_LEFT = 0x1,
  BF_TOP = 0x2,
  BF_RIGHT = 0x4,
  BF_BOTTOM = 0x8,
  BF_RECT = 0xF,
  BF_MIDDLE = 0x800,
  BF_SOFT = 0x1000,
  BF_ADJUST = 0x2000,
  BF_FLAT = 0x4000,
  BF_MONO = 0x8000,
};

// DrawFrameControl kinds and states.
enum FrameControlType : uint32_t { DFC_SCROLL = 3, DFC_BUTTON = 4 };
enum FrameControlState : uint32_t {
  DFCS_SCROLLUP = 0x0,
  DFCS_SCROLLDOWN = 0x1,
  DFCS_SCROLLLEFT = 0x2,
  DFCS_SCROLLRIGHT = 0x3,
  DFCS_SCROLLCOMBOBOX = 0x5,
  DFCS_BUTTONPUSH = 0x10,
  DFCS_INACTIVE = 0x100,
  DFCS_PUSHED = 0x200,
  DFCS_FLAT = 0x4000,
};

// A font as the drawing context selects it (the platform's LOGFONT, in pixels).
struct FontSpec {
  std::string FaceName = "MS Sans Serif";
  int32_t Height = -11; // negative: character height in pixels
  int32_t Weight = 400;
  bool Italic = false;
  bool Underline = false;
  bool StrikeOut = false;
  int32_t Escapement = 0; // tenths of a degree
  bool operator==(const FontSpec&) const = default;
};

// A GDI-like drawing context over a Cairo ARGB32 image: whole-pixel geometry without
// antialiasing, Pango text, the classic 3D edges and frame controls. The pixels persist
// between paints; a new or resized canvas is white.
class Canvas {
public:
  Canvas(int32_t width = 0, int32_t height = 0);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  // The same size keeps the pixels. Raises 6 for a side beyond MaxSize and 7 when the image
  // cannot be had; the canvas is then 0 x 0.
  void Resize(int32_t width, int32_t height);
  static constexpr int32_t MaxSize = 32767;
  int32_t Width() const;
  int32_t Height() const;
  // Fills the whole image with one colour; an image not drawn on yet is only made in it
  // when it is first used.
  void Clear(COLORREF color);

  HDC Handle() const { return reinterpret_cast<HDC>(this); }
  static Canvas* FromHandle(HDC hdc) { return reinterpret_cast<Canvas*>(hdc); }

  // State, as a drawing context keeps it.
  COLORREF SetTextColor(COLORREF color); // returns the previous one
  COLORREF TextColor() const;
  COLORREF SetBkColor(COLORREF color);
  COLORREF BkColor() const;
  int SetBkMode(int mode);
  void SelectFont(const FontSpec& font);
  const FontSpec& SelectedFont() const;
  void SelectPen(int style, int32_t width, COLORREF color);
  void SelectBrush(COLORREF color);
  void SelectNullBrush();
  void SetBrushOrigin(Point origin);

  // Geometry.
  void FillRect(const Rect& rect, COLORREF color); // right and bottom excluded
  void MoveTo(int32_t x, int32_t y);
  void LineTo(int32_t x, int32_t y); // end point excluded, current pen
  void Ellipse(const Rect& rect);    // current pen and brush
  void Rectangle(const Rect& rect);  // current pen and brush
  void SetPixel(int32_t x, int32_t y, COLORREF color);
  COLORREF GetPixel(int32_t x, int32_t y) const;

  // Text with the DT_ flags; returns the text's height. Opaque background mode fills the
  // text's extent with the back colour first.
  int32_t DrawText(std::string_view text, Rect rect, uint32_t flags);
  // The same; with DT_CALCRECT it only measures and sets the rectangle's right and bottom.
  int32_t DrawText(std::string_view text, Rect* rect, uint32_t flags);
  Size GetTextExtent(std::string_view text); // one line, selected font
  // The advance to every character boundary of one line in the selected font, measured once:
  // element i is the width of the first i characters.
  std::vector<int32_t> CharacterEdges(std::string_view text);

  // Copies between canvases.
  void BitBlt(int32_t x, int32_t y, int32_t width, int32_t height, const Canvas& source, int32_t sx,
              int32_t sy, uint32_t rop = SRCCOPY);
  void StretchBlt(int32_t x, int32_t y, int32_t width, int32_t height, const Canvas& source,
                  int32_t sx, int32_t sy, int32_t sourceWidth, int32_t sourceHeight,
                  uint32_t rop = SRCCOPY);
  void DrawPicture(const Picture& picture, int32_t x, int32_t y);

  // The classic 3D look.
  // Returns the rectangle inside the edge with BF_ADJUST, else the rectangle itself.
  Rect DrawEdge(Rect rect, uint32_t edge, uint32_t flags);
  void DrawFrameControl(Rect rect, uint32_t type, uint32_t state);
  void DrawFocusRect(const Rect& rect);

  // The image.
  void WritePng(const std::string& path) const;
  std::vector<uint8_t> PngBytes() const;
  const uint32_t* Data() const; // ARGB32 rows
  int32_t Stride() const;       // bytes per row
  size_t ImageBytes() const;    // the memory its pixels take; 0 until they are first used

private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

} // namespace tarnbrook
