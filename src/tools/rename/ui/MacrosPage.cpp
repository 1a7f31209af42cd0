#include "tools/rename/ui/MacrosPage.h"

#include <QShortcut>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/qt/shown_text.h"

namespace qublet {

MacrosPage::MacrosPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
}

void MacrosPage::Attach(const PageRunner& runner) {
  Renamer& renamer = runner.renamer;
  const auto add = [this, &renamer, run = runner.run] {
    run([&] { renamer.AddRule_Click(ToReplace->text().toStdString(), ReplaceTo->text().toStdString()); });
  };
  const auto remove = [this, &renamer, run = runner.run] {
    run([&] { renamer.RemoveRule_Click(RuleList->currentRow()); });
  };
  connect(AddRule, &QPushButton::clicked, this, add);
  connect(ToReplace, &QLineEdit::returnPressed, this, add);
  connect(ReplaceTo, &QLineEdit::returnPressed, this, add);
  connect(RemoveRule, &QPushButton::clicked, this, remove);
  connect(new QShortcut(QKeySequence::Delete, RuleList, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated,
          this, remove);
  connect(RuleList, &QListWidget::itemChanged, this, [this, &renamer, run = runner.run](QListWidgetItem* item) {
    run([&] { renamer.RuleList_ItemCheck(RuleList->row(item), item->checkState() == Qt::Checked); });
  });
}

void MacrosPage::Show(const RenameView& view) {
  if (view.RuleList == shown_) return;
  const QSignalBlocker quiet(RuleList);
  const bool grows = view.RuleList.size() > shown_.size();
  const int last = static_cast<int>(view.RuleList.size()) - 1;
  const int current = std::min(RuleList->currentRow(), last);
  shown_ = view.RuleList;
  while (RuleList->count() > last + 1) delete RuleList->takeItem(RuleList->count() - 1);
  while (RuleList->count() < last + 1) RuleList->addItem(QString());
  for (int row = 0; row <= last; ++row) {
    const RuleRow& rule = shown_[static_cast<std::size_t>(row)];
    RuleList->item(row)->setText(ShownText(rule.text));
    RuleList->item(row)->setCheckState(rule.ticked ? Qt::Checked : Qt::Unchecked);
  }
  RuleList->setCurrentRow(current);
  if (grows) RuleList->scrollToBottom();
}

}  // namespace qublet
