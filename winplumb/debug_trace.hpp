#pragma once
#include <string>

namespace tarnbrook {

// The plumbing's debug trace. Lines go to the sink when one is set and nowhere otherwise,
// which is how a release program runs.
using DebugTraceSink = void (*)(const std::string& line);
void SetDebugTraceSink(DebugTraceSink sink);
void DebugTrace(const std::string& line);

} // namespace tarnbrook
