#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

// clang-format off
const Log AllTexts = {"Today", "Date", "DateRange", "Last 7 days", "Last 30 days",
                      "This Week Till Today", "This Month Till Today", "This Year Till Today",
                      "Last Week", "Last Month", "Last Year", "Custom Range", "Expression",
                      "Month", "Year"};
// clang-format on

TEST_F(DateSelectTest, ANewControlOffersAllFifteenOptionsWithTheirIndexAsItemData) {
  EXPECT_EQ(Offered(), AllTexts);
  for (int32_t i = 0; i < DateSelect::OptionCount; ++i) {
    EXPECT_EQ(ds->cboSelection().ItemData(i), i);
    EXPECT_EQ(ds->Options(i)->Text(), AllTexts[i]);
    EXPECT_TRUE(ds->Options(i)->Visible());
  }
  EXPECT_EQ(ds->VisibleOptions(), 32767);
}

TEST_F(DateSelectTest, VisibleOptionsOffersTheSetBitsInOptionOrderAndDropsHigherBits) {
  ds->SetVisibleOptions(1 << dtsYear | 1 << dtsDate | 1 << dtsLastMonth | 1 << 15 | 1 << 20);
  EXPECT_EQ(Offered(), (Log{"Date", "Last Month", "Year"}));
  EXPECT_EQ(ds->cboSelection().ItemData(1), dtsLastMonth);
  EXPECT_EQ(ds->cboSelection().ItemData(2), dtsYear);
  EXPECT_EQ(ds->VisibleOptions(), 1 << dtsYear | 1 << dtsDate | 1 << dtsLastMonth);
  EXPECT_EQ(ChangedKeys(), Log{"VisibleOptions"});

  ds->SetVisibleOptions(16777215);
  EXPECT_EQ(ds->VisibleOptions(), 32767);
  EXPECT_EQ(Offered(), AllTexts);
}

TEST_F(DateSelectTest, ASelectionNotOfferedFallsBackToTheFirstOfferedOption) {
  ds->SetVisibleOptions(5); // Today and DateRange
  EXPECT_EQ(Offered(), (Log{"Today", "DateRange"}));
  Select(dtsDateRange);
  ds->SetSelection(dtsDate);
  EXPECT_EQ(ds->Selection(), dtsToday);
  EXPECT_EQ(ds->cboSelection().ListIndex(), 0);
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change"}));
  EXPECT_EQ(ChangedKeys(), Log{"Selection"});

  ds->SetVisibleOptions(1 << dtsLast7days | 1 << dtsLast30days);
  EXPECT_EQ(RaisedNumber([&] { ds->SetSelection(15); }), 0); // one past the options is let in
  EXPECT_EQ(ds->Selection(), dtsLast7days);
  EXPECT_EQ(Range(), Days(DateSerial(2004, 5, 4), DateSerial(2004, 5, 10)));

  ds->SetVisibleOptions(0);
  EXPECT_EQ(ds->cboSelection().ListCount(), 0);
  ds->SetSelection(dtsYear);
  EXPECT_EQ(ds->Selection(), 0);
}

TEST_F(DateSelectTest, ASelectionOutsideTheOptionsIsRefusedAndChangesNothing) {
  Select(dtsLast30days);
  for (int32_t bad : {-1, 16}) {
    ControlError error = Raised([&] { ds->SetSelection(bad); });
    EXPECT_EQ(error.Number(), 5055);
    EXPECT_EQ(error.Source(), "Tarnbrook.DateSelect");
    EXPECT_EQ(error.Description(), "Invalid Option Index");
  }
  EXPECT_EQ(ds->Selection(), dtsLast30days);
  EXPECT_EQ(ds->cboSelection().Text(), "Last 30 days");
  EXPECT_EQ(Range(), Days(DateSerial(2004, 4, 11), DateSerial(2004, 5, 10)));
  EXPECT_EQ(log.Take(), Log{});
  EXPECT_EQ(ChangedKeys(), Log{});
}

TEST_F(DateSelectTest, OneOptionObjectServesEveryIndexSoAKeptOneActsOnTheLatest) {
  std::shared_ptr<CdtsOption> kept = ds->Options(dtsLast7days);
  std::shared_ptr<CdtsOption> later = ds->Options(dtsThisWeekTillToday);
  EXPECT_EQ(kept.get(), later.get());
  EXPECT_EQ(kept->Text(), "This Week Till Today");

  kept->SetVisible(false);
  EXPECT_FALSE(ds->Options(dtsThisWeekTillToday)->Visible());
  EXPECT_TRUE(ds->Options(dtsLast7days)->Visible());
  EXPECT_EQ(ds->VisibleOptions(), 32767 & ~(1 << dtsThisWeekTillToday));
  EXPECT_EQ(ds->cboSelection().List(5), "This Month Till Today");

  EXPECT_EQ(RaisedNumber([&] { ds->Options(15); }), 0);
  for (int32_t bad : {-1, 16})
    EXPECT_EQ(RaisedNumber([&] { ds->Options(bad); }), rtSubscriptOutOfRange);
}

TEST_F(DateSelectTest, HidingTheCurrentOptionAppliesTheFirstOfferedOne) {
  Select(dtsLast7days);
  ds->Options(dtsLast7days)->SetVisible(false);
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change"}));
  EXPECT_EQ(ds->Selection(), dtsToday);
  EXPECT_EQ(ds->cboSelection().Text(), "Today");
  EXPECT_FALSE(ds->dtpTo().Visible());

  // Hiding another option keeps the current one, yet applies it again.
  Select(dtsDateRange);
  ds->SetStartDate(DateSerial(2001, 2, 3));
  log.Take();
  ds->Options(dtsYear)->SetVisible(false);
  EXPECT_EQ(ds->Selection(), dtsDateRange);
  EXPECT_EQ(ds->StartDate(), DateSerial(2001, 2, 3));
  EXPECT_EQ(log.Take(), (Log{"SelectionChange", "Change"}));
}

TEST_F(DateSelectTest, RenamingAnOptionChangesOnlyItsListEntryUntilTheListIsRebuilt) {
  ds->SetVisibleOptions(1 << dtsToday | 1 << dtsDateRange | 1 << dtsLast30days);
  ds->Options(dtsLast30days)->SetText("Past month"); // the third entry, found by item data
  EXPECT_EQ(Offered(), (Log{"Today", "DateRange", "Past month"}));
  EXPECT_EQ(ds->Options(dtsLast30days)->Text(), "Last 30 days");

  ds->Options(dtsYear)->SetText("Whole year"); // not offered: nothing to rename
  EXPECT_EQ(Offered(), (Log{"Today", "DateRange", "Past month"}));

  ds->SetVisibleOptions(32767);
  EXPECT_EQ(ds->cboSelection().List(dtsLast30days), "Last 30 days");
  EXPECT_EQ(ds->cboSelection().List(dtsYear), "Year");
}

} // namespace
} // namespace tarnbrook
