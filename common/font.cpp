#include "common/font.hpp"

#include <cmath>

#include "common/control_error.hpp"
#include "common/text.hpp"

namespace tarnbrook {

Font CheckedFont(const Font& font) {
  if (!(font.Size > 0 && font.Size <= MaxFontSize))
    RaiseRuntimeError(rtInvalidPropertyValue);
  Font checked = font;
  checked.Name = MendUtf8(font.Name);
  return checked;
}

} // namespace tarnbrook
