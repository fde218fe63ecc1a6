// The SQL criteria for the current option, read from the constituents when asked.
#include "common/conversions.hpp"
#include "common/date_format.hpp"
#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "dateselect/date_spans.hpp"
#include "platform/platform.hpp"

namespace tarnbrook {

std::string DateSelect::SqlDate(DateValue date) const {
  std::string text = sqlDateFormat_.empty()
                         ? DateToText(date)
                         : FormatDate(date, sqlDateFormat_, vbSunday, vbFirstJan1);
  return sqlDateWrapper_ + text + sqlDateWrapper_;
}

std::string DateSelect::SqlRange(DateValue start, DateValue end) const {
  if (sqlUseBetween_)
    return sqlFieldName_ + " BETWEEN " + SqlDate(start) + " AND " + SqlDate(end);
  return sqlFieldName_ + ">=" + SqlDate(start) + " AND " + sqlFieldName_ + "<=" + SqlDate(end);
}

std::string DateSelect::SQLCriteria() const {
  switch (selection_) {
  case dtsToday:
  case dtsDate:
    return sqlFieldName_ + "=" + SqlDate(StartDate());
  case dtsDateRange:
  case dtsLast7days:
  case dtsLast30days:
  case dtsThisWeekTillToday:
  case dtsThisMonthTillToday:
  case dtsThisYearTillToday:
  case dtsLastWeek:
    return SqlRange(StartDate(), EndDate());
  case dtsLastMonth:
  case dtsMonth: {
    DateSpan span = MonthSpan(selectedYear_, selectedMonth_);
    return SqlRange(span.start, span.end);
  }
  case dtsLastYear:
  case dtsYear: {
    DateSpan span = YearSpan(selectedYear_);
    return SqlRange(span.start, span.end);
  }
  case dtsCustomRange: {
    // Computed afresh, and strictly: a text that is no number fails here (13).
    std::optional<DateSpan> span =
        CustomSpan(Platform::Current().Today(), CDbl(txtCustomRange_->Text()),
                   cboCustomChoice_->Text(), firstDayofWeek_, chkCustom_->Value() == vbChecked);
    return span ? SqlRange(span->start, span->end) : SqlRange(StartDate(), EndDate());
  }
  case dtsExpression:
    return sqlFieldName_ + cboOperator_->Text() + SqlDate(StartDate());
  default:
    return "";
  }
}

std::string DateSelect::SQL() const {
  return sqlPrefix_ + " " + SQLCriteria() + " ";
}

void DateSelect::SetSQLFieldName(const std::string& name) {
  sqlFieldName_ = name;
  PropertyChanged("SQLFieldName");
}

void DateSelect::SetSQLDateWrapper(const std::string& wrapper) {
  sqlDateWrapper_ = wrapper;
  PropertyChanged("SQLDateWrapper");
}

void DateSelect::SetSQLDateFormat(const std::string& format) {
  sqlDateFormat_ = format;
  PropertyChanged("SQLDateFormat");
}

void DateSelect::SetSQLUseBETWEEN(bool use) {
  sqlUseBetween_ = use;
  PropertyChanged("SQLUseBETWEEN");
}

void DateSelect::SetSQLPrefix(const std::string& prefix) {
  sqlPrefix_ = prefix;
  PropertyChanged("SQLPrefix");
}

} // namespace tarnbrook
