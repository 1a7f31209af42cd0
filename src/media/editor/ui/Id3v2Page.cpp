#include "media/editor/ui/Id3v2Page.h"

namespace qublet {

Id3v2Page::Id3v2Page(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  boxes_ = InfoPage->Boxes();
  boxes_.merge(MiscTab->Boxes());
  boxes_.emplace(kV2Lyrics, FormBox(*ID3v2Lyrics));
  connect(ID3v2Present, &QCheckBox::clicked, this, &Id3v2Page::PresentClicked);
}

void Id3v2Page::Show(const EditorView& view, const std::string& thousands_separator) {
  const TagForm& form = view.form;
  ID3v2Present->setChecked(form.id3v2_present);
  ID3v2Present->setEnabled(view.presence_boxes);
  for (auto& [box, shown] : boxes_) shown.Show(form.v2[box]);
  CommentsTab->Show(form.comments);
  ImagesTab->Show(form.images, thousands_separator);
  for (int page = 0; page < Id3v2SubTab->count(); ++page) Id3v2SubTab->widget(page)->setEnabled(view.v2_enabled);
  TpsiTab->SetPlayed(view.positions_played);
}

void Id3v2Page::Collect(TagForm& form) const {
  form.id3v2_present = ID3v2Present->isChecked();
  for (const auto& [box, shown] : boxes_) form.v2[box] = shown.Text();
}

}  // namespace qublet
