#include "common/property_bag.hpp"
#include "date_select_fixture.hpp"
#include "host/control_registry.hpp"

namespace tarnbrook {
namespace {

using Entries = std::vector<std::pair<std::string, Variant>>;

Entries Written(DateSelect& control) {
  MemoryPropertyBag bag;
  control.WriteProperties(bag);
  return bag.Entries();
}

Log Keys(const Entries& entries) {
  Log keys;
  for (const auto& entry : entries)
    keys.push_back(entry.first);
  return keys;
}

class PersistenceTest : public DateSelectTest {
protected:
  PersistenceTest() { RegisterControlClass<DateSelect>("DateSelect"); }

  // Every saved setting away from its default.
  void SetEverything() {
    ds->SetVisibleOptions(32767 & ~(1 << dtsToday));
    ds->SetButtonWidth(20);
    ds->SetShowFocusRect(false);
    ds->SetFocusColor(RGB(200, 220, 255));
    ds->SetUseFocusColor(true);
    ds->SetButtonStyle(1);
    ds->SetBorderStyle(1);
    ds->SetSelectedYear(2001);
    ds->SetFirstDayofWeek(vbMonday);
    ds->SetInputFormat("dd.MM.yyyy");
    ds->SetOperator("<");
    ds->SetDisableSelection(true);
    ds->SetDisableStartDate(true);
    ds->SetDisableEndDate(true);
    ds->SetDisableCustomSelection(true);
    ds->SetSelection(dtsCustomRange);
    ds->SetCustomSelection(dtsWeeks);
    ds->SetCustomRange(4);
    Font font;
    font.Name = "DejaVu Serif";
    font.Bold = true;
    ds->SetFont(font);
    ds->SetForeColor(RGB(0, 0, 128));
    ds->SetBackColor(RGB(240, 240, 220));
    ds->SetControlBackColor(RGB(255, 255, 240));
    ds->SetSQLFieldName("OrderDate");
    ds->SetSQLDateWrapper("#");
    ds->SetSQLUseBETWEEN(false);
    ds->SetSQLDateFormat("yyyy-mm-dd");
    ds->SetSQLPrefix("SELECT * FROM Orders WHERE");
  }

  // The form saved and read back into a form of its own.
  DateSelect& Reloaded() {
    reloaded = std::make_unique<Container>();
    reloaded->LoadFromText(form.SaveToText());
    return static_cast<DateSelect&>(*reloaded->Find(Name));
  }
  std::unique_ptr<Container> reloaded;
};

TEST_F(PersistenceTest, ANewControlStartsOnTodayWithItsListsFilledAndWritesOnlyWhatDiffers) {
  EXPECT_EQ(ds->Selection(), dtsToday);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 10), DateSerial(2004, 5, 10)));
  EXPECT_EQ(ds->SelectedYear(), 2004);
  EXPECT_EQ(ds->SelectedMonth(), 5);
  EXPECT_EQ(ds->cboMonth().Text(), "May");
  EXPECT_EQ(ds->cboCustomChoice().Text(), "Days");
  EXPECT_EQ(ds->CustomSelection(), dtsDays);
  EXPECT_EQ(Items(ds->cboOperator()), (Log{"=", ">", ">=", "<", "<=", "<>"}));
  EXPECT_EQ(Items(ds->cboCustomChoice()), (Log{"Days", "Weeks", "Months", "Years"}));
  const Log months = Items(ds->cboMonth());
  ASSERT_EQ(months.size(), 12u);
  EXPECT_EQ(months.front() + " " + months.back(), "January December");

  // The year is always written, the option mask never reads back as its default 16777215,
  // and a font has no default; every other key holds its default.
  const Entries written = Written(*ds);
  EXPECT_EQ(Keys(written), (Log{"VisibleOptions", "Selectedyear", "Font"}));
  EXPECT_EQ(written[0].second, Variant(int32_t(32767)));
  EXPECT_EQ(written[1].second, Variant(int16_t(2004)));
}

