#include "toolkits/qt/qt_session.hpp"

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <climits>
#include <cstdlib>

#include "automation/class_factory.hpp"
#include "toolkits/qt/qt_control.hpp"

namespace tarnbrook {

namespace {

// A window the simulator popped up, shown beside its control without taking the focus
// from it: the control keeps the keyboard, as it does on the simulator.
class QtPopup final : public QtHostedWindow {
public:
  QtPopup(QtSession& session, HWND top)
      : QtHostedWindow(session, nullptr,
                       Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
                           Qt::X11BypassWindowManagerHint),
        top_(top) {
    setAttribute(Qt::WA_ShowWithoutActivating);
  }
  HWND Top() const override { return top_; }

private:
  HWND top_;
};

Qt::CursorShape CursorOf(int shape) {
  switch (shape) {
  case IDC_IBEAM:
    return Qt::IBeamCursor;
  case IDC_HAND:
    return Qt::PointingHandCursor;
  case IDC_SIZENS:
    return Qt::SizeVerCursor;
  default:
    return Qt::ArrowCursor;
  }
}

// The rest of the program on the simulator's screen: a press there passes the simulator's
// mouse hooks, which close its pop-ups, and leaves its focus to Qt.
LRESULT ElsewhereProc(HWND, UINT msg, WPARAM, LPARAM) {
  return msg == WM_MOUSEACTIVATE ? LRESULT{MA_NOACTIVATE} : 0;
}

std::weak_ptr<QtSession>& Running() {
  static std::weak_ptr<QtSession> running;
  return running;
}

} // namespace

std::shared_ptr<QtSession> QtSession::Acquire() {
  std::shared_ptr<QtSession> session = Running().lock();
  if (!session) {
    session.reset(new QtSession());
    Running() = session;
  }
  return session;
}

QtSession::QtSession() : platform_(this) {
  RegisterTarnbrookClasses();
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { Process(); });
  elsewhere_ = platform_.CreateWindowEx(0, "", WS_POPUP | WS_VISIBLE, 0, 0, SlotLeft / 2,
                                        SlotLeft / 2, 0, ElsewhereProc);
  qApp->installEventFilter(this);
}

QtSession::~QtSession() {
  qApp->removeEventFilter(this);
  platform_.SetHost(nullptr);
  popups_.clear();
}

Point QtSession::Enter(QtControl* widget) {
  int slot = 0;
  while (slots_.count(slot)) {
    ++slot;
  }
  slots_[slot] = widget;
  int32_t height = (slots_.rbegin()->first + 1) * SlotHeight + SlotLeft;
  if (platform_.GetSystemMetrics(SM_CYSCREEN) < height) {
    platform_.SetScreenSize(2 * SlotHeight, height);
  }
  return {SlotLeft, SlotLeft + slot * SlotHeight};
}

void QtSession::Leave(QtControl* widget) {
  std::erase_if(slots_, [widget](const auto& entry) { return entry.second == widget; });
  std::erase_if(forms_, [widget](const auto& entry) { return entry.second == widget; });
}

void QtSession::Hovered(QtHostedWindow* window) {
  if (hovered_ != window) {
    hovered_ = window;
    window->setCursor(CursorOf(cursor_));
  }
}

QtControl* QtSession::OwnerOf(const Rect& client) const {
  QtControl* owner = nullptr;
  long nearest = LONG_MAX;
  for (auto [form, widget] : forms_) {
    Point origin = widget->Origin();
    long distance =
        std::labs(long(origin.x) - client.left) + std::labs(long(origin.y) - client.top);
    if (distance < nearest) {
      nearest = distance;
      owner = widget;
    }
  }
  return owner;
}

// A pop-up stands where it would beside its control on the simulator's screen.
void QtSession::Place(HWND top, const Rect& client) {
  QtControl* owner = OwnerOf(client);
  auto& popup = popups_[top];
  if (!popup) {
    popup = std::make_unique<QtPopup>(*this, top);
  }
  QPoint at;
  if (owner) {
    Point origin = owner->Origin();
    at = owner->mapToGlobal(QPoint(client.left - origin.x, client.top - origin.y));
  }
  popup->setGeometry(QRect(at, QSize(client.Width(), client.Height())));
}

void QtSession::TopLevelShown(HWND top, const Rect& client) {
  if (forms_.count(top) || top == elsewhere_) {
    return;
  }
  Place(top, client);
  popups_[top]->show();
}

void QtSession::TopLevelMoved(HWND top, const Rect& client) {
  if (popups_.count(top)) {
    Place(top, client);
  }
}

void QtSession::TopLevelHidden(HWND top) {
  if (auto found = popups_.find(top); found != popups_.end()) {
    found->second->hide();
  }
}

void QtSession::TopLevelDestroyed(HWND top) {
  popups_.erase(top);
}

void QtSession::Damaged(HWND top, const Rect& area) {
  QWidget* shown = nullptr;
  if (auto form = forms_.find(top); form != forms_.end()) {
    shown = form->second;
  } else if (auto popup = popups_.find(top); popup != popups_.end()) {
    shown = popup->second.get();
  }
  if (shown) {
    shown->update(QRect(area.left, area.top, area.Width(), area.Height()));
  }
}

void QtSession::CursorChanged(int shape) {
  cursor_ = shape;
  if (hovered_) {
    hovered_->setCursor(CursorOf(shape));
  }
}

void QtSession::WakeIn(std::optional<uint32_t> milliseconds) {
  if (milliseconds) {
    timer_.start(static_cast<int>(*milliseconds));
  } else {
    timer_.stop();
  }
}

// A press anywhere else in the program is a press outside the simulator's pop-ups, which
// close on it as they would on a press outside them on the simulator.
bool QtSession::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::MouseButtonPress || !watched->isWidgetType() ||
      dynamic_cast<QtHostedWindow*>(watched)) {
    return false;
  }
  for (const auto& [top, popup] : popups_) {
    if (popup->isVisible()) {
      platform_.MouseDown(VK_LBUTTON, Nowhere.x, Nowhere.y);
      platform_.MouseUp(VK_LBUTTON, Nowhere.x, Nowhere.y);
      Process();
      break;
    }
  }
  return false;
}

} // namespace tarnbrook
