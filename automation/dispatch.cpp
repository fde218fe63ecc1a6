#include "automation/dispatch.hpp"

#include "automation/type_library.hpp"

namespace tarnbrook {

void RaiseDispatchError(int32_t number) {
  const char* text = number == rtNotSupported
                         ? "Object doesn't support this property or method"
                         : "Wrong number of arguments or invalid property assignment";
  throw ControlError(number, "Tarnbrook", text);
}

namespace {

const ClassInfo& ClassOf(const std::string& name) {
  const ClassInfo* info = FindClassInfo(name);
  if (!info)
    RaiseDispatchError(rtNotSupported);
  return *info;
}

} // namespace

Dispatch::Dispatch(Control& control) : object_(&control), info_(&ClassOf(control.ClassName())) {}

Dispatch::Dispatch(std::shared_ptr<Object> object, const std::string& className)
    : keep_(std::move(object)), object_(keep_.get()), info_(&ClassOf(className)) {
  if (!object_)
    RaiseDispatchError(rtNotSupported);
}

const PropertyInfo& Dispatch::Property(const std::string& name) const {
  const PropertyInfo* property = info_->FindProperty(name);
  if (!property)
    RaiseDispatchError(rtNotSupported);
  return *property;
}

Variant Dispatch::Get(const std::string& name, const std::vector<Variant>& index) const {
  const PropertyInfo& property = Property(name);
  if (index.size() != property.index.size())
    RaiseDispatchError(rtWrongArguments);
  return property.get(*object_, index);
}

void Dispatch::Let(const std::string& name, const Variant& value) const {
  const PropertyInfo& property = Property(name);
  if (!property.CanAssign() || property.IsObject() || !property.index.empty())
    RaiseDispatchError(rtWrongArguments);
  property.let(*object_, value);
}

void Dispatch::Set(const std::string& name, const Variant& object) const {
  const PropertyInfo& property = Property(name);
  if (!property.CanAssign() || !property.IsObject() || !property.index.empty())
    RaiseDispatchError(rtWrongArguments);
  property.let(*object_, object);
}

Variant Dispatch::Call(const std::string& name, std::vector<Variant> args) const {
  const MethodInfo* method = info_->FindMethod(name);
  if (!method)
    RaiseDispatchError(rtNotSupported);
  if (args.size() > method->args.size())
    RaiseDispatchError(rtWrongArguments);
  for (size_t i = args.size(); i < method->args.size(); ++i) {
    if (!method->args[i].optional)
      RaiseDispatchError(rtWrongArguments);
    args.push_back(method->args[i].defaultValue);
  }
  return method->invoke(*object_, args);
}

Variant Dispatch::Invoke(const std::string& name, std::vector<Variant> args) const {
  if (info_->FindProperty(name))
    return Get(name, args);
  return Call(name, std::move(args));
}

EventConnection Dispatch::Connect(EventHandler handler) const {
  if (!info_->connect)
    RaiseDispatchError(rtNotSupported);
  return info_->connect(*object_, std::move(handler));
}

} // namespace tarnbrook
