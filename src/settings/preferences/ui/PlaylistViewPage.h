#pragma once

#include "settings/preferences/preferences.h"
#include "settings/preferences/ui/OptionsPage.h"
#include "ui_PlaylistViewPage.h"

namespace qublet {

// The look of the list. What is chosen is seen on a sample at once.
class PlaylistViewPage : public OptionsPage, private Ui::PlaylistViewPage {
  Q_OBJECT

 public:
  explicit PlaylistViewPage(QWidget* parent = nullptr);

  // `preferences` outlives the page.
  void Attach(Preferences& preferences);
  void Load(const AppSettings& settings) override;
  void Store(AppSettings& settings) const override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Show();
  void ShowFaces();
  void ChooseColour(std::int32_t& colour, const QString& title);
  void FontChange_Click();

  Look look_;  // of lblTestArea
};

}  // namespace qublet
