#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QWidget>

#include "app/Status.h"
#include "platform/feedback.h"
#include "platform/qt/input_lock.h"

namespace qublet {

// Shows long work in the main window: the list's wait cursor, the status bar's activity panel and the `Status`
// window.
class WindowFeedback : public Feedback {
 public:
  WindowFeedback(QWidget& list, QLabel& activity, QWidget* window);

  // True while a batch runs; the window takes no command then.
  bool Busy() const { return waiting_ > 0; }

  // Repaints now and then in the middle of work that shows no progress; what the user presses is thrown away.
  void LetRepaint();

  void BeginWait() override;
  void EndWait() override;
  void ShowActivity(const std::string& text) override;
  void BeginProgress(const std::string& caption, int maximum) override;
  void ShowProgress(int value) override;
  void EndProgress() override;

 private:
  QWidget& list_;
  QLabel& activity_;
  Status status_;
  InputLock lock_;
  QElapsedTimer last_pump_;
  int waiting_ = 0;
};

}  // namespace qublet
