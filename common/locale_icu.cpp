// Reading a locale's names and patterns from ICU.
#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>

#include <memory>
#include <vector>

#include "common/locale.hpp"

namespace tarnbrook {

namespace {

std::string ToUtf8(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

// ICU puts no-break spaces around AM/PM and direction marks around separators; desktop
// patterns use plain spaces and no marks.
std::string DesktopText(const std::string& text) {
  struct Replacement {
    std::string_view from;
    std::string_view to;
  };
  static constexpr Replacement replacements[] = {
      {"\u202F", " "}, {"\u00A0", " "}, {"\u200E", ""}, {"\u200F", ""}, {"\u061C", ""}};
  std::string result;
  for (size_t i = 0; i < text.size();) {
    bool replaced = false;
    for (const Replacement& r : replacements) {
      if (text.compare(i, r.from.size(), r.from) == 0) {
        result += r.to;
        i += r.from.size();
        replaced = true;
        break;
      }
    }
    if (!replaced) {
      result += text[i++];
    }
  }
  return result;
}

// One piece of an ICU pattern: a run of one field letter, or literal text.
struct PatternPiece {
  char16_t Letter = 0; // 0 for literal text
  int Count = 0;
  icu::UnicodeString Literal;
};

std::vector<PatternPiece> SplitIcuPattern(const icu::UnicodeString& pattern) {
  std::vector<PatternPiece> pieces;
  auto literal = [&pieces]() -> icu::UnicodeString& {
    if (pieces.empty() || pieces.back().Letter != 0) {
      pieces.push_back({});
    }
    return pieces.back().Literal;
  };
  const int32_t length = pattern.length();
  for (int32_t i = 0; i < length;) {
    const char16_t c = pattern.charAt(i);
    if (c == u'\'') {
      if (i + 1 < length && pattern.charAt(i + 1) == u'\'') {
        literal().append(u'\'');
        i += 2;
        continue;
      }
      icu::UnicodeString& text = literal();
      for (++i; i < length; ++i) {
        if (pattern.charAt(i) == u'\'') {
          if (i + 1 < length && pattern.charAt(i + 1) == u'\'') {
            text.append(u'\'');
            ++i;
            continue;
          }
          ++i;
          break;
        }
        text.append(pattern.charAt(i));
      }
    } else if ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z')) {
      int count = 0;
      while (i < length && pattern.charAt(i) == c) {
        ++count;
        ++i;
      }
      pieces.push_back({c, count, {}});
    } else {
      literal().append(c);
      ++i;
    }
  }
  return pieces;
}

// The picker's token for an ICU field; empty for fields it has no counterpart for.
std::string PickerToken(char16_t letter, int count) {
  switch (letter) {
  case u'd':
    return count == 1 ? "d" : "dd";
  case u'E':
    return count == 4 ? "dddd" : "ddd";
  case u'c':
  case u'e':
    return count < 3 ? "" : (count == 4 ? "dddd" : "ddd");
  case u'M':
  case u'L':
    return count >= 5 ? "MMM" : std::string(static_cast<size_t>(count), 'M');
  case u'y':
  case u'Y':
  case u'u':
    return count == 2 ? "yy" : "yyyy";
  case u'h':
  case u'K': // 0..11 shown as the nearest thing, 1..12
    return count == 1 ? "h" : "hh";
  case u'H':
  case u'k': // 1..24 shown as 0..23
    return count == 1 ? "H" : "HH";
  case u'm':
    return count == 1 ? "m" : "mm";
  case u's':
    return count == 1 ? "s" : "ss";
  case u'a':
  case u'b':
  case u'B':
    return "tt";
  default: // era, zone, fractions, week numbers ...
    return "";
  }
}

bool IsDateLetter(char16_t letter) {
  return letter == u'd' || letter == u'M' || letter == u'L' || letter == u'y' || letter == u'Y' ||
         letter == u'u';
}

bool IsTimeLetter(char16_t letter) {
  return letter == u'h' || letter == u'H' || letter == u'k' || letter == u'K' || letter == u'm' ||
         letter == u's';
}

// Removes fields the picker cannot show, each with the literal that joined it to its neighbour.
void DropUnknownFields(std::vector<PatternPiece>& pieces) {
  for (size_t i = 0; i < pieces.size();) {
    if (pieces[i].Letter == 0 || !PickerToken(pieces[i].Letter, pieces[i].Count).empty()) {
      ++i;
      continue;
    }
    size_t first = i;
    size_t last = i;
    if (i > 0 && pieces[i - 1].Letter == 0) {
      first = i - 1;
    } else if (i + 1 < pieces.size() && pieces[i + 1].Letter == 0) {
      last = i + 1;
    }
    pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(first),
                 pieces.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    i = first;
  }
}

// Literal text in the picker's language: quotes around letters, a backslash before "'" and "\".
std::string PickerLiteral(const std::string& text) {
  std::string result;
  bool quoted = false;
  for (char c : text) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (letter != quoted) {
      result += '\'';
      quoted = letter;
    }
    if (c == '\'' || c == '\\') {
      result += '\\';
    }
    result += c;
  }
  if (quoted) {
    result += '\'';
  }
  return result;
}

std::string ToPickerPattern(const std::vector<PatternPiece>& pieces) {
  std::string result;
  for (const PatternPiece& piece : pieces) {
    result += piece.Letter == 0 ? PickerLiteral(DesktopText(ToUtf8(piece.Literal)))
                                : PickerToken(piece.Letter, piece.Count);
  }
  return result;
}

// The literal between the first two fields of a kind ("." in dd.MM.yy).
std::string SeparatorBetween(const std::vector<PatternPiece>& pieces, bool (*isKind)(char16_t),
                             const char* fallback) {
  bool seenField = false;
  std::string separator;
  for (const PatternPiece& piece : pieces) {
    if (piece.Letter == 0) {
      if (seenField) {
        separator += DesktopText(ToUtf8(piece.Literal));
      }
    } else if (isKind(piece.Letter)) {
      if (seenField && !separator.empty()) {
        return separator;
      }
      seenField = true;
      separator.clear();
    } else {
      separator.clear();
    }
  }
  return fallback;
}

std::vector<PatternPiece> IcuPattern(const icu::DateFormat* format) {
  auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format);
  icu::UnicodeString pattern;
  if (simple != nullptr) {
    simple->toPattern(pattern);
  }
  std::vector<PatternPiece> pieces = SplitIcuPattern(pattern);
  DropUnknownFields(pieces);
  return pieces;
}

