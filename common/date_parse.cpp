// Text to date as the runtime reads it.
#include <optional>
#include <vector>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_runtime.hpp"
#include "common/locale.hpp"
#include "common/text.hpp"
#include "common/wall_clock.hpp"

namespace tarnbrook {

namespace {

enum class PieceKind { Number, Word, DateSeparator, TimeSeparator };

struct Piece {
  PieceKind kind;
  std::string_view text;
  int value = 0; // numbers only
};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}

bool IsUsableSeparator(const std::string& separator) {
  return !separator.empty() && !IsDigit(separator[0]) && !IsLetter(separator[0]);
}

// Numbers, words and separators; blanks and commas only divide. Nothing when a character
// has no place in a date.
std::optional<std::vector<Piece>> SplitText(std::string_view text, const Locale& locale) {
  std::vector<Piece> pieces;
  const bool localeTime =
      IsUsableSeparator(locale.TimeSeparator) && locale.TimeSeparator != locale.DateSeparator;
  const bool localeDate = IsUsableSeparator(locale.DateSeparator);
  for (size_t i = 0; i < text.size();) {
    const std::string_view rest = text.substr(i);
    const char c = text[i];
    size_t end = i + 1;
    if (IsDigit(c)) {
      while (end < text.size() && IsDigit(text[end])) {
        ++end;
      }
      if (end - i > 9) {
        return std::nullopt;
      }
      int value = 0;
      for (size_t k = i; k < end; ++k) {
        value = value * 10 + (text[k] - '0');
      }
      pieces.push_back({PieceKind::Number, text.substr(i, end - i), value});
    } else if (IsLetter(c)) {
      while (end < text.size() && IsLetter(text[end])) {
        ++end;
      }
      pieces.push_back({PieceKind::Word, text.substr(i, end - i)});
    } else if (localeTime && rest.starts_with(locale.TimeSeparator)) {
      end = i + locale.TimeSeparator.size();
      pieces.push_back({PieceKind::TimeSeparator, rest.substr(0, end - i)});
    } else if (localeDate && rest.starts_with(locale.DateSeparator)) {
      end = i + locale.DateSeparator.size();
      pieces.push_back({PieceKind::DateSeparator, rest.substr(0, end - i)});
    } else if (c == ':') {
      pieces.push_back({PieceKind::TimeSeparator, rest.substr(0, 1)});
    } else if (c == '/' || c == '-' || c == '.') {
      pieces.push_back({PieceKind::DateSeparator, rest.substr(0, 1)});
    } else if (c != ' ' && c != '\t' && c != ',') {
      return std::nullopt;
    }
    i = end;
  }
  return pieces;
}

const Locale& English() {
  return Locale::EnglishUS();
}

// 0 = not a designator, 1 = AM, 2 = PM.
int AmPmOf(std::string_view word, const Locale& locale) {
  if (EqualsIgnoreCaseAscii(word, locale.AmDesignator) || EqualsIgnoreCaseAscii(word, "AM") ||
      EqualsIgnoreCaseAscii(word, "A")) {
    return 1;
  }
  if (EqualsIgnoreCaseAscii(word, locale.PmDesignator) || EqualsIgnoreCaseAscii(word, "PM") ||
      EqualsIgnoreCaseAscii(word, "P")) {
    return 2;
  }
  return 0;
}

// 1..12 for a month name or abbreviation (the locale's or English), else 0.
int MonthOf(std::string_view word, const Locale& locale) {
  for (const Locale* names : {&locale, &English()}) {
    for (int month = 1; month <= 12; ++month) {
      std::string_view abbreviation = names->MonthName(month, true);
      if (abbreviation.ends_with('.')) {
        abbreviation.remove_suffix(1);
      }
      if (EqualsIgnoreCaseAscii(word, names->MonthName(month)) ||
          EqualsIgnoreCaseAscii(word, abbreviation)) {
        return month;
      }
    }
  }
  return 0;
}

bool IsWeekdayName(std::string_view word, const Locale& locale) {
  for (const Locale* names : {&locale, &English()}) {
    for (int day = 1; day <= 7; ++day) {
      std::string_view abbreviation = names->WeekdayName(day, true);
      if (abbreviation.ends_with('.')) {
        abbreviation.remove_suffix(1);
      }
      if (EqualsIgnoreCaseAscii(word, names->WeekdayName(day)) ||
          EqualsIgnoreCaseAscii(word, abbreviation)) {
        return true;
      }
    }
  }
  return false;
}

// Takes "h:m[:s] [AM|PM]" or "h AM|PM" out of the pieces; false when the time is not valid.
bool TakeTime(std::vector<Piece>& pieces, const Locale& locale, std::optional<CivilTime>& time) {
  auto is = [&pieces](size_t at, PieceKind kind) {
    return at < pieces.size() && pieces[at].kind == kind;
  };
  for (size_t start = 0; start < pieces.size(); ++start) {
    if (!is(start, PieceKind::Number)) {
      continue;
    }
    int parts[3] = {pieces[start].value, 0, 0};
    size_t end = start + 1;
    int count = 1;
    while (count < 3 && is(end, PieceKind::TimeSeparator) && is(end + 1, PieceKind::Number)) {
      parts[count++] = pieces[end + 1].value;
      end += 2;
    }
    const int amPm = is(end, PieceKind::Word) ? AmPmOf(pieces[end].text, locale) : 0;
    if (count == 1 && amPm == 0) {
      continue;
    }
    if (time.has_value()) {
      return false;
    }
    int hour = parts[0];
    if (amPm != 0) {
      if (hour > 12) {
        return false;
      }
      hour = hour % 12 + (amPm == 2 ? 12 : 0);
      ++end;
    }
    if (hour > 23 || parts[1] > 59 || parts[2] > 59) {
      return false;
    }
    time = CivilTime{hour, parts[1], parts[2]};
    pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(start),
                 pieces.begin() + static_cast<std::ptrdiff_t>(end));
    --start;
  }
  return true;
}

