#include "common/text.hpp"

#include <cstdint>

namespace tarnbrook {

namespace {

constexpr std::string_view Replacement = "\xEF\xBF\xBD"; // U+FFFD

// The bytes of the well-formed character at `i`, 0 when none starts there.
size_t WellFormedLength(std::string_view text, size_t i) {
  const auto lead = static_cast<unsigned char>(text[i]);
  const size_t length = lead < 0x80                    ? 1
                        : lead >= 0xC2 && lead <= 0xDF ? 2
                        : lead >= 0xE0 && lead <= 0xEF ? 3
                        : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                       : 0;
  if (length == 0 || i + length > text.size())
    return 0;
  for (size_t k = 1; k < length; ++k) {
    if (!IsUtf8Continuation(text[i + k]))
      return 0;
  }
  // The second byte's range rules out overlong forms, surrogates and values past U+10FFFF.
  const auto second = static_cast<unsigned char>(length >= 3 ? text[i + 1] : 0x80);
  const bool inRange = !(lead == 0xE0 && second < 0xA0) && !(lead == 0xED && second > 0x9F) &&
                       !(lead == 0xF0 && second < 0x90) && !(lead == 0xF4 && second > 0x8F);
  return inRange ? length : 0;
}

} // namespace

size_t Utf8SequenceLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

size_t Utf8Floor(std::string_view text, size_t byte) {
  if (byte >= text.size())
    return text.size();
  while (byte > 0 && IsUtf8Continuation(text[byte]))
    --byte;
  return byte;
}

void AppendUtf8(std::string& out, uint32_t code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if ((code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF) {
    out += Replacement;
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

std::string MendUtf8(std::string_view text) {
  std::string mended;
  mended.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    if (const size_t length = WellFormedLength(text, i)) {
      mended.append(text.substr(i, length));
      i += length;
    } else {
      mended += Replacement;
      ++i;
    }
  }
  return mended;
}

bool IsValidUtf8(std::string_view text) {
  for (size_t i = 0; i < text.size();) {
    const size_t length = WellFormedLength(text, i);
    if (length == 0)
      return false;
    i += length;
  }
  return true;
}

size_t Utf8Length(std::string_view text) {
  size_t count = 0;
  for (char c : text) {
    count += IsUtf8Continuation(c) ? 0 : 1;
  }
  return count;
}

std::string Utf8Left(std::string_view text, size_t count) {
  size_t end = 0;
  for (size_t characters = 0; end < text.size(); ++end) {
    if (!IsUtf8Continuation(text[end]) && characters++ == count) {
      break;
    }
  }
  return std::string(text.substr(0, end));
}

int CompareIgnoreCaseAscii(std::string_view a, std::string_view b) {
  const size_t common = a.size() < b.size() ? a.size() : b.size();
  for (size_t i = 0; i < common; ++i) {
    const auto ca = static_cast<unsigned char>(ToLowerAscii(a[i]));
    const auto cb = static_cast<unsigned char>(ToLowerAscii(b[i]));
    if (ca != cb) {
      return ca < cb ? -1 : 1;
    }
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

bool EqualsIgnoreCaseAscii(std::string_view a, std::string_view b) {
  return a.size() == b.size() && CompareIgnoreCaseAscii(a, b) == 0;
}

bool StartsWithIgnoreCaseAscii(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() &&
         EqualsIgnoreCaseAscii(text.substr(0, prefix.size()), prefix);
}

} // namespace tarnbrook
