#include "media/editor/ui/ImagesPage.h"

#include <QSignalBlocker>

#include "media/editor/ui/list_rows.h"
#include "platform/qt/shown_text.h"
#include "playlist/paths/formats.h"

namespace qublet {

ImagesPage::ImagesPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
}

void ImagesPage::Bind(TagEditor& editor, const CommandRunner& run) {
  PictureRows& pictures = editor.pictures;
  connect(ID3v2LstImages, &QTreeWidget::currentItemChanged, this,
          [this, run, &pictures] { run([&] { pictures.Select(CurrentRow(*ID3v2LstImages)); }); });
  const auto bind = [this, &run, &pictures](QPushButton* button, void (PictureRows::*handler)()) {
    connect(button, &QPushButton::clicked, this, [run, &pictures, handler] { run([&] { (pictures.*handler)(); }); });
  };
  bind(ID3v2ImageAdd, &PictureRows::ID3v2ImageAdd_Click);
  bind(ID3v2ImageRemove, &PictureRows::ID3v2ImageRemove_Click);
  bind(ID3v2ImageSave, &PictureRows::ID3v2ImageSave_Click);
  bind(ID3v2ImageOpen, &PictureRows::ID3v2ImageOpen_Click);
}

void ImagesPage::Show(const PictureRows& pictures, const std::string& thousands_separator) {
  const QSignalBlocker quiet(ID3v2LstImages);
  ShowRows(pictures.Rows(), thousands_separator);
  SetCurrentRow(*ID3v2LstImages, pictures.Selected());
  ID3v2Image->Show(pictures.Shown(), thousands_separator);
  for (QPushButton* button : {ID3v2ImageRemove, ID3v2ImageSave, ID3v2ImageOpen}) button->setEnabled(!shown_.empty());
}

void ImagesPage::ShowRows(const std::vector<PictureRows::Row>& rows, const std::string& thousands_separator) {
  if (rows == shown_) return;
  shown_ = rows;
  ID3v2LstImages->clear();
  for (const PictureRows::Row& row : shown_) {
    auto* item = new QTreeWidgetItem(
        ID3v2LstImages,
        {ShownText(row.description), ShownText(FormatSize(row.size, thousands_separator)), ShownText(row.mime_type)});
    item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
  }
  for (int column = 0; column < ID3v2LstImages->columnCount(); ++column)
    ID3v2LstImages->resizeColumnToContents(column);
}

}  // namespace qublet
