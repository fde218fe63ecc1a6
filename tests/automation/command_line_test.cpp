#include <cstdio>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "automation_fixture.hpp"
#include "calendar/month_calendar.hpp"
#include "common/picture.hpp"
#include "dateselect/date_select.hpp"
#include "platform/system_clock.hpp"

namespace tarnbrook {
namespace {

struct Output {
  int status = 0;
  std::string out, err;
};

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

class CommandLineTest : public AutomationTest {
protected:
  CommandLineTest() {
    std::system(("mkdir -p " + std::string(TARNBROOK_TEST_OUTPUT)).c_str());
    // One form per test and run: CTest runs tests side by side, and runs may overlap.
    path = std::string(TARNBROOK_TEST_OUTPUT) + "/cli_form_" +
           ::testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
           std::to_string(getpid()) + ".json";
    auto& calendar = Place<MonthCalendar>("Tarnbrook.MonthCalendar", "Calendar1");
    calendar.SetTodayButtonCaption("Now");
    auto& select = Place<DateSelect>("Tarnbrook.DateSelect", "Orders");
    select.SetSQLFieldName("OrderDate");
    select.SetSQLDateWrapper("#");
    select.SetSelection(dtsLastMonth);
    form->SaveToFile(path);
  }
  ~CommandLineTest() override {
    for (const char* end : {"", ".png", ".out", ".err"})
      std::remove((path + end).c_str());
  }

  // The program's run with `arguments`, its output kept beside the form.
  Output Tarnbrook(const std::string& arguments) const {
    const std::string command =
        std::string(TARNBROOK_CLI) + " " + arguments + " >" + path + ".out 2>" + path + ".err";
    Output run;
    run.status = std::system(command.c_str());
    run.out = ReadFile(path + ".out");
    run.err = ReadFile(path + ".err");
    return run;
  }

