#include "media/editor/ui/Id3v2InfoPage.h"

namespace qublet {

Id3v2InfoPage::Id3v2InfoPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  for (const std::string& name : GenreEntries()) ID3v2Genre->addItem(QString::fromStdString(name));
  // A name that the toolkit completes would be written into files.
  ID3v2Genre->setCompleter(nullptr);
}

std::map<Id3v2Box, FormBox> Id3v2InfoPage::Boxes() const {
  return {{kV2Title, FormBox(*ID3v2Title)},
          {kV2Artist, FormBox(*ID3v2Artist)},
          {kV2Album, FormBox(*ID3v2Album)},
          {kV2Year, FormBox(*ID3v2Year)},
          {kV2Track, FormBox(*ID3v2Track)},
          {kV2Genre, FormBox(*ID3v2Genre)},
          {kV2Composer, FormBox(*ID3v2Composer)},
          {kV2OrigArtist, FormBox(*ID3v2OrigArtist)},
          {kV2Copyright, FormBox(*ID3v2Copyright)},
          {kV2EncodedBy, FormBox(*ID3v2EncodedBy)},
          {kV2Url, FormBox(*ID3v2URL)}};
}

}  // namespace qublet
