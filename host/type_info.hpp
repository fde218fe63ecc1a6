#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/control_error.hpp"
#include "common/font.hpp"
#include "common/object.hpp"
#include "common/picture.hpp"
#include "common/variant.hpp"

namespace tarnbrook {

// One description of a class's members, as a host reaches them by name: the type library's
// entries, with a Variant getter, setter and invoker per member. Each class declares its own
// next to the class; automation/ reads them.

// The automation type of a property, argument or return value.
enum class MemberType {
  Void,
  Boolean,
  Integer, // 16-bit
  Long,
  Double,
  Date,
  String,
  Color, // OLE_COLOR: a Long with its own meaning
  Font,
  Picture,
  Object, // another described class
  Variant,
};

// The IDL-ish name of a type ("long", "BSTR", "OLE_COLOR" ...).
std::string TypeName(MemberType type);

struct EnumInfo {
  std::string name;
  std::vector<std::pair<std::string, int32_t>> values;
};

struct ArgInfo {
  std::string name;
  MemberType type = MemberType::Variant;
  bool optional = false;
  Variant defaultValue; // the value an optional argument left out takes
  bool byRef = false;
};

using PropertyGetter = std::function<Variant(Object&, const std::vector<Variant>& index)>;
using PropertySetter = std::function<void(Object&, const Variant& value)>;

// How a saved form keeps a property. Keys are read in `read` order and written in `write`
// order: some classes' forms keep the two orders apart, and readers depend on both.
struct SavedAs {
  int read = -1;          // its place among the keys read; -1: not saved
  int write = -1;         // its place among the keys written; -1: the same as read
  Variant byDefault = {}; // what an absent key reads as; a value equal to it is left out
  std::function<Variant(Object&)> defaultOf = {}; // instead, a default the control decides
  std::string writtenAs = {};                     // a second spelling the key is written under
  bool alwaysWritten = false;                     // written even when it equals its default
  bool asInteger = false;   // written as a 16-bit integer whatever its property's type
  bool quiet = false;       // a value the control refuses is dropped without a word
  PropertySetter load = {}; // how a read value is applied, when not through the setter
  bool IsSaved() const { return read >= 0; }
};

struct PropertyInfo {
  std::string name;
  MemberType type = MemberType::Variant;
  std::string enumName;       // the enumeration its values come from, if any
  std::string key;            // the persistence key, empty when it is not persisted
  std::vector<ArgInfo> index; // arguments of an indexed property
  PropertyGetter get;         // always present
  PropertySetter let;         // null: read-only. An object property is assigned by Set.
  std::string objectClass;    // for MemberType::Object, the described class it returns
  SavedAs saved = {};
  bool CanGet() const { return static_cast<bool>(get); }
  bool CanAssign() const { return static_cast<bool>(let); }
  bool IsObject() const {
    return type == MemberType::Font || type == MemberType::Picture || type == MemberType::Object;
  }
  // The same property, saved in forms as `how` says.
  PropertyInfo Saved(SavedAs how) && {
    saved = std::move(how);
    return std::move(*this);
  }
};

using MethodInvoker = std::function<Variant(Object&, std::vector<Variant>& args)>;

struct MethodInfo {
  std::string name;
  std::vector<ArgInfo> args; // optional ones last
  MemberType returns = MemberType::Void;
  MethodInvoker invoke;         // gets every argument, the left-out ones as their defaults
  std::string objectClass = {}; // for MemberType::Object, the described class it returns
};

struct EventInfo {
  std::string name;
  int32_t ordinal = 0;
  std::vector<ArgInfo> args;
};

// Receives a class's events by name; by-reference arguments written here go back.
using EventHandler = std::function<void(const std::string& event, std::vector<Variant>& args)>;
// Keeps a by-name connection to one object's events; dropping it disconnects, and dropping it
// after the object has gone does nothing.
using EventConnection = std::shared_ptr<void>;

struct ClassInfo {
  std::string name;
  std::string description;
  std::vector<PropertyInfo> properties;
  std::vector<MethodInfo> methods;
  std::vector<EventInfo> events;
  std::vector<EnumInfo> enums;
  std::string defaultMember; // the property a plain value of the object means
  std::function<EventConnection(Object&, EventHandler)> connect; // null: no events

