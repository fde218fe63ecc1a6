#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "draw/cmdc.hpp"

using namespace tarnbrook;

// One calendar-sized frame: clear, then 42 day numbers in their cells.
static void BM_cMDC_Frame(benchmark::State& state) {
  cMDC surface;
  surface.Resize(204, 180);
  surface.SetFont("MS Sans Serif", 8.25f);
  std::vector<std::string> days;
  for (int i = 0; i < 42; ++i) {
    days.push_back(std::to_string((i + 24) % 31 + 1));
  }
  for (auto _ : state) {
    surface.DrawBox(0, 0, 204, 180, 1, -1, vbWindowBackground);
    for (int i = 0; i < 42; ++i) {
      int32_t column = i % 7;
      int32_t row = i / 7;
      surface.DrawText(days[i], 4 + 28 * column, 52 + 16 * row, 28, 16, vbWindowText);
    }
    benchmark::DoNotOptimize(surface.hDC());
  }
}
BENCHMARK(BM_cMDC_Frame);
