// Criteria on SQLite, which keeps dates and timestamps as ISO texts: the control's own text and
// its bound criteria.
#include <sqlite3.h>

#include "host/control_registry.hpp"
#include "orders_table.hpp"
#include "sqlite/sqlite_parameters.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

class SqliteOrders : public OrdersTable {
public:
  SqliteOrders() {
    sqlite3_open(":memory:", &db_);
    sqlite3_exec(db_,
                 "CREATE TABLE orders(order_day TEXT, ordered_at TEXT);"
                 "WITH RECURSIVE d(x) AS (SELECT '2000-01-01' UNION ALL SELECT date(x, '+1 day')"
                 " FROM d WHERE x < '2006-12-31'), t(y) AS (VALUES (' 00:00:00.000'),"
                 " (' 12:00:00.000'), (' 23:59:59.999')) INSERT INTO orders"
                 " SELECT x, x || y FROM d, t;",
                 nullptr, nullptr, nullptr);
  }
  ~SqliteOrders() override { sqlite3_close(db_); }

  SqlDialect Dialect() const override { return SqlDialect::SQLite; }
  std::string P(int n) const override { return "?" + std::to_string(n); }
  std::string DayOfAt() const override { return "substr(ordered_at, 1, 10)"; }

  Rows Select(const ParameterisedSql& criteria) override {
    return Run(Counting + criteria.text,
               [&](sqlite3_stmt* s) { return BindParameters(s, criteria); });
  }
  Rows SelectText(const std::string& where, const std::vector<std::string>& values) override {
    return Run(Counting + where, values);
  }
  // The first row of any statement as texts, `values` bound as text to ?1, ?2 ...
  Rows Run(const std::string& sql, const std::vector<std::string>& values) {
    return Run(sql, [&](sqlite3_stmt* s) {
      for (size_t i = 0; i < values.size(); ++i)
        sqlite3_bind_text(s, int(i + 1), values[i].c_str(), -1, SQLITE_TRANSIENT);
      return SQLITE_OK;
    });
  }

private:
  static inline const std::string Counting =
      "SELECT COUNT(*), MIN(ordered_at), MAX(ordered_at) FROM orders WHERE ";

  template <class Bind> Rows Run(const std::string& sql, Bind bind) {
    sqlite3_stmt* statement = nullptr;
    Rows row;
    if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK ||
        bind(statement) != SQLITE_OK || sqlite3_step(statement) != SQLITE_ROW)
      row = {std::string("error: ") + sqlite3_errmsg(db_)};
    else
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const unsigned char* text = sqlite3_column_text(statement, i);
        row.push_back(text ? reinterpret_cast<const char*>(text) : "NULL");
      }
    sqlite3_finalize(statement);
    return row;
  }
  sqlite3* db_ = nullptr;
};

// What an option selects in SQLite's own date language, never the library's: ?1 is today,
// ?2 the first day of the week (0 Sunday, 1 Monday), W the first day of today's week and N
// the custom number.
struct OptionDays {
  int32_t option;
  std::string first, last;
  int year = 0, month = 0, unit = 0, number = 0;
  bool today = false;

