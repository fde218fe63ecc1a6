#include "common/property_bag.hpp"
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

class PersistenceTest : public DateSelectTest {
protected:
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
};

TEST_F(PersistenceTest, ANewControlWritesOnlyWhatDiffersFromTheDefaults) {
  EXPECT_EQ(ds->Selection(), dtsToday);
  EXPECT_EQ(Dates(), Days(2004, 5, 10, 2004, 5, 10));
  EXPECT_EQ(ds->cboMonth().Text(), "May");
  EXPECT_EQ(ds->cboCustomChoice().Text(), "Days");
  EXPECT_EQ(ds->Operator(), "=");
  // The year is always written, the option mask never reads back as its default 16777215,
  // and a font has no default.
  EXPECT_EQ(Keys(*ds), (Log{"VisibleOptions", "Selectedyear", "Font"}));
  EXPECT_EQ(Written(*ds).ReadProperty("SelectedYear"), Variant(int16_t(2004)));
}

TEST_F(PersistenceTest, EverySettingIsWrittenInItsOrderAndReadBack) {
  SetEverything();
  EXPECT_EQ(Keys(*ds),
            (Log{"ButtonWidth",      "VisibleOptions",   "ShowFocusRect",  "FocusColor",
                 "UseFocusColor",    "ButtonStyle",      "BorderStyle",    "Selectedyear",
                 "Selection",        "FirstDayofWeek",   "InputFormat",    "Operator",
                 "DisableSelection", "DisableStartDate", "DisableEndDate", "DisableCustomSelection",
                 "CustomSelection",  "CustomRange",      "Font",           "ForeColor",
                 "BackColor",        "ControlBackColor", "SQLFieldName",   "SQLDateWrapper",
                 "SQLUseBETWEEN",    "SQLDateFormat",    "SQLPrefix"}));
  MemoryPropertyBag bag = Written(*ds);
  EXPECT_EQ(bag.ReadProperty("Operator"), Variant("<"));
  EXPECT_EQ(bag.ReadProperty("CustomRange"), Variant(int16_t(4))); // an Integer
  EXPECT_EQ(bag.ReadProperty("CustomSelection"), Variant(int16_t(dtsWeeks)));

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
