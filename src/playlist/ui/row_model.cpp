#include "playlist/ui/row_model.h"

#include <QStringList>

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

RowModel::RowModel(RowStore& rows, QObject* parent) : QAbstractTableModel(parent), rows_(rows) {
  rows_.SetListener(this);
}

RowModel::~RowModel() {
  rows_.SetListener(nullptr);
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_.Count();
}

int RowModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_.Count()) return {};
  const Row& row = rows_.At(index.row() + 1);
  const std::string& cell = row.cells[static_cast<std::size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(cell);
    case Qt::ToolTipRole:
      return index.column() == kFileName || index.column() == kPath ? QString::fromStdString(cell) : QVariant();
    case Qt::AccessibleTextRole:
      return SpokenText(row, index.column(), QString::fromStdString(cell));
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

void RowModel::BeforeInsert(int first, int count) {
  beginInsertRows({}, first - 1, first + count - 2);
}

void RowModel::BeforeRemove(int first, int count) {
  beginRemoveRows({}, first - 1, first + count - 2);
}

void RowModel::RowsChanged(int first, int last) {
  emit dataChanged(index(first - 1, 0), index(last - 1, kColumnCount - 1));
}

}  // namespace qublet
