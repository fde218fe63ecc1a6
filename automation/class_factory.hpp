#pragma once
#include <memory>
#include <string>
#include <vector>

#include "host/control.hpp"
#include "host/type_info.hpp"

namespace tarnbrook {

// One creatable class of the library as the system registers it.
struct ClassRegistration {
  std::string className; // "MonthCalendar", the name form files use
  std::string progId;    // "Tarnbrook.MonthCalendar"
  std::string classId;   // a fixed GUID, "{...}"
  std::string version;   // the library's version, "0.1.0"
  const ClassInfo* info = nullptr;
};

// The creatable classes: MonthCalendar, DatePicker, DateSelect.
const std::vector<ClassRegistration>& RegisteredClasses();
// A class by ProgID (case-blind), by class id (braces optional, case-blind) or by class name;
// null when none matches.
const ClassRegistration* FindRegistration(const std::string& progIdOrClassId);

// Creates a control by ProgID, class id or class name, a child of `parent` (0: a hidden window
// of its own), not yet initialised. Raises 429 "ActiveX component can't create object" for an
// unknown one.
std::unique_ptr<Control> CreateObject(const std::string& progIdOrClassId, HWND parent = 0);

// Makes the container and form files create the library's classes through this factory.
// Harmless to call more than once.
void RegisterTarnbrookClasses();

} // namespace tarnbrook
