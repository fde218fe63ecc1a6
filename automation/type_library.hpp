#pragma once
#include <string>
#include <vector>

#include "host/type_info.hpp"

namespace tarnbrook {

// The type library "Tarnbrook": every public class's description.
std::string TypeLibraryName(); // "Tarnbrook"
const std::vector<const ClassInfo*>& TarnbrookClasses();
// A class by name, without regard to case; null when the library has none.
const ClassInfo* FindClassInfo(const std::string& name);

// The library as readable IDL-like text, or one class of it.
std::string DescribeClass(const ClassInfo& info);
// The same as JSON.
std::string DescribeClassJson(const ClassInfo& info);

} // namespace tarnbrook
