#pragma once

#include <memory>
#include <vector>

#include "platform/feedback.h"
#include "playlist/document.h"

namespace qublet {

// What a command does to the list while the user may stop it: if so, rows, selection, focus and `PlaylistChanged` are
// in the end what they were in the beginning. Meanwhile rows may come, and all may go by ClearList; none moves.
// Holds the wait cursor.
class StoppableChange {
 public:
  StoppableChange(Document& document, Feedback& feedback);
  ~StoppableChange();
  StoppableChange(const StoppableChange&) = delete;
  StoppableChange& operator=(const StoppableChange&) = delete;

  // One of these, once at most and before other rows come: the rows go for a while, or to make room for another list.
  void ClearList() { cleared_ = document_.ListView1.TakeAll(); }
  // The rows that went by that.
  const std::vector<std::unique_ptr<Row>>& Cleared() const { return cleared_; }
  void GiveWay() { cleared_ = document_.GiveWay(); }

 private:
  void Restore();
  void RemoveNewRows();

  const WaitCursor wait_;
  Document& document_;
  Feedback& feedback_;
  std::vector<const Row*> rows_;
  std::vector<bool> selected_;
  int focused_row_;
  bool changed_;
  Document::Recovery recovered_;
  std::vector<std::unique_ptr<Row>> cleared_;
};

}  // namespace qublet
