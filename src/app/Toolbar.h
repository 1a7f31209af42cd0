#pragma once

#include <QToolBar>
#include <map>

#include "app/toolbar_layout.h"

namespace qublet {

// The row of buttons of the main window. A button runs its command whether or not the menu entry is enabled.
class Toolbar : public QToolBar {
  Q_OBJECT

 public:
  explicit Toolbar(QWidget* window);

  // Flat or raised buttons; with a frame that gives depth, or without.
  void SetLook(bool flat, bool three_d);

  const ToolbarLayout& Layout() const { return layout_; }
  void ShowLayout(const ToolbarLayout& layout);

 signals:
  // A button that stands for a menu entry was pressed, or that entry of the drop-down was chosen.
  void commandWanted(qublet::CommandName command);
  // A double click beside the buttons.
  void customiseWanted();
  // The right button was released at a point of the screen.
  void menuWanted(QPoint point);

 protected:
  void actionEvent(QActionEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  QAction* MakeButton(const ToolButton& button);
  QMenu* MakeDropDown();
  void RaiseButtons();

  std::map<int, QAction*> buttons_;  // by index; the gaps are made anew with each layout
  ToolbarLayout layout_;
  bool flat_ = true;
  bool three_d_ = true;
};

}  // namespace qublet
