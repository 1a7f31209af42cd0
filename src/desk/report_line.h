#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

namespace qublet {

// The line of a tool's window that tells how far it is and how it ended: one line, elided in the middle and whole as
// a tip. Painted at once; told to screen readers at most ten times a second, the last text always.
class ReportLine : public QLabel {
  Q_OBJECT

 public:
  explicit ReportLine(QWidget* parent = nullptr);

  void Report(const QString& text);
  QString Reported() const { return reported_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Show();
  void Tell();

  QString reported_;
  QElapsedTimer last_told_;
  QTimer soon_;
};

}  // namespace qublet
