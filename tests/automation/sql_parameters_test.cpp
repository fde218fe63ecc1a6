// Bound criteria by name: the same method on the three classes, and its result object.
#include "automation/dispatch.hpp"
#include "automation_fixture.hpp"
#include "dateselect/date_select.hpp"
#include "tests/support/raised.hpp"

namespace tarnbrook {
namespace {

using SqlParametersTest = AutomationTest;

// "text | 1 first 2004-05-10 ..." of what SQLParameters returns for the arguments.
std::string Rendered(Control& control, std::vector<Variant> args) {
  const Dispatch sql(Dispatch(control).Call("SQLParameters", std::move(args)).ToObject(),
                     "SQLParameters");
  std::string text = sql.Get("Text").ToString();
  for (int32_t i = 0; i < sql.Get("Count").ToLong(); ++i) {
    const std::vector<Variant> index{Variant(i)};
    text += " | " + sql.Get("Number", index).ToString() + " " + sql.Get("Name", index).ToString() +
            " " + sql.Get("Value", index).ToString();
  }
  return text;
}

TEST_F(SqlParametersTest, EveryDateControlGivesItsCriteriaOneWay) {
  auto& select = Place<DateSelect>("Tarnbrook.DateSelect", "Select1");
  select.SetSelection(dtsLastMonth);
  select.SetSQLPrefix("SELECT * FROM Orders WHERE");
  EXPECT_EQ(Rendered(select, {}), "\"Date\" >= ? AND \"Date\" < ? | 1 first 2004-04-01 00:00:00 | "
                                  "2 after 2004-05-01 00:00:00");
  EXPECT_EQ(Rendered(select, {"postgres", "date", "o.day", false, true}),
            "SELECT * FROM Orders WHERE \"o\".\"day\" >= $1 AND \"o\".\"day\" <= $2 | "
            "1 first 2004-04-01 | 2 last 2004-04-30");

  Control& picker = Place("Tarnbrook.DatePicker", "Picker1");
  Dispatch(picker).Let("Value", Variant::Date(DateSerial(2004, 2, 29) + 0.5));
  EXPECT_EQ(Rendered(picker, {"sqlite", "date", "Shipped", true}),
            "\"Shipped\" = :first | 1 first 2004-02-29");
  EXPECT_EQ(Raised([&] { Rendered(picker, {}); }).Description(),
            "no column: name the column the dates are compared with");
  EXPECT_EQ(RaisedNumber([&] { Rendered(picker, {"sqlite", "date", "x", false, true}); }),
            rtWrongArguments); // no prefix of its own
  Dispatch(picker).Let("Value", Variant::Null());
  EXPECT_EQ(RaisedNumber([&] { Rendered(picker, {"sqlite", "date", "Shipped"}); }), 94);

  Control& calendar = Place("Tarnbrook.MonthCalendar", "Calendar1");
  EXPECT_EQ(Rendered(calendar, {"postgres", "timestamp", "due"}),
            "\"due\" >= $1 AND \"due\" < $2 | 1 first 2004-05-10 00:00:00 | 2 after 2004-05-11 "
            "00:00:00");
  EXPECT_EQ(RaisedNumber([&] { Rendered(calendar, {"oracle", "timestamp", "due"}); }),
            rtInvalidProcedureCall);
}

} // namespace
} // namespace tarnbrook
