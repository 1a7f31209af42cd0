#include "media/editor/ui/MiscPage.h"

#include "media/editor/ui/later_controls.h"

namespace qublet {

MiscPage::MiscPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  DisableUntilLater({ID3v1Duplicate});
}

std::map<Id3v2Box, FormBox> MiscPage::Boxes() const {
  return {{kV2UserText, FormBox(*ID3v2UserText)},     {kV2ArtistUrl, FormBox(*ID3v2ArtistURL)},
          {kV2Preference, FormBox(*ID3v2Preference)}, {kV2Mood, FormBox(*ID3v2Mood)},
          {kV2Tempo, FormBox(*ID3v2Tempo)},           {kV2Situation, FormBox(*ID3v2Situation)}};
}

}  // namespace qublet
