#include <benchmark/benchmark.h>

#include "draw/cmdc.hpp"
#include "picker/format_cutter.hpp"

using namespace tarnbrook;

// Cutting a long custom format into its fields, measuring each on a surface with a font.
static void BM_CutLongCustomFormat(benchmark::State& state) {
  cMDC surface;
  surface.Resize(300, 21);
  surface.SetFont("MS Sans Serif", 8.25f);
  for (auto _ : state) {
    std::vector<CDateMask> fields =
        CutDateFormat(surface, "dddd, MMMM dd, yyyy 'at' hh:mm:ss tt", 3, 21);
    benchmark::DoNotOptimize(fields.data());
  }
}
BENCHMARK(BM_CutLongCustomFormat);
