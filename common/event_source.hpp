#pragma once
#include <algorithm>
#include <utility>
#include <vector>

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

  // Calls `event` on every sink; by-reference arguments pass from one sink to the next.
  template <class... Params, class... Args>
  void Raise(void (Sink::*event)(Params...), Args&&... args) {
    for (Sink* sink : std::vector<Sink*>(sinks_)) // a handler may disconnect
      (sink->*event)(std::forward<Args>(args)...);
  }

private:
  std::vector<Sink*> sinks_;
};

} // namespace tarnbrook
