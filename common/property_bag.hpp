#pragma once
#include <string>
#include <utility>
#include <vector>

#include "common/variant.hpp"

namespace tarnbrook {

// The container's persistence of one control: keys matched without regard to case.
class PropertyBag {
public:
  virtual ~PropertyBag() = default;
  // The stored value, or `defaultValue` when the key is absent.
  virtual Variant ReadProperty(const std::string& name, const Variant& defaultValue = {}) = 0;
  // Stores the value; a value equal to `defaultValue` is not stored (and any earlier one goes).
  // A date equals a text default that reads as the same date.
  virtual void WriteProperty(const std::string& name, const Variant& value,
                             const Variant& defaultValue = {}) = 0;
};

// A bag in memory, keeping keys in the order they were first written.
class MemoryPropertyBag : public PropertyBag {
public:
  Variant ReadProperty(const std::string& name, const Variant& defaultValue = {}) override;
  void WriteProperty(const std::string& name, const Variant& value,
                     const Variant& defaultValue = {}) override;

  bool Contains(const std::string& name) const;
  const std::vector<std::pair<std::string, Variant>>& Entries() const { return entries_; }
  void Clear() { entries_.clear(); }

private:
  std::vector<std::pair<std::string, Variant>> entries_;
};

} // namespace tarnbrook
