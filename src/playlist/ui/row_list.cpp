#include "playlist/ui/row_list.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStyleHints>
#include <algorithm>

#include "platform/qt/file_urls.h"
#include "playlist/ui/row_delegate.h"

namespace qublet {
namespace {

using Flags = QItemSelectionModel::SelectionFlags;
constexpr Flags kNoUpdate = QItemSelectionModel::NoUpdate;
const Flags kOnly = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
const Flags kAlso = QItemSelectionModel::Select | QItemSelectionModel::Rows;
const Flags kNot = QItemSelectionModel::Deselect | QItemSelectionModel::Rows;
const Flags kRange = QItemSelectionModel::Clear | QItemSelectionModel::SelectCurrent | QItemSelectionModel::Rows;

// Keys that run a command of the list.
bool IsCommandKey(int key) {
  return key == Qt::Key_Insert || key == Qt::Key_Delete || key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool IsMenuKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
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

void RowList::scrollTo(const QModelIndex& index, ScrollHint hint) {
  const int across = horizontalScrollBar()->value();
  QTreeView::scrollTo(index, hint);
  horizontalScrollBar()->setValue(across);
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
    // A press on a selected row may have begun a drag; it is chosen or left out only when the button comes up on it.
    if (right || shift || !pressed_on_selected_ || !index.isValid()) return kNoUpdate;
    return control ? kNot : kOnly;
  }
  if (event.type() == QEvent::MouseMove) {
    if (right || event.buttons() == Qt::NoButton) return kNoUpdate;
    return control ? QItemSelectionModel::SelectCurrent | QItemSelectionModel::Rows : kRange;
  }
  if (!index.isValid()) return shift || control || right ? kNoUpdate : Flags(QItemSelectionModel::Clear);
  if (right) return IsSelected(index) || shift || control ? kNoUpdate : kOnly;
  if (shift) return kRange;
  if (IsSelected(index)) return kNoUpdate;
  return control ? kAlso : kOnly;
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

bool RowList::event(QEvent* event) {
  // The list takes its keys before a menu entry of the same key does: a disabled entry would swallow them.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool alone = (key.modifiers() & ~Qt::KeypadModifier) == 0;
    if ((alone && IsCommandKey(key.key())) || IsMenuKey(key)) {
      event->accept();
      return true;
    }
  }
  return QTreeView::event(event);
}

void RowList::mousePressEvent(QMouseEvent* event) {
  pressed_at_ = event->position().toPoint();
  const QModelIndex index = indexAt(pressed_at_);
  const bool left = event->button() == Qt::LeftButton;
  pressed_on_selected_ = left && IsSelected(index);
  emit mousePressed();
  QTreeView::mousePressEvent(event);
  // By its name any row can be taken hold of; elsewhere on a row that isn't selected a selection is drawn.
  may_drag_ = left && IsSelected(index) && !(event->modifiers() & Qt::ShiftModifier) &&
              (pressed_on_selected_ || index.column() == kFileName);
}

void RowList::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  emit mouseMoved(point, event->buttons());
  if (!may_drag_ || !(event->buttons() & Qt::LeftButton)) {
    QTreeView::mouseMoveEvent(event);
  } else if ((point - pressed_at_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance()) {
    may_drag_ = false;
    pressed_on_selected_ = false;
    emit dragBegun();
  }
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
  QTreeView::mouseReleaseEvent(event);
  pressed_on_selected_ = false;
  may_drag_ = false;
  emit mouseReleased(event->position().toPoint(), event->button());
}

void RowList::mouseDoubleClickEvent(QMouseEvent* event) {
  emit mousePressed();
  QTreeView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) emit doubleClickedAnywhere();
}

void RowList::keyPressEvent(QKeyEvent* event) {
  if (IsCommandKey(event->key())) {
    emit keyPressed(event->key());
  } else if (IsMenuKey(*event)) {
    PressMenuKey();
  } else {
    QTreeView::keyPressEvent(event);
    return;
  }
  event->accept();
}

void RowList::contextMenuEvent(QContextMenuEvent* event) {
  // The right button's menu comes when the button goes up, if it comes.
  if (event->reason() == QContextMenuEvent::Keyboard) PressMenuKey();
  event->accept();
}

void RowList::PressMenuKey() {
  const QModelIndex row = currentIndex().siblingAtColumn(kFileName);
  if (row.isValid()) scrollTo(row);
  const QRect place = visualRect(row);
  emit menuKeyPressed(place.isValid() ? QPoint(std::max(place.left(), 0) + iconSize().width(), place.center().y())
                                      : viewport()->rect().topLeft());
}

bool RowList::MayDrop(const QDropEvent& event) const {
  // The toolkit keeps drops off no window that a modal one blocks.
  return event.source() != this && QApplication::activeModalWidget() == nullptr;
}

void RowList::dragEnterEvent(QDragEnterEvent* event) {
  // Asked once a drag: a move would read all the addresses again.
  offers_files_ = MayDrop(*event) && !NativePaths(*event->mimeData()).empty();
  dragMoveEvent(event);
}

void RowList::dragMoveEvent(QDragMoveEvent* event) {
  if (offers_files_) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
  } else {
    event->ignore();
  }
}

void RowList::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = NativePaths(*event->mimeData());
  if (!MayDrop(*event) || paths.empty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  emit filesDropped(paths, event->position().toPoint());
}

}  // namespace qublet
