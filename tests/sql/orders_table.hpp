#pragma once
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "common/date_runtime.hpp"
#include "common/sql_criteria.hpp"
#include "dateselect/date_select.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"

namespace tarnbrook {

// COUNT(*), MIN(ordered_at) and MAX(ordered_at) of the rows a query selects, as the database
// writes them.
using Rows = std::vector<std::string>;

// A table orders(order_day date, ordered_at timestamp) on a real database, with rows at
// 00:00:00, 12:00:00 and 23:59:59.999 of every day from 2000-01-01 through 2006-12-31. The
// names are in lower case, which PostgreSQL reads the same quoted or not.
class OrdersTable {
public:
  static constexpr long RowCount = 2557 * 3;
  virtual ~OrdersTable() = default;
  virtual SqlDialect Dialect() const = 0;
  // The rows WHERE `criteria`, its values bound by the library's helper for this database.
  virtual Rows Select(const ParameterisedSql& criteria) = 0;
  // The rows WHERE `where`, `values` bound as text to the placeholders P(1), P(2) ...
  virtual Rows SelectText(const std::string& where, const std::vector<std::string>& values) = 0;
  // The n-th placeholder and the day of ordered_at, in the database's own words.
  virtual std::string P(int n) const = 0;
  virtual std::string DayOfAt() const = 0;
};

inline std::string Iso(DateValue date) {
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", Year(date), Month(date), Day(date));
  return text;
}

// A new DateSelect on a form of the simulator at noon of `today`, its criteria aimed at orders.
class CriteriaOnOrders {
public:
  explicit CriteriaOnOrders(const char* today = "2004-05-10") {
    platform.SetNow(*IsoDate(today) + 0.5);
    select = static_cast<DateSelect*>(
        &form.Add(std::make_unique<DateSelect>(form.hWnd()), "Orders", 0, 0, 320, 60));
    select->SetSQLFieldName("ordered_at");
    select->SetSQLDateWrapper("'");
    select->SetSQLDateFormat("yyyy-mm-dd");
  }

  // What the current option selects, by the database from the control's dates and operator:
  // the days that equal (or compare with) the start date, or lie from the start to the end.
  Rows Expected(OrdersTable& db) {
    const DateCriterion criterion = select->Criterion();
    const std::string day = db.DayOfAt();
    if (criterion.kind == CriterionKind::Range)
      return db.SelectText(day + " BETWEEN " + db.P(1) + " AND " + db.P(2),
                           {Iso(criterion.start), Iso(criterion.end)});
    return db.SelectText(day + " " + criterion.op + " " + db.P(1), {Iso(criterion.start)});
  }
  // Both renderings, for the timestamp column and for the date column, against the expectation.
  void Check(OrdersTable& db) {
    const Rows expected = Expected(db);
    SqlOptions options;
    options.dialect = db.Dialect();
    options.column = "ordered_at";
    const ParameterisedSql halfOpen = select->SQLParameters(options);
    EXPECT_EQ(db.Select(halfOpen), expected) << halfOpen.text;
    options.column = "order_day";
    options.columnType = SqlColumnType::Date;
    const ParameterisedSql closed = select->SQLParameters(options);
    EXPECT_EQ(db.Select(closed), expected) << closed.text;
    ++checked;
  }

  MemoryPlatform platform;
  Container form;
  DateSelect* select = nullptr;
  int checked = 0;
};

// Every option, the custom range in each unit with and without today, and the operators, on
// days that end months, years and a leap February.
inline void CheckEveryOptionOnEveryDay(OrdersTable& db) {
  CriteriaOnOrders on;
  DateSelect& ds = *on.select;
  for (const char* today :
       {"2004-05-10", "2004-02-29", "2004-12-31", "2005-01-01", "2005-03-01", "2004-08-15"}) {
    SCOPED_TRACE(today);
    on.platform.SetNow(*IsoDate(today) + 0.5);
    for (int32_t option = dtsToday; option <= dtsYear; ++option) {
      SCOPED_TRACE(testing::Message() << "option " << option);
      ds.SetSelection(option);
      if (option == dtsCustomRange) {
        for (int32_t unit = dtsDays; unit <= dtsYears; ++unit) {
          ds.SetCustomSelection(unit);
          for (int checkedToday : {vbUnchecked, vbChecked}) {
            ds.chkCustom().SetValue(checkedToday);
            on.Check(db);
          }
        }
      } else if (option == dtsExpression) {
        for (const char* op : {"=", "<>", "<", "<=", ">", ">="}) {
          ds.SetOperator(op);
          on.Check(db);
        }
      } else {
        on.Check(db);
      }
    }
  }
  EXPECT_EQ(on.checked, 6 * (13 + 8 + 6));
}

// The control's own SQL text on a timestamp column: a month written BETWEEN its first and last
// day loses the rows after midnight (or from it, compared as text) on the last day.
inline void CheckTheTextFormMissesTheLastDay(OrdersTable& db, int missed) {
  CriteriaOnOrders on;
  on.select->SetSelection(dtsMonth);
  on.select->SetSelectedMonth(2);
  const Rows text = db.SelectText(on.select->SQLCriteria(), {});
  const Rows all = on.Expected(db);
  EXPECT_EQ(std::stol(all.at(0)) - std::stol(text.at(0)), missed) << on.select->SQLCriteria();
  EXPECT_EQ(all.at(2).substr(0, 19), "2004-02-29 23:59:59");
  SqlOptions options;
  options.dialect = db.Dialect();
  EXPECT_EQ(db.Select(on.select->SQLParameters(options)), all);
}

} // namespace tarnbrook
