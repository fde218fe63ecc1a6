#include "host/saved_properties.hpp"

#include <algorithm>
#include <vector>

namespace tarnbrook {
namespace {

std::vector<const PropertyInfo*> SavedInOrder(const ClassInfo& info, bool written) {
  std::vector<const PropertyInfo*> saved;
  for (const PropertyInfo& property : info.properties)
    if (property.saved.IsSaved())
      saved.push_back(&property);
  auto rank = [written](const PropertyInfo* p) {
    return written && p->saved.write >= 0 ? p->saved.write : p->saved.read;
  };
  std::stable_sort(saved.begin(), saved.end(),
                   [&](const PropertyInfo* a, const PropertyInfo* b) { return rank(a) < rank(b); });
  return saved;
}

Variant DefaultOf(Object& object, const SavedAs& saved) {
  return saved.defaultOf ? saved.defaultOf(object) : saved.byDefault;
}

} // namespace

std::optional<ControlError> ReadSavedProperties(Object& object, const ClassInfo& info,
                                                PropertyBag& bag) {
  std::optional<ControlError> refused;
  for (const PropertyInfo* property : SavedInOrder(info, false)) {
    const SavedAs& saved = property->saved;
    try {
      Variant value = bag.ReadProperty(property->key, DefaultOf(object, saved));
      (saved.load ? saved.load : property->let)(object, value);
    } catch (const ControlError& error) {
      if (!refused && !saved.quiet)
        refused = ControlError(error.Number(), error.Source(),
                               "property '" + property->key + "': " + error.Description());
    }
  }
  return refused;
}

void WriteSavedProperties(Object& object, const ClassInfo& info, PropertyBag& bag) {
  for (const PropertyInfo* property : SavedInOrder(info, true)) {
    const SavedAs& saved = property->saved;
    Variant value = property->get(object, {});
    if (saved.asInteger)
      value = Variant(value.ToInteger());
    bag.WriteProperty(saved.writtenAs.empty() ? property->key : saved.writtenAs, value,
                      saved.alwaysWritten ? Variant() : DefaultOf(object, saved));
  }
}

} // namespace tarnbrook
