#pragma once

#include <string>
#include <utility>
#include <vector>

#include "media/tag_object.h"
#include "platform/dialogs.h"

namespace qublet {

// The list of comments of the tag editor, the box beside it, and what the buttons do with both. The list is the
// store: a tag is filled from it when it is written. Rows go from 1; row 0 is none.
class CommentRows {
 public:
  explicit CommentRows(Dialogs& dialogs) : dialogs_(dialogs) {}

  std::string ID3v2Comment;  // the box

  const std::vector<TagComment>& Rows() const { return rows_; }
  int Selected() const { return selected_; }

  // Takes the comments of a tag; the first is selected.
  void Show(std::vector<TagComment> comments);
  // Puts other comments in their place. The selected one stays selected where it is among them; one with the same
  // description takes its place otherwise.
  void Replace(std::vector<TagComment> comments);
  void Append(TagComment comment) { rows_.push_back(std::move(comment)); }
  // The box shows the row's text.
  void Select(int row);

  // False, and nothing is done, when the box is empty: it wants the focus.
  bool ID3v2AddComment_Click();
  void ID3v2EditComment_Click();
  void ID3v2RemoveComment_Click();

 private:
  Dialogs& dialogs_;
  std::vector<TagComment> rows_;
  int selected_ = 0;
};

}  // namespace qublet
