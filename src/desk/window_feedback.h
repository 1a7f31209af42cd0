#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "desk/Status.h"
#include "platform/feedback.h"
#include "platform/qt/input_lock.h"

namespace qublet {

// Shows long work in the main window: its wait cursor, the status bar's activity panel and the `Status` window.
class WindowFeedback : public Feedback {
 public:
  // From now on the work shows there; before, nothing is shown. `Activity` puts a text into the panel.
  void ShowIn(QWidget& window, std::function<void(const QString& text)> Activity);
  // The window goes away.
  void ShowNowhere();

  // Repaints now and then in the middle of work that shows no progress; what the user presses is thrown away.
  void LetRepaint();

  void BeginWait() override;
  void EndWait() override;
  bool Busy() const override { return waiting_ > 0; }
  int Command() const override { return command_; }
  bool Stopped() const override { return lock_.EscapePressed(); }
  void ShowActivity(const std::string& text) override;
  // It goes after a while, or when the next activity is shown.
  void ShowRemark(const std::string& text) override;
  void BeginProgress(const std::string& caption, int maximum) override;
  void ShowProgress(int value) override;
  void EndProgress() override;

 private:
  // The parts of the window.
  struct Places {
    QWidget& window;
    std::function<void(const QString& text)> activity;
    Status status;
    QTimer& remark;  // runs while one is shown
  };

  std::unique_ptr<Places> places_;
  InputLock lock_;
  QElapsedTimer last_pump_;
  int waiting_ = 0;
  int command_ = 0;
};

}  // namespace qublet
