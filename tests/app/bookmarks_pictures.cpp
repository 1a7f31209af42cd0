#include "bookmarks_pictures.h"

#include <QTreeWidget>

#include "support/modal_work.h"

namespace qublet {
namespace {

bool HasRows(const QWidget& form) {
  const auto* list = form.findChild<QTreeWidget*>(QStringLiteral("lstCategory"));
  return QTest::qWaitFor([list] { return list->topLevelItemCount() > 0; });
}

}  // namespace

void TakeBookmarksPictures(MainWindow& window, const TakePicture& take) {
  for (const char* name :
       {"Sunday morning", "For the car", "Ines Valc\u00e1rcel, all that is good for a long evening by the sea"})
    window.drives.Write("program/Bookmarks/" + std::string(name) + ".bm", "");
  window.dialogs.open_names = {"c:\\Evening.m3u8"};
  window.Run("MFileOpen");
  window.Run("MEditSelAll");
  WorkInModal([&] { window.Run("MToolsBookmarkAdd"); },
              [&](QWidget& form) {
                if (HasRows(form)) take("bookmarks-add", &form);
              });
  window.Run("MToolsBookmarkImport");
  for (QWidget* form : QApplication::topLevelWidgets()) {
    if (form->objectName() != u"BookmarksWizard" || !form->isVisible()) continue;
    if (HasRows(*form)) take("bookmarks-import", form);
    form->close();
    break;
  }
}

}  // namespace qublet
