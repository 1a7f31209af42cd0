#pragma once

#include <QLabel>
#include <QWidget>

#include "tools/purge/ui/purge_runner.h"
#include "ui_MissingPage.h"

namespace qublet {

// What is done with missing items, and the steps in which they are restored.
class MissingPage : public QWidget, private Ui::MissingPage {
  Q_OBJECT

 public:
  explicit MissingPage(QWidget* parent = nullptr);

  void Attach(const PurgeRunner& runner);
  void Show(const FilterView& view);

 private:
  void MakeList();
  void AttachList(const PurgeRunner& runner);
  void Enable(const FilterView& view);
  void ShowSuggestions(const FilterView& view);
  void AddGhosted(const QString& text);

  QLabel* empty_list_ = nullptr;  // what would fill it
};

}  // namespace qublet
