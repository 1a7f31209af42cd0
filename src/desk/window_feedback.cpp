#include "desk/window_feedback.h"

#include <chrono>
#include <utility>

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

constexpr qint64 kPumpEvery = 20;  // milliseconds: often enough for a smooth window, seldom enough to cost nothing
constexpr std::chrono::seconds kRemarkStays{10};

}  // namespace

void WindowFeedback::ShowIn(QWidget& window, std::function<void(const QString& text)> Activity) {
  auto* remark = new QTimer(&window);
  remark->setObjectName(QStringLiteral("RemarkTimer"));
  remark->setSingleShot(true);
  remark->setInterval(kRemarkStays);
  QObject::connect(remark, &QTimer::timeout, remark, [this] {
    if (places_) places_->activity({});
  });
  places_.reset(new Places{window, std::move(Activity), Status(&window), *remark});
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
  ++command_;
  lock_.ForgetEscape();
  if (places_) places_->window.setCursor(Qt::WaitCursor);
}

void WindowFeedback::EndWait() {
  if (--waiting_ == 0 && places_) places_->window.unsetCursor();
}

void WindowFeedback::ShowActivity(const std::string& text) {
  if (places_) {
    places_->remark.stop();
    places_->activity(ShownText(text));
  }
  // Between two folders of a walk the panel is empty for no time.
  if (!text.empty()) LetRepaint();
}

void WindowFeedback::ShowRemark(const std::string& text) {
  if (!places_) return;
  places_->activity(ShownText(text));
  places_->remark.start();
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
