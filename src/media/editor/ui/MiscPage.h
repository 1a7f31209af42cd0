#pragma once

#include <QWidget>
#include <map>

#include "media/editor/tag_editor.h"
#include "media/editor/ui/command_runner.h"
#include "media/editor/ui/form_box.h"
#include "ui_MiscPage.h"

namespace qublet {

class MiscPage : public QWidget, private Ui::MiscPage {
  Q_OBJECT

 public:
  explicit MiscPage(QWidget* parent = nullptr);

  void Bind(TagEditor& editor, const CommandRunner& run);
  // The button makes the tag that it fills, so it can be used without one.
  void Enable(const EditorView& view);
  std::map<Id3v2Box, FormBox> Boxes() const;
};

}  // namespace qublet