  std::string path;
};

TEST_F(CommandLineTest, ClassesAndDescriptions) {
  Output classes = Tarnbrook("classes");
  EXPECT_EQ(classes.status, 0);
  EXPECT_NE(classes.out.find("Tarnbrook.DateSelect\t{"), std::string::npos);
  Output idl = Tarnbrook("describe monthcalendar");
  EXPECT_NE(idl.out.find("void DropDown(long X, long Y, [optional, defaultvalue(0)] long "
                         "ParentHeight, [optional, defaultvalue(0)] long Animate);"),
            std::string::npos);
  EXPECT_NE(idl.out.find("[id(6)] void BeforeDropDown(VARIANT_BOOL* Cancel);"), std::string::npos);
  EXPECT_NE(idl.out.find("long FirstDayofWeek; // saved as \"FirstDayOfWeek\""), std::string::npos);
  Output json = Tarnbrook("describe DatePicker --json");
  EXPECT_NE(json.out.find("\"key\": \"CalendarFont\""), std::string::npos);
  EXPECT_NE(Tarnbrook("describe Nothing").status, 0);
}

TEST_F(CommandLineTest, GetAndSetEditASavedFormThroughTheControlsSetters) {
  EXPECT_NE(Tarnbrook(path + " x").status, 0);
  EXPECT_EQ(Tarnbrook("get " + path + " Calendar1 TodayButtonCaption").out, "Now\n");

  // A refused value: the control's own error, non-zero, the file byte for byte as it was.
  std::string before = ReadFile(path);
  Output refused = Tarnbrook("set " + path + " Calendar1 ButtonStyle 9");
  EXPECT_NE(refused.status, 0);
  EXPECT_NE(refused.err.find("Invalid Button Style (error 5075, Tarnbrok.MonthCalendar)"),
            std::string::npos);
  EXPECT_EQ(ReadFile(path), before);
  EXPECT_NE(Tarnbrook("set " + path + " Calendar1 Bogus 1").err.find("error 438"),
            std::string::npos);
  EXPECT_EQ(ReadFile(path), before);

  Output accepted = Tarnbrook("set " + path + " Calendar1 buttonstyle 2");
  EXPECT_EQ(accepted.status, 0) << accepted.err;
  EXPECT_EQ(Tarnbrook("get " + path + " Calendar1 ButtonStyle").out, "2\n");
  Container reloaded;
  reloaded.LoadFromFile(path);
  EXPECT_EQ(dynamic_cast<MonthCalendar&>(*reloaded.Find("Calendar1")).ButtonStyle(), mvwButtonFlat);
  EXPECT_EQ(reloaded.Find("Orders")->ClassName(), "DateSelect");
}

TEST_F(CommandLineTest, FontsAsTextAndPicturesAsPngFiles) {
  EXPECT_EQ(Tarnbrook("set " + path + " Calendar1 Font \"DejaVu Sans,12,Bold,Italic\"").status, 0);
  EXPECT_EQ(Tarnbrook("get " + path + " Calendar1 font").out, "DejaVu Sans,12,Bold,Italic\n");
  std::string before = ReadFile(path);
  for (const char* bad : {"DejaVu Sans", "\"DejaVu Sans,12,Heavy\"", "\"DejaVu Sans,1e9\""})
    EXPECT_NE(Tarnbrook("set " + path + " Calendar1 Font " + bad).status, 0) << bad;
  EXPECT_EQ(ReadFile(path), before);

  std::string png = path + ".png";
  std::vector<uint8_t> bytes = Picture(3, 2, std::vector<uint32_t>(6, 0xFF00FF00)).ToPngBytes();
  std::ofstream(png, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
  EXPECT_EQ(Tarnbrook("set " + path + " Calendar1 BackgroundImage " + png).status, 0);
  EXPECT_EQ(Tarnbrook("get " + path + " Calendar1 BackgroundImage").out, "(picture 3x2)\n");
  EXPECT_NE(Tarnbrook("set " + path + " Calendar1 BackgroundImage " + path).err.find("error 481"),
            std::string::npos);
  EXPECT_EQ(Tarnbrook("set " + path + " Calendar1 BackgroundImage \"\"").status, 0);
  EXPECT_EQ(Tarnbrook("get " + path + " Calendar1 BackgroundImage").out, "Nothing\n");
}

TEST_F(CommandLineTest, SqlOfASavedDateSelectForAGivenDay) {
  Output march = Tarnbrook("sql " + path + " Orders --today 2024-03-15");
  EXPECT_EQ(march.status, 0) << march.err;
  EXPECT_EQ(march.out, " OrderDate BETWEEN #2/1/2024# AND #2/29/2024# \n");
  EXPECT_NE(Tarnbrook("sql " + path + " Missing").status, 0);

  // A day before 30 December 1899 is that day, not the next; a day that is none is the
  // argument's fault, not the form's.
  Output old = Tarnbrook("sql " + path + " Orders --today 1800-03-15");
  EXPECT_EQ(old.out, " OrderDate BETWEEN #2/1/1800# AND #2/28/1800# \n");
  for (const char* bad : {"2025-13-01", "2025-02-29", "tomorrow"}) {
    Output refused = Tarnbrook("sql " + path + " Orders --today " + bad);
    EXPECT_NE(refused.status, 0);
    EXPECT_EQ(refused.err, "tarnbrook: --today wants an existing day as YYYY-MM-DD, not \"" +
                               std::string(bad) + "\"\n");
  }
}

// The criteria with placeholders as JSON, for the dialect and column asked.
TEST_F(CommandLineTest, SqlWithParametersAsJson) {
  Output params =
      Tarnbrook("sql " + path + " Orders --today 2024-03-15 --params --dialect postgres --prefix");
  EXPECT_EQ(params.status, 0) << params.err;
  EXPECT_EQ(params.out, R"({
  "parameters": [
    {
      "name": "first",
      "number": 1,
      "value": "2024-02-01 00:00:00"
    },
    {
      "name": "after",
      "number": 2,
      "value": "2024-03-01 00:00:00"
    }
  ],
  "text": "\"OrderDate\" >= $1 AND \"OrderDate\" < $2"
}
)");
  Output refused = Tarnbrook("sql " + path + " Orders --params --column-type datetime");
  EXPECT_NE(refused.status, 0);
  EXPECT_EQ(refused.err, "tarnbrook: \"datetime\" is no column type: use \"timestamp\" or "
                         "\"date\" (error 5, Tarnbrook)\n");
  EXPECT_NE(Tarnbrook("sql " + path + " Orders --dialect postgres").status, 0); // needs --params
  Output calendar = Tarnbrook("sql " + path + " Calendar1 --params --named --column due");
  EXPECT_EQ(calendar.status, 0) << calendar.err;
  EXPECT_NE(calendar.out.find("\"text\": \"\\\"due\\\" >= :first AND"), std::string::npos)
      << calendar.out;
}

// get and set load the form on a day too: the system's, or the one named.
TEST_F(CommandLineTest, GetAndSetTakeTodayFromTheClockOrTheCommandLine) {
  Output start = Tarnbrook("get " + path + " Orders StartDate --today 2024-03-15");
  EXPECT_EQ(start.out, "2/1/2024\n") << start.err;
  EXPECT_EQ(Tarnbrook("set " + path + " Orders SQLPrefix WHERE --today 2024-03-15").status, 0);
  EXPECT_NE(ReadFile(path).find("\"Selectedyear\": {\n          \"Integer\": 2024"),
            std::string::npos);
  const DateValue now = SystemNow();
  const DateValue lastMonth = DateSerial(Year(now), Month(now) - 1, 1);
  EXPECT_EQ(Tarnbrook("get " + path + " Orders StartDate").out,
            std::to_string(Month(lastMonth)) + "/1/" + std::to_string(Year(lastMonth)) + "\n");
}

} // namespace
} // namespace tarnbrook
