// Bound criteria on a real PostgreSQL server with date and timestamp columns.
#include "postgres/postgres_parameters.hpp"
#include "postgres_server.hpp"
#include "tests/sql/orders_table.hpp"

namespace tarnbrook {
namespace {

class PostgresOrders : public OrdersTable {
public:
  explicit PostgresOrders(PGconn* connection) : db_(connection) {
    Exec("DROP TABLE IF EXISTS orders;"
         "CREATE TABLE orders(order_day date, ordered_at timestamp(3));"
         "INSERT INTO orders SELECT d::date, d + t FROM generate_series(timestamp '2000-01-01',"
         " '2006-12-31', '1 day') d, (VALUES (interval '0'), (interval '12 hours'),"
         " (interval '23:59:59.999')) v(t);");
  }

  SqlDialect Dialect() const override { return SqlDialect::PostgreSQL; }
  std::string P(int n) const override { return "$" + std::to_string(n); }
  std::string DayOfAt() const override { return "ordered_at::date"; }

  Rows Select(const ParameterisedSql& criteria) override {
    const PostgresParameters values(criteria);
    return Query(criteria.text, values);
  }
  Rows SelectText(const std::string& where, const std::vector<std::string>& texts) override {
    PostgresParameters values;
    ParameterisedSql plain;
    for (const std::string& text : texts)
      plain.parameters.push_back({int(plain.parameters.size()) + 1, "", 0, text});
    values.Add(plain);
    return Query(where, values);
  }
  void Exec(const std::string& sql) {
    PGresult* result = PQexec(db_, sql.c_str());
    EXPECT_EQ(PQresultStatus(result), PGRES_COMMAND_OK) << PQerrorMessage(db_);
    PQclear(result);
  }

private:
  Rows Query(const std::string& where, const PostgresParameters& values) {
    const std::string sql =
        "SELECT COUNT(*), MIN(ordered_at), MAX(ordered_at) FROM orders WHERE " + where;
    PGresult* result = PQexecParams(db_, sql.c_str(), values.Count(), values.Types(),
                                    values.Values(), values.Lengths(), values.Formats(), 0);
    Rows row;
    if (PQresultStatus(result) != PGRES_TUPLES_OK)
      row = {std::string("error: ") + PQerrorMessage(db_)};
    else
      for (int i = 0; i < 3; ++i)
        row.push_back(PQgetisnull(result, 0, i) ? "NULL" : PQgetvalue(result, 0, i));
    PQclear(result);
    return row;
  }
  PGconn* db_;
};

class PostgresCriteria : public ::testing::Test {
protected:
  static void SetUpTestSuite() { server = new PostgresServer; }
  static void TearDownTestSuite() {
    delete server;
    server = nullptr;
  }
  void SetUp() override {
    if (!server->Problem().empty())
      GTEST_SKIP() << "no PostgreSQL to test on: " << server->Problem();
    db = std::make_unique<PostgresOrders>(server->Connection());
  }
  static inline PostgresServer* server = nullptr;
  std::unique_ptr<PostgresOrders> db;
};

TEST_F(PostgresCriteria, EveryOptionSelectsExactlyItsDaysInBothColumnTypes) {
  CheckEveryOptionOnEveryDay(*db);
}

TEST_F(PostgresCriteria, TheTextFormMissesTheLastDayOfATimestampColumn) {
  CheckTheTextFormMissesTheLastDay(*db, 2); // the last day's midnight still counts
}

// Two controls' criteria in one query: the second numbered on from the first, bound together.
TEST_F(PostgresCriteria, CriteriaOfSeveralControlsShareOneQuery) {
  CriteriaOnOrders on;
  on.select->SetSelection(dtsLastYear);
  SqlOptions options;
  options.dialect = SqlDialect::PostgreSQL;
  const ParameterisedSql year = on.select->SQLParameters(options);
  on.select->SetSelection(dtsExpression);
  on.select->SetOperator("<>");
  options.firstNumber = 3;
  const ParameterisedSql notFirst = on.select->SQLParameters(options);
  EXPECT_EQ(notFirst.text, "(\"ordered_at\" < $3 OR \"ordered_at\" >= $4)");
  ParameterisedSql both{year.text + " AND " + notFirst.text, year.parameters};
  both.parameters.insert(both.parameters.end(), notFirst.parameters.begin(),
                         notFirst.parameters.end());
  EXPECT_EQ(db->Select(both), (Rows{"1092", "2003-01-02 00:00:00", "2003-12-31 23:59:59.999"}));
  PostgresParameters outOfTurn(year);
  EXPECT_THROW(outOfTurn.Add(year), ControlError);
}

} // namespace
} // namespace tarnbrook
