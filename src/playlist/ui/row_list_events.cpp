#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QStyleHints>
#include <algorithm>

#include "platform/qt/file_urls.h"
#include "playlist/ui/row_delegate.h"
#include "playlist/ui/row_list.h"

// What mouse, keys and drops mean in the list.

namespace qublet {
namespace {

using Flags = QItemSelectionModel::SelectionFlags;
constexpr Flags kNoUpdate = QItemSelectionModel::NoUpdate;
const Flags kOnly = QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
const Flags kAlso = QItemSelectionModel::Select | QItemSelectionModel::Rows;
const Flags kNot = QItemSelectionModel::Deselect | QItemSelectionModel::Rows;
const Flags kRange = QItemSelectionModel::Clear | QItemSelectionModel::SelectCurrent | QItemSelectionModel::Rows;
const Flags kMoreRange = QItemSelectionModel::SelectCurrent | QItemSelectionModel::Rows;

// Keys that run a command of the list.
bool IsCommandKey(int key) {
  return key == Qt::Key_Insert || key == Qt::Key_Delete || key == Qt::Key_Return || key == Qt::Key_Enter;
}

// Keys that move the focus and would leave one selected row behind.
bool IsMovingKey(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_End ||
         key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

Qt::KeyboardModifiers ModifiersOf(const QKeyEvent& event) {
  return event.modifiers() & ~Qt::KeypadModifier;
}

bool IsMenuKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier;
}

}  // namespace

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
    return control ? kMoreRange : kRange;
  }
  if (!index.isValid()) return shift || control || right ? kNoUpdate : Flags(QItemSelectionModel::Clear);
  if (right) return IsSelected(index) || shift || control ? kNoUpdate : kOnly;
  if (shift) return control ? kMoreRange : kRange;
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
      if (key.modifiers() & Qt::ShiftModifier) return control ? kMoreRange : kRange;
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
    if ((!ModifiersOf(key) && IsCommandKey(key.key())) || IsMenuKey(key)) {
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
  selection_->BeginRange();
  QTreeView::mousePressEvent(event);
  if (left && !index.isValid() && !event->modifiers()) selection_->clear();
  // By its name any row can be taken hold of; elsewhere on a row that isn't selected a selection is drawn.
  may_drag_ = left && IsSelected(index) && !(event->modifiers() & Qt::ShiftModifier) &&
              (pressed_on_selected_ || index.column() == kFileName);
}

void RowList::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  held_ = event->buttons();
  if (held_ == Qt::NoButton || may_drag_) {
    border_scroll_.Stop();
  } else {
    border_scroll_.Follow(point);
  }
  emit mouseMoved(point, held_);
  if (!may_drag_ || !(event->buttons() & Qt::LeftButton)) {
    // The toolkit's own scrolling at the border rests while the pointer does.
    setAutoScroll(false);
    QTreeView::mouseMoveEvent(event);
    setAutoScroll(true);
  } else if ((point - pressed_at_).manhattanLength() >= QGuiApplication::styleHints()->startDragDistance()) {
    may_drag_ = false;
    pressed_on_selected_ = false;
    emit dragBegun();
  }
}

void RowList::HeldAt(QPoint point) {
  if (drop_row_) {
    ShowDropLine(GetRowAtPoint(point.y()));
  } else if (held_ & QGuiApplication::mouseButtons()) {
    QMouseEvent move(QEvent::MouseMove, point, viewport()->mapToGlobal(point), Qt::NoButton, held_,
                     QGuiApplication::keyboardModifiers());
    const bool right = held_ & Qt::RightButton;
    if (right) emit mouseMoved(point, held_);
    if (!right) QTreeView::mouseMoveEvent(&move);
  } else {
    border_scroll_.Stop();
  }
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
  border_scroll_.Stop();
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
  const Qt::KeyboardModifiers held = ModifiersOf(*event);
  event->accept();
  if (IsMenuKey(*event)) {
    PressMenuKey();
  } else if (IsCommandKey(event->key()) && !held) {
    emit keyPressed(event->key());
  } else if (IsCommandKey(event->key()) || held & (Qt::AltModifier | Qt::MetaModifier)) {
    // A key of the menus, whose entry is disabled, or nobody's.
    event->ignore();
  } else {
    MoveByKey(event);
  }
}

void RowList::MoveByKey(QKeyEvent* event) {
  const QModelIndex before = currentIndex();
  selection_->BeginRange();
  QTreeView::keyPressEvent(event);
  const bool bare = !ModifiersOf(*event);
  if (bare && IsMovingKey(event->key()) && currentIndex() == before) selection_->select(before, kOnly);
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

void RowList::ShowDropLine(std::optional<int> row) {
  if (row == drop_row_) return;
  drop_row_ = row;
  viewport()->update();
}

void RowList::dragMoveEvent(QDragMoveEvent* event) {
  if (offers_files_) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const QPoint point = event->position().toPoint();
    ShowDropLine(GetRowAtPoint(point.y()));
    border_scroll_.Follow(point);
  } else {
    event->ignore();
  }
}

void RowList::dragLeaveEvent(QDragLeaveEvent* event) {
  border_scroll_.Stop();
  ShowDropLine({});
  event->accept();
}

void RowList::dropEvent(QDropEvent* event) {
  border_scroll_.Stop();
  ShowDropLine({});
  const std::vector<std::string> paths = NativePaths(*event->mimeData());
  if (!MayDrop(*event) || paths.empty()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  emit filesDropped(paths, event->position().toPoint());
}

}  // namespace qublet
