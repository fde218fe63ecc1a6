// A hostile session over a form of every class whose every choice comes from the input:
// by-name writes and calls with hostile values, input, time, and handlers that replace their
// controls. Only ControlErrors may come out, and the sanitizers see every use of a control.
// Input: two bytes per choice.
#include <cstddef>
#include <cstdint>

#include "common/date_runtime.hpp"
#include "tests/support/hostile_session.hpp"

using namespace tarnbrook;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  MemoryPlatform platform;
  platform.SetNow(DateSerial(2004, 5, 10) + 0.5);
  size_t at = 0;
  HostileSession session(platform, [&]() -> uint32_t {
    uint32_t value = 0;
    for (int i = 0; i < 2; ++i)
      value = value << 8 | (at < size ? data[at++] : 0u);
    return value;
  });
  for (int steps = 0; at < size && steps < 200; ++steps)
    session.Step();
  return 0;
}
