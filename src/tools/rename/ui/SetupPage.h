#pragma once

#include <QWidget>

#include "tools/rename/ui/page_runner.h"
#include "ui_SetupPage.h"

namespace qublet {

// Where rules are kept, and what guards against a run by mistake.
class SetupPage : public QWidget, private Ui::SetupPage {
  Q_OBJECT

 public:
  explicit SetupPage(QWidget* parent = nullptr);

  void Attach(const PageRunner& runner);
  void Show(const RenameView& view);
};

}  // namespace qublet
