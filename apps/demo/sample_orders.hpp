#pragma once
#include <string>
#include <vector>

#include "common/date_value.hpp"
#include "common/sql_criteria.hpp"

struct sqlite3;

namespace tarnbrook {

// A small SQLite database of sample orders, a few a day at any time of day over the two years
// up to `today` (OrderDate holds "yyyy-mm-dd hh:nn:ss"), to show what a DateSelect's criteria
// select.
class SampleOrders {
public:
  explicit SampleOrders(DateValue today);
  ~SampleOrders();
  SampleOrders(const SampleOrders&) = delete;
  SampleOrders& operator=(const SampleOrders&) = delete;

  struct Result {
    long long count = 0;
    std::vector<std::string> firstRows; // "2004-05-10 14:05  #1234  Customer  12.50"
    std::string error;                  // SQLite's message when the statement failed
  };
  // The orders the criteria select, oldest first, their values bound.
  Result Select(const ParameterisedSql& criteria, size_t rows = 3) const;

private:
  sqlite3* db_ = nullptr;
};

} // namespace tarnbrook
