#pragma once
#include <memory>

namespace tarnbrook {

// Base of the objects a Variant can hold (fonts, pictures, controls' own objects).
class Object {
public:
  Object() = default;
  Object(const Object&) {} // a copy is another object, with a lifetime of its own
  Object& operator=(const Object&) { return *this; }
  virtual ~Object() = default;

  // Expires when this object goes: for whoever keeps its address beyond a call.
  std::weak_ptr<const void> Lifetime() const {
    if (!lifetime_)
      lifetime_ = std::make_shared<char>();
    return lifetime_;
  }

private:
  mutable std::shared_ptr<char> lifetime_;
};

} // namespace tarnbrook
