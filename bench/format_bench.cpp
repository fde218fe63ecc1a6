// Formatting a date as "yyyy-mm-dd": ours beside ICU's SimpleDateFormat and strftime.
#include <ctime>
#include <memory>

#include <benchmark/benchmark.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include "common/date_format.hpp"

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
