#pragma once
#include <memory>
#include <string>
#include <vector>

#include "common/variant.hpp"
#include "host/control.hpp"
#include "host/type_info.hpp"

namespace tarnbrook {

// The runtime's errors of late binding.
enum DispatchErrorNumber : int32_t {
  rtNotSupported = 438,   // "Object doesn't support this property or method"
  rtWrongArguments = 450, // "Wrong number of arguments or invalid property assignment"
};

// Calls by name on one object through its class's description: names match without regard
// to case; values and arguments are Variants. Errors: 438 for a name the class lacks, 450 for
// a wrong count of arguments or an assignment the property does not take (Let on an object
// property, Set on a plain one, any on a read-only one), 13 for a value of the wrong type;
// the object's own errors pass through as they are.
class Dispatch {
public:
  Dispatch(Object& object, const ClassInfo& info) : object_(&object), info_(&info) {}
  // A control of a class the type library describes (438 for any other).
  explicit Dispatch(Control& control);
  // An object a property returned (CdtsOption ...): its class is looked up by `className`.
  Dispatch(std::shared_ptr<Object> object, const std::string& className);

  const ClassInfo& Info() const { return *info_; }
  Object& Target() const { return *object_; }

  Variant Get(const std::string& name, const std::vector<Variant>& index = {}) const;
  void Let(const std::string& name, const Variant& value) const;
  void Set(const std::string& name, const Variant& object) const;
  // A method; arguments left out at the end take their defaults.
  Variant Call(const std::string& name, std::vector<Variant> args = {}) const;
  // Get of a property or a call of a method, whichever the name is.
  Variant Invoke(const std::string& name, std::vector<Variant> args = {}) const;

  // The object's events by name until the connection is dropped.
  EventConnection Connect(EventHandler handler) const;

private:
  const PropertyInfo& Property(const std::string& name) const;
  std::shared_ptr<Object> keep_; // an object held only through this dispatch
  Object* object_;
  const ClassInfo* info_;
};

// Raises 438 or 450 with the runtime's text.
[[noreturn]] void RaiseDispatchError(int32_t number);

} // namespace tarnbrook