void ReadNames(const icu::DateFormatSymbols& symbols, Locale& locale) {
  int32_t count = 0;
  const icu::UnicodeString* months =
      symbols.getMonths(count, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
  for (int32_t i = 0; i < 12 && i < count; ++i) {
    locale.MonthNames[i] = ToUtf8(months[i]);
  }
  months =
      symbols.getMonths(count, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::ABBREVIATED);
  for (int32_t i = 0; i < 12 && i < count; ++i) {
    locale.AbbrevMonthNames[i] = ToUtf8(months[i]);
  }
  // ICU's weekday arrays start at index 1 (Sunday).
  const icu::UnicodeString* days =
      symbols.getWeekdays(count, icu::DateFormatSymbols::FORMAT, icu::DateFormatSymbols::WIDE);
  for (int32_t i = 1; i <= 7 && i < count; ++i) {
    locale.DayNames[i - 1] = ToUtf8(days[i]);
  }
  days = symbols.getWeekdays(count, icu::DateFormatSymbols::FORMAT,
                             icu::DateFormatSymbols::ABBREVIATED);
  for (int32_t i = 1; i <= 7 && i < count; ++i) {
    locale.AbbrevDayNames[i - 1] = ToUtf8(days[i]);
  }
  const icu::UnicodeString* amPm = symbols.getAmPmStrings(count);
  if (count >= 2) {
    locale.AmDesignator = ToUtf8(amPm[0]);
    locale.PmDesignator = ToUtf8(amPm[1]);
  }
}

void ReadPatterns(const icu::Locale& icuLocale, Locale& locale) {
  using icu::DateFormat;
  std::unique_ptr<DateFormat> shortDate(
      DateFormat::createDateInstance(DateFormat::kShort, icuLocale));
  std::unique_ptr<DateFormat> longDate(
      DateFormat::createDateInstance(DateFormat::kLong, icuLocale));
  std::unique_ptr<DateFormat> time(DateFormat::createTimeInstance(DateFormat::kMedium, icuLocale));
  if (shortDate) {
    const auto pieces = IcuPattern(shortDate.get());
    locale.ShortDatePattern = ToPickerPattern(pieces);
    locale.DateSeparator = SeparatorBetween(pieces, IsDateLetter, "/");
  }
  if (longDate) {
    locale.LongDatePattern = ToPickerPattern(IcuPattern(longDate.get()));
  }
  if (time) {
    const auto pieces = IcuPattern(time.get());
    locale.TimePattern = ToPickerPattern(pieces);
    locale.TimeSeparator = SeparatorBetween(pieces, IsTimeLetter, ":");
  }
}

void ReadCalendarRules(const icu::Locale& icuLocale, Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(icuLocale, status));
  if (U_FAILURE(status) || !calendar) {
    return;
  }
  locale.FirstDayOfWeek = static_cast<int>(calendar->getFirstDayOfWeek(status)); // 1 = Sunday
  switch (calendar->getMinimalDaysInFirstWeek()) {
  case 4:
    locale.FirstWeekOfYear = 2;
    break;
  case 7:
    locale.FirstWeekOfYear = 3;
    break;
  default:
    locale.FirstWeekOfYear = 1;
    break;
  }
}

} // namespace

Locale Locale::FromIcu(const std::string& icuName) {
  std::string name = icuName;
  for (char& c : name) {
    c = c == '-' ? '_' : c;
  }
  const icu::Locale icuLocale(name.c_str());
  if (icuLocale.isBogus()) {
    return EnglishUS();
  }
  Locale locale = EnglishUS();
  UErrorCode status = U_ZERO_ERROR;
  const std::string tag = icuLocale.toLanguageTag<std::string>(status);
  locale.Name = U_SUCCESS(status) ? tag : name;
  status = U_ZERO_ERROR;
  const icu::DateFormatSymbols symbols(icuLocale, status);
  if (U_SUCCESS(status)) {
    ReadNames(symbols, locale);
  }
  ReadPatterns(icuLocale, locale);
  ReadCalendarRules(icuLocale, locale);
  return locale;
}

} // namespace tarnbrook
