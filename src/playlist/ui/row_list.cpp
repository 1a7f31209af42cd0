#include "playlist/ui/row_list.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

#include "playlist/ui/row_delegate.h"

namespace qublet {
namespace {

using Flags = QItemSelectionModel::SelectionFlags;
constexpr Flags kNoUpdate = QItemSelectionModel::NoUpdate;
const Flags kOnly = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
const Flags kAlso = QItemSelectionModel::Select | QItemSelectionModel::Rows;
const Flags kNot = QItemSelectionModel::Deselect | QItemSelectionModel::Rows;
const Flags kRange = QItemSelectionModel::Clear | QItemSelectionModel::SelectCurrent | QItemSelectionModel::Rows;

QStringList LocalFiles(const QMimeData* data) {
  QStringList paths;
  for (const QUrl& url : data->urls()) {
    if (url.isLocalFile()) paths << url.toLocalFile();
  }
  return paths;
}

}  // namespace

RowList::RowList(QWidget* parent) : QTreeView(parent) {
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setItemsExpandable(false);
  setSelectionMode(ExtendedSelection);
  setSelectionBehavior(SelectRows);
  setEditTriggers(NoEditTriggers);
  setAcceptDrops(true);
  setDropIndicatorShown(false);
  setIconSize(QSize(16, 16));
  setTextElideMode(Qt::ElideRight);
  setHorizontalScrollMode(ScrollPerPixel);
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
  header()->setSectionsClickable(true);
  header()->setMinimumSectionSize(0);
}

void RowList::ShowRows(RowModel* model) {
  model_ = model;
  setModel(model);
  selection_ = new RowSelection(model, this);
  setSelectionModel(selection_);
  delegate_ = new RowDelegate(model->Rows(), this);
  setItemDelegate(delegate_);
  connect(selection_, &RowSelection::rowsSelected, this, &RowList::rowsSelected);
  connect(model, &RowModel::focusMoved, this, [this](int row) {
    const QModelIndex index = model_->IndexOf(row);
    if (index == currentIndex()) return;
    // A row that moves with the focus is no reason to scroll; who wants it seen says so.
    setAutoScroll(false);
    selection_->setCurrentIndex(index, kNoUpdate);
    setAutoScroll(true);
  });
  connect(model, &RowModel::showRow, this, [this](int row) { scrollTo(model_->IndexOf(row)); });
}

void RowList::SetGridLines(bool shown) {
  delegate_->SetGridLines(shown);
  viewport()->update();
}

void RowList::SetHotTracking(bool on) {
  delegate_->SetHotTracking(on);
  viewport()->update();
}

int RowList::GetRowAtPoint(int y) const {
  if (model_ == nullptr) return 0;
  const QModelIndex index = indexAt(QPoint(0, y));
  return index.isValid() ? index.row() : model_->rowCount();
}

bool RowList::IsSelected(const QModelIndex& index) const {
  return index.isValid() && model_->Rows().At(index.row() + 1).selected;
}

QModelIndexList RowList::selectedIndexes() const {
  QModelIndexList indexes;
  if (model_ == nullptr) return indexes;
  for (int i = 1; i <= model_->Rows().Count(); ++i) {
    if (model_->Rows().At(i).selected) indexes << model_->IndexOf(i);
  }
  return indexes;
}

void RowList::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
  // The base class asks for the place of every row in the range, whether it can be seen or not.
  const int top = std::max(first.row(), GetRowAtPoint(0));
  const int bottom = std::min(last.row(), GetRowAtPoint(viewport()->height()));
  if (top > bottom) return;
  QTreeView::dataChanged(first.siblingAtRow(top), last.siblingAtRow(bottom), roles);
}

Flags RowList::MouseCommand(const QModelIndex& index, const QMouseEvent& event) const {
  const bool shift = event.modifiers() & Qt::ShiftModifier;
  const bool control = event.modifiers() & Qt::ControlModifier;
  const bool right = event.button() == Qt::RightButton || event.buttons() & Qt::RightButton;
  if (event.type() == QEvent::MouseButtonRelease) {
    // A press on a selected row may have begun a drag; it is alone only when the button comes up on it.
    const bool settle = !right && !shift && !control && pressed_on_selected_ && index.isValid();
    return settle ? kOnly : kNoUpdate;
  }
  if (event.type() == QEvent::MouseMove) {
    if (right || event.buttons() == Qt::NoButton) return kNoUpdate;
    return control ? QItemSelectionModel::SelectCurrent | QItemSelectionModel::Rows : kRange;
  }
  if (!index.isValid()) return shift || control || right ? kNoUpdate : Flags(QItemSelectionModel::Clear);
  if (right) return IsSelected(index) || shift || control ? kNoUpdate : kOnly;
  if (shift) return kRange;
  // The base class would turn a toggle over by asking its own empty ranges.
  if (control) return IsSelected(index) ? kNot : kAlso;
  return IsSelected(index) ? kNoUpdate : kOnly;
}

Flags RowList::selectionCommand(const QModelIndex& index, const QEvent* event) const {
  if (event == nullptr) {
    const Qt::KeyboardModifiers held = QApplication::keyboardModifiers();
    return held & Qt::ShiftModifier ? kRange : held & Qt::ControlModifier ? kNoUpdate : kOnly;
  }
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      return MouseCommand(index, static_cast<const QMouseEvent&>(*event));
    case QEvent::KeyPress: {
      const auto& key = static_cast<const QKeyEvent&>(*event);
      const bool control = key.modifiers() & Qt::ControlModifier;
      if (key.key() == Qt::Key_Space) return control && IsSelected(index) ? kNot : kAlso;
      if (key.modifiers() & Qt::ShiftModifier) return kRange;
      return control ? kNoUpdate : kOnly;
    }
    default:
      return kOnly;
  }
}

void RowList::mousePressEvent(QMouseEvent* event) {
  pressed_on_selected_ = event->button() == Qt::LeftButton && IsSelected(indexAt(event->position().toPoint()));
  QTreeView::mousePressEvent(event);
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  QTreeView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) emit doubleClickedAnywhere();
}

void RowList::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Insert:
    case Qt::Key_Delete:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit keyPressed(event->key());
      event->accept();
      return;
    default:
      QTreeView::keyPressEvent(event);
  }
}

void RowList::dragEnterEvent(QDragEnterEvent* event) {
  dragMoveEvent(event);
}

void RowList::dragMoveEvent(QDragMoveEvent* event) {
  if (event->mimeData()->hasUrls() && event->source() != this) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
  } else {
    event->ignore();
  }
}

void RowList::dropEvent(QDropEvent* event) {
  const QStringList paths = LocalFiles(event->mimeData());
  if (event->source() == this || paths.isEmpty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  emit filesDropped(paths, event->position().toPoint());
}

}  // namespace qublet