  std::string Sql(std::string text) const {
    const std::string week = "date(?1, '-' || ((strftime('%w', ?1) + 7 - ?2) % 7) || ' days')";
    for (auto [mark, value] : {std::pair{'W', week}, std::pair{'N', std::to_string(number)},
                               std::pair{'M', std::to_string(7 * number - 1)}})
      for (size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
        text.replace(at, 1, value);
    return text;
  }
};

std::vector<OptionDays> EveryOptionsDays() {
  const std::string month = "date(?1, 'start of month', '-1 day')";
  const std::string year = "date(?1, 'start of year', '-1 day')";
  // clang-format off
  std::vector<OptionDays> cases = {
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

// Each option on days that end weeks, months and years, weeks from Sunday or Monday: the
// control's dates are SQLite's, and its own SQL text, with BETWEEN or without, selects exactly
// their rows from a date column.
TEST(SqliteCriteria, OptionDatesAreSqlitesAndTheirTextSelectsThem) {
  SqliteOrders db;
  CriteriaOnOrders on;
  DateSelect& ds = *on.select;
  ds.SetSQLFieldName("order_day");
  ds.SetSQLPrefix("SELECT COUNT(*) FROM orders WHERE");
  const std::vector<OptionDays> cases = EveryOptionsDays();
  int checked = 0;
  for (const char* today : {"2004-05-10", "2004-01-01", "2004-12-31", "2004-02-29", "2004-03-01",
                            "2004-08-15", "2004-05-15"}) { // Mon, ..., Sun, Sat
    for (int firstDay : {vbUseSystemDayOfWeek, vbMonday}) {
      on.platform.SetNow(*IsoDate(today) + 0.5);
      ds.SetFirstDayofWeek(firstDay);
      const std::string weekStart = firstDay == vbMonday ? "1" : "0";
      for (const OptionDays& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << today << ", first day " << firstDay << ", option " << c.option << ", "
                     << c.number << " of unit " << c.unit << (c.today ? " and today" : ""));
        ds.SetSelection(c.option);
        if (c.year)
          ds.SetSelectedYear(int16_t(c.year));
        if (c.month)
          ds.SetSelectedMonth(c.month);
        if (c.option == dtsCustomRange) {
          ds.chkCustom().SetValue(c.today ? vbChecked : vbUnchecked);
          ds.SetCustomSelection(c.unit);
          ds.SetCustomRange(c.number);
        }
        const std::string first = c.Sql(c.first), last = c.Sql(c.last);
        const Rows days = db.Run("SELECT " + first + ", " + last + ", 3 * CAST(julianday(" + last +
                                     ") - julianday(" + first + ") + 1 AS INTEGER)",
                                 {today, weekStart});
        ASSERT_EQ(days.size(), 3u) << days.at(0);
        EXPECT_EQ(Iso(ds.StartDate()), days[0]);
        if (c.option != dtsToday) { // Today leaves the end date where it was
          EXPECT_EQ(Iso(ds.EndDate()), days[1]);
        }
        for (bool between : {true, false}) {
          ds.SetSQLUseBETWEEN(between);
          EXPECT_EQ(db.SelectText(ds.SQLCriteria(), {}),
                    (Rows{days[2], days[0] + " 00:00:00.000", days[1] + " 23:59:59.999"}))
              << ds.SQLCriteria();
          EXPECT_EQ(db.Run(ds.SQL(), {}), Rows{days[2]});
          ++checked;
        }
      }
    }
  }
  EXPECT_EQ(checked, 7 * 2 * int(cases.size()) * 2);
}

TEST(SqliteCriteria, EveryOptionSelectsExactlyItsDaysInBothColumnTypes) {
  SqliteOrders db;
  CheckEveryOptionOnEveryDay(db);
}

TEST(SqliteCriteria, TheTextFormMissesTheLastDayOfATimestampColumn) {
  SqliteOrders db;
  CheckTheTextFormMissesTheLastDay(db, 3); // texts: '2004-02-29 00:00' sorts after '2004-02-29'
}

// Named values bind by name wherever they stand; a statement without them is told so.
TEST(SqliteCriteria, NamedValuesBindByName) {
  SqliteOrders db;
  CriteriaOnOrders on;
  on.select->SetSelection(dtsLastMonth);
  SqlOptions options;
  options.named = true;
  options.namePrefix = "o_";
  const ParameterisedSql named = on.select->SQLParameters(options);
  EXPECT_EQ(named.text, "\"ordered_at\" >= :o_first AND \"ordered_at\" < :o_after");
  EXPECT_EQ(db.Select(named), (Rows{"90", "2004-04-01 00:00:00.000", "2004-04-30 23:59:59.999"}));
  ParameterisedSql missing = named;
  missing.text = "ordered_at >= :other";
  EXPECT_EQ(db.Select(missing).at(0).substr(0, 6), "error:");
}

// Forms written by someone else: what they put in the column, the prefix or the wrapper is
// refused, saying what is wrong, before any SQL is made, and the table is left as it was.
TEST(SqliteCriteria, HostileFormsAreRefusedWithTheReason) {
  using namespace std::string_literals;
  SqliteOrders db;
  RegisterControlClass<DateSelect>("DateSelect");
  const std::pair<std::string, std::string> cases[] = {
      {"OrderDate; DROP TABLE orders; --", "is not a column name"},
      {"ordered_at) OR (1=1", "is not a column name"},
      {"ordered_at\0x"s, "is not a column name"},
      {"\"ordered_at\"", "is not a column name"},
      {"SELECT * FROM orders WHERE 1=1; DROP TABLE orders; --", "the prefix holds ';' at 31"},
      {"SELECT * FROM orders /* all */ WHERE", "the prefix holds '/' at 22"},
      {"SELECT * FROM orders WHERE note = 'x' OR", "the prefix holds ''' at 35"},
      {"SELECT *\0 FROM orders WHERE"s, "the prefix holds byte 0x00 at 9"},
      {"'; DROP TABLE orders; --", "SQLDateWrapper holds ';' at 2"},
      {"#\0"s, "SQLDateWrapper holds byte 0x00 at 2"},
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    const auto& [value, says] = cases[i];
    SCOPED_TRACE(says);
    CriteriaOnOrders on;
    if (i < 4)
      on.select->SetSQLFieldName(value);
    else if (i < 8)
      on.select->SetSQLPrefix(value);
    else
      on.select->SetSQLDateWrapper(value);
    Container loaded;
    loaded.LoadFromText(on.form.SaveToText());
    const DateSelect& copy = static_cast<DateSelect&>(*loaded.Find("Orders"));
    const ControlError refused = Raised([&] { copy.SQLParameters({}, true); });
    EXPECT_EQ(refused.Number(), rtInvalidProcedureCall);
    EXPECT_NE(refused.Description().find(says), std::string::npos) << refused.Description();
  }
  EXPECT_EQ(db.SelectText("1", {}).at(0), std::to_string(OrdersTable::RowCount));
}

} // namespace
} // namespace tarnbrook
