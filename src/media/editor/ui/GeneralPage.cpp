#include "media/editor/ui/GeneralPage.h"

#include "platform/qt/shown_text.h"

namespace qublet {
namespace {

template <typename Labels, typename Texts>
void ShowTexts(const Labels& labels, const Texts& texts) {
  for (std::size_t i = 0; i < labels.size(); ++i) labels[i]->Show(texts[i]);
}

}  // namespace

GeneralPage::GeneralPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  FileInfo = {FileInfo0, FileInfo1};
  MPEGInfo = {MPEGInfo0, MPEGInfo1, MPEGInfo2, MPEGInfo3, MPEGInfo4,
              MPEGInfo5, MPEGInfo6, MPEGInfo7, MPEGInfo8, MPEGInfo9};
  OGGInfo = {OGGInfo0, OGGInfo1, OGGInfo2, OGGInfo3, OGGInfo4};
  connect(FileInfoReadOnly, &QCheckBox::clicked, this, &GeneralPage::FileInfoReadOnlyClicked);
  connect(FileInfoArchive, &QCheckBox::clicked, this, &GeneralPage::FileInfoArchiveClicked);
}

void GeneralPage::Show(const EditorView& view) {
  ShowTexts(FileInfo, view.file.FileInfo);
  ShowTexts(MPEGInfo, view.mpeg);
  ShowTexts(OGGInfo, view.ogg);
  FileInfoReadOnly->setChecked(view.file.read_only);
  FileInfoArchive->setChecked(view.file.archive);
  for (QCheckBox* box : {FileInfoReadOnly, FileInfoArchive}) {
    box->setVisible(view.attributes_shown);
    box->setEnabled(view.file.attributes_enabled);
  }
  FrameMPEGInfo->setTitle(QString::fromStdString(view.mpeg_caption));
  FrameMPEGInfo->setVisible(view.mpeg_shown);
  FrameMPEGInfo->setEnabled(view.mpeg_shown);
  FrameOGGInfo->setVisible(view.ogg_shown);
  FrameOGGInfo->setEnabled(view.ogg_shown);
}

void GeneralPage::Collect(FilePage& page) const {
  page.read_only = FileInfoReadOnly->isChecked();
  page.archive = FileInfoArchive->isChecked();
}

}  // namespace qublet
