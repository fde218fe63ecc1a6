#include "automation/type_library.hpp"
#include "common/text.hpp"

#include <nlohmann/json.hpp>
#include <sstream>

#include "automation/class_factory.hpp"
#include "dateselect/cdts_option.hpp"
#include "host/sql_parameters_object.hpp"

namespace tarnbrook {

std::string TypeLibraryName() {
  return "Tarnbrook";
}

// The creatable classes, then the objects hosts reach only through them.
const std::vector<const ClassInfo*>& TarnbrookClasses() {
  static const std::vector<const ClassInfo*> classes = [] {
    std::vector<const ClassInfo*> all;
    for (const ClassRegistration& registration : RegisteredClasses())
      all.push_back(registration.info);
    all.push_back(&CdtsOption::TypeInfo());
    all.push_back(&SqlParametersObject::TypeInfo());
    return all;
  }();
  return classes;
}

const ClassInfo* FindClassInfo(const std::string& name) {
  for (const ClassInfo* info : TarnbrookClasses()) {
    if (EqualsIgnoreCaseAscii(info->name, name))
      return info;
  }
  return nullptr;
}

namespace {

std::string TypeOf(MemberType type, const std::string& enumName) {
  return enumName.empty() ? TypeName(type) : enumName;
}

// A default as IDL writes it: strings quoted, numbers as they are.
std::string Literal(const Variant& value) {
  if (value.VarType() == vbString) {
    std::string quoted = "\"";
    quoted += value.ToString();
    return quoted += '"';
  }
  if (value.VarType() == vbBoolean)
    return value.ToBoolean() ? "True" : "False";
  return value.ToString();
}

std::string Params(const std::vector<ArgInfo>& args) {
  std::string text;
  for (const ArgInfo& arg : args) {
    if (!text.empty())
      text += ", ";
    if (arg.optional)
      text += "[optional, defaultvalue(" + Literal(arg.defaultValue) + ")] ";
    text += TypeName(arg.type) + (arg.byRef ? "* " : " ") + arg.name;
  }
  return text;
}

nlohmann::json ArgsJson(const std::vector<ArgInfo>& args) {
  nlohmann::json list = nlohmann::json::array();
  for (const ArgInfo& arg : args) {
    nlohmann::json a{{"name", arg.name},
                     {"type", TypeName(arg.type)},
                     {"byRef", arg.byRef},
                     {"optional", arg.optional}};
    if (arg.optional)
      a["default"] = arg.defaultValue.ToString();
    list.push_back(a);
  }
  return list;
}

} // namespace

std::string DescribeClass(const ClassInfo& info) {
  std::ostringstream out;
  for (const EnumInfo& e : info.enums) {
    out << "typedef enum " << e.name << " {\n";
    for (size_t i = 0; i < e.values.size(); ++i)
      out << "    " << e.values[i].first << " = " << e.values[i].second
          << (i + 1 < e.values.size() ? ",\n" : "\n");
    out << "} " << e.name << ";\n\n";
  }
  out << "// " << info.description << "\n";
  out << "dispinterface " << info.name << " {\n  properties:\n";
  for (const PropertyInfo& p : info.properties) {
    std::string type =
        p.type == MemberType::Object ? p.objectClass + "*" : TypeOf(p.type, p.enumName);
    std::string attributes = p.CanAssign() ? "" : "readonly";
    if (EqualsIgnoreCaseAscii(p.name, info.defaultMember))
      attributes += attributes.empty() ? "default" : ", default";
    out << "    " << (attributes.empty() ? "" : "[" + attributes + "] ") << type << " " << p.name;
    if (!p.index.empty())
      out << "(" << Params(p.index) << ")";
    out << ";";
    if (!p.key.empty())
      out << " // saved as \"" << p.key << "\"";
    out << "\n";
  }
  out << "  methods:\n";
  for (const MethodInfo& m : info.methods)
    out << "    " << (m.returns == MemberType::Object ? m.objectClass + "*" : TypeName(m.returns))
        << " " << m.name << "(" << Params(m.args) << ");\n";
  out << "};\n";
  if (!info.events.empty()) {
    out << "\ndispinterface __" << info.name << " { // events\n";
    for (const EventInfo& e : info.events)
      out << "    [id(" << e.ordinal << ")] void " << e.name << "(" << Params(e.args) << ");\n";
    out << "};\n";
  }
  return out.str();
}

std::string DescribeClassJson(const ClassInfo& info) {
  nlohmann::json properties = nlohmann::json::array(), methods = nlohmann::json::array(),
                 events = nlohmann::json::array(), enums = nlohmann::json::array();
  for (const PropertyInfo& p : info.properties) {
    nlohmann::json entry{{"name", p.name},
                         {"type", p.type == MemberType::Object ? p.objectClass : TypeName(p.type)},
                         {"readOnly", !p.CanAssign()},
                         {"assign", p.IsObject() ? "set" : "let"}};
    if (!p.enumName.empty())
      entry["enum"] = p.enumName;
    if (!p.key.empty())
      entry["key"] = p.key;
    if (!p.index.empty())
      entry["index"] = ArgsJson(p.index);
    properties.push_back(entry);
  }
  for (const MethodInfo& m : info.methods)
    methods.push_back(
        {{"name", m.name},
         {"returns", m.returns == MemberType::Object ? m.objectClass : TypeName(m.returns)},
         {"args", ArgsJson(m.args)}});
  for (const EventInfo& e : info.events)
    events.push_back({{"name", e.name}, {"ordinal", e.ordinal}, {"args", ArgsJson(e.args)}});
  for (const EnumInfo& e : info.enums) {
    nlohmann::json values = nlohmann::json::object();
    for (const auto& [name, value] : e.values)
      values[name] = value;
    enums.push_back({{"name", e.name}, {"values", values}});
  }
  nlohmann::json whole{{"library", TypeLibraryName()},
                       {"name", info.name},
                       {"description", info.description},
                       {"default", info.defaultMember},
                       {"properties", properties},
                       {"methods", methods},
                       {"events", events},
                       {"enums", enums}};
  return whole.dump(2) + "\n";
}

} // namespace tarnbrook
