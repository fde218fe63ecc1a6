#include <cstdlib>
#include <optional>
#include <unicode/dtfmtsym.h>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "common/conversions.hpp"
#include "common/date_format.hpp"
#include "common/locale.hpp"
#include "common/text.hpp"

using namespace tarnbrook;

namespace {

// Puts the built-in English locale back after each test.
class LocaleTest : public ::testing::Test {
protected:
  void TearDown() override { SetCurrentLocale(Locale::EnglishUS()); }
};

bool IcuHasGerman() {
  UErrorCode status = U_ZERO_ERROR;
  icu::DateFormatSymbols symbols(icu::Locale("de_DE"), status);
  int32_t count = 0;
  const icu::UnicodeString* months = symbols.getMonths(count);
  return U_SUCCESS(status) && count >= 12 && months[0] == icu::UnicodeString(u"Januar");
}

} // namespace

// The built-in names every format and calendar shows until a locale is set; its patterns
// show in the named formats and in GetLocaleInfo below.
TEST_F(LocaleTest, CurrentLocaleIsEnglishUnitedStatesUntilSet) {
  const Locale& locale = CurrentLocale();
  std::string names;
  for (int month = 1; month <= 12; ++month)
    names += locale.MonthName(month) + "/" + locale.MonthName(month, true) + " ";
  for (int day = 1; day <= 7; ++day)
    names += locale.WeekdayName(day) + "/" + locale.WeekdayName(day, true) + " ";
  EXPECT_EQ(names, "January/Jan February/Feb March/Mar April/Apr May/May June/Jun July/Jul "
                   "August/Aug September/Sep October/Oct November/Nov December/Dec Sunday/Sun "
                   "Monday/Mon Tuesday/Tue Wednesday/Wed Thursday/Thu Friday/Fri Saturday/Sat ");
  EXPECT_EQ(locale.FirstDayOfWeek, 1);
  EXPECT_EQ(locale.FirstWeekOfYear, 1);
}

// The length returned counts the NUL; an unknown item or a buffer without room for the NUL
// gives 0.
TEST_F(LocaleTest, GetLocaleInfoCountsTheNulAndRefusesUnknownItemsAndSmallBuffers) {
  const struct {
    uint32_t item;
    int size;
    std::string written;
    int returned;
  } cases[] = {{LOCALE_SSHORTDATE, 20, std::string("M/d/yyyy\0", 9), 9},
               {LOCALE_SDATE, 20, std::string("/\0", 2), 2},
               {LOCALE_STIME, 20, std::string(":\0", 2), 2},
               {LOCALE_SLONGDATE, 40, std::string("dddd, MMMM d, yyyy\0", 19), 19},
               {LOCALE_STIMEFORMAT, 20, std::string("h:mm:ss tt\0", 11), 11},
               {33, 20, "#", 0},
               {LOCALE_SSHORTDATE, 8, "M/d/yyyy#", 0}};
  for (const auto& c : cases) {
    std::string buffer(static_cast<size_t>(c.size) + 1, '#');
    EXPECT_EQ(GetLocaleInfo(LOCALE_USER_DEFAULT, c.item, buffer.data(), c.size), c.returned);
    EXPECT_EQ(buffer.substr(0, c.written.size()), c.written) << c.item;
  }
  EXPECT_EQ(GetLocaleInfo(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, nullptr, 0), 9);
}

TEST_F(LocaleTest, ReadLocaleItemKeepsAtMost99Characters) {
  Locale custom = Locale::EnglishUS();
  custom.LongDatePattern = std::string(150, 'd');
  custom.TimePattern = std::string(99, 'h');
  custom.DateSeparator = "-";
  SetCurrentLocale(custom);
  EXPECT_EQ(ReadLocaleItem(LOCALE_SLONGDATE), std::string(99, 'd'));
  EXPECT_EQ(ReadLocaleItem(LOCALE_STIMEFORMAT), std::string(99, 'h'));
  EXPECT_EQ(ReadLocaleItem(LOCALE_SDATE), "-");
  EXPECT_EQ(ReadLocaleItem(LOCALE_SSHORTDATE), "M/d/yyyy");
  EXPECT_EQ(ReadLocaleItem(12345), "");
}

// Its names, separators and first day of the week show in what it writes and reads.
TEST_F(LocaleTest, GermanFromIcuWritesAndReadsGermanDates) {
  if (!IcuHasGerman()) {
    GTEST_SKIP() << "ICU on this machine has no German (de_DE) date data";
  }
  const Locale german = Locale::FromIcu("de_DE");
  EXPECT_EQ(german.Name, "de-DE");
  EXPECT_EQ(german.ShortDatePattern, "dd.MM.yy");
  EXPECT_EQ(german.LongDatePattern, "d. MMMM yyyy");
  EXPECT_EQ(german.TimePattern, "HH:mm:ss");
  EXPECT_EQ(german.FirstWeekOfYear, 2);
  EXPECT_EQ(Locale::FromIcu("de-DE").ShortDatePattern, "dd.MM.yy");

  const DateValue evening = DateValueFromCivil({2026, 11, 21}, {17, 4, 9}); // a Saturday
  EXPECT_EQ(FormatDate(evening, "Long Date", 0, 0, german), "21. November 2026");
  EXPECT_EQ(FormatDate(evening, "General Date", 0, 0, german), "21.11.26 17:04:09");
  EXPECT_EQ(FormatDate(evening, "dddd, d. mmmm", 0, 0, german), "Samstag, 21. November");
  EXPECT_EQ(FormatDate(DateValueFromCivil({2026, 3, 2}), "w ddd mmm", 0, 0, german), "1 Mo. März");
  EXPECT_EQ(CDate("21.11.26", german), DateOnly(evening));
  EXPECT_EQ(CDate("21. November 2026 17:04:09", german), evening);
  EXPECT_EQ(CDate("Samstag, 3. März 2026", german), DateValueFromCivil({2026, 3, 3}));
  EXPECT_EQ(CDate("3. Dez. 2026", german), DateValueFromCivil({2026, 12, 3}));
}

