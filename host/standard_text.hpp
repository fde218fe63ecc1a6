#pragma once
// Text in a control's Font, shared by the standard controls.
#include <cstdint>
#include <string_view>

#include "common/font.hpp"
#include "common/geometry.hpp"
#include "draw/cmdc.hpp"

namespace tarnbrook {

// Selects the font on the surface (it does nothing while the surface has no size).
void SelectFont(cMDC& surface, const Font& font);

// The logical size of one line of text: its advance, and the font's line height even for an
// empty text. With `mnemonics` a '&' marks the next character and "&&" shows one '&'.
Size MeasureLine(const Font& font, std::string_view text, bool mnemonics = false);

// The advance of every character boundary of UTF-8 text: element i is the width of the
// first i characters (code points), so the vector is one longer than the character count.
std::vector<int32_t> CharacterEdges(const Font& font, std::string_view text);

} // namespace tarnbrook
