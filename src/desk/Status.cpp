#include "desk/Status.h"

#include "platform/qt/shown_text.h"

namespace qublet {

Status::Status(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {
  setupUi(this);
  setCursor(Qt::WaitCursor);
  setAttribute(Qt::WA_ShowWithoutActivating);
}

void Status::Begin(const std::string& caption, int maximum) {
  setWindowTitle(ShownCaption(caption));
  CaptionText->setText(ShownText(caption));
  ProgressBar1->setRange(0, qMax(maximum, 1));
  // The count grows to this width, the window doesn't.
  Move(maximum);
  resize(sizeHint());
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
