#include "common/property_bag.hpp"

#include <algorithm>

#include "common/conversions.hpp"
#include "common/text.hpp"

namespace tarnbrook {
namespace {

// A date equals a text default that reads as the same date, as the runtime compares them.
bool EqualsDefault(const Variant& value, const Variant& defaultValue) {
  if (value == defaultValue)
    return true;
  if (value.VarType() != vbDate || defaultValue.VarType() != vbString)
    return false;
  const std::string text = defaultValue.ToString();
  return IsDate(text) && CDate(text) == value.ToDate();
}

} // namespace

Variant MemoryPropertyBag::ReadProperty(const std::string& name, const Variant& defaultValue) {
  for (const auto& [key, value] : entries_)
    if (EqualsIgnoreCaseAscii(key, name))
      return value;
  return defaultValue;
}

void MemoryPropertyBag::WriteProperty(const std::string& name, const Variant& value,
                                      const Variant& defaultValue) {
  auto entry = std::find_if(entries_.begin(), entries_.end(),
                            [&](const auto& e) { return EqualsIgnoreCaseAscii(e.first, name); });
  if (EqualsDefault(value, defaultValue)) {
    if (entry != entries_.end())
      entries_.erase(entry);
  } else if (entry != entries_.end()) {
    entry->second = value;
  } else {
    entries_.emplace_back(name, value);
  }
}

bool MemoryPropertyBag::Contains(const std::string& name) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [&](const auto& e) { return EqualsIgnoreCaseAscii(e.first, name); });
}

} // namespace tarnbrook
