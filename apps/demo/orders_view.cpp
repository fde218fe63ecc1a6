#include "apps/demo/orders_view.hpp"

#include "common/control_error.hpp"

namespace tarnbrook {

OrdersView::OrdersView(DateSelect& select, CaptionLabel& sql, EventList& rows, DateValue today)
    : select_(select), sql_(sql), rows_(rows), orders_(today) {
  select_.Connect(this);
  Change();
}

OrdersView::~OrdersView() {
  select_.Disconnect(this);
}

namespace {

// The query the list runs: the criteria with placeholders for a timestamp column, and the
// values bound to them.
std::string Shown(const ParameterisedSql& criteria) {
  std::string text = "WHERE " + criteria.text + "   with";
  for (const SqlParameter& value : criteria.parameters)
    text += (value.number > 1 ? ", ?" : " ?") + std::to_string(value.number) + " = " + value.text;
  return text;
}

} // namespace

void OrdersView::Change() {
  rows_.Clear();
  ParameterisedSql criteria;
  try {
    criteria = select_.SQLParameters();
  } catch (const ControlError& error) { // a custom range that is no number, a bad field name
    sql_.SetCaption("(no criteria: " + error.Description() + ")");
    return;
  }
  sql_.SetCaption(Shown(criteria));
  SampleOrders::Result result = orders_.Select(criteria);
  if (!result.error.empty()) {
    rows_.AddLine("SQLite: " + result.error);
    return;
  }
  rows_.AddLine(std::to_string(result.count) + " order(s)" + (result.count ? ", the first:" : ""));
  for (const std::string& row : result.firstRows)
    rows_.AddLine(row);
}

} // namespace tarnbrook
