#include "common/property_bag.hpp"

#include <algorithm>

namespace tarnbrook {
namespace {

bool SameKey(const std::string& a, const std::string& b) {
  auto lower = [](unsigned char c) { return (c >= 'A' && c <= 'Z') ? c - 'A' + 'a' : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

} // namespace

Variant MemoryPropertyBag::ReadProperty(const std::string& name, const Variant& defaultValue) {
  for (const auto& [key, value] : entries_)
    if (SameKey(key, name))
      return value;
  return defaultValue;
}

void MemoryPropertyBag::WriteProperty(const std::string& name, const Variant& value,
                                      const Variant& defaultValue) {
  auto entry = std::find_if(entries_.begin(), entries_.end(),
                            [&](const auto& e) { return SameKey(e.first, name); });
  if (value == defaultValue) {
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
                     [&](const auto& e) { return SameKey(e.first, name); });
}

} // namespace tarnbrook
