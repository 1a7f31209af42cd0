#include "app/window_feedback.h"

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr qint64 kPumpEvery = 20;  // milliseconds: often enough for a smooth window, seldom enough to cost nothing

}  // namespace

WindowFeedback::WindowFeedback(QWidget& list, QLabel& activity, QWidget* window)
    : list_(list), activity_(activity), status_(window) {
  last_pump_.start();
}

void WindowFeedback::LetRepaint() {
  if (last_pump_.elapsed() < kPumpEvery) return;
  lock_.Pump();
  last_pump_.restart();
}

void WindowFeedback::BeginWait() {
  if (++waiting_ == 1) list_.setCursor(Qt::WaitCursor);
}

void WindowFeedback::EndWait() {
  if (--waiting_ == 0) list_.unsetCursor();
}

void WindowFeedback::ShowActivity(const std::string& text) {
  activity_.setText(ShownText(text));
  LetRepaint();
}

void WindowFeedback::BeginProgress(const std::string& caption, int maximum) {
  status_.Begin(ShownCaption(caption), maximum);
  lock_.Pump();
}

void WindowFeedback::ShowProgress(int value) {
  if (last_pump_.elapsed() < kPumpEvery) return;
  status_.Move(value);
  LetRepaint();
}

void WindowFeedback::EndProgress() {
  // What the user pressed during the work is thrown away with the last round.
  lock_.Pump();
  status_.hide();
}

}  // namespace qublet
