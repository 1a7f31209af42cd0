#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <functional>

namespace qublet {

// Until it has the keyboard: for the toolkit a window also counts as active while the one that it belongs to has it.
inline bool ComesForward(const QWidget& form) {
  return QTest::qWaitFor([&] { return QApplication::activeWindow() == &form; });
}

// Has `look` work in the modal window that `open` opens, once that has the keyboard; what it leaves open is closed.
// True when there was such a window and it came forward.
inline bool WorkInModal(const std::function<void()>& open, const std::function<void(QWidget& form)>& look) {
  bool came = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    QWidget* form = QApplication::activeModalWidget();
    if (form == nullptr) return;
    watch.stop();
    came = ComesForward(*form);
    look(*form);
    form->close();
  });
  watch.start(0);
  open();
  return came;
}

}  // namespace qublet
