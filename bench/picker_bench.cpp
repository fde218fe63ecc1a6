// A keystroke on a focused DatePicker, through the simulator's key injection, to the pixels
// on its window.
#include <benchmark/benchmark.h>

#include "common/date_runtime.hpp"
#include "picker/date_picker.hpp"
#include "platform/memory/memory_platform.hpp"

using namespace tarnbrook;

namespace {

// A focused 220 x 21 picker showing Saturday 21 November 2026 as a long date.
struct FocusedPicker {
  FocusedPicker() {
    platform.SetNow(DateSerial(2026, 11, 21) + 0.5);
    picker.InitProperties();
    picker.SetFormat(dtpLongDate);
    picker.SetValue(Variant::Date(platform.Today()));
    picker.Move(10, 10, 220, 21);
    picker.SetVisible(true);
    picker.SetFocus();
    platform.PumpMessages();
  }
  MemoryPlatform platform;
  DatePicker picker;
};

} // namespace

// Up and Down by turns, so the date stays where it is: each press steps the day, raises Change
// and repaints the whole picker to its window.
static void BM_DatePicker_KeystrokeToWindow(benchmark::State& state) {
  FocusedPicker focused;
  focused.platform.Key(VK_UP);
  if (focused.picker.Value().ToDate() != DateSerial(2026, 11, 22))
    state.SkipWithError("the key does not reach the picker");
  const int keys[] = {VK_DOWN, VK_UP};
  int frame = 0;
  for (auto _ : state) {
    const int key = keys[frame++ & 1];
    focused.platform.KeyDown(key);
    focused.platform.KeyUp(key);
    benchmark::DoNotOptimize(focused.platform.WindowCanvas(focused.picker.hWnd())->Data());
  }
}
BENCHMARK(BM_DatePicker_KeystrokeToWindow);
