#include "media/editor/ui/MiscPage.h"

namespace qublet {

MiscPage::MiscPage(QWidget* parent) : QWidget(parent) {
  setupUi(this);
}

void MiscPage::Bind(TagEditor& editor, const CommandRunner& run) {
  connect(ID3v1Duplicate, &QPushButton::clicked, this,
          [run, &editor] { run([&] { editor.ID3v1Duplicate_Click(); }); });
}

void MiscPage::Enable(const EditorView& view) {
  for (auto* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    control->setEnabled(control == ID3v1Duplicate ? view.tag_pages : view.v2_enabled);
}

std::map<Id3v2Box, FormBox> MiscPage::Boxes() const {
  return {{kV2UserText, FormBox(*ID3v2UserText)},     {kV2ArtistUrl, FormBox(*ID3v2ArtistURL)},
          {kV2Preference, FormBox(*ID3v2Preference)}, {kV2Mood, FormBox(*ID3v2Mood)},
          {kV2Tempo, FormBox(*ID3v2Tempo)},           {kV2Situation, FormBox(*ID3v2Situation)}};
}

}  // namespace qublet
