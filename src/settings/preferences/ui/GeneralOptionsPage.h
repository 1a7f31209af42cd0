#pragma once

#include "settings/preferences/ui/OptionsPage.h"
#include "ui_GeneralOptionsPage.h"

namespace qublet {

class GeneralOptionsPage : public OptionsPage, private Ui::GeneralOptionsPage {
  Q_OBJECT

 public:
  explicit GeneralOptionsPage(QWidget* parent = nullptr);

 signals:
  void defaultsWanted();
  void flushWanted();
};

}  // namespace qublet
