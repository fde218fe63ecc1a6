#include "apps/demo/event_list.hpp"

#include <algorithm>

#include "draw/border_style.hpp"

namespace tarnbrook {

namespace {
constexpr int32_t LineHeight = 14;
constexpr int32_t Inset = 4;
} // namespace

void EventList::AddLine(const std::string& line) {
  lines_.push_back(line);
  if (lines_.size() > Kept)
    lines_.pop_front();
  Refresh();
}

void EventList::Clear() {
  lines_.clear();
  Refresh();
}

void EventList::OnPaint() {
  cMDC& surface = Surface();
  const int32_t width = surface.Width(), height = surface.Height();
  surface.DrawBox(0, 0, width, height, 1, OleColorNone, vbWindowBackground);
  surface.SetFont("DejaVu Sans Mono", 8.f);
  const size_t fitting = static_cast<size_t>(std::max(0, (height - 2 * Inset) / LineHeight));
  const size_t first = lines_.size() > fitting ? lines_.size() - fitting : 0;
  int32_t top = Inset;
  for (size_t i = first; i < lines_.size(); ++i, top += LineHeight)
    surface.DrawText(lines_[i], Inset, top, width - 2 * Inset, LineHeight, vbWindowText,
                     OleColorNone, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX, true);
  DrawBorderStyle(surface, dtpBorderSunken3D, 0, 0, width, height, vbWindowText);
}

} // namespace tarnbrook
