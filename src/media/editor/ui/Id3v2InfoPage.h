#pragma once

#include <QWidget>
#include <map>

#include "media/editor/tag_form.h"
#include "media/editor/ui/form_box.h"
#include "ui_Id3v2InfoPage.h"

namespace qublet {

class Id3v2InfoPage : public QWidget, private Ui::Id3v2InfoPage {
  Q_OBJECT

 public:
  explicit Id3v2InfoPage(QWidget* parent = nullptr);

  std::map<Id3v2Box, FormBox> Boxes() const;
};

}  // namespace qublet
