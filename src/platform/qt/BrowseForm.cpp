#include "platform/qt/BrowseForm.h"

#include <QCompleter>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>
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

BrowseForm::BrowseForm(const QString& title, const QStringList& file_patterns, const QList<Place>& places,
                       QWidget* parent)
    : QDialog(parent),
      model_(new QFileSystemModel(this)),
      places_(new QListWidget(this)),
      tree_(new QTreeView(this)),
      path_(new QLineEdit(this)) {
  setObjectName(QStringLiteral("BrowseForm"));
  setWindowTitle(title);
  resize(640, 520);
  BuildTree(file_patterns);
  BuildPlaces(places);
  BuildPath();

  auto* label = new QLabel(!file_patterns.isEmpty() ? tr("&Folder, audio file or playlist:") : tr("&Folder:"), this);
  label->setBuddy(path_);
  auto* choice = new QHBoxLayout;
  choice->addWidget(places_);
  choice->addWidget(tree_, 1);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(choice, 1);
  layout->addWidget(label);
  layout->addWidget(path_);
  Connect();
}

// What is typed at once is a path.
void BrowseForm::showEvent(QShowEvent* event) {
  path_->setFocus();
  path_->selectAll();
  QDialog::showEvent(event);
}

void BrowseForm::BuildTree(const QStringList& file_patterns) {
  model_->setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
  model_->setIconProvider(&icons_);
  model_->setFilter(QDir::AllDirs | QDir::Drives | QDir::NoDotAndDotDot |
                    (file_patterns.isEmpty() ? QDir::Filters() : QDir::Files));
  model_->setNameFilters(file_patterns);
  model_->setNameFilterDisables(false);
  model_->setRootPath(QString());

  tree_->setObjectName(QStringLiteral("FolderTree"));
  tree_->setAccessibleName(tr("Folders"));
  tree_->setModel(model_);
  tree_->setItemDelegate(new NameDelegate(tree_));
  for (int column = 1; column < model_->columnCount(); ++column) tree_->hideColumn(column);
  tree_->setHeaderHidden(true);
  tree_->installEventFilter(this);
  tree_->viewport()->installEventFilter(this);
}

void BrowseForm::BuildPlaces(const QList<Place>& places) {
  places_->setObjectName(QStringLiteral("FolderPlaces"));
  places_->setAccessibleName(tr("Places"));
  const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
  places_->setIconSize({side, side});
  for (const Place& place : places) {
    auto* item = new QListWidgetItem(style()->standardIcon(place.picture), place.name, places_);
    item->setData(Qt::UserRole, place.path);
    item->setToolTip(QDir::toNativeSeparators(place.path));
  }
  const int room = places_->sizeHintForColumn(0) + places_->verticalScrollBar()->sizeHint().width();
  places_->setFixedWidth(qBound(100, room + 2 * places_->frameWidth(), 220));
}

void BrowseForm::BuildPath() {
  path_->setObjectName(QStringLiteral("FolderPath"));
  path_->setAccessibleName(tr("Path"));
  auto* completer = new QCompleter(path_);
  completer->setModel(model_);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  path_->setCompleter(completer);
}

void BrowseForm::Connect() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  layout()->addWidget(buttons);
  QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
  ok->setEnabled(false);
  connect(path_, &QLineEdit::textChanged, ok, [this, ok] { ok->setEnabled(QFileInfo::exists(Chosen())); });
  connect(path_, &QLineEdit::textEdited, this, &BrowseForm::Follow);
  connect(path_->completer(), qOverload<const QString&>(&QCompleter::activated), this, &BrowseForm::Follow,
          Qt::QueuedConnection);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& index) {
    if (!following_) path_->setText(QDir::toNativeSeparators(model_->filePath(index)));
  });
  const auto go = [this](const QListWidgetItem* item) {
    if (item != nullptr) Preselect(item->data(Qt::UserRole).toString());
  };
  connect(places_, &QListWidget::currentItemChanged, this, go);
  connect(places_, &QListWidget::itemClicked, this, go);
  // The rows of a folder come in, and are sorted, long after it was asked for.
  connect(model_, &QFileSystemModel::directoryLoaded, this,
          [this] { QTimer::singleShot(0, this, &BrowseForm::ShowWanted); });
  connect(model_, &QAbstractItemModel::layoutChanged, this, &BrowseForm::ShowWanted);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QString BrowseForm::Chosen() const {
  QString text = path_->text().trimmed();
  if (text.size() > 1 && text.startsWith(u'"') && text.endsWith(u'"')) text = text.mid(1, text.size() - 2);
  text = QDir::fromNativeSeparators(text);
  return QDir::isAbsolutePath(text) ? text : QString();
}

void BrowseForm::Follow() {
  const QString path = Chosen();
  if (!QFileInfo::exists(path)) return;
  following_ = true;
  wanted_ = path;
  tree_->setCurrentIndex(model_->index(path));
  ShowWanted();
  following_ = false;
}

void BrowseForm::Preselect(const QString& path) {
  path_->setText(QDir::toNativeSeparators(path));
  Follow();
  const QModelIndex index = model_->index(path);
  if (index.isValid() && QFileInfo(path).isDir()) tree_->expand(index);
}

void BrowseForm::ShowWanted() {
  if (wanted_.isEmpty()) return;
  const QModelIndex index = model_->index(wanted_);
  if (index.isValid()) tree_->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

bool BrowseForm::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::Wheel) wanted_.clear();
  return QDialog::eventFilter(watched, event);
}

}  // namespace qublet
