#pragma once
#include <memory>

#include "common/control_error.hpp"
#include "common/font.hpp"
#include "common/picture.hpp"
#include "common/variant.hpp"

namespace tarnbrook {

// Fonts and pictures as a property bag keeps them: objects inside a Variant.

inline Variant FontVariant(const Font& font) {
  return Variant(std::shared_ptr<Object>(std::make_shared<Font>(font)));
}

// No picture is Empty, so that it equals an Empty default and is not written.
inline Variant PictureVariant(const std::shared_ptr<const Picture>& picture) {
  if (!picture)
    return Variant();
  return Variant(std::shared_ptr<Object>(std::const_pointer_cast<Picture>(picture)));
}

// The object of type T a value holds; 13 (type mismatch) for anything else.
template <class T> std::shared_ptr<T> ObjectOf(const Variant& value) {
  auto object = std::dynamic_pointer_cast<T>(value.ToObject());
  if (!object)
    RaiseRuntimeError(rtTypeMismatch);
  return object;
}

} // namespace tarnbrook
