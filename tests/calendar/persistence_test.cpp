#include "tests/calendar/calendar_fixture.hpp"

namespace tarnbrook {
namespace {

class PersistenceTest : public CalendarTest {
protected:
  Log Keys(const MemoryPropertyBag& bag) {
    Log keys;
    for (const auto& entry : bag.Entries())
      keys.push_back(entry.first);
    return keys;
  }

  MemoryPropertyBag bag;
  MonthCalendar loaded{form.hWnd()};
};

TEST_F(PersistenceTest, NewCalendarSavesOnlyWhatDiffersFromTheDefaults) {
  calendar->WriteProperties(bag);
  EXPECT_EQ(Keys(bag), (Log{"MinDate", "Value", "EmptyButton", "EmptyButtonCaption"}));
  EXPECT_EQ(bag.ReadProperty("MinDate"), Variant::Date(DateSerial(1601, 1, 1)));
  EXPECT_EQ(bag.ReadProperty("Value"), Variant::Date(DateSerial(2026, 11, 21)));
  EXPECT_EQ(bag.ReadProperty("EmptyButton"), Variant(false));
  EXPECT_EQ(bag.ReadProperty("EmptyButtonCaption"), Variant("None"));
}

TEST_F(PersistenceTest, EverySettingIsWrittenInOrderAndReadBackWithoutChange) {
  Font arial;
  arial.Name = "Arial";
  calendar->SetWeekDayColor(1);
  calendar->SetBackDrawMode(mvwBackRepeatY);
  calendar->SetBackgroundImage(std::make_shared<Picture>(1, 1, std::vector<uint32_t>{0xFF0000FF}));
  calendar->SetHoverIcon(false);
  calendar->SetMinDate(DateSerial(2000, 1, 1));
  calendar->SetMaxDate(DateSerial(2030, 12, 31));
  calendar->SetValue(DateSerial(2020, 3, 4));
  calendar->SetHeaderForeColor(2);
  calendar->SetPresentDateColor(3);
  calendar->SetInactiveMonthColor(4);
  calendar->SetActiveMonthColor(5);
  calendar->SetHeaderColor(OleColorNone);
  calendar->SetBackColor(6);
  calendar->SetFirstDayofWeek(vbMonday);
  calendar->SetEnabled(false);
  calendar->SetEmptyButtonCaption("Leer");
  calendar->SetTodayButtonCaption("Heute");
  calendar->SetButtonStyle(mvwButtonFlat);
  calendar->SetFont(arial);
  calendar->WriteProperties(bag);
  EXPECT_EQ(Keys(bag), (Log{"WeekDayColor",
                            "BackDrawMode",
                            "BackgroundImage",
                            "HoverIcon",
                            "MinDate",
                            "MaxDate",
                            "Value",
                            "HeaderForeColor",
                            "EmptyButton",
                            "PresentDateColor",
                            "InactiveMonthColor",
                            "ActiveMonthColor",
                            "HeaderColor",
                            "BackColor",
                            "FirstDayOfWeek",
                            "Enabled",
                            "EmptyButtonCaption",
                            "TodayButtonCaption",
                            "ButtonStyle",
                            "Font"}));

  log.Take();
  loaded.Connect(&log);
  loaded.ReadProperties(bag);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged"})); // Value itself is stored without events
  MemoryPropertyBag again;
  loaded.WriteProperties(again);
  EXPECT_EQ(again.Entries(), bag.Entries());
  EXPECT_EQ(loaded.SelectedYear() * 100 + loaded.SelectedMonth(), 202003);
  EXPECT_EQ(loaded.Button("Right").State & 0x100, 0x100); // greyed while disabled
}

TEST_F(PersistenceTest, AnEmptyBagShowsDecember1899) {
  loaded.ReadProperties(bag);
  EXPECT_EQ(loaded.Value(), 0.0);
  EXPECT_EQ(loaded.SelectedYear() * 100 + loaded.SelectedMonth(), 189912);
  EXPECT_EQ(loaded.MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(loaded.EmptyButtonCaption(), "Empty");
  EXPECT_TRUE(loaded.EmptyButton());
}

TEST_F(PersistenceTest, UnreadableKeysAreSkippedAndLimitsAreTakenAsStored) {
  loaded.SetButtonStyle(mvwButtonThin3D);
  bag.WriteProperty("ButtonStyle", int32_t(5));
  bag.WriteProperty("FirstDayOfWeek", "Monday");
  bag.WriteProperty("todaybuttoncaption", "Heute");
  bag.WriteProperty("MINDATE", Variant::Date(DateSerial(2030, 1, 1)));
  bag.WriteProperty("MaxDate", Variant::Date(DateSerial(2020, 1, 1)));
  loaded.ReadProperties(bag);
  EXPECT_EQ(loaded.ButtonStyle(), mvwButtonThin3D);
  EXPECT_EQ(loaded.FirstDayofWeek(), 0);
  EXPECT_EQ(loaded.TodayButtonCaption(), "Heute");
  EXPECT_EQ(loaded.MinDate(), DateSerial(2030, 1, 1));
  EXPECT_EQ(loaded.MaxDate(), DateSerial(2020, 1, 1));
}

} // namespace
} // namespace tarnbrook
