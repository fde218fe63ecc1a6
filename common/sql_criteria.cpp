#include "common/sql_criteria.hpp"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

#include "common/control_error.hpp"
#include "common/text.hpp"

namespace tarnbrook {

namespace {

// 30 December 1899, day 0 of a DateValue, counted from 1 January 1970.
constexpr long DateValueEpoch = -25569;

[[noreturn]] void Refuse(const std::string& what) {
  throw ControlError(rtInvalidProcedureCall, "Tarnbrook", what);
}

long DayNumber(DateValue date) {
  return SplitDateValue(date).Days;
}

// An ASCII letter, digit or underscore: what names are made of.
bool IsWordChar(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

bool IsIdentifierPart(std::string_view part) {
  return !part.empty() && part.size() <= 63 && !(part[0] >= '0' && part[0] <= '9') &&
         std::all_of(part.begin(), part.end(), IsWordChar);
}

// The column as a quoted name, or a quoted table and name; both dialects quote with double
// quotes, so the name's case is kept as written.
std::string QuotedColumn(const std::string& column) {
  if (column.empty())
    Refuse("no column: name the column the dates are compared with");
  const size_t dot = column.find('.');
  const std::string_view name(column);
  const bool valid = dot == std::string::npos ? IsIdentifierPart(name)
                                              : IsIdentifierPart(name.substr(0, dot)) &&
                                                    IsIdentifierPart(name.substr(dot + 1));
  if (!valid)
    Refuse("\"" + MendUtf8(column) +
           "\" is not a column name: use letters, digits and underscores, as name or "
           "table.name");
  if (dot == std::string::npos)
    return "\"" + column + "\"";
  return "\"" + column.substr(0, dot) + "\".\"" + column.substr(dot + 1) + "\"";
}

// The day as the text to bind. The day after 31 December 9999 is that day's 24:00, which
// both dialects read as the next midnight and which still sorts after every 9999 text.
std::string DayText(long day, SqlColumnType type) {
  char text[32];
  if (day > MaxDateDay) {
    std::snprintf(text, sizeof text, "9999-12-31 24:00:00");
  } else {
    const CivilDate civil = CivilFromDays(day);
    std::snprintf(text, sizeof text,
                  type == SqlColumnType::Date ? "%04d-%02d-%02d" : "%04d-%02d-%02d 00:00:00",
                  civil.Year, civil.Month, civil.Day);
  }
  return text;
}

class Renderer {
public:
  Renderer(const SqlOptions& options, const std::string& column, std::string head)
      : options_(options), column_(QuotedColumn(column)), text_(std::move(head)) {}

  // Appends "column op value", the value bound under `name`; calls chain in reading order.
  Renderer& Compare(const char* op, const char* name, long day) {
    text_ += column_ + " " + op + " " + Bind(name, day);
    return *this;
  }
  Renderer& Then(const char* words) {
    text_ += words;
    return *this;
  }
  ParameterisedSql Done() { return {std::move(text_), std::move(parameters_), options_.named}; }

private:
  std::string Bind(const char* name, long day) {
    SqlParameter parameter;
    parameter.number = options_.firstNumber + static_cast<int>(parameters_.size());
    parameter.name = options_.namePrefix + name;
    parameter.day = static_cast<DateValue>(day);
    parameter.text = DayText(day, options_.columnType);
    parameters_.push_back(parameter);
    if (options_.named)
      return ":" + parameter.name;
    if (options_.dialect == SqlDialect::PostgreSQL)
      return "$" + std::to_string(parameter.number);
    return "?";
  }

  const SqlOptions& options_;
  std::string column_;
  std::string text_;
  std::vector<SqlParameter> parameters_;
};

// "SQLPrefix holds ';' at 12", or for a byte that shows nothing, its code.
std::string Offending(const char* what, const std::string& text, size_t at) {
  const unsigned char c = static_cast<unsigned char>(text[at]);
  char shown[16];
  if (c > ' ' && c < 0x7F)
    std::snprintf(shown, sizeof shown, "'%c'", c);
  else
    std::snprintf(shown, sizeof shown, "byte 0x%02X", c);
  return std::string(what) + " holds " + shown + " at " + std::to_string(at + 1);
}

void CheckPrefix(const std::string& prefix) {
  for (size_t at = 0; at < prefix.size(); ++at) {
    const char c = prefix[at];
    if (c == '\0' || (!IsWordChar(c) && !std::strchr(" \t\n\r*,.()=<>+", c)))
      Refuse(Offending("the prefix", prefix, at) +
             ": a prefix for bound criteria may hold only names, numbers, spaces and * , . ( ) "
             "= < > +");
  }
}

void CheckName(const std::string& prefix) {
  if (!prefix.empty() && !IsIdentifierPart(prefix))
    Refuse("\"" + MendUtf8(prefix) +
           "\" cannot start a parameter name: use letters, digits "
           "and underscores");
}

} // namespace

DateValue DateCriterion::FirstDay() const {
  return static_cast<DateValue>(DayNumber(start));
}

DateValue DateCriterion::LastDay() const {
  return static_cast<DateValue>(DayNumber(kind == CriterionKind::Range ? end : start));
}

std::chrono::sys_days DateCriterion::First() const {
  return SysDays(FirstDay());
}

std::chrono::sys_days DateCriterion::AfterLast() const {
  return SysDays(DayAfterLast());
}

DateCriterion CompareCriterion(const std::string& op, DateValue date) {
  DateCriterion criterion;
  criterion.kind = CriterionKind::Compare;
  criterion.op = op;
  criterion.start = date;
  return criterion;
}

DateCriterion RangeCriterion(DateValue start, DateValue end) {
  DateCriterion criterion;
  criterion.kind = CriterionKind::Range;
  criterion.start = start;
  criterion.end = end;
  return criterion;
}

std::chrono::sys_days SysDays(DateValue day) {
  return std::chrono::sys_days(std::chrono::days(static_cast<long>(day) + DateValueEpoch));
}

DateValue DateValueOf(std::chrono::sys_days day) {
  return static_cast<DateValue>(day.time_since_epoch().count() - DateValueEpoch);
}

ParameterisedSql RenderParameterised(const DateCriterion& criterion, const SqlOptions& options) {
  if (criterion.kind == CriterionKind::None)
    Refuse("the current option selects no dates");
  CheckName(options.namePrefix);
  CheckPrefix(options.prefix);
  if (options.firstNumber < 1 || options.firstNumber > 30000)
    Refuse("the first parameter's number must lie between 1 and 30000");
  Renderer sql(options, options.column.empty() ? criterion.column : options.column,
               options.prefix.empty() ? "" : options.prefix + " ");
  const long first = DayNumber(criterion.FirstDay());
  const long last = DayNumber(criterion.LastDay());
  const bool closed = options.columnType == SqlColumnType::Date;
  if (criterion.kind == CriterionKind::Range) {
    if (closed)
      return sql.Compare(">=", "first", first).Then(" AND ").Compare("<=", "last", last).Done();
    return sql.Compare(">=", "first", first).Then(" AND ").Compare("<", "after", last + 1).Done();
  }
  const std::string& op = criterion.op;
  static const char* const ops[] = {"=", "<>", "<", "<=", ">", ">="};
  const auto known = std::find(std::begin(ops), std::end(ops), op);
  if (known == std::end(ops))
    Refuse("\"" + MendUtf8(op) + "\" is not a comparison: use =, <>, <, <=, > or >=");
  if (closed)
    return sql.Compare(*known, "first", first).Done();
  // On a timestamp, a day is every moment from its midnight to before the next one.
  if (op == "=")
    return sql.Compare(">=", "first", first).Then(" AND ").Compare("<", "after", first + 1).Done();
  if (op == "<>")
    return sql.Then("(")
        .Compare("<", "first", first)
        .Then(" OR ")
        .Compare(">=", "after", first + 1)
        .Then(")")
        .Done();
  if (op == "<" || op == ">=")
    return sql.Compare(*known, "first", first).Done();
  return sql.Compare(op == "<=" ? "<" : ">=", "after", first + 1).Done();
}

void CheckDateWrapper(const std::string& wrapper) {
  for (size_t at = 0; at < wrapper.size(); ++at)
    if (!std::strchr("'\"#`", wrapper[at]) || wrapper[at] == '\0')
      Refuse(Offending("SQLDateWrapper", wrapper, at) +
             ": a date delimiter is made of ' \" # or ` only");
}

SqlDialect SqlDialectNamed(const std::string& name) {
  if (EqualsIgnoreCaseAscii(name, "sqlite"))
    return SqlDialect::SQLite;
  if (EqualsIgnoreCaseAscii(name, "postgres") || EqualsIgnoreCaseAscii(name, "postgresql"))
    return SqlDialect::PostgreSQL;
  Refuse("\"" + MendUtf8(name) + "\" is no SQL dialect: use \"sqlite\" or \"postgres\"");
}

SqlColumnType SqlColumnTypeNamed(const std::string& name) {
  if (EqualsIgnoreCaseAscii(name, "timestamp"))
    return SqlColumnType::Timestamp;
  if (EqualsIgnoreCaseAscii(name, "date"))
    return SqlColumnType::Date;
  Refuse("\"" + MendUtf8(name) + "\" is no column type: use \"timestamp\" or \"date\"");
}

} // namespace tarnbrook
