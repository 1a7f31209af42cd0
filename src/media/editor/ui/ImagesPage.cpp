#include "media/editor/ui/ImagesPage.h"

#include "media/editor/ui/later_controls.h"
#include "platform/qt/shown_text.h"
#include "playlist/paths/formats.h"

namespace qublet {

ImagesPage::ImagesPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  DisableUntilLater({ID3v2ImageAdd, ID3v2ImageRemove, ID3v2ImageSave, ID3v2ImageOpen});
  connect(ID3v2LstImages, &QTreeWidget::currentItemChanged, this, &ImagesPage::ID3v2LstImages_ItemClick);
}

void ImagesPage::Show(const std::vector<TagPicture>& images, const std::string& thousands_separator) {
  if (images == images_) return;
  images_ = images;
  ID3v2LstImages->clear();
  ID3v2Image->Show({});
  for (const TagPicture& image : images_) {
    auto* row = new QTreeWidgetItem(
        ID3v2LstImages, {ShownText(image.description), ShownText(FormatSize(image.data.size(), thousands_separator)),
                         ShownText(image.mime_type)});
    row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
  }
  for (int column = 0; column < ID3v2LstImages->columnCount(); ++column)
    ID3v2LstImages->resizeColumnToContents(column);
  ID3v2LstImages->setCurrentItem(ID3v2LstImages->topLevelItem(0));
}

void ImagesPage::ID3v2LstImages_ItemClick() {
  const int row = ID3v2LstImages->indexOfTopLevelItem(ID3v2LstImages->currentItem());
  if (row < 0) return;
  const Bytes& picture = images_[static_cast<std::size_t>(row)].data;
  ID3v2Image->Show(QImage::fromData(picture.data(), static_cast<int>(picture.size())));
}

}  // namespace qublet
