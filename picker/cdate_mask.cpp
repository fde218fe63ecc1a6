#include "picker/cdate_mask.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "common/control_error.hpp"
#include "common/conversions.hpp"
#include "common/date_format.hpp"
#include "common/date_runtime.hpp"
#include "common/ole_color.hpp"
#include "common/text.hpp"
#include "draw/cmdc.hpp"

namespace tarnbrook {

namespace {

struct MaskToken {
  std::string_view token;       // as written in the picker's format
  std::string_view probe;       // the widest text the field is measured for
  std::string_view type;        // MaskType
  std::string_view runtimeCode; // the runtime's format code showing the same thing
};

// "t" and "tt" are measured from the AM/PM designators instead of a probe. Tokens without a
// runtime code ("h", "hh", "y", "t", "tt") are turned into text by the field itself.
constexpr std::array<MaskToken, 22> Tokens{{
    {"d", "99", "d", "d"},        {"dd", "99", "d", "dd"},
    {"ddd", "Wed", "d", "ddd"},   {"dddd", "Wednesday", "d", "dddd"},
    {"M", "99", "M", "m"},        {"MM", "99", "M", "mm"},
    {"MMM", "AUG", "M", "mmm"},   {"MMMM", "December", "M", "mmmm"},
    {"y", "0000", "y", ""},       {"yy", "0000", "y", "yy"},
    {"yyy", "0000", "y", "yyyy"}, {"yyyy", "0000", "y", "yyyy"},
    {"h", "99", "h", ""},         {"hh", "99", "h", ""},
    {"H", "99", "h", "h"},        {"HH", "99", "h", "hh"},
    {"m", "99", "m", "n"},        {"mm", "99", "m", "nn"},
    {"s", "99", "s", "s"},        {"ss", "99", "s", "ss"},
    {"t", "", "t", ""},           {"tt", "", "t", ""},
}};

const MaskToken* FindToken(std::string_view text) {
  for (const MaskToken& token : Tokens) {
    if (token.token == text) {
      return &token;
    }
  }
  return nullptr;
}

std::string ReplaceAll(std::string text, char from, char to) {
  std::replace(text.begin(), text.end(), from, to);
  return text;
}

// The designator of `time` cut to the token's length. Both probe times of the width lie in
// the afternoon; the field has always been measured that way.
std::string Designator(DateValue time, size_t length) {
  static const CompiledDateFormat amPm("AMPM");
  return Utf8Left(amPm.Format(time), length);
}

int32_t DesignatorWidth(cMDC& surface, size_t length) {
  return std::max(surface.TextWidth(Designator(TimeSerial(12, 0, 0), length)),
                  surface.TextWidth(Designator(TimeSerial(13, 0, 0), length))) +
         2;
}

std::string TwoDigits(int number) {
  char text[16];
  std::snprintf(text, sizeof text, "%02d", number);
  return text;
}

bool IsDigit(int16_t key) {
  return key >= '0' && key <= '9';
}

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> choices) {
  return std::find(choices.begin(), choices.end(), text) != choices.end();
}

// The last `count` characters of `text`.
std::string Right(const std::string& text, size_t count) {
  return text.size() > count ? text.substr(text.size() - count) : text;
}

// `date`'s day with the time of day of `timeFrom`.
DateValue WithTimeOf(DateValue date, DateValue timeFrom) {
  return DateValueFromDaySeconds(SplitDateValue(date).Days, SplitDateValue(timeFrom).Seconds);
}

DateValue WithTime(DateValue value, int hour, int minute, int second) {
  return DateValueFromDaySeconds(SplitDateValue(value).Days,
                                 hour * 3600LL + minute * 60LL + second);
}

} // namespace

void CDateMask::SetMask(cMDC& Surface, const std::string& Mask, int32_t Left, int32_t Height,
                        bool ForceLiteral) {
  surface_ = &Surface;
  left_ = Left;
  height_ = Height;
  const MaskToken* token = ForceLiteral ? nullptr : FindToken(Mask);
  isliteral_ = token == nullptr;
  literalText_ = isliteral_ ? Mask : std::string();
  runtimeFormat_ = isliteral_ ? CompiledDateFormat() : CompiledDateFormat(token->runtimeCode);
  maskType_ = isliteral_ ? std::string() : std::string(token->type);
  if (isliteral_) {
    width_ = Surface.TextWidth(Mask);
  } else if (maskType_ == "t") {
    width_ = DesignatorWidth(Surface, Mask.size());
  } else {
    width_ = Surface.TextWidth(token->probe) + 2;
  }
  // Minute tokens become "n"/"nn" so they can never be read as months.
  mask_ = ReplaceAll(Mask == "yyy" ? "yyyy" : Mask, 'm', 'n');
  typedText_.clear();
}