  // Members by name, without regard to case; null when absent.
  const PropertyInfo* FindProperty(const std::string& name) const;
  const MethodInfo* FindMethod(const std::string& name) const;
  const EventInfo* FindEvent(const std::string& name) const;
};

// Conversions between member values and Variants, by the member's type.
namespace type_info_detail {

template <class T> T FromVariant(const Variant& v, MemberType type) {
  using U = std::decay_t<T>;
  if constexpr (std::is_same_v<U, bool>) {
    return v.ToBoolean();
  } else if constexpr (std::is_same_v<U, int16_t>) {
    return v.ToInteger();
  } else if constexpr (std::is_same_v<U, int32_t>) {
    return v.ToLong();
  } else if constexpr (std::is_same_v<U, double>) {
    return type == MemberType::Date ? v.ToDate() : v.ToDouble();
  } else if constexpr (std::is_same_v<U, std::string>) {
    return v.ToString();
  } else if constexpr (std::is_same_v<U, Variant>) {
    return v;
  } else if constexpr (std::is_same_v<U, Font>) {
    auto font = std::dynamic_pointer_cast<Font>(v.ToObject());
    if (!font)
      RaiseRuntimeError(rtTypeMismatch);
    return *font;
  } else if constexpr (std::is_same_v<U, std::shared_ptr<const Picture>>) {
    if (v.IsEmpty() || v.IsNull())
      return nullptr;
    auto picture = std::dynamic_pointer_cast<Picture>(v.ToObject());
    if (!picture && v.ToObject())
      RaiseRuntimeError(rtTypeMismatch);
    return picture;
  } else {
    static_assert(sizeof(U) == 0, "no Variant conversion for this member type");
  }
}

template <class T> struct IsObjectPointer : std::false_type {};
template <class T>
struct IsObjectPointer<std::shared_ptr<T>> : std::bool_constant<std::is_base_of_v<Object, T>> {};

template <class T> Variant ToVariant(const T& value, MemberType type) {
  using U = std::decay_t<T>;
  if constexpr (std::is_same_v<U, double>) {
    return type == MemberType::Date ? Variant::Date(value) : Variant(value);
  } else if constexpr (std::is_same_v<U, Font>) {
    return Variant(std::shared_ptr<Object>(std::make_shared<Font>(value)));
  } else if constexpr (std::is_same_v<U, std::shared_ptr<const Picture>>) {
    return value ? Variant(std::shared_ptr<Object>(std::const_pointer_cast<Picture>(value)))
                 : Variant();
  } else if constexpr (IsObjectPointer<U>::value) {
    return Variant(std::shared_ptr<Object>(value));
  } else {
    return Variant(value);
  }
}

template <class M> struct Getter;
template <class C, class R> struct Getter<R (C::*)() const> {
  using Class = C;
  using Value = std::decay_t<R>;
};
template <class C, class R> struct Getter<R (C::*)()> {
  using Class = C;
  using Value = std::decay_t<R>;
};
template <class M> struct DataMember;
template <class C, class V> struct DataMember<V C::*> {
  using Class = C;
  using Value = V;
};
template <class M> struct Setter;
template <class C, class A> struct Setter<void (C::*)(A)> {
  using Class = C;
  using Value = std::decay_t<A>;
};

// The object a member is called on; 13 when it is another class.
template <class C> C& As(Object& object) {
  auto* typed = dynamic_cast<C*>(&object);
  if (!typed)
    RaiseRuntimeError(rtTypeMismatch);
  return *typed;
}

} // namespace type_info_detail

// A property from its C++ getter and setter (Set may be nullptr for a read-only one).
template <auto Get, auto Set = nullptr>
PropertyInfo Property(std::string name, MemberType type, std::string key = {},
                      std::string enumName = {}) {
  using namespace type_info_detail;
  using G = Getter<decltype(Get)>;
  PropertyInfo info{std::move(name), type, std::move(enumName), std::move(key), {}, {}, {}, {}};
  info.get = [type](Object& object, const std::vector<Variant>&) {
    return ToVariant((As<typename G::Class>(object).*Get)(), type);
  };
  if constexpr (!std::is_same_v<decltype(Set), std::nullptr_t>) {
    using S = Setter<decltype(Set)>;
    info.let = [type](Object& object, const Variant& value) {
      auto converted = FromVariant<typename S::Value>(value, type);
      (As<typename S::Class>(object).*Set)(converted);
    };
  }
  return info;
}

// A load that puts a read value straight into a data member: none of the setter's checks,
// notifications or repainting, for the keys a form restores as they were saved.
template <auto Member> PropertySetter Store(MemberType type) {
  using namespace type_info_detail;
  using M = DataMember<decltype(Member)>;
  return [type](Object& object, const Variant& value) {
    As<typename M::Class>(object).*Member = FromVariant<typename M::Value>(value, type);
  };
}

// An argument's description: by value, by reference, or optional with its default.
inline ArgInfo Arg(std::string name, MemberType type) {
  return {std::move(name), type, false, Variant(), false};
}
inline ArgInfo RefArg(std::string name, MemberType type) {
  return {std::move(name), type, false, Variant(), true};
}
inline ArgInfo OptionalArg(std::string name, MemberType type, Variant defaultValue) {
  return {std::move(name), type, true, std::move(defaultValue), false};
}

// Helpers of the event adapters: raise an event by name; a by-reference argument takes back
// what the handler wrote (13 when it wrote something of the wrong type).
inline void Forward(const EventHandler& handler, const char* event,
                    std::vector<Variant> args = {}) {
  handler(event, args);
}
inline void ForwardRef(const EventHandler& handler, const char* event, bool& Cancel) {
  std::vector<Variant> args{Variant(Cancel)};
  handler(event, args);
  Cancel = args.at(0).ToBoolean();
}
inline void ForwardRef(const EventHandler& handler, const char* event, int16_t& code,
                       std::vector<Variant> rest = {}) {
  std::vector<Variant> args{Variant(code)};
  args.insert(args.end(), rest.begin(), rest.end());
  handler(event, args);
  code = args.at(0).ToInteger();
}

// Builds the by-name connection for a class whose sink interface is `Sink`: `Adapter` derives
// from Sink, takes the handler, and forwards each event by name.
template <class C, class Adapter>
std::function<EventConnection(Object&, EventHandler)> Connector() {
  return [](Object& object, EventHandler handler) -> EventConnection {
    C& control = type_info_detail::As<C>(object);
    auto adapter = std::make_shared<Adapter>(std::move(handler));
    control.Connect(adapter.get());
    C* target = &control;
    std::weak_ptr<const void> alive = control.Lifetime(); // dropped after the control: nothing
    return std::shared_ptr<void>(adapter.get(), [adapter, target, alive](void*) {
      if (!alive.expired())
        target->Disconnect(adapter.get());
    });
  };
}

} // namespace tarnbrook
