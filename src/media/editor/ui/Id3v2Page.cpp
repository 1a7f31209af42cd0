#include "media/editor/ui/Id3v2Page.h"

namespace qublet {

Id3v2Page::Id3v2Page(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  boxes_ = InfoPage->Boxes();
  boxes_.merge(MiscTab->Boxes());
  boxes_.emplace(kV2Lyrics, FormBox(*ID3v2Lyrics));
  connect(ID3v2Present, &QCheckBox::clicked, this, &Id3v2Page::PresentClicked);
}

void Id3v2Page::Bind(TagEditor& editor, const CommandRunner& run) {
  CommentsTab->Bind(editor, run);
  ImagesTab->Bind(editor, run);
  MiscTab->Bind(editor, run);
  TpsiTab->Bind(editor, run);
}

void Id3v2Page::Show(const TagEditor& editor, const std::string& thousands_separator) {
  const EditorView& view = editor.view;
  const TagForm& form = view.form;
  ID3v2Present->setChecked(form.id3v2_present);
  ID3v2Present->setEnabled(view.presence_boxes);
  for (auto& [box, shown] : boxes_) shown.Show(form.v2[box]);
  CommentsTab->Show(editor.comments);
  ImagesTab->Show(editor.pictures, thousands_separator);
  for (int page = 0; page < Id3v2SubTab->count(); ++page) {
    QWidget* shown = Id3v2SubTab->widget(page);
    if (shown != MiscTab) shown->setEnabled(view.v2_enabled);
  }
  MiscTab->Enable(view);
  TpsiTab->Show(editor.positions, view.positions_played);
}

void Id3v2Page::Collect(TagEditor& editor) const {
  TagForm& form = editor.view.form;
  form.id3v2_present = ID3v2Present->isChecked();
  for (const auto& [box, shown] : boxes_) form.v2[box] = shown.Text();
  CommentsTab->Collect(editor.comments);
}

}  // namespace qublet
