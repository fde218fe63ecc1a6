// Values the picker could not show or save are refused before anything is stored.
#include <limits>

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
  for (int32_t day : {-1, 8, INT32_MAX})
    EXPECT_EQ(RaisedNumber([&] { picker->SetFirstDayofWeek(day); }), 5);
  for (int32_t width : {INT32_MAX, INT32_MIN, 32768, -32769})
    EXPECT_EQ(RaisedNumber([&] { picker->SetButtonWidth(width); }), 6);
  Font font = picker->Font();
  Font bad = font;
  bad.Size = std::numeric_limits<float>::infinity();
  EXPECT_EQ(RaisedNumber([&] { picker->SetFont(bad); }), 380);
  EXPECT_EQ(RaisedNumber([&] { picker->SetCalendarFont(bad); }), 380);

  EXPECT_EQ(picker->Value().ToDate(), DateSerial(2026, 11, 21));
  EXPECT_EQ(picker->MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(picker->MaxDate(), DateSerial(9999, 12, 31));
  EXPECT_EQ(picker->FirstDayofWeek(), 0);
  EXPECT_EQ(picker->ButtonWidth(), 16);
  EXPECT_EQ(picker->Font(), font);
  EXPECT_TRUE(form.ChangedKeys(Name).empty());
  // Still paints and drops its calendar down, and the form still saves.
  EXPECT_EQ(RaisedNumber([&] { picker->Refresh(); }), 0);
  EXPECT_EQ(RaisedNumber([&] { form.SaveToText(); }), 0);
  picker->SetButtonWidth(-32768);
  picker->SetButtonWidth(32767);
  EXPECT_EQ(RaisedNumber([&] { form.SaveToText(); }), 0);
}

} // namespace
} // namespace tarnbrook
