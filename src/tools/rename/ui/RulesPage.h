#pragma once

#include <QWidget>
#include <utility>
#include <vector>

#include "tools/rename/ui/page_runner.h"
#include "ui_RulesPage.h"

namespace qublet {

// The options, and a name to try them on.
class RulesPage : public QWidget, private Ui::RulesPage {
  Q_OBJECT

 public:
  explicit RulesPage(QWidget* parent = nullptr);

  void Attach(const PageRunner& runner);
  void Show(const RenameView& view);

 private:
  std::vector<std::pair<QCheckBox*, bool RenameConfig::*>> boxes_;
};

}  // namespace qublet
