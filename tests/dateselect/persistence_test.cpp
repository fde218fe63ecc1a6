#include "common/property_bag.hpp"
#include "common/text.hpp"
#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

MemoryPropertyBag Written(DateSelect& control) {
  MemoryPropertyBag bag;
  control.WriteProperties(bag);
  return bag;
}

Log Keys(DateSelect& control) {
  Log keys;
  const MemoryPropertyBag bag = Written(control);
  for (const auto& entry : bag.Entries())
    keys.push_back(entry.first);
  return keys;
}

std::unique_ptr<DateSelect> Load(HWND parent, MemoryPropertyBag& bag) {
  auto control = std::make_unique<DateSelect>(parent);
  control->ReadProperties(bag);
  return control;
}

using PersistenceTest = DateSelectTest;

TEST_F(PersistenceTest, ANewControlWritesOnlyWhatDiffersFromTheDefaults) {
  // The year is always written, the option mask never reads back as its default 16777215,
  // and a font has no default.
  EXPECT_EQ(Keys(*ds), (Log{"VisibleOptions", "Selectedyear", "Font"}));
  EXPECT_EQ(Written(*ds).ReadProperty("SelectedYear"), Variant(int16_t(2004)));
}

// Every setting away from its default, let by name in the order the keys are written.
TEST_F(PersistenceTest, EverySettingIsWrittenInItsOrderAndReadBack) {
  Font font;
  font.Name = "DejaVu Serif";
  const std::pair<const char*, Variant> settings[] = {
      {"ButtonWidth", 20},
      {"VisibleOptions", 32766},
      {"ShowFocusRect", false},
      {"FocusColor", 0xFFDCC8},
      {"UseFocusColor", true},
      {"ButtonStyle", 1},
      {"BorderStyle", 1},
      {"Selectedyear", 2001},
      {"Selection", dtsCustomRange},
      {"FirstDayofWeek", vbMonday},
      {"InputFormat", "dd.MM.yyyy"},
      {"Operator", "<"},
      {"DisableSelection", true},
      {"DisableStartDate", true},
      {"DisableEndDate", true},
      {"DisableCustomSelection", true},
      {"CustomSelection", dtsWeeks},
      {"CustomRange", 4},
      {"Font", Variant(std::shared_ptr<Object>(std::make_shared<Font>(font)))},
      {"ForeColor", 0x800000},
      {"BackColor", 0xDCF0F0},
      {"ControlBackColor", 0xF0FFFF},
      {"SQLFieldName", "OrderDate"},
      {"SQLDateWrapper", "#"},
      {"SQLUseBETWEEN", false},
      {"SQLDateFormat", "yyyy-mm-dd"},
      {"SQLPrefix", "SELECT * FROM Orders WHERE"}};
  Log keys;
  for (const auto& [key, value] : settings) {
    const ClassInfo& info = DateSelect::TypeInfo();
    const auto property = std::find_if(info.properties.begin(), info.properties.end(),
                                       [&](auto& p) { return EqualsIgnoreCaseAscii(p.name, key); });
    property->let(*ds, value);
    keys.push_back(key);
  }
  EXPECT_EQ(Keys(*ds), keys);
  MemoryPropertyBag bag = Written(*ds);
  EXPECT_EQ(bag.ReadProperty("CustomRange"), Variant(int16_t(4))); // an Integer

  DateSelect& copy = Reloaded();
  EXPECT_EQ(Written(copy).Entries(), bag.Entries());
  EXPECT_EQ(copy.SQL(),
            "SELECT * FROM Orders WHERE OrderDate>=#2004-04-13# AND OrderDate<=#2004-05-10# ");
  EXPECT_FALSE(copy.cboCustomChoice().Enabled());
  EXPECT_FALSE(copy.cboSelection().Enabled());
}

TEST_F(PersistenceTest, ALoadedControlComputesItsDatesOnTheLoadingDay) {
  Select(dtsLastMonth);
  const std::string saved = form.SaveToText();
  SetToday(2006, 3, 15);
  Container later;
  later.LoadFromText(saved);
  DateSelect& copy = static_cast<DateSelect&>(*later.Find(Name));
  EXPECT_EQ(Range(copy.StartDate(), copy.EndDate()), Days(2006, 2, 1, 2006, 2, 28));
  EXPECT_EQ(copy.SelectedYear(), 2006);
  EXPECT_EQ(copy.cboMonth().Text(), "February");
}

// Bags written by hand: keys apply in their own order, a missing year is this year (the
// control holds it from its creation on), and a year the spin cannot show still loads.
TEST_F(PersistenceTest, HandWrittenBagsLoad) {
  MemoryPropertyBag hidden;
  hidden.WriteProperty("Selection", int16_t(dtsLastMonth));
  hidden.WriteProperty("VisibleOptions", int32_t(1 << dtsDateRange | 1 << dtsYear));
  EXPECT_EQ(Load(form.hWnd(), hidden)->Selection(), dtsDateRange);

  MemoryPropertyBag custom;
  custom.WriteProperty("Selection", int16_t(dtsCustomRange));
  custom.WriteProperty("CustomRange", int16_t(3));
  custom.WriteProperty("CustomSelection", int16_t(dtsMonths));
  auto months = Load(form.hWnd(), custom);
  EXPECT_EQ(Range(months->StartDate(), months->EndDate()), Days(2004, 2, 1, 2004, 4, 30));

  MemoryPropertyBag noYear;
  noYear.WriteProperty("Selection", int16_t(dtsYear));
  auto year = Load(form.hWnd(), noYear);
  EXPECT_EQ(year->SelectedYear(), 2004);
  EXPECT_EQ(year->SQLCriteria(), "Date BETWEEN 1/1/2004 AND 12/31/2004");

  MemoryPropertyBag farYear;
  farYear.WriteProperty("SelectedYear", int16_t(-5));
  auto far = Load(form.hWnd(), farYear);
  EXPECT_EQ(far->SelectedYear(), -5);
  EXPECT_EQ(far->spnYear().Value(), 2004);
  EXPECT_EQ(far->Operator(), "=");
}

} // namespace
} // namespace tarnbrook
