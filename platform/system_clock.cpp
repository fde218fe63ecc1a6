#include "platform/system_clock.hpp"

#include <ctime>

#include "common/date_runtime.hpp"

namespace tarnbrook {

DateValue SystemNow() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) +
         TimeSerial(local.tm_hour, local.tm_min, local.tm_sec);
}

} // namespace tarnbrook
