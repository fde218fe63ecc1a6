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

TEST_F(PickerTest, EveryKeyReadsBackUnchangedThroughASavedForm) {
  Font font;
  font.Name = "DejaVu Serif";
  font.Italic = true;
  auto picture = std::make_shared<Picture>(1, 1, std::vector<uint32_t>{0xFF102030});
  const Entries stored = {{"ChangeOnDrag", false},
                          {"Font", FontVariant(font)},
                          {"BackColor", RGB(250, 250, 210)},
                          {"ForeColor", RGB(0, 0, 128)},
                          {"Button", int32_t(dtpBoth)},
                          {"ButtonStyle", int32_t(dtpButtonThin3D)},
                          {"ButtonWidth", int16_t(18)},
                          {"MaxDate", Variant::Date(DateSerial(2030, 6, 30) + 0.75)},
                          {"MinDate", Variant::Date(DateSerial(1700, 1, 2) + 0.25)},
                          {"Value", Variant::Date(DateSerial(1899, 12, 29) + 0.5)},
                          {"CustomFormat", "'Week' d, MMMM yyyy hh:mm tt"},
                          {"FocusColor", RGB(255, 255, 200)},
                          {"ShowFocusRect", false},
                          {"UseFocusColor", false},
                          {"Locked", true},
                          {"BorderStyle", int32_t(dtpBorderEtched)},
                          {"Enabled", false},
                          {"ExitOnReturn", true},
                          {"CalendarAnimation", int32_t(dtpAnimateRoll)},
                          {"CalendarWeekdayColor", RGB(128, 0, 0)},
                          {"CalendarFont", FontVariant(font)},
                          {"BackDrawMode", int32_t(mvwBackRepeatY)},
                          {"CalendarBackground", PictureVariant(picture)},
                          {"CalendarButtonStyle", int32_t(dtpButtonFlat)},
                          {"AllowEmpty", false},
                          {"CalendarBackColor", RGB(255, 255, 240)},
                          {"CalendarHeaderColor", OleColorNone},
                          {"CalendarHeaderForeColor", RGB(255, 255, 255)},
                          {"CalendarActiveMonthColor", RGB(0, 64, 0)},
                          {"CalendarInactiveMonthColor", RGB(160, 160, 160)},
                          {"CalendarPresentDateColor", RGB(0, 0, 255)},
                          {"FirstDayofWeek", int32_t(vbMonday)},
                          {"TodayButtonCaption", "Now"},
                          {"EmptyButtonCaption", ""},
                          {"HoverIcon", false},
                          {"Format", int32_t(dtpCustom)}};
  MemoryPropertyBag bag;
  for (const auto& [key, value] : stored)
    bag.WriteProperty(key, value);
  bag.WriteProperty("CalendarBackDrawMode", int32_t(1)); // not a key of the picker's
  picker->ReadProperties(bag);
  EXPECT_EQ(picker->CalendarBackDrawMode(), mvwBackRepeatY);
  EXPECT_EQ(picker->Calendar().HeaderColor(), OleColorNone);
  EXPECT_EQ(Written(*picker), stored);

  RegisterControlClass<DatePicker>("DatePicker");
  Container reloaded;
  reloaded.LoadFromText(form.SaveToText());
  EXPECT_EQ(Written(static_cast<DatePicker&>(*reloaded.Find(Name))), stored);
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
