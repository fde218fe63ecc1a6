#include "platform/hosted/hosted_platform.hpp"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/system_clock.hpp"

namespace tarnbrook {

namespace {

Rect Intersect(const Rect& a, const Rect& b) {
  Rect r{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
         std::min(a.bottom, b.bottom)};
  return r.left < r.right && r.top < r.bottom ? r : Rect{};
}

bool Empty(const Rect& r) {
  return r.Width() <= 0 || r.Height() <= 0;
}

void Unite(Rect& into, const Rect& r) {
  if (Empty(r)) {
    return;
  }
  into = Empty(into) ? r
                     : Rect{std::min(into.left, r.left), std::min(into.top, r.top),
                            std::max(into.right, r.right), std::max(into.bottom, r.bottom)};
}

} // namespace

HostedPlatform::HostedPlatform(Host* host) : host_(host) {
  SetNow(SystemNow());
  StartRealTime();
}

const Canvas* HostedPlatform::Pixels(HWND top) const {
  auto it = tops_.find(top);
  return it == tops_.end() || !it->second.visible ? nullptr : it->second.pixels.get();
}

void HostedPlatform::SetCursor(int shape) {
  MemoryPlatform::SetCursor(shape);
  if (host_ && shape != reportedCursor_) {
    reportedCursor_ = shape;
    host_->CursorChanged(shape);
  }
}

void HostedPlatform::Process() {
  if (processing_) {
    return;
  }
  processing_ = true;
  struct Done {
    bool& flag;
    ~Done() { flag = false; }
  } done{processing_};
  FollowRealTime();
  PumpMessages();
  Report();
}

void HostedPlatform::Walk(HWND top, HWND hwnd, const Rect& clip,
                          std::map<HWND, Placement>& placements) {
  Point topOrigin = ClientToScreen(top, {0, 0});
  Point origin = ClientToScreen(hwnd, {0, 0});
  Rect client = GetClientRect(hwnd);
  Rect area = Intersect(clip, {origin.x - topOrigin.x, origin.y - topOrigin.y,
                               origin.x - topOrigin.x + client.Width(),
                               origin.y - topOrigin.y + client.Height()});
  placements[hwnd] = {top, area};
  for (HWND child : Children(hwnd)) {
    if (IsWindowVisible(child)) {
      Walk(top, child, area, placements);
    }
  }
}

// Compares the windows with what was last reported: top-level windows first (a shown one
// is told before its pixels), then every window whose place or pixels changed damages
// its part of its top-level window.
void HostedPlatform::Report() {
  if (!host_) {
    return;
  }
  std::vector<HWND> painted = TakePaintedWindows();
  std::map<HWND, Rect> damage;

  for (auto it = tops_.begin(); it != tops_.end();) {
    // One put into another window (a drop-down taken back) is gone as a top-level window.
    if (IsWindow(it->first) && GetParent(it->first) == 0) {
      ++it;
      continue;
    }
    HWND gone = it->first;
    it = tops_.erase(it);
    host_->TopLevelDestroyed(gone);
  }

  std::map<HWND, Placement> placements;
  for (HWND top : Children(GetDesktopWindow())) {
    Point origin = ClientToScreen(top, {0, 0});
    Rect size = GetClientRect(top);
    Rect client{origin.x, origin.y, origin.x + size.Width(), origin.y + size.Height()};
    bool visible = IsWindowVisible(top) && !Empty(client);
    auto found = tops_.find(top);
    if (found == tops_.end() && !visible) {
      continue;
    }
    Shown& shown = tops_[top];
    bool resized = !shown.pixels || shown.client.Width() != client.Width() ||
                   shown.client.Height() != client.Height();
    if (visible && resized) {
      shown.pixels = std::make_unique<Canvas>(client.Width(), client.Height());
    }
    bool moved = found != tops_.end() && shown.client != client;
    bool appeared = visible && !shown.visible;
    bool vanished = !visible && shown.visible;
    shown.client = client;
    shown.visible = visible;
    if (appeared) {
      host_->TopLevelShown(top, client);
    } else if (vanished) {
      host_->TopLevelHidden(top);
    } else if (moved && visible) {
      host_->TopLevelMoved(top, client);
    }
    if (visible) {
      if (appeared || resized) {
        Unite(damage[top], {0, 0, client.Width(), client.Height()});
      }
      Walk(top, top, {0, 0, client.Width(), client.Height()}, placements);
    }
  }

  std::set<HWND> windows;
  for (const auto& entry : placements_) {
    windows.insert(entry.first);
  }
  for (const auto& entry : placements) {
    windows.insert(entry.first);
  }
  for (HWND hwnd : windows) {
    auto before = placements_.find(hwnd);
    auto now = placements.find(hwnd);
    Placement was = before == placements_.end() ? Placement{} : before->second;
    Placement is = now == placements.end() ? Placement{} : now->second;
    if (was != is) {
      if (placements.count(was.top) && was.top) {
        Unite(damage[was.top], was.area);
      }
      if (is.top) {
        Unite(damage[is.top], is.area);
      }
    }
  }
  for (HWND hwnd : painted) {
    if (auto now = placements.find(hwnd); now != placements.end()) {
      Unite(damage[now->second.top], now->second.area);
    }
  }
  placements_ = std::move(placements);

  for (auto& [top, area] : damage) {
    auto shown = tops_.find(top);
    if (Empty(area) || shown == tops_.end() || !shown->second.visible) {
      continue;
    }
    ComposeWindow(top, *shown->second.pixels, area);
    host_->Damaged(top, area);
  }
  host_->WakeIn(MillisecondsToNextTimer());
}

} // namespace tarnbrook
