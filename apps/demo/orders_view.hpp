#pragma once
#include "apps/demo/caption_label.hpp"
#include "apps/demo/event_list.hpp"
#include "apps/demo/sample_orders.hpp"
#include "dateselect/date_select.hpp"

namespace tarnbrook {

// Shows a DateSelect's criteria as it changes, with placeholders and the values bound to them,
// and the sample orders they select: how many, and the first few.
class OrdersView : private DateSelectEvents {
public:
  OrdersView(DateSelect& select, CaptionLabel& sql, EventList& rows, DateValue today);
  ~OrdersView() override;
  OrdersView(const OrdersView&) = delete;
  OrdersView& operator=(const OrdersView&) = delete;

private:
  void Change() override;

  DateSelect& select_;
  CaptionLabel& sql_;
  EventList& rows_;
  SampleOrders orders_;
};

} // namespace tarnbrook
