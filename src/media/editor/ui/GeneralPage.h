#pragma once

#include <QWidget>

#include "media/editor/tag_editor.h"
#include "ui_GeneralPage.h"

namespace qublet {

// What is known of a file itself.
class GeneralPage : public QWidget, private Ui::GeneralPage {
  Q_OBJECT

 public:
  explicit GeneralPage(QWidget* parent = nullptr);

  void Show(const EditorView& view);
  // The attribute boxes as the user has set them.
  void Collect(FilePage& page) const;

 signals:
  void FileInfoReadOnlyClicked();
  void FileInfoArchiveClicked();

 private:
  std::array<ShownLabel*, 2> FileInfo;
  std::array<ShownLabel*, 10> MPEGInfo;
  std::array<ShownLabel*, 5> OGGInfo;
};

}  // namespace qublet
