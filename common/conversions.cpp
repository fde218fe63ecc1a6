#include "common/conversions.hpp"

#include <charconv>
#include <cmath>
#include <string>

#include "common/control_error.hpp"

namespace tarnbrook {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigitValue(char c) {
  if (IsDigit(c)) {
    return c - '0';
  }
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

struct ParsedNumber {
  double Value = 0;
  size_t Length = 0; // 0 when the text starts with no number
};

// "&H1F" or "&O17": up to &HFFFF an Integer (so &HFFFF is -1), then a Long; a trailing
// "&" makes it a Long. Past 32 bits it overflows.
ParsedNumber ParseRadixNumber(std::string_view text) {
  const char marker = text.size() > 1 ? static_cast<char>(text[1] | 0x20) : '\0';
  if (marker != 'h' && marker != 'o') {
    return {};
  }
  const int radix = marker == 'h' ? 16 : 8;
  size_t end = 2;
  unsigned long long value = 0;
  for (int digit = 0; end < text.size() && (digit = HexDigitValue(text[end])) >= 0 && digit < radix;
       ++end) {
    value = value * radix + digit;
    if (value > 0xFFFFFFFFull) {
      RaiseRuntimeError(rtOverflow);
    }
  }
  if (end == 2) {
    return {};
  }
  const bool isLong = end < text.size() && text[end] == '&';
  if (isLong) {
    ++end;
  }
  if (!isLong && value <= 0xFFFF) {
    return {static_cast<double>(static_cast<int16_t>(value)), end};
  }
  return {static_cast<double>(static_cast<int32_t>(value)), end};
}

// Sign, digits, decimal point and an exponent marked E or D, always with "." as the point.
ParsedNumber ParseDecimalNumber(std::string_view text) {
  size_t end = 0;
  const bool negative = end < text.size() && text[end] == '-';
  if (end < text.size() && (text[end] == '-' || text[end] == '+')) {
    ++end;
  }
  std::string digits;
  const auto takeDigits = [&] {
    for (; end < text.size() && IsDigit(text[end]); ++end) {
      digits += text[end];
    }
  };
  takeDigits();
  if (end < text.size() && text[end] == '.') {
    digits += text[end++];
    takeDigits();
  }
  if (digits.empty() || digits == ".") {
    return {};
  }
  bool negativeExponent = false;
  if (end < text.size() && std::string_view("eEdD").find(text[end]) != std::string_view::npos) {
    size_t exponentEnd = end + 1;
    negativeExponent = exponentEnd < text.size() && text[exponentEnd] == '-';
    if (exponentEnd < text.size() && (text[exponentEnd] == '-' || text[exponentEnd] == '+')) {
      ++exponentEnd;
    }
    if (exponentEnd < text.size() && IsDigit(text[exponentEnd])) {
      digits += 'e';
      digits.append(text.substr(end + 1, exponentEnd - end - 1));
      end = exponentEnd;
      takeDigits();
    }
  }
  double value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (!negativeExponent) {
      RaiseRuntimeError(rtOverflow);
    }
    value = 0;
  }
  return {negative ? -value : value, end};
}

ParsedNumber ParseNumber(std::string_view text) {
  return !text.empty() && text[0] == '&' ? ParseRadixNumber(text) : ParseDecimalNumber(text);
}

double RoundHalfToEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  const bool up = fraction > 0.5 || (fraction == 0.5 && std::fmod(below, 2.0) != 0);
  return up ? below + 1 : below;
}

double RoundInRange(double value, double low, double high) {
  const double rounded = RoundHalfToEven(value);
  if (!(rounded >= low && rounded <= high)) {
    RaiseRuntimeError(rtOverflow);
  }
  return rounded;
}

} // namespace

// Blanks, tabs and linefeeds are dropped wherever they are, so " 1 2 3" reads as 123.
double Val(std::string_view text) {
  std::string compact;
  for (char c : text) {
    if (c != ' ' && c != '\t' && c != '\n') {
      compact += c;
    }
  }
  return ParseNumber(compact).Value;
}

double CDbl(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t");
  const size_t last = text.find_last_not_of(" \t");
  const std::string_view number =
      first == std::string_view::npos ? std::string_view() : text.substr(first, last - first + 1);
  const ParsedNumber parsed = ParseNumber(number);
  if (parsed.Length == 0 || parsed.Length != number.size()) {
    RaiseRuntimeError(rtTypeMismatch);
  }
  return parsed.Value;
}

int16_t CInt(double value) {
  return static_cast<int16_t>(RoundInRange(value, -32768.0, 32767.0));
}

int32_t CLng(double value) {
  return static_cast<int32_t>(RoundInRange(value, -2147483648.0, 2147483647.0));
}

} // namespace tarnbrook
