#pragma once
#include <deque>
#include <string>

#include "host/control.hpp"

namespace tarnbrook {

// A read-only list showing the last lines added, newest at the bottom.
class EventList : public Control {
public:
  using Control::Control;
  std::string ClassName() const override { return "EventList"; }

  void AddLine(const std::string& line);
  void Clear();

protected:
  void OnPaint() override;

private:
  static constexpr size_t Kept = 100; // more than fit on any sensible form
  std::deque<std::string> lines_;
};

} // namespace tarnbrook
