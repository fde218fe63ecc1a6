#include "tests/calendar/calendar_fixture.hpp"

namespace tarnbrook {
namespace {

class PersistenceTest : public CalendarTest {
protected:
  MemoryPropertyBag bag;
  MonthCalendar loaded{form.hWnd()};
  int Shown() { return loaded.SelectedYear() * 100 + loaded.SelectedMonth(); }
};

// Every key equal to its default is left out, the first date included (its default is a text).
TEST_F(PersistenceTest, NewCalendarSavesOnlyItsValueAndEmptyButton) {
  calendar->WriteProperties(bag);
  EXPECT_EQ(bag.Entries(), (std::vector<std::pair<std::string, Variant>>{
                               {"Value", Variant::Date(DateSerial(2026, 11, 21))},
                               {"EmptyButton", false},
                               {"EmptyButtonCaption", "None"}}));
}

TEST_F(PersistenceTest, EverySettingReadsBackAndIsWrittenInTheTablesOrder) {
  auto arial = std::make_shared<Font>();
  arial->Name = "Arial";
  auto picture = std::make_shared<Picture>(1, 1, std::vector<uint32_t>{0xFF0000FF});
  // clang-format off
  const std::vector<std::pair<std::string, Variant>> settings = {
      {"WeekDayColor", 1}, {"BackDrawMode", 3}, {"BackgroundImage", Variant(picture)},
      {"HoverIcon", false}, {"MinDate", Variant::Date(DateSerial(2000, 1, 1))},
      {"MaxDate", Variant::Date(DateSerial(2030, 12, 31))},
      {"Value", Variant::Date(DateSerial(2020, 3, 4))}, {"HeaderForeColor", 2},
      {"EmptyButton", false}, {"PresentDateColor", 3}, {"InactiveMonthColor", 4},
      {"ActiveMonthColor", 5}, {"HeaderColor", -1}, {"BackColor", 6}, {"FirstDayOfWeek", 2},
      {"Enabled", false}, {"EmptyButtonCaption", "Leer"}, {"TodayButtonCaption", "Heute"},
      {"ButtonStyle", 2}, {"Font", Variant(arial)}};
  // clang-format on
  for (const auto& [key, value] : settings)
    bag.WriteProperty(key, value);
  loaded.Connect(&log);
  loaded.ReadProperties(bag);
  EXPECT_EQ(log.Take(), (Log{"MonthChanged"})); // Value itself is stored without events
  MemoryPropertyBag again;
  loaded.WriteProperties(again);
  EXPECT_EQ(again.Entries(), settings);
  EXPECT_EQ(Shown(), 202003);
  EXPECT_EQ(loaded.Button("Right").State & 0x100, 0x100); // greyed while disabled
}

TEST_F(PersistenceTest, AnEmptyBagShowsDecember1899) {
  loaded.ReadProperties(bag);
  EXPECT_EQ(loaded.Value(), 0.0);
  EXPECT_EQ(Shown(), 189912);
  EXPECT_EQ(loaded.MinDate(), DateSerial(1601, 1, 1));
  EXPECT_EQ(loaded.EmptyButtonCaption(), "Empty");
}

TEST_F(PersistenceTest, UnreadableKeysAreSkippedAndLimitsAreTakenAsStored) {
  loaded.SetButtonStyle(mvwButtonThin3D);
  bag.WriteProperty("ButtonStyle", int32_t(5));
  bag.WriteProperty("FirstDayOfWeek", "Monday");
  bag.WriteProperty("todaybuttoncaption", "Heute");
  bag.WriteProperty("MINDATE", Variant::Date(DateSerial(2030, 1, 1)));
  bag.WriteProperty("MaxDate", Variant::Date(DateSerial(2020, 1, 1)));
  loaded.ReadProperties(bag);
  EXPECT_EQ(loaded.ButtonStyle() * 10 + loaded.FirstDayofWeek(), 10);
  EXPECT_EQ(loaded.TodayButtonCaption(), "Heute");
  EXPECT_EQ(loaded.MinDate() - loaded.MaxDate(), DateSerial(2030, 1, 1) - DateSerial(2020, 1, 1));
}

} // namespace
} // namespace tarnbrook