TEST_F(LocaleTest, IcuPatternsAreMappedIntoThePickerLanguage) {
  if (!IcuHasGerman()) {
    GTEST_SKIP() << "ICU on this machine has only its root data";
  }
  const Locale english = Locale::FromIcu("en_US");
  EXPECT_EQ(english.TimePattern, "h:mm:ss tt"); // ICU's narrow no-break space made plain
  EXPECT_EQ(english.LongDatePattern, "MMMM d, yyyy");
  EXPECT_EQ(english.AmDesignator, "AM");
  // Quoted words stay quoted; the era of the Buddhist calendar is dropped with its blank.
  EXPECT_EQ(Locale::FromIcu("es_ES").LongDatePattern, "d 'de' MMMM 'de' yyyy");
  const std::string thai = Locale::FromIcu("th_TH").LongDatePattern;
  EXPECT_EQ(thai.find('G'), std::string::npos) << thai;
  EXPECT_EQ(thai.back(), 'y') << thai;
  EXPECT_EQ(Locale::FromIcu("en_GB").FirstDayOfWeek, 2);
}

TEST_F(LocaleTest, EnvironmentChoosesLcAllThenLcTimeThenLang) {
  std::vector<std::pair<std::string, std::optional<std::string>>> saved;
  for (const char* name : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* value = std::getenv(name);
    saved.emplace_back(name, value ? std::optional<std::string>(value) : std::nullopt);
  }
  setenv("LC_ALL", "", 1);
  unsetenv("LC_TIME");
  setenv("LANG", "C.UTF-8", 1);
  EXPECT_EQ(Locale::FromEnvironment().Name, "en-US");
  setenv("LANG", "POSIX", 1);
  EXPECT_EQ(Locale::FromEnvironment().ShortDatePattern, "M/d/yyyy");
  if (IcuHasGerman()) {
    setenv("LC_TIME", "de_DE.UTF-8@euro", 1);
    EXPECT_EQ(Locale::FromEnvironment().MonthName(1), "Januar");
    setenv("LC_ALL", "C", 1);
    EXPECT_EQ(Locale::FromEnvironment().MonthName(1), "January");
  }
  for (const auto& [name, value] : saved) {
    value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
  }
}

TEST(Text, Utf8HelpersCountCharactersNotBytes) {
  EXPECT_EQ(Utf8Length("März"), 4u);
  EXPECT_EQ(Utf8Left("März", 2), "Mä");
  EXPECT_EQ(Utf8Left("午前", 1), "午");
  EXPECT_EQ(Utf8Left("AM", 5), "AM");
  EXPECT_EQ(Utf8Left("AM", 0), "");
  EXPECT_TRUE(EqualsIgnoreCaseAscii("General Date", "gENERAL dATE"));
  EXPECT_FALSE(EqualsIgnoreCaseAscii("Date", "Dates"));
  EXPECT_LT(CompareIgnoreCaseAscii("apple", "Banana"), 0);
  EXPECT_GT(CompareIgnoreCaseAscii("Dates", "date"), 0);
  EXPECT_TRUE(StartsWithIgnoreCaseAscii("AM/PM h", "am/pm"));
  EXPECT_FALSE(EqualsIgnoreCaseAscii("\xC4", "\xE4")); // bytes past ASCII are never folded
}

// Encoding, boundaries and validity agree with one another over every length of character.
TEST(Text, Utf8EncodingBoundariesAndValidity) {
  std::string encoded;
  for (uint32_t code : {0x7Fu, 0x80u, 0x7FFu, 0x800u, 0xFFFFu, 0x10000u, 0x10FFFFu})
    AppendUtf8(encoded, code);
  EXPECT_EQ(encoded,
            "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
  EXPECT_TRUE(IsValidUtf8(encoded));
  EXPECT_EQ(Utf8Length(encoded), 7u);
  std::string replaced;
  AppendUtf8(replaced, 0xD800);
  AppendUtf8(replaced, 0x110000);
  EXPECT_EQ(replaced, "\xEF\xBF\xBD\xEF\xBF\xBD");

  EXPECT_EQ(Utf8Floor("a\xE2\x82\xAC", 3), 1u); // inside the euro sign: back to its start
  EXPECT_EQ(Utf8Floor("a\xE2\x82\xAC", 9), 4u);
  EXPECT_EQ(Utf8SequenceLength('\xF0'), 4u);
  EXPECT_EQ(Utf8SequenceLength('\x80'), 1u); // a stray continuation byte stands alone
  for (const char* bad : {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"}) {
    EXPECT_FALSE(IsValidUtf8(bad)) << bad;
    EXPECT_TRUE(IsValidUtf8(MendUtf8(bad)));
  }
}
