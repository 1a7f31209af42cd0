#pragma once

#include <QToolBar>

namespace qublet {

class Main;

// The row of buttons of the main window. A button runs its command whether or not the menu entry is enabled.
class Toolbar : public QToolBar {
  Q_OBJECT

 public:
  explicit Toolbar(Main& main);

  // Flat or raised buttons; with a frame that gives depth, or without.
  void SetLook(bool flat, bool three_d);

 protected:
  void actionEvent(QActionEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void RaiseButtons();

  bool flat_ = true;
  bool three_d_ = true;
};

}  // namespace qublet
