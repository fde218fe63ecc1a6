#include "apps/demo/sample_orders.hpp"

#include <sqlite3.h>

#include <cstdio>
#include <stdexcept>

#include "common/date_format.hpp"
#include "common/date_runtime.hpp"
#include "sqlite/sqlite_parameters.hpp"

namespace tarnbrook {
namespace {

constexpr const char* Customers[] = {"Alder & Sons", "Brook Ltd", "Cobb Bakery", "Dunmore",
                                     "Elm Street Cafe"};
constexpr int Days = 731;

void Exec(sqlite3* db, const char* sql) {
  char* message = nullptr;
  if (sqlite3_exec(db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
    std::string text = message ? message : "unknown error";
    sqlite3_free(message);
    throw std::runtime_error("sample orders: " + text);
  }
}

} // namespace

SampleOrders::SampleOrders(DateValue today) {
  if (sqlite3_open(":memory:", &db_) != SQLITE_OK)
    throw std::runtime_error("sample orders: cannot open an in-memory database");
  Exec(db_, "CREATE TABLE Orders (Id INTEGER PRIMARY KEY, OrderDate TEXT NOT NULL, "
            "Customer TEXT NOT NULL, Amount REAL NOT NULL)");
  Exec(db_, "BEGIN");
  sqlite3_stmt* insert = nullptr;
  sqlite3_prepare_v2(db_, "INSERT INTO Orders (OrderDate, Customer, Amount) VALUES (?, ?, ?)", -1,
                     &insert, nullptr);
  unsigned seed = 20041;
  for (int day = Days - 1; day >= 0; --day) {
    for (unsigned n = 0; n < 1 + seed % 3; ++n) { // one to three orders a day
      seed = seed * 1103515245u + 12345u;
      const double time = (seed >> 4) % 1440 / 1440.0; // to the minute, midnight to 23:59
      const std::string at = FormatDate(DateOnly(today) - day + time, "yyyy-mm-dd hh:nn:ss");
      sqlite3_bind_text(insert, 1, at.c_str(), -1, SQLITE_TRANSIENT);
      sqlite3_bind_text(insert, 2, Customers[(seed >> 8) % std::size(Customers)], -1,
                        SQLITE_STATIC);
      sqlite3_bind_double(insert, 3, 5 + (seed >> 12) % 40000 / 100.0);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
  }
  sqlite3_finalize(insert);
  Exec(db_, "COMMIT");
}

SampleOrders::~SampleOrders() {
  sqlite3_close(db_);
}

SampleOrders::Result SampleOrders::Select(const ParameterisedSql& criteria, size_t rows) const {
  Result result;
  std::string sql = "SELECT substr(OrderDate, 1, 16), Id, Customer, Amount, COUNT(*) OVER () "
                    "FROM Orders WHERE " +
                    criteria.text + " ORDER BY OrderDate, Id LIMIT " + std::to_string(rows);
  sqlite3_stmt* query = nullptr;
  if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &query, nullptr) != SQLITE_OK ||
      BindParameters(query, criteria) != SQLITE_OK) {
    result.error = sqlite3_errmsg(db_);
    sqlite3_finalize(query);
    return result;
  }
  while (sqlite3_step(query) == SQLITE_ROW) {
    char line[160];
    std::snprintf(line, sizeof line, "%s  #%d  %-16s %8.2f",
                  reinterpret_cast<const char*>(sqlite3_column_text(query, 0)),
                  sqlite3_column_int(query, 1),
                  reinterpret_cast<const char*>(sqlite3_column_text(query, 2)),
                  sqlite3_column_double(query, 3));
    result.firstRows.push_back(line);
    result.count = sqlite3_column_int64(query, 4);
  }
  sqlite3_finalize(query);
  return result;
}

} // namespace tarnbrook
