#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "media/editor/tag_editor.h"
#include "media/editor/ui/command_runner.h"
#include "ui_ImagesPage.h"

namespace qublet {

class ImagesPage : public QWidget, private Ui::ImagesPage {
  Q_OBJECT

 public:
  explicit ImagesPage(QWidget* parent = nullptr);

  void Bind(TagEditor& editor, const CommandRunner& run);
  void Show(const PictureRows& pictures, const std::string& thousands_separator);

 private:
  void ShowRows(const std::vector<PictureRows::Row>& rows, const std::string& thousands_separator);

  std::vector<PictureRows::Row> shown_;
};

}  // namespace qublet
