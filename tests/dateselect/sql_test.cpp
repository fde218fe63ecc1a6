#include "date_select_fixture.hpp"

namespace tarnbrook {
namespace {

// The worked examples' shapes: field, wrapper and format as each states them. What each
// option selects is run on a real database elsewhere.
TEST_F(DateSelectTest, SqlWorkedExamples) {
  EXPECT_EQ(ds->SQL(), " Date=5/10/2004 ");
  ds->SetSQLFieldName("OrderDate");
  ds->SetSQLDateWrapper("#");
  ds->SetSQLDateFormat("mm/dd/yyyy");
  Select(dtsLast7days);
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate BETWEEN #05/04/2004# AND #05/10/2004#");
  ds->SetSQLUseBETWEEN(false);
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate>=#05/04/2004# AND OrderDate<=#05/10/2004#");
  Select(dtsExpression);
  ds->SetOperator("<>");
  ds->SetStartDate(DateSerial(2004, 1, 1));
  EXPECT_EQ(ds->SQLCriteria(), "OrderDate<>#01/01/2004#");
  ds->SetSQLPrefix("SELECT * FROM Orders WHERE");
  ds->SetSQLUseBETWEEN(true);
  Select(dtsLastYear);
  EXPECT_EQ(ds->SQL(),
            "SELECT * FROM Orders WHERE OrderDate BETWEEN #01/01/2003# AND #12/31/2003# ");
}

TEST_F(DateSelectTest, SqlTextIsWrittenAsItStandsAndCarriesATime) {
  ds->SetSQLFieldName("");
  ds->SetSQLDateWrapper("''");
  EXPECT_EQ(ds->SQLCriteria(), "=''5/10/2004''");
  ds->SetSQLDateWrapper("");
  ds->SetSQLFieldName("[Order Date]");
  ds->SetInputFormat("M/d/yyyy h:mm:ss tt");
  Select(dtsDate);
  ds->SetStartDate(DateSerial(2004, 5, 10) + TimeSerial(14, 30, 5));
  EXPECT_EQ(ds->SQLCriteria(), "[Order Date]=5/10/2004 2:30:05 PM");
  ds->SetSQLDateFormat("yyyy-mm-dd hh:nn:ss");
  EXPECT_EQ(ds->SQLCriteria(), "[Order Date]=2004-05-10 14:30:05");
}

// Month and Year write the held month and year, Last Month those of the day it was applied;
// the custom range is computed afresh and strictly.
TEST_F(DateSelectTest, SqlOfHeldValuesAndOfTheCustomRangeComputedAfresh) {
  ds->SetSQLDateFormat("yyyy-mm-dd");
  Select(dtsMonth);
  ds->SetSelectedMonth(12);
  ds->SetSelectedYear(2003);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN 2003-12-01 AND 2003-12-31");
  SetToday(2004, 1, 15);
  Select(dtsLastMonth);
  SetToday(2004, 8, 20);
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN 2003-12-01 AND 2003-12-31");

  Select(dtsCustomRange);
  ds->SetCustomRange(3);
  SetToday(2004, 8, 22);
  EXPECT_EQ(ds->StartDate(), DateSerial(2004, 8, 17)); // the fields wait for the next apply
  EXPECT_EQ(ds->SQLCriteria(), "Date BETWEEN 2004-08-19 AND 2004-08-21");
  for (const char* text : {"", "3abc"}) {
    ds->txtCustomRange().SetText(text);
    EXPECT_EQ(RaisedNumber([&] { ds->SQL(); }), rtTypeMismatch) << text;
  }
}

} // namespace
} // namespace tarnbrook
