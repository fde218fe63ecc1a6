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

} // namespace tarnbrook
