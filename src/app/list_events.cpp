#include "app/list_events.h"

#include <QDrag>

#include "platform/failure.h"
#include "platform/qt/file_urls.h"
#include "platform/qt/pictures.h"
#include "playlist/row_order.h"
#include "playlist/row_paths.h"
#include "playlist/stoppable_change.h"

namespace qublet {

ListEvents::ListEvents(Engine& engine, WindowFeedback& feedback, Places places)
    : engine_(engine), feedback_(feedback), places_(std::move(places)) {
  RowList* list = &places_.ListView1;
  connect(list, &RowList::mousePressed, this, &ListEvents::ListView1_MouseDown);
  connect(list, &RowList::mouseMoved, this, &ListEvents::ListView1_MouseMove);
  connect(list, &RowList::mouseReleased, this, &ListEvents::ListView1_MouseUp);
  connect(list, &RowList::menuKeyPressed, this, &ListEvents::PopUpMenu);
  connect(list, &RowList::dragBegun, this, &ListEvents::ListView1_StartDrag);
  connect(list, &RowList::filesDropped, this, &ListEvents::ListView1_FilesDropped);
}

void ListEvents::ListView1_MouseMove(QPoint point, Qt::MouseButtons held) {
  if (!(held & Qt::RightButton)) {
    MoveAnchorRow = kIdle;
    return;
  }
  const RowStore& rows = engine_.document.ListView1;
  const int row = places_.ListView1.GetRowAtPoint(point.y()) + 1;
  if (row > rows.Count()) return;
  if (MoveAnchorRow == kIdle) MoveAnchorRow = static_cast<std::int16_t>(row);
  const int way = row - MoveAnchorRow;
  if (way >= 1 && !rows.At(rows.Count()).selected) {
    RowsWereDragged |= rows.SelectedCount() > 0;
    MoveRowsDown(engine_.document);
    ++MoveAnchorRow;
  }
  if (way < 0 && !rows.At(1).selected) {
    RowsWereDragged |= rows.SelectedCount() > 0;
    MoveRowsUp(engine_.document);
    --MoveAnchorRow;
  }
}

void ListEvents::ListView1_MouseUp(QPoint point, Qt::MouseButton button) {
  engine_.view.Refresh();
  if (button == Qt::RightButton && !RowsWereDragged) PopUpMenu(point);
  MoveAnchorRow = kIdle;
}

void ListEvents::PopUpMenu(QPoint point) {
  places_.MEdit.popup(places_.ListView1.viewport()->mapToGlobal(point));
}

std::unique_ptr<QMimeData> ListEvents::SelectedFiles() {
  const WaitCursor wait(feedback_);
  DestroyFileArray(engine_.document);
  engine_.document.FileArray = RealPathsOf(engine_.document.ListView1, WhichRows::kSelected);
  QList<QUrl> addresses;
  for (const std::string& path : engine_.document.FileArray) {
    // A row without a place on this system (its drive is gone) has no address to be taken along by.
    ResumeNext([&] {
      const QUrl address = FileUrl(engine_.services.files.ToNative(path));
      if (address.path().startsWith(u'/')) addresses << address;
    });
  }
  if (addresses.empty()) return nullptr;
  auto data = std::make_unique<QMimeData>();
  data->setUrls(addresses);
  return data;
}

void ListEvents::ListView1_StartDrag() {
  DragSourceActive = true;
  if (std::unique_ptr<QMimeData> data = SelectedFiles()) {
    auto* drag = new QDrag(&places_.ListView1);  // Qt deletes it when it's over
    drag->setMimeData(data.release());
    drag->setPixmap(Picture(QStringLiteral("row-normal")).pixmap(places_.ListView1.iconSize()));
    drag->exec(Qt::CopyAction);
  }
  DragSourceActive = false;
}

void ListEvents::ListView1_FilesDropped(const std::vector<std::string>& native_paths, QPoint point) {
  if (DragSourceActive || feedback_.Busy()) return;
  {
    const RefreshOnce refresh(engine_.view);
    const RowStore::Bulk bulk(engine_.document.ListView1);
    const StoppableChange change(engine_.document, feedback_);
    // Going backwards with one insertion point keeps the order of the names.
    const int at = places_.ListView1.GetRowAtPoint(point.y()) + 1;
    for (auto path = native_paths.crbegin(); path != native_paths.crend() && !feedback_.Stopped(); ++path) {
      ResumeNext([&] {
        int InsertPoint = at;
        engine_.items.AddStuff(engine_.services.files.FromNative(*path), true, InsertPoint);
      });
      feedback_.LetRepaint();
    }
  }
  places_.resize();
}

}  // namespace qublet
