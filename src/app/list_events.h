#pragma once

#include <QMenu>
#include <QMimeData>
#include <cstdint>
#include <functional>
#include <memory>

#include "desk/window_feedback.h"
#include "engine/engine.h"
#include "playlist/ui/row_list.h"

namespace qublet {

// How rows travel by mouse: reordered with the right button, dragged out as files, dropped in; and when the list's
// context menu comes.
class ListEvents : public QObject {
 public:
  struct Places {
    RowList& ListView1;
    QMenu& MEdit;  // pops up over the list
    std::function<void()> resize;
  };

  ListEvents(Engine& engine, WindowFeedback& feedback, Places places);

 private:
  void ListView1_MouseDown() { RowsWereDragged = false; }
  void ListView1_MouseMove(QPoint point, Qt::MouseButtons held);
  void ListView1_MouseUp(QPoint point, Qt::MouseButton button);
  void ListView1_StartDrag();
  void ListView1_FilesDropped(const std::vector<std::string>& native_paths, QPoint point);
  void PopUpMenu(QPoint point);
  std::unique_ptr<QMimeData> SelectedFiles();

  Engine& engine_;
  WindowFeedback& feedback_;
  Places places_;

  // From the start of a drag out of the list to its end; the list takes no drop of its own rows.
  bool DragSourceActive = false;
  // The row that a drag with the right button has reached; True when there is none.
  std::int16_t MoveAnchorRow = kIdle;
  // A drag with the right button has moved rows: no menu follows.
  bool RowsWereDragged = false;

  static constexpr std::int16_t kIdle = -1;
};

}  // namespace qublet
