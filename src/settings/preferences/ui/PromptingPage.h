#pragma once

#include "settings/preferences/ui/OptionsPage.h"
#include "ui_PromptingPage.h"

namespace qublet {

class PromptingPage : public OptionsPage, private Ui::PromptingPage {
  Q_OBJECT

 public:
  explicit PromptingPage(QWidget* parent = nullptr);
};

}  // namespace qublet
