#include "winplumb/debug_trace.hpp"

namespace tarnbrook {

namespace {
DebugTraceSink traceSink = nullptr;
} // namespace

void SetDebugTraceSink(DebugTraceSink sink) {
  traceSink = sink;
}

void DebugTrace(const std::string& line) {
  if (traceSink) {
    traceSink(line);
  }
}

} // namespace tarnbrook
