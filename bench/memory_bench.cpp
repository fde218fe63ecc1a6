// A control's own heap memory beside its off-screen surfaces (target: at most 1.5 times).
// Measured as the heap bytes in use after the control was made, sized, shown and painted,
// less the images of its windows' canvases, which belong to the window system. A shown
// window's surface is as large as its canvas, so those images also give the surfaces' size;
// a hidden window has neither until it is first shown. Process-wide caches (fonts, shaped
// text) are warmed by a control made and dropped before the measurement.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <memory>

#include "calendar/month_calendar.hpp"
#include "common/date_runtime.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

namespace {

size_t HeapInUse() {
  return mallinfo2().uordblks;
}

// Bytes of the canvas images of a window and its children.
size_t WindowCanvases(MemoryPlatform& platform, HWND hwnd) {
  size_t bytes = platform.WindowCanvas(hwnd)->ImageBytes();
  for (HWND child : platform.Children(hwnd))
    bytes += WindowCanvases(platform, child);
  return bytes;
}

template <class C> void MeasureControl(benchmark::State& state, int32_t width, int32_t height) {
  MemoryPlatform platform;
  platform.SetNow(DateSerial(2026, 11, 21) + 0.5);
  auto make = [&] {
    auto control = std::make_unique<C>();
    control->Move(0, 0, width, height);
    control->SetVisible(true);
    platform.PumpMessages();
    return control;
  };
  make();
  size_t own = 0, surfaces = 0;
  for (auto _ : state) {
    const size_t before = HeapInUse();
    auto control = make();
    surfaces = WindowCanvases(platform, control->hWnd());
    own = HeapInUse() - before - surfaces;
    benchmark::DoNotOptimize(control.get());
  }
  state.counters["control_bytes"] = double(own);
  state.counters["surface_bytes"] = double(surfaces);
  state.counters["ratio"] = double(own) / double(surfaces);
}

} // namespace

static void BM_MonthCalendar_Memory(benchmark::State& state) {
  MeasureControl<MonthCalendar>(state, MonthCalendar::FixedWidth, MonthCalendar::FixedHeight);
}
BENCHMARK(BM_MonthCalendar_Memory)->Iterations(20);

// The picker's drop-down calendar has no images until it first drops down.
static void BM_DatePicker_Memory(benchmark::State& state) {
  MeasureControl<DatePicker>(state, 140, 21);
}
BENCHMARK(BM_DatePicker_Memory)->Iterations(20);
