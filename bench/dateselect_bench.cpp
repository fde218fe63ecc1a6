// DateSelect: the SQL criteria of a range option, and a change of option through the
// constituents' layout and repaint to the pixels on the windows.
#include <benchmark/benchmark.h>

#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "host/container.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

namespace {

// A new DateSelect, 300 pixels wide, on a form on Monday 10 May 2004.
struct SelectOnForm {
  SelectOnForm() {
    platform.SetNow(DateSerial(2004, 5, 10) + 0.5);
    select = static_cast<DateSelect*>(
        &form.Add(std::make_unique<DateSelect>(form.hWnd()), "DateSelect1", 10, 10, 300, 80));
    platform.PumpMessages();
  }
  MemoryPlatform platform;
  Container form{400, 200};
  DateSelect* select = nullptr;
};

} // namespace

static void BM_DateSelect_SQLCriteria_Range(benchmark::State& state) {
  SelectOnForm on;
  on.select->SetSQLFieldName("OrderDate");
  on.select->SetSQLDateWrapper("'");
  on.select->SetSQLDateFormat("yyyy-mm-dd");
  on.select->SetSelection(dtsLast7days);
  if (on.select->SQLCriteria() != "OrderDate BETWEEN '2004-05-04' AND '2004-05-10'")
    state.SkipWithError("unexpected criteria");
  for (auto _ : state)
    benchmark::DoNotOptimize(on.select->SQLCriteria());
}
BENCHMARK(BM_DateSelect_SQLCriteria_Range);

// Last 7 days and Month by turns: different constituents shown, dates computed, and every
// window that changed repainted.
static void BM_DateSelect_SelectionToWindow(benchmark::State& state) {
  SelectOnForm on;
  const int32_t options[] = {dtsLast7days, dtsMonth};
  int frame = 0;
  for (auto _ : state) {
    on.select->SetSelection(options[frame++ & 1]);
    on.platform.PumpMessages();
    benchmark::DoNotOptimize(on.platform.WindowCanvas(on.select->dtpFrom().hWnd())->Data());
  }
}
BENCHMARK(BM_DateSelect_SelectionToWindow);
