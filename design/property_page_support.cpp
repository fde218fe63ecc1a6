#include "design/property_page_support.hpp"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace tarnbrook {

std::string NumericMessage(const std::string& name) {
  return "Please Enter a numeric value for the " + name;
}

std::optional<double> ParseNumber(const std::string& text) {
  size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string::npos)
    return std::nullopt;
  size_t end = text.find_last_not_of(" \t") + 1;
  std::string trimmed = text.substr(begin, end - begin);
  // Only plain decimal notation: no hex, no "inf" or "nan" that strtod would take.
  for (char c : trimmed)
    if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+' ||
          c == 'e' || c == 'E'))
      return std::nullopt;
  char* stop = nullptr;
  double value = std::strtod(trimmed.c_str(), &stop);
  if (stop != trimmed.c_str() + trimmed.size() || !std::isfinite(value))
    return std::nullopt;
  return value;
}

std::string NumberText(double value) {
  if (std::nearbyint(value) == value && std::fabs(value) < 1e15)
    return std::to_string(static_cast<int64_t>(value));
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.7g", value);
  return buffer;
}

} // namespace tarnbrook
