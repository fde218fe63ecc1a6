#pragma once
#include <QSize>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <memory>

#include "automation/dispatch.hpp"
#include "host/container.hpp"
#include "host/control.hpp"
#include "platform/hosted/hosted_platform.hpp"

namespace tarnbrook {

class QtSession;

// A widget showing one top-level window of the hosted simulator: its composed pixels, and
// the mouse and wheel fed back at the window's screen points.
class QtHostedWindow : public QWidget {
public:
  QtHostedWindow(QtSession& session, QWidget* parent, Qt::WindowFlags flags);
  // The simulator's top-level window shown here and its client area's screen origin.
  virtual HWND Top() const = 0;
  Point Origin() const;

protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void leaveEvent(QEvent* event) override;

  QtSession& session_;

private:
  Point ScreenPoint(const QPointF& local) const;
};

// A Tarnbrook control as a Qt widget: made by ProgID ("Tarnbrook.DatePicker",
// "Tarnbrook.DateSelect", "Tarnbrook.MonthCalendar"), on a form of its own in the one
// simulator every such widget of the program shares. The windows it pops up (a drop-down
// calendar, an option list) show as frameless windows beside it.
class QtControl : public QtHostedWindow {
  Q_OBJECT
public:
  // `size` empty: the class's usual size. Raises ControlError 429 for an unknown ProgID.
  explicit QtControl(const QString& progId, QWidget* parent = nullptr, QSize size = {});
  ~QtControl() override;

  Control& control() const { return *control_; }
  // Calls by name: dispatch().Get("Value"), Let, Call ...
  Dispatch dispatch() const { return Dispatch(*control_); }
  // The simulator every hosted widget of the program shares (its clock, its "today").
  HostedPlatform& platform() const;

  QSize sizeHint() const override;
  HWND Top() const override;

signals:
  // Each event of the control, its arguments as text.
  void controlEvent(const QString& name, const QStringList& args);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  bool focusNextPrevChild(bool next) override;

private:
  QtControl(std::shared_ptr<QtSession> session, const QString& progId, QWidget* parent, QSize size);
  void Key(QKeyEvent* event, bool down);
  // Tab or Shift+Tab inside the form; false when it went past the control's last stop.
  bool TabWithin(bool forward);

  std::shared_ptr<QtSession> keep_; // the simulator outlives the form
  std::unique_ptr<Container> form_;
  Control* control_ = nullptr;
  std::unique_ptr<Control> tabEnd_; // the form's last stop: reaching it leaves the widget
  EventConnection events_;
};

} // namespace tarnbrook
