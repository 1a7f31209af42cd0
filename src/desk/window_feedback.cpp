#include "desk/window_feedback.h"

#include <utility>

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr qint64 kPumpEvery = 20;  // milliseconds: often enough for a smooth window, seldom enough to cost nothing

}  // namespace

void WindowFeedback::ShowIn(QWidget& window, std::function<void(const QString& text)> Activity) {
  places_.reset(new Places{window, std::move(Activity), Status(&window)});
  last_pump_.start();
}

void WindowFeedback::ShowNowhere() {
  places_.reset();
}

void WindowFeedback::LetRepaint() {
  if (!places_ || last_pump_.elapsed() < kPumpEvery) return;
  lock_.Pump();
  last_pump_.restart();
}

void WindowFeedback::BeginWait() {
  if (++waiting_ > 1) return;
  lock_.ForgetEscape();
  if (places_) places_->window.setCursor(Qt::WaitCursor);
}

void WindowFeedback::EndWait() {
  if (--waiting_ == 0 && places_) places_->window.unsetCursor();
}

void WindowFeedback::ShowActivity(const std::string& text) {
  if (places_) places_->activity(ShownText(text));
  // Between two folders of a walk the panel is empty for no time.
  if (!text.empty()) LetRepaint();
}

void WindowFeedback::BeginProgress(const std::string& caption, int maximum) {
  if (!places_) return;
  places_->status.Begin(caption, maximum);
  lock_.Pump();
}

void WindowFeedback::ShowProgress(int value) {
  if (!places_ || last_pump_.elapsed() < kPumpEvery) return;
  places_->status.Move(value);
  LetRepaint();
}

void WindowFeedback::EndProgress() {
  if (!places_) return;
  // What the user pressed during the work is thrown away with the last round.
  lock_.Pump();
  places_->status.hide();
}

}  // namespace qublet
