#include <cstdlib>
#include <unicode/dtfmtsym.h>

#include <gtest/gtest.h>

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

std::string ItemOf(uint32_t item, int bufferSize, int* returned) {
  std::string buffer(static_cast<size_t>(bufferSize) + 1, '#');
  *returned = GetLocaleInfo(LOCALE_USER_DEFAULT, item, buffer.data(), bufferSize);
  return buffer;
}

} // namespace

TEST_F(LocaleTest, CurrentLocaleIsEnglishUnitedStatesUntilSet) {
  const Locale& locale = CurrentLocale();
  EXPECT_EQ(locale.ShortDatePattern, "M/d/yyyy");
  EXPECT_EQ(locale.LongDatePattern, "dddd, MMMM d, yyyy");
  EXPECT_EQ(locale.TimePattern, "h:mm:ss tt");
  EXPECT_EQ(locale.MonthName(9), "September");
  EXPECT_EQ(locale.MonthName(9, true), "Sep");
  EXPECT_EQ(locale.WeekdayName(1), "Sunday");
  EXPECT_EQ(locale.WeekdayName(7, true), "Sat");
  EXPECT_EQ(locale.AmDesignator + locale.PmDesignator, "AMPM");
  EXPECT_EQ(locale.FirstDayOfWeek, 1);
  EXPECT_EQ(locale.FirstWeekOfYear, 1);
}

TEST_F(LocaleTest, GetLocaleInfoCountsTheNulAndRefusesUnknownItemsAndSmallBuffers) {
  int returned = 0;
  EXPECT_EQ(ItemOf(LOCALE_SSHORTDATE, 20, &returned).substr(0, 9), std::string("M/d/yyyy\0", 9));
  EXPECT_EQ(returned, 9);
  EXPECT_EQ(ItemOf(LOCALE_SDATE, 20, &returned)[0], '/');
  EXPECT_EQ(returned, 2);
  ItemOf(LOCALE_STIME, 20, &returned);
  EXPECT_EQ(returned, 2);
  EXPECT_EQ(ItemOf(LOCALE_SLONGDATE, 40, &returned).substr(0, 18), "dddd, MMMM d, yyyy");
  EXPECT_EQ(returned, 19);
  ItemOf(LOCALE_STIMEFORMAT, 20, &returned);
  EXPECT_EQ(returned, 11);
  ItemOf(33, 20, &returned);
  EXPECT_EQ(returned, 0);
  EXPECT_EQ(ItemOf(LOCALE_SSHORTDATE, 8, &returned), "M/d/yyyy#"); // no room for the NUL
  EXPECT_EQ(returned, 0);
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

TEST_F(LocaleTest, GermanFromIcuHasGermanNamesPatternsAndWeekRules) {
  if (!IcuHasGerman()) {
    GTEST_SKIP() << "ICU on this machine has no German (de_DE) date data";
  }
  const Locale german = Locale::FromIcu("de_DE");
  EXPECT_EQ(german.Name, "de-DE");
  EXPECT_EQ(german.MonthName(3), "März");
  EXPECT_EQ(german.MonthName(12), "Dezember");
  EXPECT_EQ(german.WeekdayName(1), "Sonntag");
  EXPECT_EQ(german.WeekdayName(2, true), "Mo.");
  EXPECT_EQ(german.ShortDatePattern, "dd.MM.yy");
  EXPECT_EQ(german.LongDatePattern, "d. MMMM yyyy");
  EXPECT_EQ(german.TimePattern, "HH:mm:ss");
  EXPECT_EQ(german.DateSeparator, ".");
  EXPECT_EQ(german.TimeSeparator, ":");
  EXPECT_EQ(german.FirstDayOfWeek, 2);
  EXPECT_EQ(german.FirstWeekOfYear, 2);
  EXPECT_EQ(Locale::FromIcu("de-DE").ShortDatePattern, "dd.MM.yy");
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
  const auto restore = [](const char* name, const char* old) {
    old ? setenv(name, old, 1) : unsetenv(name);
  };
  const char* names[] = {"LC_ALL", "LC_TIME", "LANG"};
  std::string old[3];
  bool had[3];
  for (int i = 0; i < 3; ++i) {
    const char* value = std::getenv(names[i]);
    had[i] = value != nullptr;
    old[i] = value ? value : "";
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
  for (int i = 0; i < 3; ++i) {
    restore(names[i], had[i] ? old[i].c_str() : nullptr);
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
