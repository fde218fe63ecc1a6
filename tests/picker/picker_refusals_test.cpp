// Values the picker could not show or save are refused before anything is stored.
#include <limits>

#include "host/control_registry.hpp"
#include "tests/picker/picker_fixture.hpp"

namespace tarnbrook {
namespace {

TEST_F(PickerTest, DatesOutsideTheRuntimesAreRefusedAndNothingIsKept) {
  Start(DateSerial(2026, 11, 21));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (DateValue bad : {nan, inf, -inf, DateSerial(100, 1, 1) - 1, DateSerial(9999, 12, 31) + 1}) {
    EXPECT_EQ(RaisedNumber([&] { picker->SetValue(Variant::Date(bad)); }), 2050);
    EXPECT_EQ(RaisedNumber([&] { picker->SetMinDate(bad); }), 5);
    EXPECT_EQ(RaisedNumber([&] { picker->SetMaxDate(bad); }), 5);
  }
  for (int32_t width : {INT32_MAX, INT32_MIN, 32768, -32769})
    EXPECT_EQ(RaisedNumber([&] { picker->SetButtonWidth(width); }), 6);

  EXPECT_EQ(picker->Value().ToDate(), DateSerial(2026, 11, 21));
  EXPECT_EQ(picker->MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(picker->MaxDate(), DateSerial(9999, 12, 31));
  EXPECT_EQ(picker->ButtonWidth(), 16);
  EXPECT_TRUE(form.ChangedKeys(Name).empty());
  // Still paints and drops its calendar down, and the form still saves.
  EXPECT_EQ(RaisedNumber([&] { picker->Refresh(); }), 0);
  EXPECT_EQ(RaisedNumber([&] { form.SaveToText(); }), 0);
  picker->SetButtonWidth(-32768);
  picker->SetButtonWidth(32767);
  EXPECT_EQ(RaisedNumber([&] { form.SaveToText(); }), 0);
}

TEST_F(PickerTest, AFormFileRefusalNamesTheControlAndTheProperty) {
  RegisterControlClass<DatePicker>("DatePicker");
  RegisterControlClass<MonthCalendar>("MonthCalendar");
  auto file = [](const std::string& cls, const std::string& properties) {
    return R"({"version": 1, "controls": [{"class": ")" + cls +
           R"(", "name": "X1", "left": 0, "top": 0, "width": 40, "height": 20, "properties": )" +
           properties + "}]}";
  };
  auto refusal = [&](const std::string& text) {
    ControlError error = Raised([&] { form.LoadFromText(text, "f"); });
    EXPECT_EQ(error.Number(), 31037);
    EXPECT_EQ(form.Find(Name), picker) << "the form is as it was";
    return error.Description();
  };
  EXPECT_EQ(refusal(file("DatePicker", R"({"FirstDayofWeek": {"Long": 9}})")),
            "Form file 'f': control 'X1': property 'FirstDayofWeek': Invalid procedure call or "
            "argument");
  EXPECT_EQ(refusal(file("MonthCalendar", R"({"Font": {"Font": {"name": "T", "size": 1e9}}})")),
            "Form file 'f': control 'X1': property 'Font': Invalid property value");
}

} // namespace
} // namespace tarnbrook
