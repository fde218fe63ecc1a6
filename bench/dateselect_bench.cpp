// DateSelect: the SQL criteria of a range option, as text and with placeholders run on
// SQLite, and a change of option through the constituents' layout and repaint to the pixels
// on the windows.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "common/date_runtime.hpp"
#include "common/sql_criteria.hpp"
#include "dateselect/date_select.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"
#include "sqlite/sqlite_parameters.hpp"

using namespace tarnbrook;

namespace {

// A new DateSelect, 300 pixels wide, on a form on Monday 10 May 2004.
struct SelectOnForm {
  SelectOnForm() {
    platform.SetNow(DateSerial(2004, 5, 10) + 0.5);
    select = static_cast<DateSelect*>(
        &form.Add(std::make_unique<DateSelect>(form.hWnd()), "DateSelect1", 10, 10, 300, 80));
    platform.PumpMessages();
  }
  MemoryPlatform platform;
  Container form{400, 200};
  DateSelect* select = nullptr;
};

} // namespace

static void BM_DateSelect_SQLCriteria_Range(benchmark::State& state) {
  SelectOnForm on;
  on.select->SetSQLFieldName("OrderDate");
  on.select->SetSQLDateWrapper("'");
  on.select->SetSQLDateFormat("yyyy-mm-dd");
  on.select->SetSelection(dtsLast7days);
  if (on.select->SQLCriteria() != "OrderDate BETWEEN '2004-05-04' AND '2004-05-10'")
    state.SkipWithError("unexpected criteria");
  for (auto _ : state)
    benchmark::DoNotOptimize(on.select->SQLCriteria());
}
BENCHMARK(BM_DateSelect_SQLCriteria_Range);

// Last 7 days and Month by turns: different constituents shown, dates computed, and every
// window that changed repainted.
static void BM_DateSelect_SelectionToWindow(benchmark::State& state) {
  SelectOnForm on;
  const int32_t options[] = {dtsLast7days, dtsMonth};
  int frame = 0;
  for (auto _ : state) {
    on.select->SetSelection(options[frame++ & 1]);
    on.platform.PumpMessages();
    benchmark::DoNotOptimize(on.platform.WindowCanvas(on.select->dtpFrom().hWnd())->Data());
  }
}
BENCHMARK(BM_DateSelect_SelectionToWindow);

// Criteria with placeholders: rendering them, and running them on SQLite over ten years of
// orders beside the control's own SQL text.
static void BM_Criteria_RenderRange(benchmark::State& state) {
  const DateCriterion month = RangeCriterion(DateSerial(2004, 4, 1), DateSerial(2004, 4, 30));
  SqlOptions options;
  options.column = "OrderDate";
  for (auto _ : state)
    benchmark::DoNotOptimize(RenderParameterised(month, options));
}
BENCHMARK(BM_Criteria_RenderRange);

namespace {

// Ten years of orders, ten a day at spread times, indexed by their time, and a DateSelect on
// Last Month of the last year.
struct TenYears : SelectOnForm {
  TenYears() {
    sqlite3_open(":memory:", &db);
    sqlite3_exec(db,
                 "CREATE TABLE orders(ordered_at TEXT);"
                 "WITH RECURSIVE d(x) AS (SELECT julianday('1995-01-01') UNION ALL SELECT x + 0.1"
                 " FROM d WHERE x < julianday('2004-12-31')) INSERT INTO orders"
                 " SELECT strftime('%Y-%m-%d %H:%M:%f', x + 0.0371) FROM d;"
                 "CREATE INDEX by_time ON orders(ordered_at);",
                 nullptr, nullptr, nullptr);
    select->SetSQLFieldName("ordered_at");
    select->SetSQLDateWrapper("'");
    select->SetSQLDateFormat("yyyy-mm-dd");
    select->SetSelection(dtsLastMonth);
  }
  ~TenYears() { sqlite3_close(db); }
  long long Count(const std::string& where, const ParameterisedSql* bound) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, ("SELECT COUNT(*) FROM orders WHERE " + where).c_str(), -1, &statement,
                       nullptr);
    if (bound)
      BindParameters(statement, *bound);
    sqlite3_step(statement);
    const long long count = sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    return count;
  }
  sqlite3* db = nullptr;
};

} // namespace

// The control's criteria rendered, bound and run: every order of April 2004.
static void BM_Criteria_SqliteBound(benchmark::State& state) {
  TenYears years;
  long long count = 0;
  for (auto _ : state) {
    const ParameterisedSql sql = years.select->SQLParameters();
    count = years.Count(sql.text, &sql);
  }
  if (count != 300)
    state.SkipWithError("the bound query missed orders");
  state.counters["rows"] = static_cast<double>(count);
}
BENCHMARK(BM_Criteria_SqliteBound);

// The control's own text run the same way: it misses April 30th after midnight.
static void BM_Criteria_SqliteText(benchmark::State& state) {
  TenYears years;
  long long count = 0;
  for (auto _ : state)
    count = years.Count(years.select->SQLCriteria(), nullptr);
  state.counters["rows"] = static_cast<double>(count);
}
BENCHMARK(BM_Criteria_SqliteText);
