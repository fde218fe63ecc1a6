#pragma once
#include <cstdint>
#include <string>

namespace tarnbrook {

// The library's file name without extension: the first part of the plumbing's error Sources.
inline constexpr const char* LibraryFileName = "Tarnbrook";

// Raises ObjectError(code) with the Source LibraryFileName + "." + `where`.
[[noreturn]] void RaisePlumbingError(int32_t code, const std::string& where,
                                     const std::string& description);

} // namespace tarnbrook
