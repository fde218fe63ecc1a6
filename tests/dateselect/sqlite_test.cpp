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

// An in-memory database with a table Orders holding one row per day, 2000 to 2006, as
// 'yyyy-mm-dd' texts.
class OrdersDatabase {
public:
  static constexpr int First = 2000, Last = 2006;

  OrdersDatabase() {
    sqlite3_open(":memory:", &db_);
    Execute("CREATE TABLE Orders(OrderDate TEXT)");
    Execute("BEGIN");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db_, "INSERT INTO Orders VALUES(?)", -1, &insert, nullptr);
    for (DateValue d = DateSerial(First, 1, 1); d <= DateSerial(Last, 12, 31); d += 1) {
      const std::string day = Iso(d);
      sqlite3_bind_text(insert, 1, day.c_str(), -1, SQLITE_TRANSIENT);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    Execute("COMMIT");
  }
  ~OrdersDatabase() { sqlite3_close(db_); }

  struct Rows {
    long long count = -1;
    std::string min, max;
    std::string error;
  };
  // Runs a statement whose first row is COUNT(*) and maybe MIN and MAX.
  Rows Query(const std::string& sql) {
    Rows rows;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
      rows.error = sqlite3_errmsg(db_);
      return rows;
    }
    if (sqlite3_step(statement) == SQLITE_ROW) {
      rows.count = sqlite3_column_int64(statement, 0);
      if (sqlite3_column_count(statement) == 3 && rows.count > 0) {
        rows.min = reinterpret_cast<const char*>(sqlite3_column_text(statement, 1));
        rows.max = reinterpret_cast<const char*>(sqlite3_column_text(statement, 2));
      }
    }
    sqlite3_finalize(statement);
    return rows;
  }

private:
  void Execute(const char* sql) { sqlite3_exec(db_, sql, nullptr, nullptr, nullptr); }
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

  // The rows must be the days from StartDate to EndDate, both ways of writing a range.
  void ExpectRangeSelected() {
    const DateValue start = ds->StartDate(), end = ds->EndDate();
    ASSERT_LE(start, end);
    ASSERT_GE(start, DateSerial(OrdersDatabase::First, 1, 1));
    ASSERT_LE(end, DateSerial(OrdersDatabase::Last, 12, 31));
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
  void ExpectSingleDay() {
    const std::string criteria = ds->SQLCriteria();
    const OrdersDatabase::Rows rows =
        db.Query("SELECT COUNT(*), MIN(OrderDate), MAX(OrderDate) FROM Orders WHERE " + criteria);
    EXPECT_EQ(rows.count, 1) << criteria;
    EXPECT_EQ(rows.min, Iso(ds->StartDate())) << criteria;
    ExpectCount(1);
  }
  void ExpectCount(long long expected) {
    const OrdersDatabase::Rows rows = db.Query(ds->SQL());
    EXPECT_EQ(rows.error, "") << ds->SQL();
    EXPECT_EQ(rows.count, expected) << ds->SQL();
    ++checked;
  }

  void EveryOption() {
    const DateValue today =
        DateSerial(Year(platform.Now()), Month(platform.Now()), Day(platform.Now()));
    const DateValue first = DateSerial(OrdersDatabase::First, 1, 1);
    const DateValue last = DateSerial(OrdersDatabase::Last, 12, 31);
    const long long all = static_cast<long long>(last - first) + 1;

    Select(dtsToday);
    EXPECT_EQ(ds->StartDate(), today);
    ExpectSingleDay();
    Select(dtsDate);
    ds->SetStartDate(DateSerial(2003, 7, 4));
    ExpectSingleDay();
    Select(dtsDateRange);
    ds->SetStartDate(DateSerial(2003, 2, 27));
    ds->SetEndDate(DateSerial(2003, 3, 2));
    ExpectRangeSelected();
    for (int32_t option = dtsLast7days; option <= dtsLastYear; ++option) {
      SCOPED_TRACE(testing::Message() << "option " << option);
      Select(option);
      ExpectRangeSelected();
    }
    for (int32_t unit : {dtsDays, dtsWeeks, dtsMonths, dtsYears}) {
      for (int32_t number : {1, 3}) {
        for (bool includeToday : {false, true}) {
          SCOPED_TRACE(testing::Message() << "custom " << number << " of unit " << unit
                                          << (includeToday ? " and today" : ""));
          Custom(number, unit, includeToday);
          ExpectRangeSelected();
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
        {"<", before}, {"<=", before + 1}, {"<>", all - 1}};
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
      ExpectRangeSelected();
    }
    Select(dtsYear);
    for (int16_t year : {2000, 2004, 2006}) {
      ds->SetSelectedYear(year);
      ExpectRangeSelected();
    }
  }

  OrdersDatabase db;
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
  EXPECT_EQ(checked, 7 * 2 * 70); // no case stopped early
}

} // namespace
} // namespace tarnbrook
