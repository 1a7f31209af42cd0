#pragma once

#include <QFrame>
#include <QTimer>
#include <functional>

#include "ui_SplashFrm.h"

namespace qublet {

// What the user sees while the program starts. Its timer hands over to the main window.
class SplashFrm : public QFrame, private Ui::SplashFrm {
  Q_OBJECT

 public:
  // `ShowMain` makes the main window, loads it to its end and shows it; it runs once, from the timer.
  explicit SplashFrm(std::function<void(QWidget& splash)> ShowMain);

  // Starts the timer and shows itself; comes back when it can be seen. `ShowMain` runs from the event loop that comes
  // next, however long this takes.
  void Begin();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Timer1_Timer();
  void MakeRoom();

  std::function<void(QWidget& splash)> show_main_;
  QTimer Timer1;
  bool begun_ = false;
  bool painted_ = false;
};

}  // namespace qublet
