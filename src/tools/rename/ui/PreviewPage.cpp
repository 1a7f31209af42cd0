#include "tools/rename/ui/PreviewPage.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMetaObject>

#include "playlist/row_paths.h"
#include "tools/rename/ui/name_delegate.h"

namespace qublet {

PreviewPage::PreviewPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  PreviewTable->setModel(&model_);
  auto* names = new NameDelegate(this);
  PreviewTable->setItemDelegateForColumn(PreviewModel::kOldName, names);
  PreviewTable->setItemDelegateForColumn(PreviewModel::kNewName, names);
  PreviewTable->setTextElideMode(Qt::ElideMiddle);
  QHeaderView* header = PreviewTable->header();
  header->setStretchLastSection(true);
  const int letter = fontMetrics().averageCharWidth();
  for (const auto& [column, letters] :
       {std::pair{PreviewModel::kNumber, 8}, {PreviewModel::kOldName, 32}, {PreviewModel::kNewName, 32}})
    header->resizeSection(column, letters * letter);
  connect(OnlyProblems, &QCheckBox::toggled, this, [this](bool only) { model_.ShowOnlyProblems(only); });
  connect(ResetCount, &QCheckBox::toggled, this, &PreviewPage::Refresh);
  connect(CopyText, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(model_.AsText()); });
}

void PreviewPage::Attach(Renamer& renamer, Engine& engine) {
  renamer_ = &renamer;
  engine_ = &engine;
  worker_ = std::make_unique<PreviewWorker>(engine.services.files, [this](int number, std::vector<PreviewRow> rows) {
    QMetaObject::invokeMethod(this, [this, number, rows = std::move(rows)]() mutable {
      if (number == number_) Show(std::move(rows));
    });
  });
}

void PreviewPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Refresh();
}

PreviewRequest PreviewPage::Request() const {
  return {renamer_->Config(), RealPathsOf(engine_->document.ListView1, WhichRows::kSelected),
          ResetCount->isChecked()};
}

void PreviewPage::Refresh() {
  if (worker_ == nullptr || !isVisible()) return;
  PreviewRequest request = Request();
  const bool would_ask = request.config.Increment && InSeveralFolders(request.paths);
  ResetCount->setEnabled(would_ask);
  if (!would_ask) request.ResetPerFolder = true;
  if (shown_ == request) return;
  shown_ = request;
  if (IsQuick(request)) model_.Show(QuickNames(engine_->services.files, request));
  number_ = worker_->Start(std::move(request));
  ShowCounts(false);
}

void PreviewPage::Forget() {
  shown_.reset();
  if (worker_) worker_->ForgetTitles();
}

void PreviewPage::Stop() {
  shown_.reset();
  number_ = 0;
  if (worker_) worker_->Stop();
}

void PreviewPage::Show(std::vector<PreviewRow> rows) {
  number_ = 0;
  model_.Show(std::move(rows));
  ShowCounts(true);
}

void PreviewPage::ShowCounts(bool worked_out) {
  Counts->setText(worked_out ? model_.Counts() : tr("Working out what would become of the files..."));
}

}  // namespace qublet
