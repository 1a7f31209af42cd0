#include "media/editor/comment_rows.h"

#include <algorithm>
#include <optional>

namespace qublet {

void CommentRows::Show(std::vector<TagComment> comments) {
  rows_ = std::move(comments);
  ID3v2Comment.clear();
  Select(rows_.empty() ? 0 : 1);
}

void CommentRows::Replace(std::vector<TagComment> comments) {
  if (comments == rows_) return;
  std::optional<TagComment> selected;
  if (selected_ > 0) selected = rows_[static_cast<std::size_t>(selected_) - 1];
  rows_ = std::move(comments);
  if (!selected) return;
  auto place = std::ranges::find(rows_, *selected);
  const bool same = place != rows_.end();
  if (!same) place = std::ranges::find(rows_, selected->description, &TagComment::description);
  selected_ = place == rows_.end() ? 0 : static_cast<int>(place - rows_.begin()) + 1;
  // What is being written in the box stays there as long as its row does.
  if (!same) ID3v2Comment.clear();
  if (!same) Select(selected_);
}

void CommentRows::Select(int row) {
  selected_ = row;
  if (row > 0) ID3v2Comment = rows_[static_cast<std::size_t>(row) - 1].text;
}

bool CommentRows::ID3v2AddComment_Click() {
  if (ID3v2Comment.empty()) return false;
  const std::string description = dialogs_.AskText("Enter description.", "Add Comment").value_or("");
  if (!description.empty()) Append({description, ID3v2Comment});
  return true;
}

void CommentRows::ID3v2EditComment_Click() {
  if (selected_ > 0) rows_[static_cast<std::size_t>(selected_) - 1].text = ID3v2Comment;
}

void CommentRows::ID3v2RemoveComment_Click() {
  if (selected_ == 0) return;
  rows_.erase(rows_.begin() + selected_ - 1);
  if (rows_.empty()) ID3v2Comment.clear();
  Select(rows_.empty() ? 0 : std::max(1, selected_ - 1));
}

}  // namespace qublet
