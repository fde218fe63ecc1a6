// A Qt main window with a line edit, a hosted DatePicker and a hosted DateSelect. It prints
// each control event, the picker's value after a change, the selection's SQL and where the
// focus goes, one line each; on standard input it takes "bounds" (the widgets and any open
// pop-up on the screen), "value", "inner" (the class of the part holding the
// simulator's focus), "shot PATH" (the screen as a PNG file) and "quit".
#include <QApplication>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPixmap>
#include <QScreen>
#include <QSocketNotifier>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <cstdio>
#include <iostream>
#include <string>

#include "common/date_runtime.hpp"
#include "dateselect/date_select.hpp"
#include "toolkits/qt/qt_control.hpp"

namespace {

using namespace tarnbrook;

void Say(const QString& line) {
  std::printf("%s\n", line.toUtf8().constData());
  std::fflush(stdout);
}

QString Bounds(const QString& name, const QRect& r) {
  return QString("bounds %1 %2 %3 %4 %5")
      .arg(name)
      .arg(r.x())
      .arg(r.y())
      .arg(r.width())
      .arg(r.height());
}

QRect Global(QWidget* w) {
  return QRect(w->mapToGlobal(QPoint(0, 0)), w->size());
}

} // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  DateValue today = DateSerial(2026, 3, 15);
  QStringList args = app.arguments();
  if (int at = args.indexOf("--today"); at >= 0 && at + 1 < args.size()) {
    QStringList ymd = args[at + 1].split('-');
    if (ymd.size() == 3) {
      today = DateSerial(ymd[0].toInt(), ymd[1].toInt(), ymd[2].toInt());
    }
  }

  QMainWindow window;
  window.setWindowTitle("Tarnbrook in Qt");
  auto* central = new QWidget;
  auto* layout = new QVBoxLayout(central);
  auto* edit = new QLineEdit;
  edit->setObjectName("edit1");
  layout->addWidget(edit);
  auto* picker = new QtControl("Tarnbrook.DatePicker");
  picker->setObjectName("picker1");
  picker->platform().SetNow(today + 0.5);
  picker->dispatch().Let("Value", Variant::Date(today));
  layout->addWidget(picker);
  auto* select = new QtControl("Tarnbrook.DateSelect");
  select->setObjectName("select1");
  layout->addWidget(select);
  auto* edit2 = new QLineEdit;
  edit2->setObjectName("edit2");
  layout->addWidget(edit2);
  layout->addStretch();
  window.setCentralWidget(central);
  window.resize(420, 300);

  for (QtControl* control : {picker, select}) {
    QObject::connect(
        control, &QtControl::controlEvent, [control](const QString& name, const QStringList& args) {
          Say(control->objectName() + " " + name + (args.isEmpty() ? "" : " " + args.join(' ')));
          // The picker's value, and the selection's criteria, after each change.
          bool isPicker = control->objectName() == "picker1";
          if (name == "Change" && isPicker) {
            Say(control->objectName() + " Value " +
                QString::fromStdString(control->dispatch().Get("Value").ToString()));
          } else if (name == "Change") {
            Say(control->objectName() + " SQL " +
                QString::fromStdString(control->dispatch().Invoke("SQL").ToString()));
          }
        });
  }
  QObject::connect(&app, &QApplication::focusChanged, [](QWidget*, QWidget* now) {
    if (now) {
      Say("focus " + now->objectName());
    }
  });

  QSocketNotifier commands(0, QSocketNotifier::Read);
  QObject::connect(&commands, &QSocketNotifier::activated, [&] {
    std::string line;
    if (!std::getline(std::cin, line) || line == "quit") {
      app.quit();
      return;
    }
    QString command = QString::fromStdString(line);
    if (command == "bounds") {
      for (QWidget* w : {static_cast<QWidget*>(edit), static_cast<QWidget*>(picker),
                         static_cast<QWidget*>(select), static_cast<QWidget*>(edit2)}) {
        Say(Bounds(w->objectName(), Global(w)));
      }
      // The option list's field, a part of the DateSelect.
      HostedPlatform& platform = select->platform();
      HWND options = dynamic_cast<DateSelect&>(select->control()).cboSelection().hWnd();
      Point at = platform.ClientToScreen(options, {0, 0});
      Point origin = select->Origin();
      Rect field = platform.GetClientRect(options);
      Say(Bounds("options", QRect(select->mapToGlobal(QPoint(at.x - origin.x, at.y - origin.y)),
                                  QSize(field.Width(), field.Height()))));
      for (QWidget* top : QApplication::topLevelWidgets()) {
        if (top != &window && top->isVisible()) {
          Say(Bounds("popup", top->geometry()));
        }
      }
      Say("bounds done");
    } else if (command == "value") {
      Say("picker1 Value " + QString::fromStdString(picker->dispatch().Get("Value").ToString()));
      Say("select1 Selection " +
          QString::fromStdString(select->dispatch().Get("Selection").ToString()));
      Say("select1 SQL " + QString::fromStdString(select->dispatch().Invoke("SQL").ToString()));
    } else if (command == "inner") {
      // Which part of a control has the simulator's focus.
      Control* focused = Control::FromHandle(select->platform().GetFocus());
      Say(QString("inner ") + (focused ? QString::fromStdString(focused->ClassName()) : "none"));
    } else if (command.startsWith("shot ")) {
      QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(0);
      Say(shot.save(command.mid(5)) ? "shot done" : "shot failed");
    }
  });

  window.show();
  // Ready once the window is on the screen, so a click finds it.
  QTimer ready;
  QObject::connect(&ready, &QTimer::timeout, [&] {
    if (window.windowHandle() && window.windowHandle()->isExposed()) {
      ready.stop();
      Say("ready");
    }
  });
  ready.start(10);
  return app.exec();
}
