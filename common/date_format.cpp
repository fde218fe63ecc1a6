// The runtime's date formatting: user-defined codes, named formats and the locale's patterns.
#include "common/date_format.hpp"

#include <array>
#include <cstring>
#include <vector>

#include "common/control_error.hpp"
#include "common/locale.hpp"
#include "common/text.hpp"

namespace tarnbrook {

namespace {

enum class Code : uint8_t {
  Literal,
  DateSeparator,
  TimeSeparator,
  Day,
  Day2,
  DayAbbrev,
  DayName,
  WeekdayNumber,
  WeekOfYear,
  Month,
  Month2,
  MonthAbbrev,
  MonthName,
  Quarter,
  DayOfYear,
  YearOfCentury,
  Year2,
  Year4,
  Hour12,
  Hour12Padded,
  Hour24,
  Hour24Padded,
  Minute,
  Minute2,
  Second,
  Second2,
  AmPmLetters,     // "AM/PM" or "A/P" as written in the format
  AmPmDesignator,  // the locale's AM or PM
  AmPmFirstLetter, // the first letter of the locale's AM or PM
  ShortDate,
  LongDate,
  LongTime,
  GeneralDate,
};

struct Token {
  Code code;
  uint32_t offset = 0; // literal text in CompiledFormat::text
  uint32_t length = 0;
};

struct CompiledFormat {
  std::vector<Token> tokens;
  std::string text;

