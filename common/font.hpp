#pragma once
#include <string>

#include "common/object.hpp"

namespace tarnbrook {

// A font description as a control's Font property holds it.
class Font : public Object {
public:
  std::string Name = "MS Sans Serif";
  float Size = 8.25f; // points
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool Strikethrough = false;

  bool operator==(const Font& other) const {
    return Name == other.Name && Size == other.Size && Bold == other.Bold &&
           Italic == other.Italic && Underline == other.Underline &&
           Strikethrough == other.Strikethrough;
  }
};

// The largest size in points a control takes: text this large already fills a 32767-pixel
// surface with a few characters.
inline constexpr float MaxFontSize = 2048.0f;

// The font a control keeps when given `font`: its name with bad UTF-8 mended. Raises 380
// (nothing to keep) for a size that is not a number, not above 0 or beyond MaxFontSize.
Font CheckedFont(const Font& font);

} // namespace tarnbrook
