#pragma once
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <map>
#include <memory>

#include "platform/hosted/hosted_platform.hpp"

namespace tarnbrook {

class QtControl;
class QtHostedWindow;

// The one hosted simulator of the program and what Qt shows of it: each control's form at
// a slot of its own on the simulator's screen, far enough apart that a window popped up
// belongs to the form nearest it.
class QtSession final : public QObject, public HostedPlatform::Host {
public:
  // The running session, or a new one; it ends with the last widget holding it.
  static std::shared_ptr<QtSession> Acquire();
  ~QtSession() override;

  HostedPlatform& Platform() { return platform_; }
  // Reports what changed to Qt; after every input.
  void Process() { platform_.Process(); }

  // A free slot's origin for a form, and the form's widget from then on.
  Point Enter(QtControl* widget);
  void Leave(QtControl* widget);
  void Register(HWND form, QtControl* widget) { forms_[form] = widget; }
  // The widget the simulator's pointer is over, for the cursor.
  void Hovered(QtHostedWindow* window);
  // A point of the simulator's screen where no control or pop-up stands.
  static constexpr Point Nowhere{2, 2};

  void TopLevelShown(HWND top, const Rect& client) override;
  void TopLevelMoved(HWND top, const Rect& client) override;
  void TopLevelHidden(HWND top) override;
  void TopLevelDestroyed(HWND top) override;
  void Damaged(HWND top, const Rect& area) override;
  void CursorChanged(int shape) override;
  void WakeIn(std::optional<uint32_t> milliseconds) override;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  QtSession();
  QtControl* OwnerOf(const Rect& client) const;
  void Place(HWND top, const Rect& client);

  static constexpr int32_t SlotLeft = 100;
  static constexpr int32_t SlotHeight = 1200;
  HostedPlatform platform_;
  HWND elsewhere_ = 0; // at Nowhere, shown by no widget
  QTimer timer_;
  std::map<int, QtControl*> slots_;
  std::map<HWND, QtControl*> forms_;
  std::map<HWND, std::unique_ptr<QtHostedWindow>> popups_;
  QPointer<QtHostedWindow> hovered_;
  int cursor_ = IDC_ARROW;
};

} // namespace tarnbrook
