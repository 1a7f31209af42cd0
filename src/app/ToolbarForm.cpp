#include "app/ToolbarForm.h"

#include <QPushButton>
#include <algorithm>

#include "platform/qt/pictures.h"

namespace qublet {
namespace {

QListWidgetItem* MakeItem(int button) {
  const ToolButton& shown = kToolButtons[static_cast<std::size_t>(button)];
  auto* item = new QListWidgetItem(QString::fromUtf8(shown.key));
  // The empty picture keeps the texts in line.
  QPixmap none(24, 24);
  none.fill(Qt::transparent);
  item->setIcon(shown.IsSeparator() ? QIcon(none) : Picture(QString::fromUtf8(shown.picture)));
  item->setToolTip(QString::fromUtf8(shown.tip));
  item->setData(Qt::UserRole, button);
  return item;
}

void Fill(QListWidget& list, const ToolbarLayout& layout) {
  list.clear();
  for (const int button : layout) list.addItem(MakeItem(button));
}

}  // namespace

ToolbarForm::ToolbarForm(const ToolbarLayout& layout, QWidget* owner) : QDialog(owner) {
  setupUi(this);
  Show(layout);
  lstShown->setCurrentRow(0);
  connect(lstAvailable, &QListWidget::currentRowChanged, this, &ToolbarForm::EnableButtons);
  connect(lstShown, &QListWidget::currentRowChanged, this, &ToolbarForm::EnableButtons);
  connect(lstAvailable, &QListWidget::itemDoubleClicked, this, &ToolbarForm::CmdAdd_Click);
  connect(lstShown, &QListWidget::itemDoubleClicked, this, &ToolbarForm::CmdRemove_Click);
  connect(CmdAdd, &QPushButton::clicked, this, &ToolbarForm::CmdAdd_Click);
  connect(CmdRemove, &QPushButton::clicked, this, &ToolbarForm::CmdRemove_Click);
  connect(CmdUp, &QPushButton::clicked, this, [this] { Move(-1); });
  connect(CmdDown, &QPushButton::clicked, this, [this] { Move(1); });
  connect(CmdButtons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
          [this] { Show(DefaultToolbarLayout()); });
  connect(CmdButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(CmdButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  EnableButtons();
}

ToolbarLayout ToolbarForm::Layout() const {
  ToolbarLayout layout;
  for (int row = 0; row < lstShown->count(); ++row) layout.push_back(lstShown->item(row)->data(Qt::UserRole).toInt());
  return layout;
}

void ToolbarForm::Show(const ToolbarLayout& layout) {
  Fill(*lstShown, layout);
  Fill(*lstAvailable, ButtonsBeside(layout));
  EnableButtons();
}

void ToolbarForm::EnableButtons() {
  const int row = lstShown->currentRow();
  CmdAdd->setEnabled(lstAvailable->currentRow() >= 0);
  CmdRemove->setEnabled(row >= 0);
  CmdUp->setEnabled(row > 0);
  CmdDown->setEnabled(row >= 0 && row + 1 < lstShown->count());
}

// The new button stands behind the current one.
void ToolbarForm::CmdAdd_Click() {
  const QListWidgetItem* chosen = lstAvailable->currentItem();
  if (chosen == nullptr) return;
  const int row = lstShown->currentRow() + 1;
  const int available = lstAvailable->currentRow();
  ToolbarLayout layout = Layout();
  layout.insert(layout.begin() + row, chosen->data(Qt::UserRole).toInt());
  Show(layout);
  lstShown->setCurrentRow(row);
  lstAvailable->setCurrentRow(std::min(available, lstAvailable->count() - 1));
}

void ToolbarForm::CmdRemove_Click() {
  const int row = lstShown->currentRow();
  if (row < 0) return;
  ToolbarLayout layout = Layout();
  layout.erase(layout.begin() + row);
  Show(layout);
  lstShown->setCurrentRow(std::min(row, lstShown->count() - 1));
}

void ToolbarForm::Move(int by) {
  const int row = lstShown->currentRow();
  lstShown->insertItem(row + by, lstShown->takeItem(row));
  lstShown->setCurrentRow(row + by);
}

}  // namespace qublet
