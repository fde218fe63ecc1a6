#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnbrook {

// Whether a byte continues a UTF-8 character rather than starting one.
constexpr bool IsUtf8Continuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
// The bytes of the character that `lead` starts; 1 for a byte that starts none.
size_t Utf8SequenceLength(char lead);
// The last character boundary at or before `byte` (the text's end when it lies beyond).
size_t Utf8Floor(std::string_view text, size_t byte);
// Appends a code point; one that UTF-8 cannot carry (a surrogate, past U+10FFFF) as U+FFFD.
void AppendUtf8(std::string& out, uint32_t code);

// Number of characters (code points) in UTF-8 text.
size_t Utf8Length(std::string_view text);
// The first `count` characters of UTF-8 text, never splitting a character.
std::string Utf8Left(std::string_view text, size_t count);

// The text with every byte that is not part of a well-formed UTF-8 character (overlong forms,
// surrogates and code points beyond U+10FFFF included) replaced by U+FFFD.
std::string MendUtf8(std::string_view text);
// Whether MendUtf8 would leave the text as it is.
bool IsValidUtf8(std::string_view text);

// ASCII letters compared without regard to case; other bytes compared as they are.
int CompareIgnoreCaseAscii(std::string_view a, std::string_view b);
bool EqualsIgnoreCaseAscii(std::string_view a, std::string_view b);
bool StartsWithIgnoreCaseAscii(std::string_view text, std::string_view prefix);

constexpr char ToLowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

} // namespace tarnbrook
