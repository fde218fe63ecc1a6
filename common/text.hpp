#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace tarnbrook {

// Number of characters (code points) in UTF-8 text.
size_t Utf8Length(std::string_view text);
// The first `count` characters of UTF-8 text, never splitting a character.
std::string Utf8Left(std::string_view text, size_t count);

// The text with every byte that is not part of a well-formed UTF-8 character (overlong forms,
// surrogates and code points beyond U+10FFFF included) replaced by U+FFFD.
std::string MendUtf8(std::string_view text);

// ASCII letters compared without regard to case; other bytes compared as they are.
int CompareIgnoreCaseAscii(std::string_view a, std::string_view b);
bool EqualsIgnoreCaseAscii(std::string_view a, std::string_view b);
bool StartsWithIgnoreCaseAscii(std::string_view text, std::string_view prefix);

constexpr char ToLowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

} // namespace tarnbrook
