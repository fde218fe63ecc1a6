// What a form keeps of the control and what a loaded control makes of it. Every setting's
// key, order and type are held byte for byte by the saved-forms fixture.
#include "common/property_bag.hpp"
#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

using PersistenceTest = DateSelectTest;

std::unique_ptr<DateSelect> Load(HWND parent,
                                 const std::vector<std::pair<const char*, Variant>>& keys) {
  MemoryPropertyBag bag;
  for (const auto& [key, value] : keys)
    bag.WriteProperty(key, value);
  auto control = std::make_unique<DateSelect>(parent);
  control->ReadProperties(bag);
  return control;
}

// The year is always written, the option mask never reads back as its default 16777215, and
// a font has no default.
TEST_F(PersistenceTest, ANewControlWritesOnlyWhatDiffersFromTheDefaults) {
  MemoryPropertyBag bag;
  ds->WriteProperties(bag);
  Log keys;
  for (const auto& entry : bag.Entries())
    keys.push_back(entry.first);
  EXPECT_EQ(keys, (Log{"VisibleOptions", "Selectedyear", "Font"}));
  EXPECT_EQ(bag.ReadProperty("SelectedYear"), Variant(int16_t(2004)));
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
  const HWND parent = form.hWnd();
  EXPECT_EQ(Load(parent, {{"Selection", int16_t(dtsLastMonth)},
                          {"VisibleOptions", int32_t(1 << dtsDateRange | 1 << dtsYear)}})
                ->Selection(),
            dtsDateRange);
  auto months = Load(parent, {{"Selection", int16_t(dtsCustomRange)},
                              {"CustomRange", int16_t(3)},
                              {"CustomSelection", int16_t(dtsMonths)}});
  EXPECT_EQ(Range(months->StartDate(), months->EndDate()), Days(2004, 2, 1, 2004, 4, 30));
  EXPECT_EQ(Load(parent, {{"Selection", int16_t(dtsYear)}})->SQLCriteria(),
            "Date BETWEEN 1/1/2004 AND 12/31/2004");
  auto far = Load(parent, {{"SelectedYear", int16_t(-5)}});
  EXPECT_EQ(far->SelectedYear(), -5);
  EXPECT_EQ(far->spnYear().Value(), 2004);
  EXPECT_EQ(far->Operator(), "=");
}

} // namespace
} // namespace tarnbrook
