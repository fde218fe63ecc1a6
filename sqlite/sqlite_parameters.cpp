#include "sqlite/sqlite_parameters.hpp"

#include <sqlite3.h>

namespace tarnbrook {

int BindParameters(sqlite3_stmt* statement, const ParameterisedSql& sql) {
  for (const SqlParameter& parameter : sql.parameters) {
    const int index = sql.named
                          ? sqlite3_bind_parameter_index(statement, (":" + parameter.name).c_str())
                          : parameter.number;
    if (index <= 0)
      return SQLITE_RANGE;
    const int result = sqlite3_bind_text(statement, index, parameter.text.c_str(),
                                         static_cast<int>(parameter.text.size()), SQLITE_TRANSIENT);
    if (result != SQLITE_OK)
      return result;
  }
  return SQLITE_OK;
}

} // namespace tarnbrook
