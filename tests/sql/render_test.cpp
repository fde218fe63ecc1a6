// Criteria rendered with placeholders: their shapes in each dialect and column type, the
// values in order, the checks on what comes from a form, and the window-free computation.
#include <chrono>

#include "orders_table.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

using namespace std::chrono;

ParameterisedSql Render(const DateCriterion& criterion, SqlOptions options) {
  if (options.column.empty())
    options.column = "OrderDate";
  return RenderParameterised(criterion, options);
}

std::vector<std::string> Values(const ParameterisedSql& sql) {
  std::vector<std::string> values;
  for (const SqlParameter& p : sql.parameters)
    values.push_back(std::to_string(p.number) + " " + p.name + " " + p.text);
  return values;
}

const DateValue May10 = DateSerial(2004, 5, 10) + TimeSerial(14, 30, 0);

TEST(RenderParameterised, EachComparisonOnATimestampIsAHalfOpenRangeOfWholeDays) {
  SqlOptions pg;
  pg.dialect = SqlDialect::PostgreSQL;
  const char* const q = "\"OrderDate\"";
  struct Case {
    const char* op;
    std::string text;
    std::vector<std::string> values;
  };
  const std::string first = "1 first 2004-05-10 00:00:00", after = " after 2004-05-11 00:00:00";
  const Case cases[] = {
      {"=", q + std::string(" >= $1 AND ") + q + " < $2", {first, "2" + after}},
      {"<>", "(" + std::string(q) + " < $1 OR " + q + " >= $2)", {first, "2" + after}},
      {"<", q + std::string(" < $1"), {first}},
      {"<=", q + std::string(" < $1"), {"1" + after}},
      {">", q + std::string(" >= $1"), {"1" + after}},
      {">=", q + std::string(" >= $1"), {first}},
  };
  for (const Case& c : cases) {
    const ParameterisedSql sql = Render(CompareCriterion(c.op, May10), pg);
    EXPECT_EQ(sql.text, c.text);
    EXPECT_EQ(Values(sql), c.values) << c.op;
  }
  const ParameterisedSql month =
      Render(RangeCriterion(DateSerial(2004, 2, 1), DateSerial(2004, 2, 29) + 0.75), {});
  EXPECT_EQ(month.text, "\"OrderDate\" >= ? AND \"OrderDate\" < ?");
  EXPECT_EQ(Values(month), (std::vector<std::string>{"1 first 2004-02-01 00:00:00",
                                                     "2 after 2004-03-01 00:00:00"}));
}

TEST(RenderParameterised, ADateColumnTakesTheDaysThemselves) {
  SqlOptions date;
  date.columnType = SqlColumnType::Date;
  date.column = "o.order_day";
  EXPECT_EQ(Render(CompareCriterion("<=", May10), date).text, "\"o\".\"order_day\" <= ?");
  const ParameterisedSql range =
      Render(RangeCriterion(DateSerial(2003, 12, 29), DateSerial(2004, 1, 4)), date);
  EXPECT_EQ(range.text, "\"o\".\"order_day\" >= ? AND \"o\".\"order_day\" <= ?");
  EXPECT_EQ(Values(range), (std::vector<std::string>{"1 first 2003-12-29", "2 last 2004-01-04"}));
  // The day after the last there is: 31 December 9999 at 24:00, which sorts after that day.
  const ParameterisedSql end = Render(CompareCriterion("=", DateSerial(9999, 12, 31)), {});
  EXPECT_EQ(end.parameters.at(1).text, "9999-12-31 24:00:00");
}

TEST(RenderParameterised, NamesNumbersAndAPrefixKeepSeveralCriteriaApart) {
  SqlOptions options;
  options.named = true;
  options.namePrefix = "shipped_";
  options.prefix = "SELECT COUNT(*) FROM Orders WHERE";
  const ParameterisedSql named = Render(CompareCriterion(">=", May10), options);
  EXPECT_EQ(named.text, "SELECT COUNT(*) FROM Orders WHERE \"OrderDate\" >= :shipped_first");
  EXPECT_TRUE(named.named);
  options = {};
  options.firstNumber = 4;
  options.dialect = SqlDialect::PostgreSQL;
  EXPECT_EQ(Render(RangeCriterion(May10, May10), options).text,
            "\"OrderDate\" >= $4 AND \"OrderDate\" < $5");
}

