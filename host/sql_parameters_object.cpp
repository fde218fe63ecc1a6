#include "host/sql_parameters_object.hpp"

#include <memory>

#include "common/control_error.hpp"

namespace tarnbrook {

namespace {

using T = MemberType;
using P = SqlParametersObject;

// A read-only property of each value, by index.
template <class Field> PropertyInfo ValueProperty(const char* name, MemberType type, Field field) {
  PropertyInfo info{name, type, {}, {}, {Arg("Index", T::Long)}, {}, {}, {}};
  info.get = [field](Object& o, const std::vector<Variant>& index) {
    return Variant(field(type_info_detail::As<P>(o).At(index.at(0).ToLong())));
  };
  return info;
}

ClassInfo DescribeSqlParameters() {
  ClassInfo info;
  info.name = "SQLParameters";
  info.description = "Criteria with placeholders and the dates to bind to them, in order";
  info.defaultMember = "Text";
  info.properties = {
      Property<&P::Text>("Text", T::String),
      Property<&P::Count>("Count", T::Long),
      ValueProperty("Number", T::Long, [](const SqlParameter& p) { return int32_t(p.number); }),
      ValueProperty("Name", T::String, [](const SqlParameter& p) { return p.name; }),
      ValueProperty("Value", T::String, [](const SqlParameter& p) { return p.text; }),
  };
  return info;
}

} // namespace

const SqlParameter& SqlParametersObject::At(int32_t index) const {
  if (index < 0 || index >= Count())
    RaiseRuntimeError(rtSubscriptOutOfRange);
  return sql_.parameters[static_cast<size_t>(index)];
}

const ClassInfo& SqlParametersObject::TypeInfo() {
  static const ClassInfo info = DescribeSqlParameters();
  return info;
}

MethodInfo SqlParametersMethod(SqlRenderer render, bool prefixArgument) {
  MethodInfo method{"SQLParameters",
                    {OptionalArg("Dialect", T::String, "sqlite"),
                     OptionalArg("ColumnType", T::String, "timestamp"),
                     OptionalArg("Column", T::String, ""), OptionalArg("Named", T::Boolean, false)},
                    T::Object,
                    {},
                    "SQLParameters"};
  if (prefixArgument)
    method.args.push_back(OptionalArg("WithPrefix", T::Boolean, false));
  method.invoke = [render](Object& o, std::vector<Variant>& args) {
    SqlOptions options;
    options.dialect = SqlDialectNamed(args.at(0).ToString());
    options.columnType = SqlColumnTypeNamed(args.at(1).ToString());
    options.column = args.at(2).ToString();
    options.named = args.at(3).ToBoolean();
    const bool withPrefix = args.size() > 4 && args[4].ToBoolean();
    return Variant(std::shared_ptr<Object>(
        std::make_shared<SqlParametersObject>(render(o, options, withPrefix))));
  };
  return method;
}

} // namespace tarnbrook
