#include "desk/Status.h"

namespace qublet {

Status::Status(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
  setupUi(this);
  setCursor(Qt::WaitCursor);
  setAttribute(Qt::WA_ShowWithoutActivating);
}

void Status::Begin(const QString& caption, int maximum) {
  setWindowTitle(caption);
  ProgressBar1->setRange(0, qMax(maximum, 1));
  Move(0);
  if (parentWidget() != nullptr) {
    move(parentWidget()->frameGeometry().center() - QPoint(width() / 2, height() / 2));
  }
  show();
}

void Status::Move(int value) {
  ProgressBar1->setValue(value);
  ProgressText->setText(tr("%L1 of %L2").arg(value).arg(ProgressBar1->maximum()));
}

}  // namespace qublet
