// The SQL criteria for the current option, read from the constituents when asked.
#include "common/conversions.hpp"
#include "common/date_format.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "dateselect/date_select_keys.hpp"
#include "dateselect/date_spans.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

std::string DateSelect::SqlDate(DateValue date) const {
  std::string text = sqlDateFormat_.empty()
                         ? DateToText(date)
                         : FormatDate(date, sqlDateFormat_, vbSunday, vbFirstJan1);
  return sqlDateWrapper_ + text + sqlDateWrapper_;
}

DateCriterion DateSelect::Criterion() const {
  CriteriaInputs in;
  static_cast<RangeInputs&>(in) = Inputs();
  if (selection_ == dtsCustomRange) // computed afresh, and strictly: no number fails (13)
    in.customNumber = CDbl(txtCustomRange_->Text());
  in.start = dtpFrom_->Value();
  in.end = dtpTo_->Value();
  in.op = cboOperator_->Text();
  DateCriterion criterion = CriterionOfOption(selection_, in);
  criterion.column = sqlFieldName_;
  return criterion;
}

std::string DateSelect::SQLCriteria() const {
  const DateCriterion criterion = Criterion();
  switch (criterion.kind) {
  case CriterionKind::Compare:
    return sqlFieldName_ + criterion.op + SqlDate(criterion.start);
  case CriterionKind::Range:
    if (sqlUseBetween_)
      return sqlFieldName_ + " BETWEEN " + SqlDate(criterion.start) + " AND " +
             SqlDate(criterion.end);
    return sqlFieldName_ + ">=" + SqlDate(criterion.start) + " AND " + sqlFieldName_ +
           "<=" + SqlDate(criterion.end);
  default:
    return "";
  }
}

ParameterisedSql DateSelect::SQLParameters(SqlOptions options, bool withPrefix) const {
  CheckDateWrapper(sqlDateWrapper_);
  if (withPrefix)
    options.prefix = sqlPrefix_;
  return RenderParameterised(Criterion(), options);
}

std::string DateSelect::SQL() const {
  return sqlPrefix_ + " " + SQLCriteria() + " ";
}

void DateSelect::SetSQLFieldName(const std::string& name) {
  sqlFieldName_ = name;
  PropertyChanged(DateSelectKey::SQLFieldName);
}

void DateSelect::SetSQLDateWrapper(const std::string& wrapper) {
  sqlDateWrapper_ = wrapper;
  PropertyChanged(DateSelectKey::SQLDateWrapper);
}

void DateSelect::SetSQLDateFormat(const std::string& format) {
  sqlDateFormat_ = format;
  PropertyChanged(DateSelectKey::SQLDateFormat);
}

void DateSelect::SetSQLUseBETWEEN(bool use) {
  sqlUseBetween_ = use;
  PropertyChanged(DateSelectKey::SQLUseBETWEEN);
}

void DateSelect::SetSQLPrefix(const std::string& prefix) {
  sqlPrefix_ = prefix;
  PropertyChanged(DateSelectKey::SQLPrefix);
}

} // namespace tarnbrook