  void Add(Code code) { tokens.push_back({code}); }
  void AddLiteral(std::string_view literal) {
    if (literal.empty()) {
      return;
    }
    if (!tokens.empty() && tokens.back().code == Code::Literal &&
        tokens.back().offset + tokens.back().length == text.size()) {
      tokens.back().length += static_cast<uint32_t>(literal.size());
    } else {
      tokens.push_back({Code::Literal, static_cast<uint32_t>(text.size()),
                        static_cast<uint32_t>(literal.size())});
    }
    text += literal;
  }
  void AddWithText(Code code, std::string_view letters) {
    tokens.push_back(
        {code, static_cast<uint32_t>(text.size()), static_cast<uint32_t>(letters.size())});
    text += letters;
  }
};

size_t RunLength(std::string_view format, size_t at, char lowerLetter, bool ignoreCase) {
  size_t end = at;
  while (end < format.size() &&
         (ignoreCase ? ToLowerAscii(format[end]) : format[end]) == lowerLetter) {
    ++end;
  }
  return end - at;
}

size_t Utf8CharLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// Quoted text up to `quote` (or the end); returns the position after the closing quote.
size_t AddQuoted(CompiledFormat& out, std::string_view format, size_t at, char quote) {
  size_t end = format.find(quote, at + 1);
  if (end == std::string_view::npos) {
    end = format.size();
  }
  out.AddLiteral(format.substr(at + 1, end - at - 1));
  return end < format.size() ? end + 1 : end;
}

size_t AddEscaped(CompiledFormat& out, std::string_view format, size_t at) {
  if (at + 1 >= format.size()) {
    return format.size();
  }
  const size_t length = Utf8CharLength(format[at + 1]);
  out.AddLiteral(format.substr(at + 1, length));
  return at + 1 + length;
}

// Quoted text, an escaped character and the two separators read the same in both
// languages; returns the position after such a piece, or `at` when there is none.
size_t AddLiteralPiece(CompiledFormat& out, std::string_view format, size_t at, char quote) {
  switch (format[at]) {
  case '\\':
    return AddEscaped(out, format, at);
  case '/':
    out.Add(Code::DateSeparator);
    return at + 1;
  case ':':
    out.Add(Code::TimeSeparator);
    return at + 1;
  default:
    return format[at] == quote ? AddQuoted(out, format, at, quote) : at;
  }
}

// The runtime's user-defined codes, read without regard to case.
CompiledFormat CompileUserFormat(std::string_view format) {
  CompiledFormat out;
  bool afterHour = false; // "m" right after an hour code means minutes
  bool twelveHour = false;
  auto code = [&](Code c) {
    out.Add(c);
    afterHour = c == Code::Hour24 || c == Code::Hour24Padded;
  };
  for (size_t i = 0; i < format.size();) {
    if (const size_t next = AddLiteralPiece(out, format, i, '"'); next != i) {
      i = next;
      continue;
    }
    const char c = ToLowerAscii(format[i]);
    const size_t run = RunLength(format, i, c, true);
    switch (c) {
    case 'd': {
      static constexpr Code days[] = {Code::Day,     Code::Day2,      Code::DayAbbrev,
                                      Code::DayName, Code::ShortDate, Code::LongDate};
      const size_t take = run < 6 ? run : 6;
      code(days[take - 1]);
      i += take;
      continue;
    }
    case 'w':
      code(run >= 2 ? Code::WeekOfYear : Code::WeekdayNumber);
      i += run >= 2 ? 2 : 1;
      continue;
    case 'm': {
      const size_t take = run < 4 ? run : 4;
      if (take <= 2 && afterHour) {
        code(take == 2 ? Code::Minute2 : Code::Minute);
      } else {
        static constexpr Code months[] = {Code::Month, Code::Month2, Code::MonthAbbrev,
                                          Code::MonthName};
        code(months[take - 1]);
      }
      i += take;
      continue;
    }
    case 'n':
      code(run >= 2 ? Code::Minute2 : Code::Minute);
      i += run >= 2 ? 2 : 1;
      continue;
    case 's':
      code(run >= 2 ? Code::Second2 : Code::Second);
      i += run >= 2 ? 2 : 1;
      continue;
    case 'h':
      code(run >= 2 ? Code::Hour24Padded : Code::Hour24);
      i += run >= 2 ? 2 : 1;
      continue;
    case 'q':
      code(Code::Quarter);
      ++i;
      continue;
    case 'y': {
      const size_t take = run >= 4 ? 4 : run >= 2 ? 2 : 1;
      code(take == 4 ? Code::Year4 : take == 2 ? Code::Year2 : Code::DayOfYear);
      i += take;
      continue;
    }
    case 'c':
      code(Code::GeneralDate);
      ++i;
      continue;
    case 't':
      if (run >= 5) {
        code(Code::LongTime);
        i += 5;
      } else {
        out.AddLiteral(format.substr(i, run));
        i += run;
      }
      continue;
    case 'a': {
      const std::string_view rest = format.substr(i);
      if (StartsWithIgnoreCaseAscii(rest, "am/pm") || StartsWithIgnoreCaseAscii(rest, "a/p")) {
        const size_t length = StartsWithIgnoreCaseAscii(rest, "a/p") ? 3 : 5;
        out.AddWithText(Code::AmPmLetters, rest.substr(0, length));
        afterHour = false;
        twelveHour = true;
        i += length;
        continue;
      }
      if (StartsWithIgnoreCaseAscii(rest, "ampm")) {
        code(Code::AmPmDesignator);
        twelveHour = true;
        i += 4;
        continue;
      }
      break;
    }
    default:
      break;
    }
    out.AddLiteral(format.substr(i, 1));
    ++i;
  }
  if (twelveHour) {
    for (Token& token : out.tokens) {
      if (token.code == Code::Hour24 || token.code == Code::Hour24Padded) {
        token.code = token.code == Code::Hour24 ? Code::Hour12 : Code::Hour12Padded;
      }
    }
  }
  return out;
}

// The runtime's named formats, matched without regard to case; otherwise user codes.
CompiledFormat CompileFormat(std::string_view format) {
  CompiledFormat out;
  if (EqualsIgnoreCaseAscii(format, "General Date")) {
    out.Add(Code::GeneralDate);
  } else if (EqualsIgnoreCaseAscii(format, "Long Date")) {
    out.Add(Code::LongDate);
  } else if (EqualsIgnoreCaseAscii(format, "Short Date")) {
    out.Add(Code::ShortDate);
  } else if (EqualsIgnoreCaseAscii(format, "Long Time")) {
    out.Add(Code::LongTime);
  } else if (EqualsIgnoreCaseAscii(format, "Medium Date")) {
    out = CompileUserFormat("dd-mmm-yy");
  } else if (EqualsIgnoreCaseAscii(format, "Medium Time")) {
    out = CompileUserFormat("hh:mm AMPM");
  } else if (EqualsIgnoreCaseAscii(format, "Short Time")) {
    out = CompileUserFormat("hh:nn");
  } else {
    out = CompileUserFormat(format);
  }
  return out;
}

// A locale pattern in the picker's language: case-sensitive letters, 'quoted' text.
CompiledFormat CompileLocalePattern(std::string_view pattern) {
  CompiledFormat out;
  for (size_t i = 0; i < pattern.size();) {
    if (const size_t next = AddLiteralPiece(out, pattern, i, '\''); next != i) {
      i = next;
      continue;
    }
    const char c = pattern[i];
    const size_t run = RunLength(pattern, i, c, false);
    switch (c) {
    case 'd': {
      static constexpr Code days[] = {Code::Day, Code::Day2, Code::DayAbbrev, Code::DayName};
      out.Add(days[(run < 4 ? run : 4) - 1]);
      i += run;
      continue;
    }
    case 'M': {
      static constexpr Code months[] = {Code::Month, Code::Month2, Code::MonthAbbrev,
                                        Code::MonthName};
      const size_t take = run < 4 ? run : 4;
      out.Add(months[take - 1]);
      i += take;
      continue;
    }
    case 'y': {
      static constexpr Code years[] = {Code::YearOfCentury, Code::Year2, Code::Year4, Code::Year4};
      const size_t take = run < 4 ? run : 4;
      out.Add(years[take - 1]);
      i += take;
      continue;
    }
    case 'h':
    case 'H':
    case 'm':
    case 's':
    case 't': {
      static constexpr Code one[] = {Code::Hour12, Code::Hour24, Code::Minute, Code::Second,
                                     Code::AmPmFirstLetter};
      static constexpr Code two[] = {Code::Hour12Padded, Code::Hour24Padded, Code::Minute2,
                                     Code::Second2, Code::AmPmDesignator};
      const size_t kind = std::string_view("hHmst").find(c);
      out.Add(run == 1 ? one[kind] : two[kind]);
      i += run;
      continue;
    }
    default:
      out.AddLiteral(pattern.substr(i, 1));
      ++i;
      continue;
    }
  }
  return out;
}

// Recently used formats, compiled once. Locale patterns have their own cache because a
// user format's rendering looks them up while it still uses its own entry.
template <CompiledFormat (*Compile)(std::string_view)> class FormatCache {
public:
  const CompiledFormat& Get(std::string_view key) {
    if (entries_[last_].used && entries_[last_].key == key) {
      return entries_[last_].compiled;
    }
    for (size_t i = 0; i < entries_.size(); ++i) {
      if (entries_[i].used && entries_[i].key == key) {
        last_ = i;
        return entries_[i].compiled;
      }
    }
    Entry& entry = entries_[next_];
    entry.used = false; // until the new key and its compiled form agree
    entry.compiled = Compile(key);
    entry.key.assign(key);
    entry.used = true;
    last_ = next_;
    next_ = (next_ + 1) % entries_.size();
    return entry.compiled;
  }

private:
  struct Entry {
    std::string key;
    CompiledFormat compiled;
    bool used = false;
  };
  std::array<Entry, 16> entries_;
  size_t last_ = 0;
  size_t next_ = 0;
};

thread_local FormatCache<CompileFormat> userFormats;
thread_local FormatCache<CompileLocalePattern> localePatterns;

// Text collected on the stack; only long results reach the heap.
class Output {
public:
  void Append(std::string_view text) {
    if (!spilled_ && text.size() <= sizeof local_ - size_) {
      if (text.size() == 1) { // separators: no call to memcpy
        local_[size_++] = text[0];
      } else {
        std::memcpy(local_ + size_, text.data(), text.size());
        size_ += text.size();
      }
      return;
    }
    if (!spilled_) {
      spill_.assign(local_, size_);
      spilled_ = true;
    }
    spill_ += text;
  }
  // Decimal digits of a number that is never negative, zero-padded to `minDigits`.
  void Number(int value, int minDigits) {
    auto magnitude = static_cast<unsigned>(value);
    if (magnitude < 100 && minDigits <= 2 && !spilled_ && sizeof local_ - size_ >= 2) {
      if (magnitude >= 10 || minDigits == 2) { // days, months, hours ...
        local_[size_++] = static_cast<char>('0' + magnitude / 10);
      }
      local_[size_++] = static_cast<char>('0' + magnitude % 10);
      return;
    }
    char digits[16];
    size_t count = 1;
    for (unsigned rest = magnitude; rest >= 10; rest /= 10) {
      ++count;
    }
    count = count < static_cast<size_t>(minDigits) ? static_cast<size_t>(minDigits) : count;
    const bool direct = !spilled_ && count <= sizeof local_ - size_;
    char* const start = direct ? local_ + size_ : digits;
    for (size_t k = count; k > 0; --k) {
      start[k - 1] = static_cast<char>('0' + magnitude % 10);
      magnitude /= 10;
    }
    if (direct) {
      size_ += count;
    } else {
      Append(std::string_view(digits, count));
    }
  }
  std::string Take() { return spilled_ ? std::move(spill_) : std::string(local_, size_); }

private:
  char local_[64];
  size_t size_ = 0;
  bool spilled_ = false;
  std::string spill_;
};

struct Moment {
  CivilDateTime civil;
  const Locale& locale;
  int firstDayOfWeek;
  int firstWeekOfYear;
};

int SundayWeekday(const CivilDate& date) {
  const long days = DaysFromCivil(date.Year, date.Month, date.Day); // day 0 was a Saturday
  return static_cast<int>(((days + 6) % 7 + 7) % 7) + 1;
}

void Render(const CompiledFormat& format, const Moment& moment, Output& out);

void RenderLocalePattern(const std::string& pattern, const Moment& moment, Output& out) {
  Render(localePatterns.Get(pattern), moment, out);
}

void RenderGeneralDate(const Moment& moment, Output& out) {
  const CivilDateTime& civil = moment.civil;
  const bool noDate = civil.Date == CivilDate{};
  if (!noDate) {
    RenderLocalePattern(moment.locale.ShortDatePattern, moment, out);
  }
  if (noDate || civil.Time != CivilTime{}) {
    if (!noDate) {
      out.Append(" ");
    }
    RenderLocalePattern(moment.locale.TimePattern, moment, out);
  }
}

void Render(const CompiledFormat& format, const Moment& moment, Output& out) {
  const CivilDate& date = moment.civil.Date;
  const CivilTime& time = moment.civil.Time;
  const Locale& locale = moment.locale;
  const bool morning = time.Hour < 12;
  for (const Token& token : format.tokens) {
    switch (token.code) {
    case Code::Literal:
      out.Append(std::string_view(format.text).substr(token.offset, token.length));
      break;
    case Code::DateSeparator:
      out.Append(locale.DateSeparator);
      break;
    case Code::TimeSeparator:
      out.Append(locale.TimeSeparator);
      break;
    case Code::Day:
    case Code::Day2:
      out.Number(date.Day, token.code == Code::Day2 ? 2 : 1);
      break;
    case Code::DayAbbrev:
    case Code::DayName:
      out.Append(locale.WeekdayName(SundayWeekday(date), token.code == Code::DayAbbrev));
      break;
    case Code::WeekdayNumber:
      out.Number((SundayWeekday(date) - moment.firstDayOfWeek + 7) % 7 + 1, 1);
      break;
    case Code::WeekOfYear:
      out.Number(
          DatePart("ww", DateValueFromCivil(date), moment.firstDayOfWeek, moment.firstWeekOfYear),
          1);
      break;
    case Code::Month:
    case Code::Month2:
      out.Number(date.Month, token.code == Code::Month2 ? 2 : 1);
      break;
    case Code::MonthAbbrev:
    case Code::MonthName:
      out.Append(locale.MonthName(date.Month, token.code == Code::MonthAbbrev));
      break;
    case Code::Quarter:
      out.Number((date.Month - 1) / 3 + 1, 1);
      break;
    case Code::DayOfYear:
      out.Number(static_cast<int>(DaysFromCivil(date.Year, date.Month, date.Day) -
                                  DaysFromCivil(date.Year, 1, 1)) +
                     1,
                 1);
      break;
    case Code::YearOfCentury:
    case Code::Year2:
      out.Number(date.Year % 100, token.code == Code::Year2 ? 2 : 1);
      break;
    case Code::Year4:
      out.Number(date.Year, 1);
      break;
    case Code::Hour12:
    case Code::Hour12Padded:
      out.Number(time.Hour % 12 == 0 ? 12 : time.Hour % 12, token.code == Code::Hour12 ? 1 : 2);
      break;
    case Code::Hour24:
    case Code::Hour24Padded:
      out.Number(time.Hour, token.code == Code::Hour24 ? 1 : 2);
      break;
    case Code::Minute:
    case Code::Minute2:
      out.Number(time.Minute, token.code == Code::Minute ? 1 : 2);
      break;
    case Code::Second:
    case Code::Second2:
      out.Number(time.Second, token.code == Code::Second ? 1 : 2);
      break;
    case Code::AmPmLetters: {
      // "AM/PM" -> "AM" or "PM", "a/p" -> "a" or "p", each as written.
      const size_t half = token.length == 3 ? 1 : 2;
      const std::string_view letters =
          std::string_view(format.text).substr(token.offset, token.length);
      out.Append(morning ? letters.substr(0, half) : letters.substr(half + 1, half));
      break;
    }
    case Code::AmPmDesignator:
      out.Append(morning ? locale.AmDesignator : locale.PmDesignator);
      break;
    case Code::AmPmFirstLetter:
      out.Append(Utf8Left(morning ? locale.AmDesignator : locale.PmDesignator, 1));
      break;
    case Code::ShortDate:
      RenderLocalePattern(locale.ShortDatePattern, moment, out);
      break;
    case Code::LongDate:
      RenderLocalePattern(locale.LongDatePattern, moment, out);
      break;
    case Code::LongTime:
      RenderLocalePattern(locale.TimePattern, moment, out);
      break;
    case Code::GeneralDate:
      RenderGeneralDate(moment, out);
      break;
    }
  }
}

void CheckFormattable(DateValue value) {
  if (!(value >= MinDateValue && value <= MaxDateValue)) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
}

int Resolve(int setting, int lastValid, int localeSetting) {
  if (setting < 0 || setting > lastValid) {
    RaiseRuntimeError(rtInvalidProcedureCall);
  }
  return setting == 0 ? localeSetting : setting;
}

} // namespace

std::string FormatDate(DateValue value, std::string_view format, int firstDayOfWeek,
                       int firstWeekOfYear) {
  return FormatDate(value, format, firstDayOfWeek, firstWeekOfYear, CurrentLocale());
}

std::string FormatDate(DateValue value, std::string_view format, int firstDayOfWeek,
                       int firstWeekOfYear, const Locale& locale) {
  if (format.empty()) {
    return DateToText(value, locale);
  }
  CheckFormattable(value);
  const Moment moment{CivilFromDateValue(value), locale,
                      Resolve(firstDayOfWeek, vbSaturday, locale.FirstDayOfWeek),
                      Resolve(firstWeekOfYear, vbFirstFullWeek, locale.FirstWeekOfYear)};
  Output out;
  Render(userFormats.Get(format), moment, out);
  return out.Take();
}

std::string DateToText(DateValue value) {
  return DateToText(value, CurrentLocale());
}

std::string DateToText(DateValue value, const Locale& locale) {
  CheckFormattable(value);
  const Moment moment{CivilFromDateValue(value), locale, locale.FirstDayOfWeek,
                      locale.FirstWeekOfYear};
  Output out;
  RenderGeneralDate(moment, out);
  return out.Take();
}

} // namespace tarnbrook
