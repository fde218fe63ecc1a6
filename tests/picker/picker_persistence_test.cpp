#include <algorithm>
#include <limits>

#include "common/property_bag.hpp"
#include "host/control_registry.hpp"
#include "host/persisted_objects.hpp"
#include "picker_fixture.hpp"

namespace tarnbrook {
namespace {

using Entries = std::vector<std::pair<std::string, Variant>>;

Entries Written(DatePicker& picker) {
  MemoryPropertyBag bag;
  picker.WriteProperties(bag);
  return bag.Entries();
}

TEST_F(PickerTest, AnEmptyBagGivesTheDefaultsAndAnEmptyPickerAtTheLoadingTime) {
  picker->SetValue(Variant::Date(DateSerial(2026, 1, 1))); // not kept as the last date
  platform.SetNow(DateSerial(2027, 3, 4) + 0.25);
  MemoryPropertyBag empty;
  picker->ReadProperties(empty);
  EXPECT_EQ(picker->Format(), dtpShortDate);
  EXPECT_EQ(picker->BorderStyle(), dtpBorderSunken3D);
  EXPECT_TRUE(picker->AllowEmpty() && picker->ChangeOnDrag());
  EXPECT_FALSE(picker->ExitOnReturn() || picker->Locked());
  EXPECT_TRUE(picker->Value().IsNull());
  ClickAt(PickerWidth - 16, 10); // the 16 pixels at the right are the drop-down button
  EXPECT_EQ(picker->Calendar().Value(), DateSerial(2027, 3, 4) + 0.25);
  // Only what a default cannot equal is written: the font (the limits equal their texts).
  EXPECT_EQ(Written(*picker).size(), 1u);
}

// Every key, its spelling and order are held by the saved-forms fixture; here, the two the
// calendar lends its own names to, and the picker's own name for one of them being no key.
TEST_F(PickerTest, TheCalendarsKeysAreReadUnderTheCalendarsNames) {
  MemoryPropertyBag bag;
  bag.WriteProperty("BackDrawMode", int32_t(mvwBackRepeatY));
  bag.WriteProperty("CalendarBackDrawMode", int32_t(mvwBackCentered));
  bag.WriteProperty("HoverIcon", false);
  bag.WriteProperty("CalendarHeaderColor", OleColorNone);
  picker->ReadProperties(bag);
  EXPECT_EQ(picker->CalendarBackDrawMode(), mvwBackRepeatY);
  EXPECT_FALSE(picker->CalendarHoverIcon());
  EXPECT_EQ(picker->Calendar().HeaderColor(), OleColorNone);
  const Entries written = Written(*picker);
  EXPECT_EQ(std::count_if(written.begin(), written.end(),
                          [](const auto& entry) { return entry.first.rfind("Calendar", 0) == 0; }),
            2); // CalendarHeaderColor and CalendarFont
}

TEST_F(PickerTest, StoredLimitsAreCheckedAgainstEachOtherAndTheRestIsStillRead) {
  MemoryPropertyBag bag;
  bag.WriteProperty("MaxDate", Variant::Date(DateSerial(2000, 1, 1)));
  bag.WriteProperty("MinDate", "1/1/2010");
  bag.WriteProperty("Locked", int32_t(-1)); // a Boolean as the number true was
  ControlError refused = Raised([&] { picker->ReadProperties(bag); });
  EXPECT_EQ(refused.Number(), 1068);
  EXPECT_EQ(refused.Source(), "DatePicker");
  EXPECT_EQ(picker->MinDate(), DateSerial(1601, 1, 1));
  EXPECT_TRUE(picker->Locked());

  bag.WriteProperty("MinDate", "1/1/1990");
  bag.WriteProperty("Value", Variant::Date(DateSerial(2001, 1, 1)));
  EXPECT_EQ(Raised([&] { picker->ReadProperties(bag); }).Number(), 2050);
}

// Values the picker could not show or save are refused before anything is stored.
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
