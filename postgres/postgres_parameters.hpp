#pragma once
#include <libpq-fe.h>

#include <string>
#include <vector>

#include "common/sql_criteria.hpp"

namespace tarnbrook {

// Criteria's values as libpq's parameter arrays: text values whose types the server infers
// from the columns they are compared with.
//   PostgresParameters values(criteria);
//   PQexecParams(connection, query.c_str(), values.Count(), values.Types(), values.Values(),
//                values.Lengths(), values.Formats(), 0);
class PostgresParameters {
public:
  PostgresParameters() = default;
  // Raises 5 for named placeholders, which libpq does not know.
  explicit PostgresParameters(const ParameterisedSql& sql) { Add(sql); }
  PostgresParameters(const PostgresParameters&) = delete;
  PostgresParameters& operator=(const PostgresParameters&) = delete;
  PostgresParameters(PostgresParameters&&) = default;
  PostgresParameters& operator=(PostgresParameters&&) = default;

  // Appends the values of further criteria of the same query, rendered with their first
  // number the next one here; raises 5 when the numbers do not follow on.
  void Add(const ParameterisedSql& sql);

  int Count() const { return static_cast<int>(texts_.size()); }
  const Oid* Types() const { return types_.data(); }
  const char* const* Values() const { return values_.data(); }
  const int* Lengths() const { return lengths_.data(); }
  const int* Formats() const { return formats_.data(); }

private:
  std::vector<std::string> texts_;
  std::vector<const char*> values_; // into texts_, whose buffers stay put when moved
  std::vector<int> lengths_, formats_;
  std::vector<Oid> types_;
};

} // namespace tarnbrook
