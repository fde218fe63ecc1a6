#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <functional>

#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

std::string Iso(DateValue date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", Year(date), Month(date), Day(date));
  return text;
}

// An in-memory table Orders with one row per day, 2000 to 2006, as 'yyyy-mm-dd' texts.
class OrdersDatabase {
public:
  static constexpr int First = 2000, Last = 2006;

  OrdersDatabase() {
    sqlite3_open(":memory:", &db_);
    std::string sql = "CREATE TABLE Orders(OrderDate TEXT); INSERT INTO Orders VALUES ";
    for (DateValue d = DateSerial(First, 1, 1); d <= DateSerial(Last, 12, 31); d += 1)
      sql += (d == DateSerial(First, 1, 1) ? "('" : ",('") + Iso(d) + "')";
    sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr);
  }
  ~OrdersDatabase() { sqlite3_close(db_); }

  // The first row of a statement: a count, then the least and greatest date when asked for.
  struct Rows {
    long long count = -1;
    std::string min, max, error;
  };
  Rows Query(const std::string& sql) {
    Rows rows;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      rows.error = sqlite3_errmsg(db_);
    else if (sqlite3_step(statement) == SQLITE_ROW) {
      rows.count = sqlite3_column_int64(statement, 0);
      for (int column : {1, 2}) {
        const unsigned char* text = sqlite3_column_text(statement, column);
        (column == 1 ? rows.min : rows.max) = text ? reinterpret_cast<const char*>(text) : "";
      }
    }
    sqlite3_finalize(statement);
    return rows;
  }

private:
  sqlite3* db_ = nullptr;
};

// Whatever the option, the day and the first day of the week, the criteria select exactly the
// days the control shows, and SQL() is a whole statement.
class SqliteTest : public DateSelectTest {
protected:
  SqliteTest() {
    ds->SetSQLDateWrapper("'");
    ds->SetSQLDateFormat("yyyy-mm-dd");
    ds->SetSQLFieldName("OrderDate");
    ds->SetSQLPrefix("SELECT COUNT(*) FROM Orders WHERE");
  }

  // The rows must be the days from `start` to `end`, with either way of writing a range.
  void ExpectDays(DateValue start, DateValue end) {
    ASSERT_LE(start, end);
    ASSERT_GE(start, first);
    ASSERT_LE(end, last);
    for (bool between : {true, false}) {
      ds->SetSQLUseBETWEEN(between);
      const std::string criteria = ds->SQLCriteria();
      SCOPED_TRACE(criteria);
      const OrdersDatabase::Rows rows =
          db.Query("SELECT COUNT(*), MIN(OrderDate), MAX(OrderDate) FROM Orders WHERE " + criteria);
      EXPECT_EQ(rows.error, "");
      EXPECT_EQ(rows.count, static_cast<long long>(end - start) + 1);
      EXPECT_EQ(rows.min, Iso(start));
      EXPECT_EQ(rows.max, Iso(end));
      EXPECT_EQ(db.Query(ds->SQL()).count, rows.count);
      ++checked;
    }
  }
  void ExpectShownDays() { ExpectDays(ds->StartDate(), ds->EndDate()); }
  void ExpectCount(long long expected) {
    const OrdersDatabase::Rows rows = db.Query(ds->SQL());
    EXPECT_EQ(rows.error, "") << ds->SQL();
    EXPECT_EQ(rows.count, expected) << ds->SQL();
    ++checked;
  }

  void EveryOption() {
    Select(dtsToday);
    const DateValue now = platform.Now();
    ExpectDays(DateSerial(Year(now), Month(now), Day(now)),
               DateSerial(Year(now), Month(now), Day(now)));
    Select(dtsDate);
    ds->SetStartDate(DateSerial(2003, 7, 4));
    ExpectDays(DateSerial(2003, 7, 4), DateSerial(2003, 7, 4));
    Select(dtsDateRange);
    ds->SetStartDate(DateSerial(2003, 2, 27));
    ds->SetEndDate(DateSerial(2003, 3, 2));
    ExpectShownDays();
    for (int32_t option = dtsLast7days; option <= dtsLastYear; ++option) {
      SCOPED_TRACE(testing::Message() << "option " << option);
      Select(option);
      ExpectShownDays();
    }
    for (int32_t unit : {dtsDays, dtsWeeks, dtsMonths, dtsYears}) {
      for (int32_t number : {1, 3}) {
        for (bool includeToday : {false, true}) {
          SCOPED_TRACE(testing::Message() << "custom " << number << " of unit " << unit
                                          << (includeToday ? " and today" : ""));
          Custom(number, unit, includeToday);
          ExpectShownDays();
        }
      }
    }
    Select(dtsExpression);
    const DateValue leap = DateSerial(2004, 2, 29);
    ds->SetStartDate(leap);
    const long long before = static_cast<long long>(leap - first);
    const long long after = static_cast<long long>(last - leap);
    const std::vector<std::pair<std::string, long long>> operators = {
        {"=", 1},      {">", after},       {">=", after + 1},
        {"<", before}, {"<=", before + 1}, {"<>", static_cast<long long>(last - first)}};
    for (const auto& [op, count] : operators) {
      ds->SetOperator(op);
      ExpectCount(count);
    }
    Select(dtsMonth);
    for (const auto& [month, year] :
         std::vector<std::pair<int, int>>{{2, 2004}, {12, 2003}, {1, 2005}}) {
      SCOPED_TRACE(testing::Message() << "month " << month << "/" << year);
      ds->SetSelectedYear(int16_t(year));
      ds->SetSelectedMonth(month);
      ExpectShownDays();
    }
    Select(dtsYear);
    for (int16_t year : {2000, 2004, 2006}) {
      ds->SetSelectedYear(year);
      ExpectShownDays();
    }
  }

  OrdersDatabase db;
  const DateValue first = DateSerial(OrdersDatabase::First, 1, 1);
  const DateValue last = DateSerial(OrdersDatabase::Last, 12, 31);
  int checked = 0;
};

TEST_F(SqliteTest, CriteriaSelectExactlyTheShownDaysOnAnyDayWithWeeksFromSundayOrMonday) {
  const std::vector<std::array<int, 3>> days = {
      {2004, 5, 10},                                                             // a Monday
      {2004, 1, 1},  {2004, 12, 31}, {2004, 2, 29}, {2004, 3, 1}, {2004, 8, 15}, // a Sunday
      {2004, 5, 15},                                                             // a Saturday
  };
  for (const auto& [year, month, day] : days) {
    for (int firstDay : {vbUseSystemDayOfWeek, vbMonday}) {
      SCOPED_TRACE(testing::Message()
                   << "today " << year << "-" << month << "-" << day << ", first day " << firstDay);
      SetToday(year, month, day);
      ds->SetFirstDayofWeek(firstDay);
      EveryOption();
    }
  }
  EXPECT_EQ(checked, 7 * 2 * 72); // no case stopped early
}

} // namespace
} // namespace tarnbrook
