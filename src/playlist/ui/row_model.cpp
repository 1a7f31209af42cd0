#include "playlist/ui/row_model.h"

#include <QStringList>

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

// What the icon and the ghosted state say, in words for those who can't see them.
QString StateText(const Row& row) {
  switch (row.icon) {
    case RowIcon::kMissing:
      return RowModel::tr("missing");
    case RowIcon::kBlue:
      return RowModel::tr("blue mark");
    case RowIcon::kGreen:
      return RowModel::tr("green mark");
    case RowIcon::kRed:
      return RowModel::tr("red mark");
    case RowIcon::kNormal:
      break;
  }
  return {};
}

// The name speaks for its row: "name, length, state".
QString SpokenText(const Row& row, int column, const QString& cell) {
  if (column != kFileName) return cell;
  QStringList words{cell};
  if (row.icon != RowIcon::kMissing) words << QString::fromStdString(row.cells[kTime]);
  words << StateText(row);
  words.removeAll(QString());
  return words.join(QStringLiteral(", "));
}

}  // namespace

RowModel::RowModel(RowStore& rows, QObject* parent) : QAbstractTableModel(parent), rows_(rows), count_(rows.Count()) {
  rows_.SetListener(this);
}

RowModel::~RowModel() {
  rows_.SetListener(nullptr);
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count_;
}

int RowModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QModelIndex RowModel::index(int row, int column, const QModelIndex& parent) const {
  const bool here = row >= 0 && row < count_ && column >= 0 && column < kColumnCount && !parent.isValid();
  return here ? createIndex(row, column) : QModelIndex();
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
  return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_.Count()) return {};
  const Row& row = rows_.At(index.row() + 1);
  const std::string& cell = row.cells[static_cast<std::size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(cell);
    case Qt::AccessibleTextRole:
      return SpokenText(row, index.column(), ShownText(cell));
    case Qt::DecorationRole:
      return index.column() == kFileName ? QVariant(icons_.For(row.icon)) : QVariant();
    case Qt::TextAlignmentRole:
      return headerData(index.column(), Qt::Horizontal, role);
    default:
      return {};
  }
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kColumnCount) return {};
  const ColumnDesign& column = kColumns[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) {
    return QString::fromUtf8(column.header.data(), static_cast<qsizetype>(column.header.size()));
  }
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::Alignment(column.right_aligned ? Qt::AlignRight : Qt::AlignLeft) |
                               Qt::AlignVCenter);
  }
  return {};
}

void RowModel::CountChanged(int count) {
  if (count > count_) {
    beginInsertRows({}, count_, count - 1);
    count_ = count;
    endInsertRows();
  } else {
    beginRemoveRows({}, count, count_ - 1);
    count_ = count;
    endRemoveRows();
  }
}

void RowModel::RowsChanged(int first, int last) {
  emit dataChanged(index(first - 1, 0), index(last - 1, kColumnCount - 1));
}

}  // namespace qublet
