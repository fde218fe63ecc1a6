#include <benchmark/benchmark.h>

#include "common/date_runtime.hpp"

namespace {

void BM_DateSerial(benchmark::State& state) {
  int day = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(tarnbrook::DateSerial(2004, 5, day++ % 40));
  }
}
BENCHMARK(BM_DateSerial);

void BM_DateAdd(benchmark::State& state, const char* interval) {
  const tarnbrook::DateValue start = tarnbrook::DateSerial(2004, 1, 31) + 0.75;
  int number = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(tarnbrook::DateAdd(interval, number++ % 100 - 50, start));
  }
}
BENCHMARK_CAPTURE(BM_DateAdd, m, "m");
BENCHMARK_CAPTURE(BM_DateAdd, d, "d");

} // namespace
