// Bound criteria on SQLite, which keeps dates and timestamps as ISO texts.
#include <sqlite3.h>

#include "host/control_registry.hpp"
#include "orders_table.hpp"
#include "tests/support/raised.hpp"
#include "sqlite/sqlite_parameters.hpp"

namespace tarnbrook {
namespace {

class SqliteOrders : public OrdersTable {
public:
  SqliteOrders() {
    sqlite3_open(":memory:", &db_);
    Exec("CREATE TABLE orders(order_day TEXT, ordered_at TEXT);"
         "WITH RECURSIVE d(x) AS (SELECT '2003-01-01' UNION ALL SELECT date(x, '+1 day') FROM d"
         " WHERE x < '2006-12-31'), t(y) AS (VALUES (' 00:00:00.000'), (' 12:00:00.000'),"
         " (' 23:59:59.999')) INSERT INTO orders SELECT x, x || y FROM d, t;");
  }
  ~SqliteOrders() override { sqlite3_close(db_); }

  SqlDialect Dialect() const override { return SqlDialect::SQLite; }
  std::string P(int n) const override { return "?" + std::to_string(n); }
  std::string DayOfAt() const override { return "substr(ordered_at, 1, 10)"; }

  Rows Select(const ParameterisedSql& criteria) override {
    return Query(criteria.text, [&](sqlite3_stmt* s) { return BindParameters(s, criteria); });
  }
  Rows SelectText(const std::string& where, const std::vector<std::string>& values) override {
    return Query(where, [&](sqlite3_stmt* s) {
      for (size_t i = 0; i < values.size(); ++i)
        sqlite3_bind_text(s, int(i + 1), values[i].c_str(), -1, SQLITE_TRANSIENT);
      return SQLITE_OK;
    });
  }
  void Exec(const std::string& sql) {
    ASSERT_EQ(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(db_);
  }

private:
  template <class Bind> Rows Query(const std::string& where, Bind bind) {
    const std::string sql =
        "SELECT COUNT(*), MIN(ordered_at), MAX(ordered_at) FROM orders WHERE " + where;
    sqlite3_stmt* statement = nullptr;
    Rows row;
    if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK ||
        bind(statement) != SQLITE_OK || sqlite3_step(statement) != SQLITE_ROW)
      row = {std::string("error: ") + sqlite3_errmsg(db_)};
    else
      for (int i = 0; i < 3; ++i) {
        const unsigned char* text = sqlite3_column_text(statement, i);
        row.push_back(text ? reinterpret_cast<const char*>(text) : "NULL");
      }
    sqlite3_finalize(statement);
    return row;
  }
  sqlite3* db_ = nullptr;
};

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
