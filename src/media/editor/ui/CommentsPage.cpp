#include "media/editor/ui/CommentsPage.h"

#include <QSignalBlocker>

#include "media/editor/ui/list_rows.h"
#include "media/editor/ui/signature_buttons.h"
#include "platform/qt/shown_text.h"
#include "playlist/paths/text.h"

namespace qublet {

namespace {

QString InOneLine(const std::string& text) {
  return ShownText(ReplaceAll(ReplaceAll(text, "\r\n", " "), "\n", " "));
}

}  // namespace

CommentsPage::CommentsPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  box_.emplace(*ID3v2Comment);
}

void CommentsPage::Bind(TagEditor& editor, const CommandRunner& run) {
  CommentRows& comments = editor.comments;
  connect(ID3v2LstComments, &QTreeWidget::currentItemChanged, this,
          [this, run, &comments] { run([&] { comments.Select(CurrentRow(*ID3v2LstComments)); }); });
  connect(ID3v2AddComment, &QPushButton::clicked, this, [this, run, &comments] {
    bool written = false;
    run([&] { written = comments.ID3v2AddComment_Click(); });
    if (!written) ID3v2Comment->setFocus();
  });
  connect(ID3v2EditComment, &QPushButton::clicked, this,
          [run, &comments] { run([&] { comments.ID3v2EditComment_Click(); }); });
  connect(ID3v2RemoveComment, &QPushButton::clicked, this,
          [run, &comments] { run([&] { comments.ID3v2RemoveComment_Click(); }); });
  BindSignature(editor, run);
}

void CommentsPage::BindSignature(TagEditor& editor, const CommandRunner& run) {
  std::string& box = editor.comments.ID3v2Comment;
  new SignatureButtons(
      *ID3v2Comment, {*ID3v2SigSave, *ID3v2SigGet, *ID3v2SigClose},
      [run, &editor, &box] { run([&] { editor.KeepSignature(box); }); },
      [run, &editor, &box] { run([&] { box = editor.Signature(); }); });
}

void CommentsPage::Show(const CommentRows& comments) {
  const QSignalBlocker quiet(ID3v2LstComments);
  ShowRows(comments.Rows());
  SetCurrentRow(*ID3v2LstComments, comments.Selected());
  box_->Show(comments.ID3v2Comment);
  for (QPushButton* button : {ID3v2EditComment, ID3v2RemoveComment}) button->setEnabled(!shown_.empty());
}

void CommentsPage::ShowRows(const std::vector<TagComment>& rows) {
  if (rows == shown_) return;
  shown_ = rows;
  ID3v2LstComments->clear();
  for (const TagComment& comment : shown_)
    new QTreeWidgetItem(ID3v2LstComments, {InOneLine(comment.description), InOneLine(comment.text)});
  ID3v2LstComments->resizeColumnToContents(0);
}

void CommentsPage::Collect(CommentRows& comments) const {
  comments.ID3v2Comment = box_->Text();
}

}  // namespace qublet
