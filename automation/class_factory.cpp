#include "automation/class_factory.hpp"
#include "common/text.hpp"

#include "calendar/month_calendar.hpp"
#include "dateselect/date_select.hpp"
#include "host/about_box.hpp"
#include "host/control_registry.hpp"
#include "picker/date_picker.hpp"

namespace tarnbrook {
namespace {

struct Creatable {
  ClassRegistration registration;
  ControlFactory create;
};

template <class C> Creatable Entry(const char* classId) {
  std::string name = C::TypeInfo().name;
  return {{name, "Tarnbrook." + name, classId, LibraryVersion(), &C::TypeInfo()},
          [](HWND parent) { return std::make_unique<C>(parent); }};
}

// The class ids never change: saved documents and hosts refer to them.
const std::vector<Creatable>& Creatables() {
  static const std::vector<Creatable> all{
      Entry<MonthCalendar>("{6F0E2B1A-3C54-4B8E-9A71-2D5C8E4F1A01}"),
      Entry<DatePicker>("{6F0E2B1A-3C54-4B8E-9A71-2D5C8E4F1A02}"),
      Entry<DateSelect>("{6F0E2B1A-3C54-4B8E-9A71-2D5C8E4F1A03}"),
  };
  return all;
}

std::string Unbraced(const std::string& id) {
  if (id.size() >= 2 && id.front() == '{' && id.back() == '}')
    return id.substr(1, id.size() - 2);
  return id;
}

const Creatable* FindCreatable(const std::string& id) {
  for (const Creatable& c : Creatables()) {
    const ClassRegistration& r = c.registration;
    if (EqualsIgnoreCaseAscii(r.progId, id) ||
        EqualsIgnoreCaseAscii(Unbraced(r.classId), Unbraced(id)) || r.className == id)
      return &c;
  }
  return nullptr;
}

} // namespace

const std::vector<ClassRegistration>& RegisteredClasses() {
  static const std::vector<ClassRegistration> list = [] {
    std::vector<ClassRegistration> registrations;
    for (const Creatable& c : Creatables())
      registrations.push_back(c.registration);
    return registrations;
  }();
  return list;
}

const ClassRegistration* FindRegistration(const std::string& progIdOrClassId) {
  const Creatable* found = FindCreatable(progIdOrClassId);
  return found ? &RegisteredClasses()[static_cast<size_t>(found - Creatables().data())] : nullptr;
}

std::unique_ptr<Control> CreateObject(const std::string& progIdOrClassId, HWND parent) {
  const Creatable* found = FindCreatable(progIdOrClassId);
  if (!found)
    throw ControlError(429, "Tarnbrook", "ActiveX component can't create object");
  return found->create(parent);
}

void RegisterTarnbrookClasses() {
  for (const Creatable& c : Creatables()) {
    std::string id = c.registration.progId;
    RegisterControlClass(c.registration.className,
                         [id](HWND parent) { return CreateObject(id, parent); });
  }
}

} // namespace tarnbrook
