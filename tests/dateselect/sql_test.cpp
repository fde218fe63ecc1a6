#include <functional>

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
};

TEST_F(SqlTest, WorkedExamples) {
  struct Example {
    const char* what;
    std::function<void()> setUp;
    const char* criteria;
  };
  const std::vector<Example> examples = {
      {"defaults, Today", [] {}, "Date=5/10/2004"},
      {"Last 7 days",
       [&] {
         OrderDateHashes();
         Select(dtsLast7days);
       },
       "OrderDate BETWEEN #05/04/2004# AND #05/10/2004#"},
      {"Last 7 days, two comparisons",
       [&] {
         OrderDateHashes();
         ds->SetSQLUseBETWEEN(false);
         Select(dtsLast7days);
       },
       "OrderDate>=#05/04/2004# AND OrderDate<=#05/10/2004#"},
      {"Expression",
       [&] {
         OrderDateHashes();
         Select(dtsExpression);
         ds->SetOperator("<>");
         ds->SetStartDate(DateSerial(2004, 1, 1));
       },
       "OrderDate<>#01/01/2004#"},
      {"Month",
       [&] {
         IsoQuoted();
         Select(dtsMonth);
         ds->SetSelectedMonth(2);
         ds->SetSelectedYear(2004);
       },
       "Date BETWEEN '2004-02-01' AND '2004-02-29'"},
      {"This Week Till Today",
       [&] {
         IsoQuoted();
         Select(dtsThisWeekTillToday);
       },
       "Date BETWEEN '2004-05-09' AND '2004-05-10'"},
      {"Custom Range, 2 weeks",
       [&] {
         IsoQuoted();
         Custom(2, dtsWeeks, false);
       },
       "Date BETWEEN '2004-04-26' AND '2004-05-09'"},
      {"Custom Range, 3 days and today",
       [&] {
         IsoQuoted();
         Custom(3, dtsDays, true);
       },
       "Date BETWEEN '2004-05-07' AND '2004-05-10'"},
  };
  for (const Example& example : examples) {
    SCOPED_TRACE(example.what);
    Container other; // each example starts from a new control
    ds = &static_cast<DateSelect&>(
        other.Add(std::make_unique<DateSelect>(other.hWnd()), Name, 10, 10, 320, 60));
    example.setUp();
    EXPECT_EQ(ds->SQLCriteria(), example.criteria);
    ds = nullptr;
  }
}

TEST_F(SqlTest, SqlPutsThePrefixAndABlankOnEachSideOfTheCriteria) {
  EXPECT_EQ(ds->SQL(), " Date=5/10/2004 ");
  ds->SetSQLPrefix("SELECT * FROM Orders WHERE");
  OrderDateHashes();
  Select(dtsLastYear);
  EXPECT_EQ(ds->SQL(),
            "SELECT * FROM Orders WHERE OrderDate BETWEEN #01/01/2003# AND #12/31/2003# ");
  ds->SetSQLPrefix("x");
  ds->SetSQLUseBETWEEN(true);
  EXPECT_EQ(ChangedKeys(), (Log{"SQLPrefix", "SQLUseBETWEEN"}));
}

TEST_F(SqlTest, WrapperAndFieldAreWrittenAsTheyStandAndTheDefaultTextCarriesATime) {
  ds->SetSQLDateWrapper("''");
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
  EXPECT_EQ(Range(), Days(DateSerial(2004, 4, 19), DateSerial(2004, 5, 9)));
}

TEST_F(SqlTest, TheSlashOfAFormatIsTheLocalesDateSeparator) {
  LocaleGuard guard;
  Locale dotted = Locale::EnglishUS();
  dotted.DateSeparator = ".";
  SetCurrentLocale(dotted);
  OrderDateHashes();
  Select(dtsLast7days);
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate BETWEEN #05.04.2004# AND #05.10.2004#");
}

} // namespace
} // namespace tarnbrook
