#pragma once

#include <QWidget>
#include <vector>

#include "media/editor/tag_editor.h"
#include "media/editor/ui/command_runner.h"
#include "media/editor/ui/form_box.h"
#include "ui_Id3v1Page.h"

namespace qublet {

class Id3v1Page : public QWidget, private Ui::Id3v1Page {
  Q_OBJECT

 public:
  explicit Id3v1Page(QWidget* parent = nullptr);

  void Bind(TagEditor& editor, const CommandRunner& run);
  void Show(const EditorView& view);
  void Collect(TagForm& form) const;

 signals:
  void PresentClicked(bool checked);

 private:
  std::vector<FormBox> boxes_;  // by Id3v1Box
};

}  // namespace qublet
