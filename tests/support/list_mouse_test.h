#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/main_window.h"

namespace qublet {

// The main window with five rows, a to e, none selected, and a mouse over its list.
class ListMouseTest : public testing::Test {
 protected:
  ListMouseTest() {
    for (const char* name : {"a", "b", "c", "d", "e"}) window.drives.Write(std::string("m/") + name + ".mp3", kNoise);
    window.Start();
    window.Add("c:\\m");
    window.Run("MEditSelNone");
    window.document->PlaylistChanged = false;
  }
  ~ListMouseTest() override { Menu().close(); }

  QWidget& View() { return *window.List().viewport(); }
  QMenu& Menu() { return *window.main->findChild<QMenu*>("MEdit"); }
  // A point on a row, from 1; beyond the last row it lies in the free room below.
  QPoint On(int row, int column = kFileName) {
    const QModelIndex index = window.List().model()->index(row - 1, column);
    return index.isValid() ? window.List().visualRect(index).center() : View().rect().bottomLeft() + QPoint(3, -3);
  }
  void Mouse(QEvent::Type type, QPoint point, Qt::MouseButton button, Qt::MouseButtons held,
             Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(type, point, View().mapToGlobal(point), button, held, modifiers);
    QCoreApplication::sendEvent(&View(), &event);
  }
  void Press(QPoint point, Qt::MouseButton button = Qt::RightButton, Qt::KeyboardModifiers modifiers = {}) {
    Mouse(QEvent::MouseButtonPress, point, button, button, modifiers);
  }
  void Move(QPoint point, Qt::MouseButtons held = Qt::RightButton) {
    Mouse(QEvent::MouseMove, point, Qt::NoButton, held);
  }
  void Release(QPoint point, Qt::MouseButton button = Qt::RightButton, Qt::KeyboardModifiers modifiers = {}) {
    Mouse(QEvent::MouseButtonRelease, point, button, Qt::NoButton, modifiers);
  }
  void Select(std::initializer_list<int> rows) {
    window.Run("MEditSelNone");
    for (const int row : rows) window.Rows().SetSelected(row, true);
    window.document->PlaylistChanged = false;
  }
  std::string Order() {
    std::string order;
    for (int i = 1; i <= window.Rows().Count(); ++i) order += window.Rows().At(i).cells[kFileName][0];
    return order;
  }

  MainWindow window;
};

}  // namespace qublet
