#include "desk/report_line.h"

#include <QFontMetrics>

namespace qublet {
namespace {

constexpr int kTellEvery = 100;  // milliseconds

}  // namespace

ReportLine::ReportLine(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  // A long path is cut, it never widens the window.
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  soon_.setSingleShot(true);
  soon_.setInterval(kTellEvery);
  connect(&soon_, &QTimer::timeout, this, &ReportLine::Tell);
}

void ReportLine::Report(const QString& text) {
  if (text == reported_) return;
  reported_ = text;
  Show();
  repaint();
  if (!last_told_.isValid() || last_told_.elapsed() >= kTellEvery) {
    Tell();
  } else {
    soon_.start();
  }
}

void ReportLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Show();
}

void ReportLine::Show() {
  const QString shown = fontMetrics().elidedText(reported_, Qt::ElideMiddle, contentsRect().width());
  setText(shown);
  setToolTip(shown == reported_ ? QString() : QStringLiteral("<p>%1</p>").arg(reported_.toHtmlEscaped()));
}

void ReportLine::Tell() {
  soon_.stop();
  last_told_.restart();
  setAccessibleName(reported_);
}

}  // namespace qublet
