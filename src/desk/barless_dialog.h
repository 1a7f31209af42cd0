#pragma once

#include <QDialog>
#include <QLabel>

namespace qublet {

// A window without a title bar of its own: a thin frame, and a TitleBar at its top. It stands in the task switcher by
// its window title.
class BarlessDialog : public QDialog {
  Q_OBJECT

 public:
  explicit BarlessDialog(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// The label that such a window is moved by. It shows the window's picture.
class TitleBar : public QLabel {
  Q_OBJECT

 public:
  explicit TitleBar(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace qublet
