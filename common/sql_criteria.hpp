#pragma once
#include <chrono>
#include <string>
#include <vector>

#include "common/date_value.hpp"

namespace tarnbrook {

// What a date control selects, as its own SQL text says it: nothing, one date compared with
// an operator, or a range of dates with both ends included.
enum class CriterionKind { None, Compare, Range };

struct DateCriterion {
  CriterionKind kind = CriterionKind::None;
  std::string column;   // as the control names it (a DateSelect's SQLFieldName)
  std::string op = "="; // Compare: "=", "<>", "<", "<=", ">" or ">="
  DateValue start = 0;  // as the control holds it, time of day included
  DateValue end = 0;    // Range only

  // Whole days: the first one, the last one (the compared day for Compare), the one after.
  DateValue FirstDay() const;
  DateValue LastDay() const;
  DateValue DayAfterLast() const { return LastDay() + 1; }
  std::chrono::sys_days First() const;
  std::chrono::sys_days AfterLast() const;
};

DateCriterion CompareCriterion(const std::string& op, DateValue date);
DateCriterion RangeCriterion(DateValue start, DateValue end);

// A whole day as the calendar of <chrono> counts it, and back.
std::chrono::sys_days SysDays(DateValue day);
DateValue DateValueOf(std::chrono::sys_days day);

enum class SqlDialect { SQLite, PostgreSQL };
// A timestamp column is compared in half-open ranges (from the first day's midnight to before
// the next day's after the last), a date column in closed ranges of days.
enum class SqlColumnType { Timestamp, Date };

struct SqlOptions {
  SqlDialect dialect = SqlDialect::SQLite;
  SqlColumnType columnType = SqlColumnType::Timestamp;
  std::string column;     // empty: the criterion's own
  bool named = false;     // ":first" rather than the dialect's "?" or "$1"
  std::string namePrefix; // before each name, to keep several criteria in one query apart
  int firstNumber = 1;    // the number of the first value ("$1", or SQLite's first "?")
  std::string prefix;     // put before the criteria with a space, once checked
};

// One value to bind: its number among the query's values, its name (without the colon), the
// day, and the day as the text to bind: "2004-05-01", or "2004-05-01 00:00:00" for timestamps.
struct SqlParameter {
  int number = 0;
  std::string name;
  DateValue day = 0;
  std::string text;
};

struct ParameterisedSql {
  std::string text;
  std::vector<SqlParameter> parameters;
  bool named = false; // the placeholders are ":name", not numbered
};

// The criterion as SQL with placeholders and the values to bind in their order. The column is
// checked (a name or table.name of letters, digits and underscores) and quoted. A prefix may
// hold names, numbers, spaces and * , . ( ) = < > + only: no quotes, comments, semicolons,
// placeholders or control characters, so it can add no literal, statement or hidden text
// (though it still names the table: write your own when forms come from elsewhere).
// Anything else, an unknown operator or a criterion that selects nothing raises 5 saying what
// was wrong.
ParameterisedSql RenderParameterised(const DateCriterion& criterion, const SqlOptions& options);

// Raises 5 unless `wrapper` is made of date delimiters only (' " # `): a form whose wrapper
// holds anything else was not written by a designer.
void CheckDateWrapper(const std::string& wrapper);

// The options a host names as text: dialect "sqlite" or "postgres" (or "postgresql"), column
// type "timestamp" or "date", whatever their case; anything else raises 5.
SqlDialect SqlDialectNamed(const std::string& name);
SqlColumnType SqlColumnTypeNamed(const std::string& name);

} // namespace tarnbrook
