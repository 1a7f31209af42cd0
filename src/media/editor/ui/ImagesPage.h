#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "media/tag_object.h"
#include "ui_ImagesPage.h"

namespace qublet {

// The pictures of the form, to be looked at.
class ImagesPage : public QWidget, private Ui::ImagesPage {
  Q_OBJECT

 public:
  explicit ImagesPage(QWidget* parent = nullptr);

  void Show(const std::vector<TagPicture>& images, const std::string& thousands_separator);

 private:
  void ID3v2LstImages_ItemClick();

  std::vector<TagPicture> images_;
};

}  // namespace qublet
