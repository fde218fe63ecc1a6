#pragma once
// Shapes and rasterises text once with Pango and keeps the result, so that repainting the same
// strings (day numbers, captions) costs only a blend.
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "draw/canvas.hpp"

typedef struct _PangoContext PangoContext;
typedef struct _PangoLayout PangoLayout;
typedef struct _PangoFontDescription PangoFontDescription;
typedef struct _PangoRectangle PangoRectangle;

namespace tarnbrook {

// One piece of text: its logical size, and coverage values over its ink.
struct ShapedText {
  int32_t width = 0; // logical size: the advance and the line height(s)
  int32_t height = 0;
  int32_t maskX = 0; // the mask's top-left relative to the logical top-left
  int32_t maskY = 0;
  int32_t maskWidth = 0;
  int32_t maskHeight = 0;
  std::vector<uint8_t> coverage; // maskWidth x maskHeight, 0..255
};

// Where a text is drawn, in the surface's coordinates: the rectangle the DT_ flags place it
// in, and the part of the surface that can show it.
struct TextPlace {
  int64_t left = 0, top = 0, right = 0, bottom = 0;
  Rect visible;
};

// The logical top-left of text of that size in its place: centred or right-aligned by the
// flags, and on a single line centred or put at the bottom.
inline std::pair<int64_t, int64_t> TextOrigin(const TextPlace& place, int32_t width, int32_t height,
                                              uint32_t flags) {
  const int64_t x = flags & DT_CENTER  ? place.left + (place.right - place.left - width) / 2
                    : flags & DT_RIGHT ? place.right - width
                                       : place.left;
  int64_t y = place.top;
  if (flags & DT_SINGLELINE) {
    if (flags & DT_VCENTER)
      y = place.top + (place.bottom - place.top - height) / 2;
    else if (flags & DT_BOTTOM)
      y = place.bottom - height;
  }
  return {x, y};
}

// The DrawText flags that change the shape of a text.
constexpr uint32_t ShapingFlags = DT_CENTER | DT_RIGHT | DT_WORDBREAK | DT_SINGLELINE | DT_NOPREFIX;

class TextEngine {
public:
  // One engine per thread: the user-interface thread draws all text.
  static TextEngine& ForThisThread();

  // `wrapWidth` matters only with DT_WORDBREAK on several lines; `place` only to text too
  // large to keep whole.
  const ShapedText& Shape(const FontSpec& font, std::string_view text, uint32_t flags,
                          int32_t wrapWidth, const TextPlace& place);

  // The logical size alone: no pixels are made for it.
  Size Measure(const FontSpec& font, std::string_view text, uint32_t flags, int32_t wrapWidth);

  // The advance to every character boundary of one line, from one layout: element i is the
  // width of the first i characters as the line shows them.
  std::vector<int32_t> CharacterEdges(const FontSpec& font, std::string_view text);

  ~TextEngine();

private:
  TextEngine();
  bool Lay(const FontSpec& font, std::string_view text, uint32_t flags, int32_t wrapWidth);
  ShapedText Rasterise(const PangoRectangle& logical, Rect mask, double angle);
  void SetFont(const FontSpec& font);
  // Sets key_ to the text's key in that font.
  void MakeCacheKey(const FontSpec& font, std::string_view text, uint32_t flags, int32_t wrapWidth);
  const std::string& Family(const std::string& face);

  PangoContext* context_ = nullptr;
  PangoLayout* layout_ = nullptr; // reused for every text
  PangoFontDescription* description_ = nullptr;
  FontSpec describedFont_;
  std::unordered_map<std::string, std::string> families_; // face name -> installed family
  std::unordered_map<std::string, ShapedText> shaped_;
  std::unordered_map<std::string, Size> measured_; // texts measured but not drawn
  std::vector<FontSpec> fonts_;                    // a key's font number indexes this
  size_t lastFont_ = 0;
  std::string key_;        // the key being looked up, its buffer reused
  size_t cachedBytes_ = 0; // of the shaped texts' masks
};

} // namespace tarnbrook
