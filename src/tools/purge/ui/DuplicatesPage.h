#pragma once

#include <QWidget>

#include "tools/purge/ui/purge_runner.h"
#include "ui_DuplicatesPage.h"

namespace qublet {

// What counts as a duplicate, and what is done with them.
class DuplicatesPage : public QWidget, private Ui::DuplicatesPage {
  Q_OBJECT

 public:
  explicit DuplicatesPage(QWidget* parent = nullptr);

  void Attach(const PurgeRunner& runner);
  void Show(const FilterView& view);
};

}  // namespace qublet
