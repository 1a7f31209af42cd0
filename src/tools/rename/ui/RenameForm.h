#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>

#include "tools/rename/renamer.h"
#include "ui_RenameForm.h"

namespace qublet {

// The window that renames many files. It shows what Renamer says and brings back what the user does. It only hides
// when it is closed.
class RenameForm : public QDialog, private Ui::RenameForm {
  Q_OBJECT

 public:
  RenameForm(Engine& engine, QWidget* parent);

 public slots:
  void reject() override;

 private:
  void Activate();
  void Run(const std::function<void()>& command);
  void RunLong(void (Renamer::*command)(const Renamer::Watch&));
  void Render();
  void RenderTimer();
  void RenameTab_Click(int page);

  Renamer renamer_;
  QTimer Timer1{this};
};

}  // namespace qublet
