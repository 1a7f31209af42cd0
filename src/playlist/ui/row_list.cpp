#include "playlist/ui/row_list.h"

#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "playlist/ui/row_delegate.h"
#include "playlist/ui/row_header.h"

namespace qublet {
namespace {

constexpr int kDropLine = 2;  // pixels
constexpr int kHintMargin = 24;

}  // namespace

RowList::RowList(QWidget* parent) : QTreeView(parent) {
  AccessibleRows::Install();
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
  setHeader(new RowHeader(this));
  // By the view's own sorting, which isn't used, neither would be so.
  header()->setSectionsMovable(false);
  header()->setSectionsClickable(true);
}

void RowList::ShowRows(RowModel* model) {
  model_ = model;
  setModel(model);
  selection_ = new RowSelection(model, this);
  setSelectionModel(selection_);
  delegate_ = new RowDelegate(model->Rows(), this);
  setItemDelegate(delegate_);
  delegate_->SetPalette(palette());
  connect(selection_, &RowSelection::rowsSelected, this, &RowList::rowsSelected);
  connect(model, &RowModel::focusMoved, this, [this](int row) {
    const QModelIndex index = model_->IndexOf(row);
    if (index == currentIndex()) return;
    // A row that moves with the focus is no reason to scroll; who wants it seen says so.
    setAutoScroll(false);
    selection_->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
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
  // Not every style asks to be told of the pointer.
  viewport()->setAttribute(Qt::WA_Hover, on);
  viewport()->update();
}

QString RowList::EmptyHint() {
  return tr("Drop music files, folders or playlists here, or press Insert");
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
  SpeakSelection();
  // The base class asks for the place of every row in the range, whether it can be seen or not.
  const int top = std::max(first.row(), GetRowAtPoint(0));
  const int bottom = std::min(last.row(), GetRowAtPoint(viewport()->height()));
  if (top > bottom) return;
  QTreeView::dataChanged(first.siblingAtRow(top), last.siblingAtRow(bottom), roles);
}

void RowList::rowsInserted(const QModelIndex& parent, int first, int last) {
  QTreeView::rowsInserted(parent, first, last);
  SpeakSelection();
}

void RowList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  // Not by way of QTreeView, which would tell screen readers of columns that can't be seen.
  QAbstractItemView::currentChanged(current, previous);
  for (const QModelIndex& index : {current, previous}) {
    if (!index.isValid()) continue;
    const QRect row = visualRect(index);
    viewport()->update(0, row.y(), viewport()->width(), row.height());
  }
  SpeakFocus();
}

void RowList::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  SpeakFocus();
}

void RowList::SpeakSelection() {
  if (QAccessible::isActive()) spoken_.Tell(*this, Rows());
}

void RowList::SpeakFocus() {
  if (!QAccessible::isActive() || !hasFocus() || !currentIndex().isValid()) return;
  QAccessibleEvent event(this, QAccessible::Focus);
  event.setChild(AccessibleChild(*this, currentIndex().row()));
  QAccessible::updateAccessibility(&event);
}

void RowList::changeEvent(QEvent* event) {
  QTreeView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && delegate_ != nullptr) delegate_->SetPalette(palette());
}

void RowList::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (delegate_ == nullptr) return;
  QPainter painter(viewport());
  if (model_->rowCount() == 0) PaintHint(painter);
  if (drop_row_) PaintDropLine(painter);
}

void RowList::PaintHint(QPainter& painter) const {
  painter.setPen(delegate_->Colours(isActiveWindow()).hint);
  const QRect room = viewport()->rect().adjusted(kHintMargin, kHintMargin, -kHintMargin, -kHintMargin);
  painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, EmptyHint());
}

void RowList::PaintDropLine(QPainter& painter) const {
  const int count = model_->rowCount();
  const QRect row = visualRect(model_->index(std::min(*drop_row_, count - 1), kFileName));
  const int y = count == 0 ? 0 : *drop_row_ < count ? row.top() : row.bottom() + 1;
  painter.fillRect(0, std::max(y - kDropLine / 2, 0), viewport()->width(), kDropLine,
                   delegate_->Colours(isActiveWindow()).line);
}

}  // namespace qublet
