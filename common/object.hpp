#pragma once

namespace tarnbrook {

// Base of the objects a Variant can hold (fonts, pictures, controls' own objects).
class Object {
public:
  virtual ~Object() = default;
};

} // namespace tarnbrook
