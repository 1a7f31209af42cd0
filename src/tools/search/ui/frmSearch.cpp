#include "tools/search/ui/frmSearch.h"

#include <QLineEdit>
#include <QShortcut>
#include <utility>

#include "desk/activation.h"

namespace qublet {

frmSearch::frmSearch(Engine& engine, QWidget* parent) : QDialog(parent), searcher_(engine) {
  setupUi(this);
  // What is typed is what is looked for: nothing is completed and nothing put into the list by itself.
  txtSearch->setCompleter(nullptr);
  txtSearch->lineEdit()->setPlaceholderText(txtSearch->accessibleName());
  txtSearch->lineEdit()->setClearButtonEnabled(true);
  MakeMenu();
  connect(txtSearch, &QComboBox::editTextChanged, this, [this](const QString& text) {
    searcher_.txtSearch_Change(text.toStdString());
    Render();
  });
  connect(txtSearch->lineEdit(), &QLineEdit::returnPressed, this, [this] { Run(&Searcher::cmdSelAl_Click); });
  connect(cmdSelAl, &QPushButton::clicked, this, [this] { Run(&Searcher::cmdSelAl_Click); });
  connect(cmdNext, &QPushButton::clicked, this, [this] { Run(&Searcher::cmdNext_Click); });
  connect(cmdBack, &QPushButton::clicked, this, [this] { Run(&Searcher::cmdBack_Click); });
  connect(cmdPreview, &QPushButton::clicked, this, [this] { searcher_.cmdPreview_Click(); });
  connect(cmdOptions, &QPushButton::clicked, this, &frmSearch::cmdOptions_Click);
  connect(cmdClose, &QPushButton::clicked, this, &frmSearch::reject);
  connect(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, cmdNext, &QPushButton::click);
  connect(new QShortcut(Qt::SHIFT | Qt::Key_F3, this), &QShortcut::activated, cmdBack, &QPushButton::click);
  new Activation(*this, [this](Activation::Cause) { Activate(); });
  Render();
}

void frmSearch::MakeMenu() {
  Moptions.setObjectName(QStringLiteral("Moptions"));
  Moptions.setTitle(QStringLiteral("Options>>"));
  const SearchView& view = searcher_.view;
  AddTick(Moptions, "Mselonly", "Search Only Selected...", view.options.Mselonly,
          [this](bool ticked) { searcher_.Mselonly_Click(ticked); });
  AddTick(Moptions, "Mcasesensitive", "Case Sensitive...", view.options.Mcasesensitive,
          [this](bool ticked) { searcher_.Mcasesensitive_Click(ticked); });
  AddTick(Moptions, "Mkeepalive", "Keep Alive...", view.Mkeepalive,
          [this](bool ticked) { searcher_.Mkeepalive_Click(ticked); });
  QMenu& columns = *Moptions.addMenu(QStringLiteral("Search In.."));
  columns.setObjectName(QStringLiteral("MColumns"));
  for (std::size_t i = 0; i < kSearchColumns.size(); ++i) {
    AddTick(columns, kSearchColumns[i].entry, kSearchColumns[i].caption, view.options.columns[i],
            [this, i](bool ticked) { searcher_.Column_Click(i, ticked); });
  }
  QAction& reselect = *Moptions.addAction(QStringLiteral("Reselect Original Items..."));
  reselect.setObjectName(QStringLiteral("MReselect"));
  connect(&reselect, &QAction::triggered, this, [this] { searcher_.MReselect_Click(); });
}

void frmSearch::AddTick(QMenu& menu, const char* name, const char* caption, bool ticked,
                        std::function<void(bool)> clicked) {
  QAction& entry = *menu.addAction(QString::fromUtf8(caption));
  entry.setObjectName(QString::fromUtf8(name));
  entry.setCheckable(true);
  entry.setChecked(ticked);
  connect(&entry, &QAction::triggered, this, [this, clicked = std::move(clicked)](bool now) {
    clicked(now);
    Render();
  });
}

void frmSearch::Activate() {
  searcher_.Activate();
  Render();
  txtSearch->setFocus();
  txtSearch->lineEdit()->selectAll();
}

void frmSearch::cmdOptions_Click() {
  Moptions.popup(cmdOptions->mapToGlobal(cmdOptions->rect().bottomLeft()));
}

// Where there is nothing to go on with, the keyboard goes back to the text.
void frmSearch::Run(void (Searcher::*command)()) {
  (searcher_.*command)();
  if (!searcher_.view.usable) txtSearch->setFocus();
  Render();
}

void frmSearch::Render() {
  const SearchView& view = searcher_.view;
  setWindowTitle(QString::fromStdString(view.caption));
  for (QPushButton* button : {cmdSelAl, cmdNext, cmdBack, cmdPreview}) button->setEnabled(view.usable);
  for (auto known = static_cast<std::size_t>(txtSearch->count()); known < view.history.size(); ++known)
    txtSearch->addItem(QString::fromStdString(view.history[known]));
}

}  // namespace qublet
