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

void OrdersView::Change() {
  rows_.Clear();
  std::string criteria;
  try {
    sql_.SetCaption(select_.SQL());
    criteria = select_.SQLCriteria();
  } catch (const ControlError& error) { // a custom range that is no number
    sql_.SetCaption("(no criteria: " + error.Description() + ")");
    return;
  }
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