TEST(RenderParameterised, WhatCannotBeMadeSafeIsRefusedSayingWhy) {
  auto refusal = [](const DateCriterion& criterion, const SqlOptions& options) {
    const ControlError error = Raised([&] { Render(criterion, options); });
    EXPECT_EQ(error.Number(), rtInvalidProcedureCall);
    return error.Description();
  };
  const DateCriterion today = CompareCriterion("=", May10);
  for (const char* column : {"Order Date", "[Order Date]", "a.b.c", "1st", ".x", "x.", "Ö"}) {
    SqlOptions options;
    options.column = column;
    EXPECT_NE(refusal(today, options).find("is not a column name"), std::string::npos) << column;
  }
  SqlOptions options;
  options.column = std::string(64, 'x');
  EXPECT_NE(refusal(today, options), "");
  EXPECT_EQ(refusal(CompareCriterion("==", May10), {}),
            "\"==\" is not a comparison: use =, <>, <, <=, > or >=");
  EXPECT_EQ(refusal(DateCriterion{}, {}), "the current option selects no dates");
  EXPECT_EQ(RaisedNumber([] { RenderParameterised(CompareCriterion("=", May10), {}); }),
            rtInvalidProcedureCall); // no column at all
  options = {};
  options.namePrefix = "a-b";
  EXPECT_NE(refusal(today, options).find("cannot start a parameter name"), std::string::npos);
  EXPECT_EQ(Raised([] { SqlDialectNamed("mysql"); }).Description(),
            "\"mysql\" is no SQL dialect: use \"sqlite\" or \"postgres\"");
  EXPECT_EQ(SqlColumnTypeNamed("DATE"), SqlColumnType::Date);
}

TEST(DateCriterion, DaysInChrono) {
  const DateCriterion range =
      RangeCriterion(DateSerial(1899, 12, 29) - 0.25, May10); // 29 December 1899, 06:00
  EXPECT_EQ(year_month_day(range.First()), 1899y / December / 29);
  EXPECT_EQ(year_month_day(range.AfterLast()), 2004y / May / 11);
  EXPECT_EQ(DateValueOf(sys_days(1970y / January / 1)), 25569);
  EXPECT_EQ(range.DayAfterLast(), DateSerial(2004, 5, 11));
}

// A program with no window gets from an option and a day what a control that applied the
// option on that day holds.
TEST(AppliedCriterion, IsWhatAControlAppliedOnTheSameDayHolds) {
  CriteriaOnOrders on;
  DateSelect& ds = *on.select;
  ds.SetFirstDayofWeek(vbMonday);
  ds.SetCustomSelection(dtsWeeks);
  ds.SetCustomRange(2);
  for (const char* today : {"2004-05-10", "2005-01-01", "2004-03-01"}) {
    on.platform.SetNow(*IsoDate(today) + 0.5);
    CriteriaInputs in;
    in.today = *IsoDate(today);
    in.firstDayOfWeek = vbMonday;
    in.year = 2001;
    in.month = 7;
    in.customNumber = 2;
    in.customUnit = "Weeks";
    in.start = in.end = Variant::Date(DateSerial(2002, 2, 2));
    for (int32_t option = dtsToday; option <= dtsYear; ++option) {
      SCOPED_TRACE(testing::Message() << today << ", option " << option);
      ds.SetSelectedYear(2001);
      ds.SetSelectedMonth(7);
      ds.SetStartDate(DateSerial(2002, 2, 2));
      ds.SetEndDate(DateSerial(2002, 2, 2));
      ds.SetSelection(option);
      const DateCriterion held = ds.Criterion(), applied = AppliedCriterion(option, in);
      EXPECT_EQ(applied.kind, held.kind);
      EXPECT_EQ(applied.op, held.op);
      EXPECT_EQ(applied.First(), held.First());
      EXPECT_EQ(applied.AfterLast(), held.AfterLast());
    }
  }
}

} // namespace
} // namespace tarnbrook
