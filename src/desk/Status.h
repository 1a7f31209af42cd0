#pragma once

#include <QDialog>

#include "ui_Status.h"

namespace qublet {

// The progress window of long work, which says by which key that is stopped. It stands over the main window and takes
// no input itself.
class Status : public QDialog, private Ui::Status {
  Q_OBJECT

 public:
  explicit Status(QWidget* parent);

  void Begin(const QString& caption, int maximum);
  void Move(int value);
};

}  // namespace qublet
