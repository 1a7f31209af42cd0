#pragma once

#include <QWidget>
#include <vector>

#include "tools/rename/ui/page_runner.h"
#include "ui_MacrosPage.h"

namespace qublet {

// The list of rules, and the boxes that a new one is made of.
class MacrosPage : public QWidget, private Ui::MacrosPage {
  Q_OBJECT

 public:
  explicit MacrosPage(QWidget* parent = nullptr);

  void Attach(const PageRunner& runner);
  void Show(const RenameView& view);

 private:
  std::vector<RuleRow> shown_;
};

}  // namespace qublet
