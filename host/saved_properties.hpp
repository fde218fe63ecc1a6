#pragma once
#include <optional>

#include "common/control_error.hpp"
#include "common/property_bag.hpp"
#include "host/type_info.hpp"

namespace tarnbrook {

// A class's saved form comes from its description: every property whose `saved` says so.

// Reads every saved property in the class's read order. A value the control refuses is not
// kept and reading goes on; the first refusal, naming its key, is returned for the control to
// raise once it has finished loading.
std::optional<ControlError> ReadSavedProperties(Object& object, const ClassInfo& info,
                                                PropertyBag& bag);

// Writes every saved property in the class's write order, each with its default.
void WriteSavedProperties(Object& object, const ClassInfo& info, PropertyBag& bag);

} // namespace tarnbrook
