#pragma once

#include <QDialog>
#include <string>

#include "ui_Status.h"

namespace qublet {

// The progress window of long work, which says by which key that is stopped. It stands over the main window, takes no
// input itself, and has no title bar whose buttons would do nothing.
class Status : public QDialog, private Ui::Status {
  Q_OBJECT

 public:
  explicit Status(QWidget* parent);

  void Begin(const std::string& caption, int maximum);
  void Move(int value);
};

}  // namespace qublet
