// Formatting a date as "yyyy-mm-dd": ours beside ICU's SimpleDateFormat, strftime and digits
// written by hand; a named format and a picker field's text.
#include <ctime>
#include <memory>

#include <benchmark/benchmark.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include "common/date_format.hpp"
#include "draw/cmdc.hpp"
#include "picker/cdate_mask.hpp"

namespace {

void BM_FormatDate_ours(benchmark::State& state) {
  tarnbrook::DateValue value = 46347.7112; // 21 November 2026, 17:04
  for (auto _ : state) {
    std::string text = tarnbrook::FormatDate(value, "yyyy-mm-dd");
    benchmark::DoNotOptimize(text);
    value += 1.0;
    if (value > 2958000.0) {
      value = -100000.0;
    }
  }
}
BENCHMARK(BM_FormatDate_ours);

// The floor: the same civil conversion, then the ten characters put in place by hand.
void BM_HandWrittenDigits(benchmark::State& state) {
  tarnbrook::DateValue value = 46347.7112;
  for (auto _ : state) {
    const tarnbrook::CivilDate date = tarnbrook::CivilFromDateValue(value).Date;
    char buffer[10];
    const auto put = [&](int at, int number, int digits) {
      for (int k = digits - 1; k >= 0; --k, number /= 10) {
        buffer[at + k] = static_cast<char>('0' + number % 10);
      }
    };
    put(0, date.Year, 4);
    buffer[4] = '-';
    put(5, date.Month, 2);
    buffer[7] = '-';
    put(8, date.Day, 2);
    std::string text(buffer, sizeof buffer);
    benchmark::DoNotOptimize(text);
    value += 1.0;
    if (value > 2958000.0) {
      value = -100000.0;
    }
  }
}
BENCHMARK(BM_HandWrittenDigits);

// The calendar's value line.
void BM_FormatDate_MediumDate(benchmark::State& state) {
  tarnbrook::DateValue value = 46347.7112;
  for (auto _ : state) {
    std::string text = tarnbrook::FormatDate(value, "Medium Date");
    benchmark::DoNotOptimize(text);
    value += 1.0;
    if (value > 2958000.0) {
      value = -100000.0;
    }
  }
}
BENCHMARK(BM_FormatDate_MediumDate);

// The text one picker field draws, as laid out by the picker.
void BM_PickerFieldText(benchmark::State& state, const char* mask) {
  tarnbrook::cMDC surface;
  surface.Resize(100, 21);
  surface.SetFont("MS Sans Serif", 8.25f);
  tarnbrook::CDateMask field;
  field.SetMask(surface, mask, 3, 21);
  tarnbrook::DateValue value = 46347.7112;
  for (auto _ : state) {
    field.SetValue(value);
    std::string text = field.Text();
    benchmark::DoNotOptimize(text);
    value += 1.0;
    if (value > 2958000.0) {
      value = -100000.0;
    }
  }
}
BENCHMARK_CAPTURE(BM_PickerFieldText, dd, "dd");
BENCHMARK_CAPTURE(BM_PickerFieldText, MMM, "MMM");
BENCHMARK_CAPTURE(BM_PickerFieldText, tt, "tt");

void BM_Icu_SimpleDateFormat(benchmark::State& state) {
  UErrorCode status = U_ZERO_ERROR;
  icu::SimpleDateFormat format(icu::UnicodeString(u"yyyy-MM-dd"), icu::Locale::getUS(), status);
  format.adoptTimeZone(icu::TimeZone::createTimeZone(u"UTC"));
  if (U_FAILURE(status)) {
    state.SkipWithError("ICU could not build the format");
    return;
  }
  UDate when = 1795280640000.0; // 21 November 2026, 17:04 UTC, in milliseconds
  for (auto _ : state) {
    icu::UnicodeString text;
    format.format(when, text);
    std::string utf8;
    text.toUTF8String(utf8);
    benchmark::DoNotOptimize(utf8);
    when += 86400000.0;
  }
}
BENCHMARK(BM_Icu_SimpleDateFormat);

void BM_strftime(benchmark::State& state) {
  std::tm when{};
  when.tm_year = 126;
  when.tm_mon = 10;
  when.tm_mday = 21;
  char buffer[32];
  for (auto _ : state) {
    const size_t length = std::strftime(buffer, sizeof buffer, "%Y-%m-%d", &when);
    std::string text(buffer, length);
    benchmark::DoNotOptimize(text);
    when.tm_mday = when.tm_mday % 28 + 1;
  }
}
BENCHMARK(BM_strftime);

} // namespace
