#include "options_pictures.h"

#include <QPushButton>
#include <QTreeWidget>

#include "settings/schemes/look.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

void Turn(const QWidget& form, const char* node) {
  auto& tree = *form.findChild<QTreeWidget*>(QStringLiteral("OptionsTree"));
  tree.setCurrentItem(tree.findItems(QString::fromUtf8(node), Qt::MatchExactly | Qt::MatchRecursive).front());
}

void TakePages(QWidget& form, const TakePicture& take) {
  if (!QTest::qWaitForWindowActive(&form)) return;
  for (const char* node :
       {"General", "Appearance", "Playlist", "Elements", "Misc", "Interface", "Startup", "Prompting"}) {
    Turn(form, node);
    take("options-" + QString::fromUtf8(node).toLower().toStdString(), &form);
  }
  Turn(form, "Playlist");
  for (const Scheme& scheme : Schemes()) {
    form.findChild<QPushButton*>(QString::fromStdString(std::string(scheme.name)))->click();
    take("options-" + std::string(scheme.name), &form);
  }
}

}  // namespace

void TakeOptionsPictures(MainWindow& window, const TakePicture& take) {
  WorkInModal([&] { window.Run("MToolOptions"); }, [&](QWidget& form) { TakePages(form, take); });
}

}  // namespace qublet
