#include "toolkits/qt/qt_control.hpp"

#include <QApplication>
#include <QFocusEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>
#include <cmath>

#include "automation/class_factory.hpp"
#include "draw/canvas.hpp"
#include "toolkits/qt/qt_keys.hpp"
#include "toolkits/qt/qt_session.hpp"

namespace tarnbrook {

namespace {

int VirtualButton(Qt::MouseButton button) {
  switch (button) {
  case Qt::LeftButton:
    return VK_LBUTTON;
  case Qt::RightButton:
    return VK_RBUTTON;
  case Qt::MiddleButton:
    return VK_MBUTTON;
  default:
    return 0;
  }
}

// Brings the simulator's modifier keys to the state Qt reports.
void SyncModifiers(HostedPlatform& platform, Qt::KeyboardModifiers modifiers, int shift = -1) {
  const std::pair<int, bool> keys[] = {
      {VK_SHIFT, shift >= 0 ? shift == 1 : bool(modifiers & Qt::ShiftModifier)},
      {VK_CONTROL, bool(modifiers & Qt::ControlModifier)},
      {VK_MENU, bool(modifiers & Qt::AltModifier)}};
  for (auto [key, down] : keys) {
    if ((platform.GetKeyState(key) < 0) != down) {
      down ? platform.KeyDown(key) : platform.KeyUp(key);
    }
  }
}

// The form's last tab stop, out of sight past its corner: Tab reaching it has gone past the
// control's own stops.
class TabEnd final : public Control {
public:
  using Control::Control;
  std::string ClassName() const override { return "TabEnd"; }
};

// The usual size of a class on a form, when the program gives none.
QSize UsualSize(const std::string& className) {
  if (className == "MonthCalendar") {
    return {204, 180};
  }
  if (className == "DatePicker") {
    return {150, 21};
  }
  if (className == "DateSelect") {
    return {300, 74};
  }
  return {200, 100};
}

} // namespace

QtHostedWindow::QtHostedWindow(QtSession& session, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), session_(session) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

Point QtHostedWindow::Origin() const {
  return session_.Platform().ClientToScreen(Top(), {0, 0});
}

Point QtHostedWindow::ScreenPoint(const QPointF& local) const {
  Point origin = Origin();
  return {origin.x + static_cast<int32_t>(std::floor(local.x())),
          origin.y + static_cast<int32_t>(std::floor(local.y()))};
}

void QtHostedWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const Canvas* pixels = session_.Platform().Pixels(Top());
  if (!pixels) {
    painter.fillRect(event->rect(), palette().window());
    return;
  }
  // The canvas's own rows, not copied: painted before the simulator runs again.
  QImage image(reinterpret_cast<const uchar*>(pixels->Data()), pixels->Width(), pixels->Height(),
               pixels->Stride(), QImage::Format_RGB32);
  QRect area = event->rect() & image.rect();
  painter.drawImage(area, image, area);
}

// A press that closes the pop-up it fell on (a day picked) takes the window system's grab
// with the window, so Qt delivers no release; the simulator gets it at once, or its button
// stays down and the press's capture keeps every later click.
void QtHostedWindow::mousePressEvent(QMouseEvent* event) {
  if (int button = VirtualButton(event->button())) {
    QtSession& session = session_; // this may go with the pop-up
    QPointer<QtHostedWindow> self(this);
    Point at = ScreenPoint(event->position());
    SyncModifiers(session.Platform(), event->modifiers());
    session.Platform().MouseDown(button, at.x, at.y);
    session.Process();
    if (!self || !self->isVisible()) {
      session.Platform().MouseUp(button, at.x, at.y);
      session.Process();
    }
  }
}

void QtHostedWindow::mouseReleaseEvent(QMouseEvent* event) {
  // Not for a button already let go for a closed pop-up.
  if (int button = VirtualButton(event->button());
      button && session_.Platform().GetKeyState(button) < 0) {
    Point at = ScreenPoint(event->position());
    session_.Platform().MouseUp(button, at.x, at.y);
    session_.Process();
  }
}

void QtHostedWindow::mouseDoubleClickEvent(QMouseEvent* event) {
  if (int button = VirtualButton(event->button())) {
    Point at = ScreenPoint(event->position());
    session_.Platform().MouseDoubleClick(button, at.x, at.y);
    session_.Process();
  }
}

void QtHostedWindow::mouseMoveEvent(QMouseEvent* event) {
  Point at = ScreenPoint(event->position());
  session_.Hovered(this);
  session_.Platform().MouseMove(at.x, at.y);
  session_.Process();
}

void QtHostedWindow::wheelEvent(QWheelEvent* event) {
  int delta = event->angleDelta().y(); // eighths of a degree: 120 a notch, as WHEEL_DELTA
  if (delta == 0) {
    event->ignore();
    return;
  }
  Point at = ScreenPoint(event->position());
  session_.Platform().MouseWheel(delta, at.x, at.y);
  session_.Process();
}

// The pointer leaves for a place with no window, so hot-tracking ends; not while a button
// is held, when the press's window keeps the mouse.
void QtHostedWindow::leaveEvent(QEvent*) {
  if (QApplication::mouseButtons() == Qt::NoButton) {
    session_.Platform().MouseMove(QtSession::Nowhere.x, QtSession::Nowhere.y);
    session_.Process();
  }
}

