#include <algorithm>

#include "common/property_bag.hpp"
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

} // namespace
} // namespace tarnbrook
