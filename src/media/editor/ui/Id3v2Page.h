#pragma once

#include <QWidget>
#include <map>
#include <string>

#include "media/editor/tag_editor.h"
#include "media/editor/ui/command_runner.h"
#include "media/editor/ui/form_box.h"
#include "ui_Id3v2Page.h"

namespace qublet {

class Id3v2Page : public QWidget, private Ui::Id3v2Page {
  Q_OBJECT

 public:
  explicit Id3v2Page(QWidget* parent = nullptr);

  void Bind(TagEditor& editor, const CommandRunner& run);
  void Show(const TagEditor& editor, const std::string& thousands_separator);
  void Collect(TagEditor& editor) const;
  void ShowFirstPage() { Id3v2SubTab->setCurrentIndex(0); }

 signals:
  void PresentClicked(bool checked);

 private:
  std::map<Id3v2Box, FormBox> boxes_;
};

}  // namespace qublet
