#include "playlist/ui/accessible_rows.h"

#include <QHeaderView>
#include <algorithm>

#include "playlist/ui/row_list.h"

namespace qublet {
namespace {

constexpr std::size_t kToldOneByOne = 8;  // changes of the selection

QList<int> ShownColumns(const RowList& list) {
  QList<int> columns;
  const int count = list.header()->count();  // 0 as long as the list shows no rows
  for (int column = 0; column < count; ++column) {
    if (!list.isColumnHidden(column)) columns << column;
  }
  return columns;
}

// What cells and headers have in common: no object of their own, and no children. They are their places in the rows,
// whatever stands there.
class TablePart : public QAccessibleInterface {
 public:
  TablePart(const AccessibleRows& table, int row, int column) : table_(table), row_(row), column_(column) {}

  bool isValid() const override { return row_ < table_.rowCount() && !List().isColumnHidden(column_); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return table_.window(); }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&List()); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  void setText(QAccessible::Text, const QString&) override {}

  int Place() const { return static_cast<int>(ShownColumns(List()).indexOf(column_)); }
  int Number() const { return (row_ + 1) * table_.columnCount() + Place(); }

 protected:
  RowList& List() const { return table_.List(); }
  static QRect OnScreen(const QWidget& viewport, const QRect& rect) {
    return {viewport.mapToGlobal(rect.topLeft()), rect.size()};
  }

  const AccessibleRows& table_;
  const int row_;     // -1 for the header
  const int column_;  // of the row store
};

class AccessibleHeader : public TablePart {
 public:
  AccessibleHeader(const AccessibleRows& table, int column) : TablePart(table, -1, column) {}

  QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
  QAccessible::State state() const override { return {}; }
  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Name ? List().model()->headerData(column_, Qt::Horizontal).toString() : QString();
  }
  QRect rect() const override {
    const QHeaderView& header = *List().header();
    return OnScreen(*header.viewport(),
                    {header.sectionViewportPosition(column_), 0, header.sectionSize(column_), header.height()});
  }
};

class AccessibleCell : public TablePart, public QAccessibleTableCellInterface, public QAccessibleActionInterface {
 public:
  using TablePart::TablePart;

  QAccessible::Role role() const override { return QAccessible::Cell; }
  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Name ? Index().data(Qt::AccessibleTextRole).toString() : QString();
  }
  QRect rect() const override {
    const QRect cell = List().visualRect(Index());
    return cell.isEmpty() ? QRect() : OnScreen(*List().viewport(), cell);
  }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  bool isSelected() const override { return table_.isRowSelected(row_); }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {table_.Part(-1, column_)}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return Place(); }
  int rowIndex() const override { return row_; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

  QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    QItemSelectionModel& selection = *List().selectionModel();
    if (action == toggleAction()) selection.select(Index(), QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    if (action == setFocusAction()) selection.setCurrentIndex(Index(), QItemSelectionModel::NoUpdate);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QModelIndex Index() const { return List().model()->index(row_, column_); }
};

QAccessible::State AccessibleCell::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.selectable = state.focusable = state.multiSelectable = true;
  state.selected = isSelected();
  state.focused = Place() == 0 && List().hasFocus() && List().currentIndex().row() == row_;
  state.offscreen = !List().viewport()->rect().intersects(List().visualRect(Index()));
  return state;
}

bool Select(RowList& list, int row, QItemSelectionModel::SelectionFlags command) {
  const QModelIndex index = list.model()->index(row, 0);
  if (index.isValid()) list.selectionModel()->select(index, command | QItemSelectionModel::Rows);
  return index.isValid();
}

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
  auto* list = qobject_cast<RowList*>(object);
  return list != nullptr ? new AccessibleRows(*list) : nullptr;
}

}  // namespace

void AccessibleRows::Install() {
  QAccessible::installFactory(MakeInterface);
}

AccessibleRows::AccessibleRows(RowList& list) : QAccessibleWidget(&list, QAccessible::Table) {}

AccessibleRows::~AccessibleRows() {
  Forget(-1);
}

RowList& AccessibleRows::List() const {
  return *static_cast<RowList*>(widget());
}

void AccessibleRows::Forget(int first_row) {
  for (auto part = parts_.begin(); part != parts_.end();) {
    if (part.key().first < first_row) {
      ++part;
      continue;
    }
    QAccessible::deleteAccessibleInterface(part.value());
    part = parts_.erase(part);
  }
}

QAccessibleInterface* AccessibleRows::Part(int row, int column) const {
  if (row >= rowCount() || column < 0 || column >= kColumnCount || List().isColumnHidden(column)) return nullptr;
  const QPair<int, int> place(row, column);
  if (const auto known = parts_.constFind(place); known != parts_.constEnd()) {
    return QAccessible::accessibleInterface(*known);
  }
  TablePart* made = nullptr;
  if (row < 0) {
    made = new AccessibleHeader(*this, column);
  } else {
    made = new AccessibleCell(*this, row, column);
  }
  parts_[place] = QAccessible::registerAccessibleInterface(made);
  return made;
}

