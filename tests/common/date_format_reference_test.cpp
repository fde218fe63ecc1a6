// Random formats on random dates, formatted through the per-thread cache and through a
// compiled format kept across locale changes, against a plain reading of each code.
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "common/date_format.hpp"
#include "common/locale.hpp"

using namespace tarnbrook;

namespace {

struct When {
  int year, month, day, weekday, dayOfYear; // weekday 1 = Sunday
  int hour, minute, second;
};

std::string Printed(const char* pattern, int number) {
  char text[16];
  std::snprintf(text, sizeof text, pattern, number);
  return text;
}

int Twelve(int hour) {
  return hour % 12 == 0 ? 12 : hour % 12;
}

using Expect = std::function<std::string(const When&, const Locale&, bool twelveHour)>;
struct Piece {
  const char* format;
  Expect expected;
};

// Codes that read the same wherever they stand; pieces are joined by separators, so letters
// of neighbouring pieces never run together.
const Piece kCodes[] = {
    {"yyyy", [](auto& w, auto&, bool) { return std::to_string(w.year); }},
    {"yy", [](auto& w, auto&, bool) { return Printed("%02d", w.year % 100); }},
    {"y", [](auto& w, auto&, bool) { return std::to_string(w.dayOfYear); }},
    {"q", [](auto& w, auto&, bool) { return std::to_string((w.month + 2) / 3); }},
    {"m", [](auto& w, auto&, bool) { return std::to_string(w.month); }},
    {"MM", [](auto& w, auto&, bool) { return Printed("%02d", w.month); }},
    {"mmm", [](auto& w, auto& l, bool) { return l.AbbrevMonthNames[w.month - 1]; }},
    {"Mmmm", [](auto& w, auto& l, bool) { return l.MonthNames[w.month - 1]; }},
    {"d", [](auto& w, auto&, bool) { return std::to_string(w.day); }},
    {"dd", [](auto& w, auto&, bool) { return Printed("%02d", w.day); }},
    {"ddd", [](auto& w, auto& l, bool) { return l.AbbrevDayNames[w.weekday - 1]; }},
    {"DDDD", [](auto& w, auto& l, bool) { return l.DayNames[w.weekday - 1]; }},
    {"w", [](auto& w, auto&, bool) { return std::to_string(w.weekday); }},
    {"h:n:s",
     [](auto& w, auto& l, bool twelve) {
       return std::to_string(twelve ? Twelve(w.hour) : w.hour) + l.TimeSeparator +
              std::to_string(w.minute) + l.TimeSeparator + std::to_string(w.second);
     }},
    {"HH mm ss",
     [](auto& w, auto&, bool twelve) {
       return Printed("%02d", twelve ? Twelve(w.hour) : w.hour) + Printed(" %02d", w.minute) +
              Printed(" %02d", w.second);
     }},
    {"hh\"h\"NN", [](auto& w, auto&, bool twelve) {
       return Printed("%02d", twelve ? Twelve(w.hour) : w.hour) + Printed("h%02d", w.minute);
     }}};

const Piece kSeparators[] = {{" ", [](auto&, auto&, bool) { return " "; }},
                             {"/", [](auto&, auto& l, bool) { return l.DateSeparator; }},
                             {"\"at\"", [](auto&, auto&, bool) { return "at"; }},
                             {"\\d", [](auto&, auto&, bool) { return "d"; }},
                             {",x-", [](auto&, auto&, bool) { return ",x-"; }}};

// Ends a format and turns every hour in it into 12 hours.
const Piece kAmPm[] = {{" AM/PM", [](auto& w, auto&, bool) { return w.hour < 12 ? " AM" : " PM"; }},
                       {" a/p", [](auto& w, auto&, bool) { return w.hour < 12 ? " a" : " p"; }},
                       {" ampm", [](auto& w, auto& l, bool) {
                          return " " + (w.hour < 12 ? l.AmDesignator : l.PmDesignator);
                        }}};

Locale Dotted() {
  Locale dotted = Locale::EnglishUS();
  dotted.DateSeparator = ".";
  dotted.TimeSeparator = "h";
  dotted.MonthNames[4] = "Maio";
  dotted.AbbrevMonthNames[4] = "Mai";
  dotted.AbbrevDayNames[0] = "Dom";
  dotted.AmDesignator = "vorm.";
  return dotted;
}

} // namespace

