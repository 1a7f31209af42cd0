#include "search_pictures.h"

#include <QComboBox>
#include <QMenu>
#include <QPushButton>

#include "support/modal_work.h"

namespace qublet {
namespace {

void TakeSearches(QWidget& form, const TakePicture& take) {
  if (!QTest::qWaitForWindowActive(&form)) return;
  take("search-opened", &form);
  auto& box = *form.findChild<QComboBox*>(QStringLiteral("txtSearch"));
  QTest::keyClicks(&box, QStringLiteral("harbour"));
  QTest::keyClick(&box, Qt::Key_Return);
  take("search-found", &form);
  auto& options = *form.findChild<QMenu*>(QStringLiteral("Moptions"));
  form.findChild<QPushButton*>(QStringLiteral("cmdOptions"))->click();
  take("search-options", &options);
  options.close();
  auto& columns = *form.findChild<QMenu*>(QStringLiteral("MColumns"));
  columns.popup(form.mapToGlobal(QPoint(40, 40)));
  take("search-columns", &columns);
  columns.close();
}

}  // namespace

void TakeSearchPictures(MainWindow& window, const TakePicture& take) {
  window.dialogs.open_names = {"c:\\Evening.m3u8"};
  window.Run("MFileOpen");
  WorkInModal([&] { window.Run("MToolsSearch"); }, [&](QWidget& form) { TakeSearches(form, take); });
}

}  // namespace qublet
