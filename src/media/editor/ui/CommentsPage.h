#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "media/editor/tag_editor.h"
#include "media/editor/ui/command_runner.h"
#include "media/editor/ui/form_box.h"
#include "ui_CommentsPage.h"

namespace qublet {

class CommentsPage : public QWidget, private Ui::CommentsPage {
  Q_OBJECT

 public:
  explicit CommentsPage(QWidget* parent = nullptr);

  void Bind(TagEditor& editor, const CommandRunner& run);
  void Show(const CommentRows& comments);
  void Collect(CommentRows& comments) const;

 private:
  void BindSignature(TagEditor& editor, const CommandRunner& run);
  void ShowRows(const std::vector<TagComment>& rows);

  std::optional<FormBox> box_;
  std::vector<TagComment> shown_;
};

}  // namespace qublet
