#include "picker/format_cutter.hpp"
#include "common/text.hpp"

#include <algorithm>
#include <string>

#include "common/control_error.hpp"
#include "common/locale.hpp"

namespace tarnbrook {

namespace {

// The longest token of each letter; "t", "h", "H", "m", "s" and "d" also swallow further
// copies of their letter.
struct TokenLetter {
  char letter;
  size_t longest;
  bool swallowsRepeats;
};

constexpr TokenLetter TokenLetters[] = {{'t', 2, true}, {'h', 2, true}, {'H', 2, true},
                                        {'m', 2, true}, {'s', 2, true}, {'M', 4, false},
                                        {'d', 4, true}, {'y', 4, false}};

const TokenLetter* FindTokenLetter(char c) {
  for (const TokenLetter& letter : TokenLetters) {
    if (letter.letter == c) {
      return &letter;
    }
  }
  return nullptr;
}

class Cutter {
public:
  Cutter(cMDC& surface, int32_t left, int32_t height)
      : surface_(surface), left_(left), height_(height) {}

  void AddField(const std::string& mask, bool forceLiteral) {
    CDateMask field;
    field.SetMask(surface_, mask, left_, height_, forceLiteral);
    const int64_t next = static_cast<int64_t>(left_) + field.Width();
    if (next != static_cast<int32_t>(next)) {
      RaiseRuntimeError(rtOverflow);
    }
    left_ = static_cast<int32_t>(next);
    fields_.push_back(std::move(field));
  }

  void FlushLiteral() {
    if (!pending_.empty()) {
      AddField(pending_, true);
      pending_.clear();
    }
  }

  void AppendLiteral(std::string_view text) { pending_ += text; }
  std::vector<CDateMask> Take() { return std::move(fields_); }

private:
  cMDC& surface_;
  int32_t left_;
  int32_t height_;
  std::string pending_;
  std::vector<CDateMask> fields_;
};

} // namespace

std::vector<CDateMask> CutDateFormat(cMDC& surface, std::string_view format, int32_t left,
                                     int32_t height) {
  const std::string dateSeparator = ReadLocaleItem(LOCALE_SDATE);
  const std::string timeSeparator = ReadLocaleItem(LOCALE_STIME);
  Cutter cutter(surface, left, height);
  for (size_t i = 0; i < format.size();) {
    const char c = format[i];
    if (const TokenLetter* letter = FindTokenLetter(c)) {
      size_t run = 1;
      while (i + run < format.size() && format[i + run] == c) {
        ++run;
      }
      const size_t take = std::min(run, letter->longest);
      cutter.FlushLiteral();
      cutter.AddField(std::string(take, c), false);
      i += letter->swallowsRepeats ? run : take;
    } else if (c == '\'') {
      const size_t end = std::min(format.find('\'', i + 1), format.size());
      cutter.AppendLiteral(format.substr(i + 1, end - i - 1));
      i = end + 1;
    } else if (c == '\\') {
      const size_t length = i + 1 < format.size() ? Utf8SequenceLength(format[i + 1]) : 0;
      cutter.AppendLiteral(format.substr(i + 1, length));
      i += 1 + length;
    } else {
      cutter.AppendLiteral(c == '/'   ? std::string_view(dateSeparator)
                           : c == ':' ? std::string_view(timeSeparator)
                                      : format.substr(i, 1));
      ++i;
    }
  }
  cutter.FlushLiteral();
  return cutter.Take();
}

} // namespace tarnbrook
