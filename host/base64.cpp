#include "host/base64.hpp"

#include <algorithm>

namespace tarnbrook {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int DigitValue(char c) {
  if (c >= 'A' && c <= 'Z')
    return c - 'A';
  if (c >= 'a' && c <= 'z')
    return c - 'a' + 26;
  if (c >= '0' && c <= '9')
    return c - '0' + 52;
  if (c == '+')
    return 62;
  if (c == '/')
    return 63;
  return -1;
}

} // namespace

std::string EncodeBase64(const std::vector<uint8_t>& bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (size_t i = 0; i < bytes.size(); i += 3) {
    size_t count = std::min<size_t>(3, bytes.size() - i);
    uint32_t group = uint32_t(bytes[i]) << 16;
    if (count > 1)
      group |= uint32_t(bytes[i + 1]) << 8;
    if (count > 2)
      group |= bytes[i + 2];
    for (size_t k = 0; k < 4; ++k)
      text += k <= count ? kAlphabet[(group >> (18 - 6 * k)) & 63] : '=';
  }
  return text;
}

std::optional<std::vector<uint8_t>> DecodeBase64(std::string_view text) {
  if (text.size() % 4 != 0)
    return std::nullopt;
  std::vector<uint8_t> bytes;
  bytes.reserve(text.size() / 4 * 3);
  for (size_t i = 0; i < text.size(); i += 4) {
    bool last = i + 4 == text.size();
    size_t padding = last ? (text[i + 3] == '=') + (text[i + 2] == '=') : 0;
    uint32_t group = 0;
    for (size_t k = 0; k < 4; ++k) {
      int value = k < 4 - padding ? DigitValue(text[i + k]) : 0;
      if (value < 0)
        return std::nullopt;
      group = group << 6 | uint32_t(value);
    }
    for (size_t k = 0; k < 3 - padding; ++k)
      bytes.push_back(uint8_t(group >> (16 - 8 * k)));
  }
  return bytes;
}

} // namespace tarnbrook
