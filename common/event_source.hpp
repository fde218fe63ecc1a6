#pragma once
#include <algorithm>
#include <utility>
#include <vector>

#include "common/dispatch_depth.hpp"

namespace tarnbrook {

// The sinks connected to one control's events; each event is raised synchronously to every
// sink in connection order. A sink connected twice is called once.
template <class Sink> class EventSource {
public:
  void Connect(Sink* sink) {
    if (sink && std::find(sinks_.begin(), sinks_.end(), sink) == sinks_.end())
      sinks_.push_back(sink);
  }
  void Disconnect(Sink* sink) { std::erase(sinks_, sink); }

  // Calls `event` on every sink; by-reference arguments pass from one sink to the next. A
  // sink that an earlier handler disconnected is not called.
  template <class... Params, class... Args>
  void Raise(void (Sink::*event)(Params...), Args&&... args) {
    DispatchDepth raising;
    for (Sink* sink : std::vector<Sink*>(sinks_))
      if (std::find(sinks_.begin(), sinks_.end(), sink) != sinks_.end())
        (sink->*event)(std::forward<Args>(args)...);
  }

private:
  std::vector<Sink*> sinks_;
};

} // namespace tarnbrook
