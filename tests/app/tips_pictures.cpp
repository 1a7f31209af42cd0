#include "tips_pictures.h"

#include <QPushButton>

#include "support/modal_work.h"

namespace qublet {
namespace {

constexpr int kCreditsComeIn = 4000;  // milliseconds

void Take(MainWindow& window, const char* entry, const std::function<void(QWidget& form)>& look) {
  WorkInModal([&] { window.Run(entry); }, look);
}

}  // namespace

void TakeTipsPictures(MainWindow& window, const TakePicture& take) {
  Take(window, "MHelpTip", [&](QWidget& form) { take("tip-missing", &form); });
  window.drives.Write(
      "program/QUBLET20.htd",
      "Press F5 after you have changed files by another program.\n"
      "Drop a folder on a row, and all that it holds comes in above that row; dropped below the last "
      "one it comes in at the end. A playlist that you drop is taken apart into its items, and the "
      "folder that it stands in becomes the current one, so that its relative lines find their way.\n");
  Take(window, "MHelpTip", [&](QWidget& form) {
    take("tip-short", &form);
    form.findChild<QPushButton*>(QStringLiteral("CmdNext"))->click();
    take("tip-long", &form);
  });
  Take(window, "MHelpAbout", [&](QWidget& form) {
    take("about", &form);
    QTest::qWait(kCreditsComeIn);
    take("about-later", &form);
  });
}

}  // namespace qublet
