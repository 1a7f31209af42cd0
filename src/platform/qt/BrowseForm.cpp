#include "platform/qt/BrowseForm.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

// Names of folders and files as plain text.
class NameDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale&) const override { return ShownText(value.toString()); }
};

}  // namespace

BrowseForm::BrowseForm(const QString& title, const QStringList& file_patterns, QWidget* parent)
    : QDialog(parent), model_(new QFileSystemModel(this)), tree_(new QTreeView(this)), path_(new QLineEdit(this)) {
  setObjectName(QStringLiteral("BrowseForm"));
  setWindowTitle(title);
  resize(460, 520);

  model_->setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
  model_->setFilter(QDir::AllDirs | QDir::Drives | QDir::NoDotAndDotDot |
                    (file_patterns.isEmpty() ? QDir::Filters() : QDir::Files));
  model_->setNameFilters(file_patterns);
  model_->setNameFilterDisables(false);
  model_->setRootPath(QString());

  tree_->setObjectName(QStringLiteral("FolderTree"));
  tree_->setModel(model_);
  tree_->setItemDelegate(new NameDelegate(tree_));
  for (int column = 1; column < model_->columnCount(); ++column) tree_->hideColumn(column);
  tree_->setHeaderHidden(true);
  path_->setObjectName(QStringLiteral("FolderPath"));
  path_->setAccessibleName(tr("Path"));

  auto* label = new QLabel(!file_patterns.isEmpty() ? tr("&Folder, audio file or playlist:") : tr("&Folder:"), this);
  label->setBuddy(path_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tree_, 1);
  layout->addWidget(label);
  layout->addWidget(path_);
  layout->addWidget(buttons);
  tree_->setFocus();

  QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
  ok->setEnabled(false);
  connect(path_, &QLineEdit::textChanged, ok,
          [ok](const QString& text) { ok->setEnabled(QFileInfo(text).isAbsolute() && QFileInfo::exists(text)); });
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& index) { path_->setText(model_->filePath(index)); });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void BrowseForm::Preselect(const QString& path) {
  const QModelIndex index = model_->index(path);
  if (!index.isValid()) return;
  tree_->setCurrentIndex(index);
  tree_->scrollTo(index, QAbstractItemView::PositionAtCenter);
  path_->setText(path);
}

}  // namespace qublet
