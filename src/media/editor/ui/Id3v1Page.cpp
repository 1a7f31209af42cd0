#include "media/editor/ui/Id3v1Page.h"

#include "media/editor/ui/box_shortcut.h"
#include "media/editor/ui/signature_buttons.h"

namespace qublet {

Id3v1Page::Id3v1Page(QWidget* parent) : QWidget(parent) {
  setupUi(this);
  boxes_ = {FormBox(*ID3v1Title), FormBox(*ID3v1Artist), FormBox(*ID3v1Album), FormBox(*ID3v1Year),
            FormBox(*ID3v1Comment)};
  for (const std::string& name : GenreEntries()) ID3v1Genre->addItem(QString::fromStdString(name));
  TakeDigitsOnly(*ID3v1Track);
  connect(ID3v1Present, &QCheckBox::clicked, this, &Id3v1Page::PresentClicked);
}

void Id3v1Page::Bind(TagEditor& editor, const CommandRunner& run) {
  connect(ID3v2Duplicate, &QPushButton::clicked, this,
          [run, &editor] { run([&] { editor.ID3v2Duplicate_Click(); }); });
  std::string& box = editor.view.form.v1[kV1Comment];
  new SignatureButtons(
      *ID3v1Comment, {*ID3v1SigSave, *ID3v1SigGet, *ID3v1SigClose},
      [run, &editor, &box] { run([&] { editor.KeepSignature(box); }); },
      [run, &editor, &box] { run([&] { box = editor.Signature(); }); });
}

void Id3v1Page::Show(const EditorView& view) {
  const TagForm& form = view.form;
  ID3v1Present->setChecked(form.id3v1_present);
  ID3v1Present->setEnabled(view.presence_boxes);
  for (std::size_t i = 0; i < boxes_.size(); ++i) boxes_[i].Show(form.v1[i]);
  ID3v1Track->setText(QString::fromStdString(form.v1_track));
  ID3v1Genre->setCurrentIndex(form.v1_genre);
  // The button makes the tag that it fills.
  for (auto* control : ID3v1Controls->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    control->setEnabled(control == ID3v2Duplicate ? view.tag_pages : view.v1_enabled);
}

void Id3v1Page::Collect(TagForm& form) const {
  form.id3v1_present = ID3v1Present->isChecked();
  for (std::size_t i = 0; i < boxes_.size(); ++i) form.v1[i] = boxes_[i].Text();
  form.v1_track = ID3v1Track->text().toStdString();
  form.v1_genre = ID3v1Genre->currentIndex();
}

}  // namespace qublet
