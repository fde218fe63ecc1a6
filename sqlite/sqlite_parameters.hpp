#pragma once
#include "common/sql_criteria.hpp"

struct sqlite3_stmt;

namespace tarnbrook {

// Binds the criteria's values, as text, to a statement prepared from a query that holds the
// criteria's text: by name for named placeholders, else by number. Returns SQLITE_OK or the
// first failure's code (SQLITE_RANGE for a placeholder the statement does not have).
int BindParameters(sqlite3_stmt* statement, const ParameterisedSql& sql);

} // namespace tarnbrook