TEST(CompiledDateFormat, RandomFormatsAndDatesMatchEachCodeReadAlone) {
  using namespace std::chrono;
  const Locale locales[] = {Locale::EnglishUS(), Dotted()};
  std::mt19937 random(20261123);
  auto pick = [&](int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); };
  const sys_days epoch = sys_days(year(1899) / December / 30);
  for (int round = 0; round < 400; ++round) {
    // A format of up to five codes, with or without AM/PM at the end.
    std::string format;
    std::vector<const Piece*> pieces;
    for (int count = 1 + pick(5); count > 0; --count) {
      pieces.push_back(&kCodes[pick(std::size(kCodes))]);
      pieces.push_back(&kSeparators[pick(std::size(kSeparators))]);
    }
    const bool twelveHour = pick(3) == 0;
    if (twelveHour) {
      pieces.push_back(&kAmPm[pick(std::size(kAmPm))]);
    }
    for (const Piece* piece : pieces) {
      format += piece->format;
    }
    const CompiledDateFormat compiled(format);
    for (int date = 0; date < 8; ++date) {
      const long serial = -657433 + pick(2958465 + 657433 + 1);
      const int seconds = pick(86400);
      const DateValue value = serial < 0 ? serial - seconds / 86400.0 : serial + seconds / 86400.0;
      const year_month_day ymd(epoch + days(serial));
      const int y = int(ymd.year());
      const When when{y,
                      int(unsigned(ymd.month())),
                      int(unsigned(ymd.day())),
                      int(weekday(ymd).c_encoding()) + 1,
                      int((sys_days(ymd) - sys_days(year(y) / January / 1)).count()) + 1,
                      seconds / 3600,
                      seconds / 60 % 60,
                      seconds % 60};
      for (const Locale& locale : locales) {
        std::string expected;
        for (const Piece* piece : pieces) {
          expected += piece->expected(when, locale, twelveHour);
        }
        ASSERT_EQ(FormatDate(value, format, 0, 0, locale), expected) << format << " " << value;
        SetCurrentLocale(locale);
        ASSERT_EQ(compiled.Format(value), expected) << format << " " << value;
      }
    }
  }
  SetCurrentLocale(Locale::EnglishUS());
}

// The picker and the calendar keep compiled formats for the life of a control; names and
// patterns still come from the locale of the moment.
TEST(CompiledDateFormat, FollowsTheCurrentLocale) {
  const DateValue value = DateValueFromCivil({2026, 5, 3}, {9, 5, 0});
  const CompiledDateFormat medium("Medium Date"), general("General Date"), empty;
  EXPECT_EQ(medium.Format(value), "03-May-26");
  EXPECT_EQ(general.Format(value), "5/3/2026 9:05:00 AM");
  Locale dotted = Dotted();
  dotted.ShortDatePattern = "dd/MM/yyyy";
  dotted.TimePattern = "HH:mm";
  SetCurrentLocale(dotted);
  EXPECT_EQ(medium.Format(value), "03-Mai-26");
  EXPECT_EQ(general.Format(value), "03.05.2026 09h05");
  EXPECT_EQ(empty.Format(value), DateToText(value));
  SetCurrentLocale(Locale::EnglishUS());
  EXPECT_EQ(general.Format(value), "5/3/2026 9:05:00 AM");
  EXPECT_EQ(CompiledDateFormat("Medium Time").Format(value), "09:05 AM");
}