TEST_F(PersistenceTest, KeysAreWrittenInTheirOrderWithTheYearSpelledItsOwnWay) {
  SetEverything();
  const Entries written = Written(*ds);
  EXPECT_EQ(Keys(written),
            (Log{"ButtonWidth",      "VisibleOptions",   "ShowFocusRect",  "FocusColor",
                 "UseFocusColor",    "ButtonStyle",      "BorderStyle",    "Selectedyear",
                 "Selection",        "FirstDayofWeek",   "InputFormat",    "Operator",
                 "DisableSelection", "DisableStartDate", "DisableEndDate", "DisableCustomSelection",
                 "CustomSelection",  "CustomRange",      "Font",           "ForeColor",
                 "BackColor",        "ControlBackColor", "SQLFieldName",   "SQLDateWrapper",
                 "SQLUseBETWEEN",    "SQLDateFormat",    "SQLPrefix"}));
  MemoryPropertyBag bag;
  ds->WriteProperties(bag);
  EXPECT_EQ(bag.ReadProperty("VisibleOptions"), Variant(int32_t(32766)));
  EXPECT_EQ(bag.ReadProperty("Selection"), Variant(int32_t(dtsCustomRange)));
  EXPECT_EQ(bag.ReadProperty("Operator"), Variant("<"));
  EXPECT_EQ(bag.ReadProperty("CustomSelection"), Variant(int32_t(dtsWeeks)));
  EXPECT_EQ(bag.ReadProperty("CustomRange"), Variant(int32_t(4)));
}

TEST_F(PersistenceTest, ASavedFormReadsBackEverySetting) {
  SetEverything();
  DateSelect& copy = Reloaded();
  EXPECT_EQ(Written(copy), Written(*ds));
  EXPECT_EQ(copy.Selection(), dtsCustomRange);
  EXPECT_EQ(copy.SQL(), ds->SQL());
  EXPECT_EQ(copy.SQL(),
            "SELECT * FROM Orders WHERE OrderDate>=#2004-04-13# AND OrderDate<=#2004-05-10# ");
  EXPECT_EQ(copy.StartDate(), ds->StartDate());
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
  EXPECT_EQ(copy.Selection(), dtsLastMonth);
  EXPECT_EQ(copy.StartDate(), DateSerial(2006, 2, 1));
  EXPECT_EQ(copy.EndDate(), DateSerial(2006, 2, 28));
  EXPECT_EQ(copy.SelectedYear(), 2006);
  EXPECT_EQ(copy.SelectedMonth(), 2);
}

TEST_F(PersistenceTest, KeysApplyInTheirOwnOrderWhateverOrderTheBagHoldsThem) {
  // Bags written by hand lack the year: its default is then the year the control holds.
  auto load = [&](MemoryPropertyBag& bag) {
    auto control = std::make_unique<DateSelect>(form.hWnd());
    EXPECT_EQ(RaisedNumber([&] { control->ReadProperties(bag); }), 0);
    return control;
  };
  MemoryPropertyBag hidden;
  hidden.WriteProperty("Selection", int16_t(dtsLastMonth));
  hidden.WriteProperty("VisibleOptions", int32_t(1 << dtsDateRange | 1 << dtsYear));
  EXPECT_EQ(load(hidden)->Selection(), dtsDateRange);

  MemoryPropertyBag custom;
  custom.WriteProperty("Selection", int16_t(dtsCustomRange));
  custom.WriteProperty("CustomRange", int16_t(3));
  custom.WriteProperty("CustomSelection", int16_t(dtsMonths));
  auto months = load(custom);
  EXPECT_EQ(months->StartDate(), DateSerial(2004, 2, 1));
  EXPECT_EQ(months->EndDate(), DateSerial(2004, 4, 30));

  MemoryPropertyBag year;
  year.WriteProperty("Selection", int16_t(dtsYear));
  year.WriteProperty("SelectedYear", int16_t(1999));
  auto y = load(year);
  EXPECT_EQ(y->StartDate(), DateSerial(1999, 1, 1));
  EXPECT_EQ(y->EndDate(), DateSerial(1999, 12, 31));

  MemoryPropertyBag empty; // the defaults of the keys
  auto plain = load(empty);
  EXPECT_EQ(plain->CustomRange(), 1);
  EXPECT_EQ(plain->Operator(), "=");
  EXPECT_EQ(plain->cboOperator().Text(), "=");
  EXPECT_EQ(plain->VisibleOptions(), 32767);
  EXPECT_EQ(plain->SQLFieldName(), "Date");
  EXPECT_TRUE(plain->SQLUseBETWEEN());
}

} // namespace
} // namespace tarnbrook
