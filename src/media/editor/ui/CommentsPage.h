#pragma once

#include <QWidget>
#include <vector>

#include "media/tag_object.h"
#include "ui_CommentsPage.h"

namespace qublet {

// The comments of the form, to be looked at.
class CommentsPage : public QWidget, private Ui::CommentsPage {
  Q_OBJECT

 public:
  explicit CommentsPage(QWidget* parent = nullptr);

  void Show(const std::vector<TagComment>& comments);

 private:
  void ID3v2LstComments_ItemClick();

  std::vector<TagComment> comments_;
};

}  // namespace qublet
