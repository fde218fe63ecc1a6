#pragma once
#include <cstdint>
#include <string_view>
#include <vector>

#include "picker/cdate_mask.hpp"

namespace tarnbrook {

class cMDC;

// Cuts a picker format string into its fields, in order, placed left to right from `left`
// on a line `height` pixels high and measured on `surface`. "/" and ":" become the locale's
// date and time separators, read at each cut. Raises 6 when the widths overflow.
std::vector<CDateMask> CutDateFormat(cMDC& surface, std::string_view format, int32_t left,
                                     int32_t height);

} // namespace tarnbrook