void CDateMask::Increment(int16_t Amount) {
  if (maskType_ == "t") {
    const int32_t hours = Amount * 12;
    if (hours != static_cast<int16_t>(hours)) {
      RaiseRuntimeError(rtOverflow);
    }
    value_ = DateAdd("h", hours, value_);
    return;
  }
  static constexpr std::pair<std::string_view, std::string_view> Intervals[] = {
      {"M", "m"}, {"y", "yyyy"}, {"d", "d"}, {"m", "n"}, {"h", "h"}, {"s", "s"}};
  for (const auto& [type, interval] : Intervals) {
    if (maskType_ == type) {
      value_ = DateAdd(interval, Amount, value_);
      return;
    }
  }
}

void CDateMask::TypeDigit(int16_t key) {
  if (!IsDigit(key)) {
    if (maskType_ == "y") {
      typedText_ = std::to_string(Year(value_));
    }
    return;
  }
  const std::string typed = typedText_ + static_cast<char>(key);
  if (IsOneOf(mask_, {"d", "dd", "M", "MM", "h", "hh", "H", "HH", "n", "nn", "s", "ss"})) {
    typedText_ = Right(typed, 2);
  } else if (mask_ == "yyyy") {
    char text[8];
    std::snprintf(text, sizeof text, "%04d", static_cast<int>(Val(Right(typed, 4))));
    typedText_ = text;
  } else if (mask_ == "y" || mask_ == "yy") {
    typedText_ = TwoDigits(static_cast<int>(Val(Right(typed, 4))));
  }
}

bool CDateMask::Commit() {
  if (typedText_.empty() || isliteral_) {
    return false;
  }
  const int n = static_cast<int>(Val(typedText_));
  const CivilDateTime now = CivilFromDateValue(value_);
  const CivilTime& time = now.Time;
  const CivilDate& date = now.Date;
  DateValue result;
  if (mask_ == "H" || mask_ == "HH") {
    if (n < 0 || n > 23) {
      return false;
    }
    result = WithTime(value_, n, time.Minute, time.Second);
  } else if (maskType_ == "h") {
    if (n < 1 || n > 12) {
      return false;
    }
    const int half = time.Hour >= 12 ? 12 : 0;
    result = WithTime(value_, half + (n == 12 ? 0 : n), time.Minute, time.Second);
  } else if (maskType_ == "m" || maskType_ == "s") {
    if (n < 0 || n > 59) {
      return false;
    }
    result = maskType_ == "m" ? WithTime(value_, time.Hour, n, time.Second)
                              : WithTime(value_, time.Hour, time.Minute, n);
  } else if (maskType_ == "M") {
    if (n < 1 || n > 12) {
      return false;
    }
    result = WithTimeOf(DateSerial(date.Year, n, date.Day), value_);
  } else if (maskType_ == "d") {
    if (n < 1 || n > DaysInMonth(date.Year, date.Month)) {
      return false;
    }
    result = WithTimeOf(DateSerial(date.Year, date.Month, n), value_);
  } else if (maskType_ == "y") {
    // DateSerial reads 0..29 as 2000..2029 and 30..99 as 1930..1999.
    result = WithTimeOf(DateSerial(n, date.Month, date.Day), value_);
  } else {
    return false;
  }
  value_ = result;
  return true;
}

std::string CDateMask::TypedTextShown() const {
  if (maskType_ == "y") {
    return typedText_;
  }
  if (maskType_ == "t") {
    return {};
  }
  return TwoDigits(static_cast<int>(Val(typedText_)));
}

std::string CDateMask::Text() const {
  if (isliteral_) {
    return literalText_;
  }
  if (!typedText_.empty()) {
    return TypedTextShown();
  }
  if (mask_ == "h" || mask_ == "hh") {
    int hour = Hour(value_);
    hour = hour > 12 ? hour - 12 : hour == 0 ? 12 : hour;
    return mask_ == "hh" ? TwoDigits(hour) : std::to_string(hour);
  }
  if (maskType_ == "t") {
    return Designator(value_, mask_.size());
  }
  if (mask_ == "y") {
    return std::to_string(Year(value_) % 100);
  }
  return runtimeFormat_.Format(value_);
}

void CDateMask::Draw() {
  if (surface_ == nullptr) {
    return;
  }
  cMDC& surface = *surface_;
  const std::string text = Text();
  constexpr int32_t Centred = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
  // The rectangle is filled first, so the text itself is drawn transparently.
  if (!selected_) {
    surface.DrawText(text, left_, 0, width_, height_, surface.ForeColor(), surface.BackColor(),
                     Centred, true);
    return;
  }
  // The line behind the highlight box keeps the back colour of an unselected field.
  surface.DrawBox(left_, 0, width_, height_, 1, OleColorNone, surface.BackColor());
  const int32_t boxHeight = surface.TextHeight(text);
  surface.DrawText(text, left_, (height_ - boxHeight) / 2, width_, boxHeight, vbHighlightText,
                   vbHighlight, Centred, true);
}

bool CDateMask::HitTest(int32_t x, int32_t y) const {
  return x >= left_ && x < left_ + width_ && y >= 0 && y < height_;
}

} // namespace tarnbrook
