#include "common/locale.hpp"
#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

class SqlTest : public DateSelectTest {
protected:
  void OrderDateHashes() {
    ds->SetSQLFieldName("OrderDate");
    ds->SetSQLDateWrapper("#");
    ds->SetSQLDateFormat("mm/dd/yyyy");
  }
  void IsoQuoted() {
    ds->SetSQLDateWrapper("'");
    ds->SetSQLDateFormat("yyyy-mm-dd");
  }
  void Custom(int32_t number, int32_t unit, bool includeToday) {
    Select(dtsCustomRange);
    ds->SetCustomSelection(unit);
    ds->SetCustomRange(number);
    ds->chkCustom().SetValue(includeToday ? vbChecked : vbUnchecked);
  }
};

// Each example as it is written down, one after the other on the same control.
TEST_F(SqlTest, WorkedExamples) {
  EXPECT_EQ(ds->SQLCriteria(), "Date=5/10/2004");
  OrderDateHashes();
  Select(dtsLast7days);
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate BETWEEN #05/04/2004# AND #05/10/2004#");
  ds->SetSQLUseBETWEEN(false);
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate>=#05/04/2004# AND OrderDate<=#05/10/2004#");
  Select(dtsExpression);
  ds->SetOperator("<>");
  ds->SetStartDate(DateSerial(2004, 1, 1));
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate<>#01/01/2004#");

  ds->SetSQLFieldName("Date");
  ds->SetSQLUseBETWEEN(true);
  IsoQuoted();
  Select(dtsMonth);
  ds->SetSelectedMonth(2);
  ds->SetSelectedYear(2004);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN '2004-02-01' AND '2004-02-29'");
  Select(dtsThisWeekTillToday);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN '2004-05-09' AND '2004-05-10'");
  Custom(2, dtsWeeks, false);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN '2004-04-26' AND '2004-05-09'");
  Custom(3, dtsDays, true);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN '2004-05-07' AND '2004-05-10'");

  ds->SetSQLPrefix("SELECT * FROM Orders WHERE");
  OrderDateHashes();
  Select(dtsLastYear);
  EXPECT_EQ(ds->SQL(),
            "SELECT * FROM Orders WHERE OrderDate BETWEEN #01/01/2003# AND #12/31/2003# ");
}

TEST_F(SqlTest, PrefixWrapperAndFieldAreWrittenAsTheyStandAndTheDefaultTextCarriesATime) {
  EXPECT_EQ(ds->SQL(), " Date=5/10/2004 ");
  ds->SetSQLDateWrapper("''");
  EXPECT_EQ(form.ChangedKeys(Name), Log{"SQLDateWrapper"});
  EXPECT_EQ(ds->SQLCriteria(), "Date=''5/10/2004''");
  ds->SetSQLFieldName("");
  ds->SetSQLDateWrapper("");
  EXPECT_EQ(ds->SQLCriteria(), "=5/10/2004");

  ds->SetSQLFieldName("[Order Date]");
  ds->SetInputFormat("M/d/yyyy h:mm:ss tt");
  Select(dtsDate);
  ds->SetStartDate(DateSerial(2004, 5, 10) + TimeSerial(14, 30, 5));
  EXPECT_EQ(ds->SQLCriteria(), "[Order Date]=5/10/2004 2:30:05 PM");
  ds->SetSQLDateFormat("yyyy-mm-dd hh:nn:ss");
  EXPECT_EQ(ds->SQLCriteria(), "[Order Date]=2004-05-10 14:30:05");
}

TEST_F(SqlTest, MonthAndYearTextComesFromTheHeldMonthAndYearAndDecemberEndsOnTheLastDay) {
  IsoQuoted();
  ds->SetSQLUseBETWEEN(false);
  Select(dtsMonth);
  ds->SetSelectedYear(2003);
  ds->SetSelectedMonth(12);
  EXPECT_EQ(ds->SQLCriteria(), "Date>='2003-12-01' AND Date<='2003-12-31'");

  ds->SetSQLUseBETWEEN(true);
  SetToday(2004, 1, 15);
  Select(dtsLastMonth);
  SetToday(2004, 8, 20); // the text keeps the month set when the option was applied
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN '2003-12-01' AND '2003-12-31'");
  Select(dtsLastYear);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN '2003-01-01' AND '2003-12-31'");
}

TEST_F(SqlTest, CustomRangeTextIsComputedAfreshAndRefusesANumberThatIsNotOne) {
  IsoQuoted();
  Custom(3, dtsDays, false);
  SetToday(2004, 5, 12);
  EXPECT_EQ(ds->StartDate(), DateSerial(2004, 5, 7)); // the fields wait for the next apply
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN '2004-05-09' AND '2004-05-11'");
  SetToday(2004, 5, 10);

  for (const char* text : {"abc", "", "3abc"}) {
    for (int32_t unit : {dtsDays, dtsWeeks, dtsMonths, dtsYears}) {
      SCOPED_TRACE(testing::Message() << '"' << text << "\" unit " << unit);
      ds->SetCustomSelection(unit);
      ds->txtCustomRange().SetText(text);
      EXPECT_EQ(RaisedNumber([&] { ds->SQLCriteria(); }), rtTypeMismatch);
      EXPECT_EQ(RaisedNumber([&] { ds->SQL(); }), rtTypeMismatch);
    }
  }
  ds->SetCustomSelection(dtsWeeks);
  ds->txtCustomRange().SetText("3abc"); // the fields read it leniently, as 3
  EXPECT_EQ(Dates(), Days(2004, 4, 19, 2004, 5, 9));
}

TEST_F(SqlTest, TheSlashOfAFormatIsTheLocalesDateSeparator) {
  struct LocaleGuard {
    Locale saved = CurrentLocale();
    ~LocaleGuard() { SetCurrentLocale(saved); }
  } guard;
  Locale dotted = Locale::EnglishUS();
  dotted.DateSeparator = ".";
  SetCurrentLocale(dotted);
  OrderDateHashes();
  Select(dtsLast7days);
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate BETWEEN #05.04.2004# AND #05.10.2004#");
}

} // namespace
} // namespace tarnbrook
