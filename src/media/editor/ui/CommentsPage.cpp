#include "media/editor/ui/CommentsPage.h"

#include "media/editor/ui/later_controls.h"
#include "platform/qt/shown_text.h"

namespace qublet {

CommentsPage::CommentsPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  DisableUntilLater(
      {ID3v2AddComment, ID3v2EditComment, ID3v2RemoveComment, ID3v2SigSave, ID3v2SigGet, ID3v2SigClose});
  // What is written here would go nowhere.
  ID3v2Comment->setReadOnly(true);
  connect(ID3v2LstComments, &QTreeWidget::currentItemChanged, this, &CommentsPage::ID3v2LstComments_ItemClick);
}

void CommentsPage::Show(const std::vector<TagComment>& comments) {
  if (comments == comments_ && ID3v2LstComments->topLevelItemCount() > 0) return;
  comments_ = comments;
  ID3v2LstComments->clear();
  ID3v2Comment->clear();
  for (const TagComment& comment : comments_) {
    new QTreeWidgetItem(ID3v2LstComments, {ShownText(comment.description), ShownText(comment.text)});
  }
  ID3v2LstComments->resizeColumnToContents(0);
  ID3v2LstComments->setCurrentItem(ID3v2LstComments->topLevelItem(0));
}

void CommentsPage::ID3v2LstComments_ItemClick() {
  const int row = ID3v2LstComments->indexOfTopLevelItem(ID3v2LstComments->currentItem());
  if (row >= 0) ID3v2Comment->setPlainText(QString::fromStdString(comments_[static_cast<std::size_t>(row)].text));
}

}  // namespace qublet