QtControl::QtControl(const QString& progId, QWidget* parent, QSize size)
    : QtControl(QtSession::Acquire(), progId, parent, size) {}

QtControl::QtControl(std::shared_ptr<QtSession> session, const QString& progId, QWidget* parent,
                     QSize size)
    : QtHostedWindow(*session, parent, {}), keep_(std::move(session)) {
  HostedPlatform& platform = session_.Platform();
  Point at = session_.Enter(this);
  try {
    form_ = std::make_unique<Container>(1, 1, "");
    std::unique_ptr<Control> made = CreateObject(progId.toStdString(), form_->hWnd());
    if (size.isEmpty()) {
      size = UsualSize(made->ClassName());
    }
    control_ = &form_->Add(std::move(made), "control1", 0, 0, size.width(), size.height());
  } catch (...) {
    form_.reset();
    session_.Leave(this);
    throw;
  }
  Rect bounds = platform.GetWindowRect(control_->hWnd()); // the control may set its own size
  platform.MoveWindow(form_->hWnd(), at.x, at.y, bounds.Width(), bounds.Height(), true);
  tabEnd_ = std::make_unique<TabEnd>(form_->hWnd());
  tabEnd_->Move(bounds.Width(), bounds.Height(), 1, 1);
  session_.Register(form_->hWnd(), this);

  events_ = dispatch().Connect([this](const std::string& name, std::vector<Variant>& args) {
    QStringList texts;
    for (const Variant& arg : args) {
      texts << QString::fromStdString(arg.ToString());
    }
    // A fault in the program's slot must not cut the control's own work short.
    try {
      emit controlEvent(QString::fromStdString(name), texts);
    } catch (const std::exception& error) {
      qWarning("%s handler: %s", name.c_str(), error.what());
    }
  });

  if (FormOf(platform.GetFocus()) == form_->hWnd()) {
    platform.SetFocus(0); // the control has the focus when Qt gives it
  }
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setAttribute(Qt::WA_InputMethodEnabled, false);
  resize(sizeHint());
  session_.Process();
}

QtControl::~QtControl() {
  events_.reset();
  session_.Leave(this);
  tabEnd_.reset();
  form_.reset();
  session_.Process(); // the pop-ups go with the control
}

HostedPlatform& QtControl::platform() const {
  return session_.Platform();
}

HWND QtControl::Top() const {
  return form_->hWnd();
}

QSize QtControl::sizeHint() const {
  Rect client = session_.Platform().GetClientRect(form_->hWnd());
  return {client.Width(), client.Height()};
}

void QtControl::Key(QKeyEvent* event, bool down) {
  HostedPlatform& platform = session_.Platform();
  if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) {
    event->ignore(); // focusNextPrevChild took it
    return;
  }
  if (!down && event->isAutoRepeat()) {
    return;
  }
  QtKeyStroke stroke = VirtualKeyFromQt(event->key(), event->modifiers(), event->text());
  const int key = stroke.virtualKey;
  if (!key) {
    QString text = event->text();
    if (down && text.size() == 1 && text[0].unicode() >= 0xA0 && text[0].unicode() <= 0xFF) {
      platform.TypeChar(static_cast<char>(text[0].unicode()));
      session_.Process();
      return;
    }
    event->ignore();
    return;
  }
  if (key != VK_SHIFT && key != VK_CONTROL && key != VK_MENU && down) {
    SyncModifiers(platform, event->modifiers(), stroke.shift);
  }
  down ? platform.KeyDown(key) : platform.KeyUp(key);
  session_.Process();
}

void QtControl::keyPressEvent(QKeyEvent* event) {
  Key(event, true);
}

void QtControl::keyReleaseEvent(QKeyEvent* event) {
  Key(event, false);
}

bool QtControl::TabWithin(bool forward) {
  HostedPlatform& platform = session_.Platform();
  SyncModifiers(platform, {}, forward ? 0 : 1);
  platform.KeyDown(VK_TAB);
  platform.KeyUp(VK_TAB);
  SyncModifiers(platform, QApplication::keyboardModifiers());
  session_.Process();
  return platform.GetFocus() != tabEnd_->hWnd();
}

bool QtControl::focusNextPrevChild(bool next) {
  return TabWithin(next) || QWidget::focusNextPrevChild(next);
}

// Tab comes in at the control's first stop, Shift+Tab at its last; a click or the window's
// return gives the focus to the control as a whole, unless one of its parts has it.
void QtControl::focusInEvent(QFocusEvent* event) {
  HostedPlatform& platform = session_.Platform();
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
    platform.SetFocus(tabEnd_->hWnd());
    TabWithin(event->reason() == Qt::TabFocusReason);
    return;
  }
  HWND focused = platform.GetFocus();
  if (!focused || FormOf(focused) != form_->hWnd() || focused == tabEnd_->hWnd()) {
    platform.SetFocus(control_->hWnd());
  }
  session_.Process();
}

void QtControl::focusOutEvent(QFocusEvent*) {
  HostedPlatform& platform = session_.Platform();
  if (HWND focused = platform.GetFocus(); focused && FormOf(focused) == form_->hWnd()) {
    platform.SetFocus(0);
    session_.Process();
  }
}

} // namespace tarnbrook
