#include "postgres/postgres_parameters.hpp"

#include "common/control_error.hpp"

namespace tarnbrook {

void PostgresParameters::Add(const ParameterisedSql& sql) {
  if (sql.named)
    throw ControlError(rtInvalidProcedureCall, "Tarnbrook",
                       "libpq binds numbered parameters ($1), not named ones");
  for (const SqlParameter& parameter : sql.parameters) {
    if (parameter.number != Count() + 1)
      throw ControlError(rtInvalidProcedureCall, "Tarnbrook",
                         "parameter $" + std::to_string(parameter.number) + " comes where $" +
                             std::to_string(Count() + 1) + " is next");
    texts_.push_back(parameter.text);
    lengths_.push_back(static_cast<int>(parameter.text.size()));
    formats_.push_back(0); // text
    types_.push_back(0);   // inferred by the server
  }
  values_.clear();
  for (const std::string& text : texts_)
    values_.push_back(text.c_str());
}

} // namespace tarnbrook
