#pragma once
#include <cstdint>
#include <functional>
#include <string>

#include "common/object.hpp"
#include "common/sql_criteria.hpp"
#include "host/type_info.hpp"

namespace tarnbrook {

// Criteria with placeholders and the values to bind, as hosts reach them by name: Text, Count,
// and each value's Number, Name and Value (its ISO text) by index from 0.
class SqlParametersObject : public Object {
public:
  explicit SqlParametersObject(ParameterisedSql sql) : sql_(std::move(sql)) {}

  const std::string& Text() const { return sql_.text; }
  int32_t Count() const { return static_cast<int32_t>(sql_.parameters.size()); }
  const SqlParameter& At(int32_t index) const; // 9 outside 0..Count-1

  static const ClassInfo& TypeInfo();

private:
  ParameterisedSql sql_;
};

// The method SQLParameters([Dialect = "sqlite"], [ColumnType = "timestamp"], [Column = ""],
// [Named = False], and with `prefixArgument` [WithPrefix = False]) of a class whose criteria
// `render` gives for the options.
using SqlRenderer = std::function<ParameterisedSql(Object&, const SqlOptions&, bool withPrefix)>;
MethodInfo SqlParametersMethod(SqlRenderer render, bool prefixArgument = false);

} // namespace tarnbrook
