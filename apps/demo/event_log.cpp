#include "apps/demo/event_log.hpp"

#include <cstdio>

namespace tarnbrook {

void EventLog::Write(const std::string& line) {
  std::fputs(line.c_str(), stdout);
  std::fputc('\n', stdout);
  std::fflush(stdout);
  if (listener_)
    listener_(line);
}

std::string EventLog::Text(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
  return text;
}

} // namespace tarnbrook