struct DateNumber {
  int value;
  size_t digits;
  bool IsYear() const { return digits >= 3 || value > 31; }
};

int FullYear(int year) {
  if (year < 30) {
    return year + 2000;
  }
  return year < 100 ? year + 1900 : year;
}

std::optional<CivilDate> ValidDate(int year, int month, int day) {
  year = FullYear(year);
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 ||
      day > DaysInMonth(year, month)) {
    return std::nullopt;
  }
  return CivilDate{year, month, day};
}

// Order of day, month and year in the short date pattern: "MDY", "DMY" or "YMD".
std::string FieldOrder(const std::string& pattern) {
  std::string order;
  bool quoted = false;
  for (char c : pattern) {
    if (c == '\'') {
      quoted = !quoted;
    }
    const char field = c == 'd' ? 'D' : c == 'M' ? 'M' : c == 'y' ? 'Y' : 0;
    if (!quoted && field != 0 && order.find(field) == std::string::npos) {
      order += field;
    }
  }
  return order.size() == 3 ? order : "MDY";
}

// The year of the wall clock, for a date written without one.
std::optional<int> CurrentYear() {
  std::optional<DateValue> now = WallClockNow();
  return now ? std::optional<int>(Year(*now)) : std::nullopt;
}

std::optional<CivilDate> DateFromNumbers(const std::vector<DateNumber>& numbers,
                                         const Locale& locale) {
  if (numbers.size() == 2) {
    if (!numbers[0].IsYear() && !numbers[1].IsYear()) {
      // Month and day in the locale's order, in the current year.
      std::optional<int> year = CurrentYear();
      if (!year) {
        return std::nullopt;
      }
      const std::string order = FieldOrder(locale.ShortDatePattern);
      const bool dayFirst = order.find('D') < order.find('M');
      return dayFirst ? ValidDate(*year, numbers[1].value, numbers[0].value)
                      : ValidDate(*year, numbers[0].value, numbers[1].value);
    }
    // Month and year, the first day of that month.
    if (numbers[0].IsYear() == numbers[1].IsYear()) {
      return std::nullopt;
    }
    return numbers[0].IsYear() ? ValidDate(numbers[0].value, numbers[1].value, 1)
                               : ValidDate(numbers[1].value, numbers[0].value, 1);
  }
  if (numbers.size() != 3) {
    return std::nullopt;
  }
  if (numbers[0].IsYear()) {
    return ValidDate(numbers[0].value, numbers[1].value, numbers[2].value);
  }
  std::string order = FieldOrder(locale.ShortDatePattern);
  if (numbers[2].IsYear()) {
    // A year written last stands last whatever the locale's order ("1/1/1601" in a locale
    // that writes the year first); day and month keep their order.
    order.erase(order.find('Y'), 1);
    order += 'Y';
  }
  int day = 0, month = 0, year = 0;
  for (size_t i = 0; i < 3; ++i) {
    (order[i] == 'D' ? day : order[i] == 'M' ? month : year) = numbers[i].value;
  }
  // A month over 12 is read as the day, as the runtime does.
  if (auto date = ValidDate(year, month, day)) {
    return date;
  }
  return ValidDate(year, day, month);
}

