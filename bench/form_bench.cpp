// A form of 1000 calendars and 1000 pickers: made and shown, then read back from its file.
// Counters give the peak resident memory of the process (kB) after each.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <memory>

#include "automation/class_factory.hpp"
#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "host/container.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

namespace {

constexpr int PerClass = 1000;

double PeakResidentKb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return double(usage.ru_maxrss);
}

// Calendars and pickers laid out in rows, all shown, on a screen-sized form that scrolls.
void FillForm(Container& form) {
  for (int i = 0; i < PerClass; ++i) {
    const int32_t left = (i % 20) * 210, top = (i / 20) * 210;
    form.Add(std::make_unique<MonthCalendar>(form.hWnd()), "Calendar" + std::to_string(i), left,
             top, MonthCalendar::FixedWidth, MonthCalendar::FixedHeight);
    form.Add(std::make_unique<DatePicker>(form.hWnd()), "Picker" + std::to_string(i), left,
             top + 184, 140, 21);
  }
}

struct Today {
  Today() { platform.SetNow(DateSerial(2026, 11, 21) + 0.5); }
  MemoryPlatform platform;
};

} // namespace

static void BM_Form_Create2000(benchmark::State& state) {
  Today today;
  std::unique_ptr<Container> form;
  for (auto _ : state) {
    state.PauseTiming(); // tearing the last form down is not part of it
    form.reset();
    state.ResumeTiming();
    const int paintsBefore = today.platform.PaintCount();
    form = std::make_unique<Container>(1024, 768);
    FillForm(*form);
    today.platform.PumpMessages();
    state.counters["paints_per_control"] =
        double(today.platform.PaintCount() - paintsBefore) / (2 * PerClass);
  }
  state.counters["peak_rss_kB"] = PeakResidentKb();
}
BENCHMARK(BM_Form_Create2000)->Unit(benchmark::kMillisecond)->Iterations(3);

static void BM_Form_Reload2000(benchmark::State& state) {
  Today today;
  RegisterTarnbrookClasses();
  const std::string path = "/tmp/tarnbrook_bench_form.json";
  {
    Container form(1024, 768);
    FillForm(form);
    form.SaveToFile(path);
  }
  std::unique_ptr<Container> form;
  for (auto _ : state) {
    state.PauseTiming();
    form.reset();
    state.ResumeTiming();
    form = std::make_unique<Container>(1024, 768);
    form->LoadFromFile(path);
    today.platform.PumpMessages();
  }
  form.reset();
  std::remove(path.c_str());
  state.counters["peak_rss_kB"] = PeakResidentKb();
}
BENCHMARK(BM_Form_Reload2000)->Unit(benchmark::kMillisecond)->Iterations(3);
