#pragma once

#include "settings/preferences/ui/OptionsPage.h"
#include "ui_StartupPage.h"

namespace qublet {

class StartupPage : public OptionsPage, private Ui::StartupPage {
  Q_OBJECT

 public:
  explicit StartupPage(QWidget* parent = nullptr);
};

}  // namespace qublet