std::optional<CivilDate> DateWithMonthName(int month, const std::vector<DateNumber>& numbers) {
  if (numbers.size() == 1) {
    if (numbers[0].IsYear()) {
      return ValidDate(numbers[0].value, month, 1);
    }
    std::optional<int> year = CurrentYear();
    return year ? ValidDate(*year, month, numbers[0].value) : std::nullopt;
  }
  if (numbers.size() != 2) {
    return std::nullopt;
  }
  if (numbers[0].IsYear() && !numbers[1].IsYear()) {
    return ValidDate(numbers[0].value, month, numbers[1].value);
  }
  return ValidDate(numbers[1].value, month, numbers[0].value);
}

std::optional<DateValue> ParseDate(std::string_view text, const Locale& locale) {
  std::optional<std::vector<Piece>> pieces = SplitText(text, locale);
  std::optional<CivilTime> time;
  if (!pieces || !TakeTime(*pieces, locale, time)) {
    return std::nullopt;
  }
  std::vector<DateNumber> numbers;
  int month = 0;
  for (const Piece& piece : *pieces) {
    switch (piece.kind) {
    case PieceKind::Number:
      numbers.push_back({piece.value, piece.text.size()});
      break;
    case PieceKind::Word: {
      const int named = MonthOf(piece.text, locale);
      if (named != 0 && month == 0) {
        month = named;
      } else if (named != 0 || !IsWeekdayName(piece.text, locale)) {
        return std::nullopt;
      }
      break;
    }
    case PieceKind::DateSeparator:
      break;
    case PieceKind::TimeSeparator:
      return std::nullopt;
    }
  }
  if (numbers.empty() && month == 0) {
    if (!time) {
      return std::nullopt;
    }
    return DateValueFromCivil(CivilDate{}, *time);
  }
  const std::optional<CivilDate> date =
      month != 0 ? DateWithMonthName(month, numbers) : DateFromNumbers(numbers, locale);
  if (!date) {
    return std::nullopt;
  }
  return DateValueFromCivil(*date, time.value_or(CivilTime{}));
}

} // namespace

DateValue CDate(std::string_view text) {
  return CDate(text, CurrentLocale());
}

DateValue CDate(std::string_view text, const Locale& locale) {
  const std::optional<DateValue> value = ParseDate(text, locale);
  if (!value) {
    RaiseRuntimeError(rtTypeMismatch);
  }
  return *value;
}

bool IsDate(std::string_view text) {
  return ParseDate(text, CurrentLocale()).has_value();
}

} // namespace tarnbrook
