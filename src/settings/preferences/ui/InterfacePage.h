#pragma once

#include "settings/preferences/preferences.h"
#include "settings/preferences/ui/OptionsPage.h"
#include "ui_InterfacePage.h"

namespace qublet {

class InterfacePage : public OptionsPage, private Ui::InterfacePage {
  Q_OBJECT

 public:
  explicit InterfacePage(QWidget* parent = nullptr);

  // `preferences` outlives the page.
  void Attach(Preferences& preferences);
};

}  // namespace qublet
