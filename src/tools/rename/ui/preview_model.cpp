#include "tools/rename/ui/preview_model.h"

#include <algorithm>

#include "platform/qt/shown_text.h"
#include "playlist/paths/path_text.h"

namespace qublet {
namespace {

QString OldName(const PreviewRow& row) {
  return ShownText(GetFileName(row.old_path));
}

// With its folder, where that is another one.
QString NewName(const PreviewRow& row) {
  const std::string folder = FolderAsItStands(row.old_path);
  const bool below = row.new_path.starts_with(folder);
  return ShownText(below ? row.new_path.substr(folder.size()) : row.new_path);
}

}  // namespace

// The view keeps its place where there are as many rows as before.
void PreviewModel::Show(std::vector<PreviewRow> rows) {
  const std::size_t before = shown_.size();
  rows_ = std::move(rows);
  if (!only_problems_ && rows_.size() == before && before > 0) {
    emit dataChanged(index(0, 0), index(static_cast<int>(before) - 1, kColumns - 1));
    return;
  }
  Filter();
}

void PreviewModel::ShowOnlyProblems(bool only) {
  only_problems_ = only;
  Filter();
}

void PreviewModel::Filter() {
  beginResetModel();
  shown_.clear();
  for (std::size_t place = 0; place < rows_.size(); ++place) {
    if (!only_problems_ || Fails(rows_[place])) shown_.push_back(place);
  }
  endResetModel();
}

QString PreviewModel::Counts() const {
  const auto count = [this](auto&& wanted) { return static_cast<int>(std::ranges::count_if(rows_, wanted)); };
  const int renamed = count([](const PreviewRow& row) { return row.fate == RenameFate::kRenamed; });
  const int unchanged = count([](const PreviewRow& row) { return row.fate == RenameFate::kUnchanged; });
  const int problems = count([](const PreviewRow& row) { return Fails(row); });
  const QString files = rows_.size() == 1 ? tr("1 file") : tr("%1 files").arg(rows_.size());
  return tr("%1: %2 renamed, %3 unchanged, %4 with a problem").arg(files).arg(renamed).arg(unchanged).arg(problems);
}

QString PreviewModel::AsText() const {
  QString text;
  for (const std::size_t place : shown_) {
    QStringList cells;
    for (int column = 0; column < kColumns; ++column) cells << TextOf(rows_[place], place + 1, column);
    text += cells.join(u'\t') + u'\n';
  }
  return text;
}

QString PreviewModel::TextOf(const PreviewRow& row, std::size_t number, int column) const {
  switch (column) {
    case kNumber:
      return QString::number(number);
    case kOldName:
      return OldName(row);
    case kNewName:
      return NewName(row);
    default:
      return ShownText(FateText(row));
  }
}

int PreviewModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int PreviewModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant PreviewModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const std::size_t place = shown_[static_cast<std::size_t>(index.row())];
  const PreviewRow& row = rows_[place];
  if (role == Qt::DisplayRole) return TextOf(row, place + 1, index.column());
  if (role == Qt::TextAlignmentRole && index.column() == kNumber)
    return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
  if (role == Qt::ToolTipRole && index.column() == kOldName) return ShownTip(row.old_path);
  if (role == Qt::ToolTipRole && index.column() == kNewName) return ShownTip(row.new_path);
  if (role == Qt::ToolTipRole) return ShownTip(TextOf(row, place + 1, index.column()).toStdString());
  if (role == kOtherNameRole && index.column() == kOldName) return NewName(row);
  if (role == kOtherNameRole && index.column() == kNewName) return OldName(row);
  return {};
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>((section == kNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return QStringList{tr("Row"), tr("Old name"), tr("New name"), tr("Result")}.value(section);
}

}  // namespace qublet
