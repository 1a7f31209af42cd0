#include "tools/purge/ui/DuplicatesPage.h"

namespace qublet {

DuplicatesPage::DuplicatesPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
}

void DuplicatesPage::Attach(const PurgeRunner& runner) {
  FilterView& view = runner.purger.view;
  const auto on_tick = [&](QCheckBox* box, bool FilterView::*field) {
    connect(box, &QCheckBox::clicked, this, [&view, field, render = runner.render](bool ticked) {
      view.*field = ticked;
      render();
    });
  };
  on_tick(EnbDuplicate, &FilterView::EnbDuplicate);
  on_tick(DupCase, &FilterView::DupCase);
  connect(DupBase, &QComboBox::activated, this, [&view](int row) { view.DupBase = row; });
  connect(DupAction, &QComboBox::activated, this, [&view](int row) { view.DupAction = row; });
}

void DuplicatesPage::Show(const FilterView& view) {
  EnbDuplicate->setChecked(view.EnbDuplicate);
  DupBase->setCurrentIndex(view.DupBase);
  DupAction->setCurrentIndex(view.DupAction);
  DupCase->setChecked(view.DupCase);
  for (QWidget* control : std::initializer_list<QWidget*>{Label1, DupBase, Label2, DupAction, DupCase, Label5})
    control->setEnabled(view.EnbDuplicate);
}

}  // namespace qublet