void* AccessibleRows::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QString AccessibleRows::text(QAccessible::Text which) const {
  if (which == QAccessible::Description && rowCount() == 0) return RowList::EmptyHint();
  return QAccessibleWidget::text(which);
}

QAccessible::State AccessibleRows::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.multiSelectable = state.extSelectable = true;
  return state;
}

int AccessibleRows::childCount() const {
  return (rowCount() + 1) * columnCount();
}

QAccessibleInterface* AccessibleRows::child(int number) const {
  if (number < 0 || number >= childCount()) return nullptr;
  const int columns = columnCount();
  return Part(number / columns - 1, ShownColumns(List()).at(number % columns));
}

int AccessibleRows::indexOfChild(const QAccessibleInterface* child) const {
  const auto* part = dynamic_cast<const TablePart*>(child);
  return part != nullptr && part->isValid() ? part->Number() : -1;
}

QAccessibleInterface* AccessibleRows::childAt(int x, int y) const {
  const QModelIndex index = List().indexAt(List().viewport()->mapFromGlobal(QPoint(x, y)));
  return index.isValid() ? Part(index.row(), index.column()) : nullptr;
}

QAccessibleInterface* AccessibleRows::focusChild() const {
  const QModelIndex current = List().currentIndex();
  return List().hasFocus() && current.isValid() ? cellAt(current.row(), 0) : nullptr;
}

QAccessibleInterface* AccessibleRows::cellAt(int row, int column) const {
  return row < 0 ? nullptr : Part(row, ShownColumns(List()).value(column, -1));
}

QList<QAccessibleInterface*> AccessibleRows::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows()) {
    for (int column = 0; column < columnCount(); ++column) cells << cellAt(row, column);
  }
  return cells;
}

QString AccessibleRows::columnDescription(int column) const {
  const QAccessibleInterface* header = Part(-1, ShownColumns(List()).value(column, -1));
  return header == nullptr ? QString() : header->text(QAccessible::Name);
}

int AccessibleRows::selectedRowCount() const {
  return rowCount() == 0 ? 0 : List().Rows().SelectedCount();
}

int AccessibleRows::columnCount() const {
  return static_cast<int>(ShownColumns(List()).size());
}

int AccessibleRows::rowCount() const {
  // The toolkit may ask before the list shows any rows.
  return List().model() == nullptr ? 0 : List().model()->rowCount();
}

QList<int> AccessibleRows::selectedRows() const {
  QList<int> selected;
  for (int row = 0; row < rowCount(); ++row) {
    if (isRowSelected(row)) selected << row;
  }
  return selected;
}

bool AccessibleRows::isRowSelected(int row) const {
  return row >= 0 && row < rowCount() && List().Rows().At(row + 1).selected;
}

bool AccessibleRows::selectRow(int row) {
  return row < rowCount() && Select(List(), row, QItemSelectionModel::Select);
}

bool AccessibleRows::unselectRow(int row) {
  return row < rowCount() && Select(List(), row, QItemSelectionModel::Deselect);
}

void AccessibleRows::modelChange(QAccessibleTableModelChangeEvent*) {
  // A cell is its place; only those behind the last row are nothing any more.
  Forget(rowCount());
}

int AccessibleChild(const RowList& list, int row) {
  return (row + 1) * static_cast<int>(ShownColumns(list).size());
}

void SpokenSelection::Tell(RowList& list, const RowStore& rows) {
  told_.resize(static_cast<std::size_t>(rows.Count()));
  std::vector<int> changed;
  bool focused = false;  // the focused row is among them
  for (int i = 1; i <= rows.Count(); ++i) {
    const auto place = static_cast<std::size_t>(i - 1);
    if (told_[place] == rows.At(i).selected) continue;
    told_[place] = rows.At(i).selected;
    focused = focused || i == rows.FocusedRow();
    if (changed.size() <= kToldOneByOne) changed.push_back(i - 1);
  }
  if (changed.empty()) return;
  // Of many the reader hears the one where it stands.
  if (changed.size() > kToldOneByOne) changed.assign(focused ? 1 : 0, rows.FocusedRow() - 1);
  for (const int row : changed) {
    const bool selected = rows.At(row + 1).selected;
    QAccessibleEvent event(&list, selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    event.setChild(AccessibleChild(list, row));
    QAccessible::updateAccessibility(&event);
  }
  QAccessibleEvent within(&list, QAccessible::SelectionWithin);
  QAccessible::updateAccessibility(&within);
}

}  // namespace qublet
