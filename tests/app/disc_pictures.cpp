#include "disc_pictures.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

#include "support/modal_work.h"

namespace qublet {
namespace {

void TakeSteps(MainWindow& window, QWidget& form, const TakePicture& take) {
  const auto click = [&](const char* name) { form.findChild<QAbstractButton*>(QString::fromUtf8(name))->click(); };
  window.dialogs.folders = {"c:\\Discs"};
  click("BrowseAssembleLoc");
  QTest::keyClicks(form.findChild<QComboBox*>(QStringLiteral("CDROMLoc")), QStringLiteral("Night Ferry"));
  for (const char* name : {"disc-folders", "disc-files"}) {
    take(name, &form);
    click("CmdNext");
  }
  take("disc-extras-off", &form);
  for (const char* box : {"chkCreateTable", "chkCreateAutorun", "chkAutoBigList", "chkAutoIcon"}) click(box);
  take("disc-extras", &form);
  click("CmdNext");
  take("disc-finish", &form);
  click("CmdNext");
  take("disc-done", &form);
}

}  // namespace

void TakeDiscPictures(MainWindow& window, const TakePicture& take) {
  window.drives.Write("Discs/Night Ferry/01 - Slack Water.mp3", "abc");
  WorkInModal([&] { window.Run("MToolsMP3CDWiz"); }, [&](QWidget& form) { TakeSteps(window, form, take); });
}

}  // namespace qublet
