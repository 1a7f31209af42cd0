#include "tools/purge/ui/MissingPage.h"

#include <QHeaderView>
#include <QShortcut>
#include <QSignalBlocker>
#include <algorithm>

#include "desk/empty_list.h"
#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

enum Column { kFolderColumn, kHeldColumn };

constexpr int kRowsInSight = 6;

}  // namespace

MissingPage::MissingPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  // The fields begin at the same place, and nothing moves when the search is chosen.
  Label3->setMinimumWidth(std::max(Label3->sizeHint().width(), Label4->sizeHint().width()));
  Label4->setMinimumWidth(Label3->minimumWidth());
  QSizePolicy stays = SearchControls->sizePolicy();
  stays.setRetainSizeWhenHidden(true);
  SearchControls->setSizePolicy(stays);
  MakeList();
}

void MissingPage::MakeList() {
  FoundPaths->setTextElideMode(Qt::ElideMiddle);
  FoundPaths->header()->setStretchLastSection(false);
  FoundPaths->header()->setSectionResizeMode(kFolderColumn, QHeaderView::Stretch);
  FoundPaths->header()->setSectionResizeMode(kHeldColumn, QHeaderView::ResizeToContents);
  FoundPaths->headerItem()->setTextAlignment(kHeldColumn, Qt::AlignRight | Qt::AlignVCenter);
  FoundPaths->setMinimumHeight((kRowsInSight + 2) * FoundPaths->fontMetrics().height());
  empty_list_ =
      SayWhatFills(*FoundPaths, tr("After a search the folders in which missing items were found come here."));
}

void MissingPage::Attach(const PurgeRunner& runner) {
  Purger& purger = runner.purger;
  const auto on_tick = [&](QCheckBox* box, bool FilterView::*field) {
    connect(box, &QCheckBox::clicked, this, [&purger, field, render = runner.render](bool ticked) {
      purger.view.*field = ticked;
      render();
    });
  };
  on_tick(EnbPurge, &FilterView::EnbPurge);
  on_tick(DontUsePath, &FilterView::DontUsePath);
  connect(MissAction, &QComboBox::activated, this, [&purger, render = runner.render](int row) {
    purger.view.MissAction = row;
    render();
  });
  const auto on_click = [&](QPushButton* button, void (Purger::*step)()) {
    connect(button, &QPushButton::clicked, this, [step, run_long = runner.run_long] { run_long(step); });
  };
  on_click(NxtPath, &Purger::NxtPath_Click);
  on_click(SkipPath, &Purger::SkipPath_Click);
  on_click(AbortPath, &Purger::AbortPath_Click);
  AttachList(runner);
}

void MissingPage::AttachList(const PurgeRunner& runner) {
  Purger& purger = runner.purger;
  connect(FoundPaths, &QTreeWidget::itemSelectionChanged, this, [this, &purger] {
    const QList<QTreeWidgetItem*> selected = FoundPaths->selectedItems();
    purger.view.selected = selected.isEmpty() ? -1 : FoundPaths->indexOfTopLevelItem(selected.first());
  });
  connect(FoundPaths, &QTreeWidget::itemChanged, this, [this, &purger](QTreeWidgetItem* item) {
    const auto row = static_cast<std::size_t>(FoundPaths->indexOfTopLevelItem(item));
    purger.view.FoundPaths.at(row).ticked = item->checkState(kFolderColumn) == Qt::Checked;
  });
  const auto open = [this, &purger] {
    purger.FoundPaths_DblClick(FoundPaths->indexOfTopLevelItem(FoundPaths->currentItem()));
  };
  connect(FoundPaths, &QTreeWidget::itemDoubleClicked, this, open);
  connect(new QShortcut(Qt::Key_F4, FoundPaths, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
          open);
}

void MissingPage::Show(const FilterView& view) {
  EnbPurge->setChecked(view.EnbPurge);
  MissAction->setCurrentIndex(view.MissAction);
  DontUsePath->setChecked(view.DontUsePath);
  const bool searches = view.MissAction == static_cast<int>(MissingAction::kSearch);
  for (QWidget* control : std::initializer_list<QWidget*>{DontUsePath, Label4, MissingPath, FoundPathsInfo,
                                                          FoundPaths, NxtPath, SkipPath, AbortPath, SearchControls})
    control->setVisible(searches);
  MissingPath->Report(ShownText(view.MissingPath));
  ShowSuggestions(view);
  Enable(view);
}

void MissingPage::Enable(const FilterView& view) {
  const bool begins = NxtPath->isEnabled() != view.stepping && view.stepping;
  EnbPurge->setEnabled(!view.stepping);
  for (QWidget* control : std::initializer_list<QWidget*>{Label3, MissAction, DontUsePath})
    control->setEnabled(view.EnbPurge && !view.stepping);
  for (QWidget* control : std::initializer_list<QWidget*>{Label4, MissingPath, FoundPathsInfo, FoundPaths})
    control->setEnabled(view.EnbPurge);
  for (QPushButton* button : {NxtPath, SkipPath, AbortPath}) button->setEnabled(view.stepping);
  // Enter goes on from wherever the keyboard is.
  NxtPath->setDefault(view.stepping);
  if (begins) FoundPaths->setFocus();
}

void MissingPage::ShowSuggestions(const FilterView& view) {
  const QSignalBlocker quiet(FoundPaths);
  FoundPaths->clear();
  for (const FoundFolder& found : view.FoundPaths) {
    auto* item = new QTreeWidgetItem(FoundPaths, {ShownText(found.folder), ShownText(found.held)});
    item->setToolTip(kFolderColumn, ShownTip(found.folder));
    item->setTextAlignment(kHeldColumn, Qt::AlignRight | Qt::AlignVCenter);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(kFolderColumn, found.ticked ? Qt::Checked : Qt::Unchecked);
  }
  FoundPaths->setCurrentItem(FoundPaths->topLevelItem(view.selected));
  FoundPaths->setAccessibleDescription({});
  empty_list_->setVisible(!view.stepping);
  FoundPaths->viewport()->update();  // boxes of rows that went stay painted otherwise
  if (!view.stepping || !view.FoundPaths.empty()) return;
  AddGhosted(tr("No Suggestions..."));
  if (!view.similar.empty()) AddGhosted(tr("Only letter case or accents differ: %1").arg(ShownText(view.similar)));
}

// Screen readers don't come to such a row.
void MissingPage::AddGhosted(const QString& text) {
  auto* item = new QTreeWidgetItem(FoundPaths, {text});
  item->setFlags(Qt::NoItemFlags);
  item->setFirstColumnSpanned(true);
  item->setToolTip(kFolderColumn, ShownTip(text.toStdString()));
  const QString before = FoundPaths->accessibleDescription();
  FoundPaths->setAccessibleDescription(before.isEmpty() ? text : before + u' ' + text);
}

}  // namespace qublet
