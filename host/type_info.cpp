#include "host/type_info.hpp"
#include "common/text.hpp"

#include <algorithm>

namespace tarnbrook {

std::string TypeName(MemberType type) {
  switch (type) {
  case MemberType::Void:
    return "void";
  case MemberType::Boolean:
    return "VARIANT_BOOL";
  case MemberType::Integer:
    return "short";
  case MemberType::Long:
    return "long";
  case MemberType::Double:
    return "double";
  case MemberType::Date:
    return "DATE";
  case MemberType::String:
    return "BSTR";
  case MemberType::Color:
    return "OLE_COLOR";
  case MemberType::Font:
    return "IFontDisp*";
  case MemberType::Picture:
    return "IPictureDisp*";
  case MemberType::Object:
    return "IDispatch*";
  case MemberType::Variant:
    return "VARIANT";
  }
  return "VARIANT";
}

namespace {

template <class List> auto FindNamed(const List& list, const std::string& name) {
  auto found = std::find_if(list.begin(), list.end(), [&](const auto& member) {
    return EqualsIgnoreCaseAscii(member.name, name);
  });
  return found == list.end() ? nullptr : &*found;
}

} // namespace

const PropertyInfo* ClassInfo::FindProperty(const std::string& name) const {
  return FindNamed(properties, name);
}

const MethodInfo* ClassInfo::FindMethod(const std::string& name) const {
  return FindNamed(methods, name);
}

const EventInfo* ClassInfo::FindEvent(const std::string& name) const {
  return FindNamed(events, name);
}

} // namespace tarnbrook
