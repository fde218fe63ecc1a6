#include "common/text.hpp"

namespace tarnbrook {

namespace {
bool IsContinuationByte(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
} // namespace

std::string MendUtf8(std::string_view text) {
  std::string mended;
  mended.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    size_t length = lead < 0x80                    ? 1
                    : lead >= 0xC2 && lead <= 0xDF ? 2
                    : lead >= 0xE0 && lead <= 0xEF ? 3
                    : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                   : 0;
    bool good = length > 0 && i + length <= text.size();
    for (size_t k = 1; good && k < length; ++k)
      good = IsContinuationByte(text[i + k]);
    if (good && length >= 3) {
      // The second byte's range rules out overlong forms, surrogates and values past U+10FFFF.
      const auto second = static_cast<unsigned char>(text[i + 1]);
      good = !(lead == 0xE0 && second < 0xA0) && !(lead == 0xED && second > 0x9F) &&
             !(lead == 0xF0 && second < 0x90) && !(lead == 0xF4 && second > 0x8F);
    }
    if (good) {
      mended.append(text.substr(i, length));
      i += length;
    } else {
      mended += "\xEF\xBF\xBD";
      ++i;
    }
  }
  return mended;
}

size_t Utf8Length(std::string_view text) {
  size_t count = 0;
  for (char c : text) {
    count += IsContinuationByte(c) ? 0 : 1;
  }
  return count;
}

std::string Utf8Left(std::string_view text, size_t count) {
  size_t end = 0;
  for (size_t characters = 0; end < text.size(); ++end) {
    if (!IsContinuationByte(text[end]) && characters++ == count) {
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
