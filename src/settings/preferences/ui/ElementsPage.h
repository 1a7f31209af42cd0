#pragma once

#include "settings/preferences/preferences.h"
#include "settings/preferences/ui/OptionsPage.h"
#include "ui_ElementsPage.h"

namespace qublet {

class ElementsPage : public OptionsPage, private Ui::ElementsPage {
  Q_OBJECT

 public:
  explicit ElementsPage(QWidget* parent = nullptr);

  // `preferences` outlives the page.
  void Attach(Preferences& preferences);
};

}  // namespace qublet
