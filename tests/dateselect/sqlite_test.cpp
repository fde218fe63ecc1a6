// The criteria run on a real database. What each option should select is worked out by
// SQLite's own date functions from today and the first day of the week, never by the
// library's helpers.
#include <sqlite3.h>

#include <cstdio>

#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

std::string Iso(DateValue date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", Year(date), Month(date), Day(date));
  return text;
}

// An in-memory table Orders with one row per day from 2000 to 2006, as 'yyyy-mm-dd' texts.
class OrdersDatabase {
public:
  OrdersDatabase() {
    sqlite3_open(":memory:", &db_);
    sqlite3_exec(db_,
                 "CREATE TABLE Orders(OrderDate TEXT);"
                 "WITH RECURSIVE d(x) AS (SELECT '2000-01-01' UNION ALL SELECT date(x, '+1 day')"
                 " FROM d WHERE x < '2006-12-31') INSERT INTO Orders SELECT x FROM d;",
                 nullptr, nullptr, nullptr);
  }
  ~OrdersDatabase() { sqlite3_close(db_); }

  // The first row of `sql` as texts; ?1 is today and ?2 the first day of the week (0 Sunday,
  // 1 Monday) where the statement uses them.
  std::vector<std::string> Row(const std::string& sql, const std::string& today = "",
                               int firstDay = 0) {
    std::vector<std::string> row;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      return {std::string("error: ") + sqlite3_errmsg(db_)};
    sqlite3_bind_text(statement, 1, today.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int(statement, 2, firstDay);
    if (sqlite3_step(statement) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const unsigned char* text = sqlite3_column_text(statement, i);
        row.push_back(text ? reinterpret_cast<const char*>(text) : "");
      }
    }
    sqlite3_finalize(statement);
    return row;
  }

private:
  sqlite3* db_ = nullptr;
};

// What a case selects, in SQLite's date language: ?1 is today, W the first day of its week
// and N the custom number.
struct Case {
  int32_t option;
  std::string first, last;
  int year = 0, month = 0, unit = 0, number = 0;
  bool today = false;
};

std::string Sql(std::string text, int number) {
  const std::string week = "date(?1, '-' || ((strftime('%w', ?1) + 7 - ?2) % 7) || ' days')";
  for (auto [mark, value] : {std::pair{'W', week}, std::pair{'N', std::to_string(number)},
                             std::pair{'M', std::to_string(7 * number - 1)}}) {
    for (size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
      text.replace(at, 1, value);
  }
  return text;
}

std::vector<Case> Cases() {
  const std::string month = "date(?1, 'start of month', '-1 day')";
  const std::string year = "date(?1, 'start of year', '-1 day')";
  // clang-format off
  std::vector<Case> cases = {
      {dtsToday, "?1", "?1"},
      {dtsLast7days, "date(?1, '-6 days')", "?1"},
      {dtsLast30days, "date(?1, '-29 days')", "?1"},
      {dtsThisWeekTillToday, "W", "?1"},
      {dtsThisMonthTillToday, "date(?1, 'start of month')", "?1"},
      {dtsThisYearTillToday, "date(?1, 'start of year')", "?1"},
      {dtsLastWeek, "date(W, '-7 days')", "date(W, '-1 day')"},
      {dtsLastMonth, "date(?1, 'start of month', '-1 month')", month},
      {dtsLastYear, "date(?1, 'start of year', '-1 year')", year},
      {dtsMonth, "'2004-02-01'", "date('2004-02-01', '+1 month', '-1 day')", 2004, 2},
      {dtsMonth, "'2003-12-01'", "'2003-12-31'", 2003, 12},
      {dtsYear, "'2000-01-01'", "'2000-12-31'", 2000},
  };
  const std::pair<std::string, std::string> units[] = {
      {"date(?1, '-N days')", "date(?1, '-1 day')"}, {"date(W, '-M days')", "W"},
      {"date(?1, 'start of month', '-N months')", month},
      {"date(?1, 'start of year', '-N years')", year}};
  // clang-format on
  for (int unit = dtsDays; unit <= dtsYears; ++unit)
    for (int number : {1, 3})
      for (bool today : {false, true})
        cases.push_back({dtsCustomRange, units[unit].first, today ? "?1" : units[unit].second, 0, 0,
                         unit, number, today});
  return cases;
}

class SqliteTest : public DateSelectTest {
protected:
  SqliteTest() {
    ds->SetSQLDateWrapper("'");
    ds->SetSQLDateFormat("yyyy-mm-dd");
    ds->SetSQLFieldName("OrderDate");
    ds->SetSQLPrefix("SELECT COUNT(*) FROM Orders WHERE");
  }

  // The case's days by SQLite, the control's dates, and the rows its criteria select, with
  // either way of writing a range.
  void Check(const Case& c, const std::string& today, int firstDay) {
    SCOPED_TRACE(testing::Message() << "option " << c.option << ", " << c.number << " of unit "
                                    << c.unit << (c.today ? " and today" : ""));
    ds->SetSelection(c.option);
    if (c.year)
      ds->SetSelectedYear(int16_t(c.year));
    if (c.month)
      ds->SetSelectedMonth(c.month);
    if (c.option == dtsCustomRange) {
      ds->chkCustom().SetValue(c.today ? vbChecked : vbUnchecked);
      ds->SetCustomSelection(c.unit);
      ds->SetCustomRange(c.number);
    }
    const std::string first = Sql(c.first, c.number), last = Sql(c.last, c.number);
    const auto expected = db.Row("SELECT " + first + ", " + last + ", CAST(julianday(" + last +
                                     ") - julianday(" + first + ") + 1 AS INTEGER)",
                                 today, firstDay);
    ASSERT_EQ(expected.size(), 3u) << expected.at(0);
    EXPECT_EQ(Iso(ds->StartDate()), expected[0]);
    if (c.option != dtsToday) { // Today leaves the end date where it was
      EXPECT_EQ(Iso(ds->EndDate()), expected[1]);
    }
    for (bool between : {true, false}) {
      ds->SetSQLUseBETWEEN(between);
      const std::string criteria = ds->SQLCriteria();
      const auto rows =
          db.Row("SELECT COUNT(*), MIN(OrderDate), MAX(OrderDate) FROM Orders WHERE " + criteria);
      EXPECT_EQ(rows, (std::vector<std::string>{expected[2], expected[0], expected[1]}))
          << criteria;
      EXPECT_EQ(db.Row(ds->SQL()).at(0), rows.at(0));
      ++checked;
    }
  }

  OrdersDatabase db;
  int checked = 0;
};

TEST_F(SqliteTest, CriteriaSelectExactlyTheDaysOfEachOptionOnAnyDay) {
  const std::vector<Case> cases = Cases();
  const char* todays[] = {"2004-05-10", "2004-01-01", "2004-12-31", "2004-02-29",
                          "2004-03-01", "2004-08-15", "2004-05-15"}; // Mon, ..., Sun, Sat
  for (const char* today : todays) {
    for (int firstDay : {vbUseSystemDayOfWeek, vbMonday}) {
      SCOPED_TRACE(testing::Message() << "today " << today << ", first day " << firstDay);
      SetToday(std::atoi(today), std::atoi(today + 5), std::atoi(today + 8));
      ds->SetFirstDayofWeek(firstDay);
      for (const Case& c : cases)
        Check(c, today, firstDay == vbMonday ? 1 : 0);
    }
  }
  EXPECT_EQ(checked, 7 * 2 * int(cases.size()) * 2);
}

} // namespace
} // namespace tarnbrook
