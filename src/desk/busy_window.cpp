#include "desk/busy_window.h"

namespace qublet {
namespace {

constexpr qint64 kRepaintEvery = 20;  // milliseconds

}  // namespace

BusyWindow::BusyWindow(QWidget& window) : window_(window) {
  window_.setCursor(Qt::WaitCursor);
  painted_.start();
}

BusyWindow::~BusyWindow() {
  lock_.Pump();
  window_.unsetCursor();
}

bool BusyWindow::IsDue() const {
  return painted_.elapsed() >= kRepaintEvery;
}

void BusyWindow::Repaint() {
  lock_.Pump();
  painted_.restart();
}

}  // namespace qublet
