#include "help_pictures.h"

#include <QCoreApplication>

#include "help/ui/HelpForm.h"
#include "platform/qt/BrowseForm.h"

namespace qublet {
namespace {

void TakeBrowser(const MainWindow& window, const TakePicture& take) {
  const QString music = QString::fromStdString((window.drives.C() / "Music").string());
  BrowseForm form(QStringLiteral("Select Folder..."), {QStringLiteral("*.mp3"), QStringLiteral("*.m3u")},
                  {{QStringLiteral("Home"), QStringLiteral("/home"), QStyle::SP_DirHomeIcon},
                   {QStringLiteral("Music"), music, QStyle::SP_DirIcon}},
                  window.main);
  form.show();
  form.Preselect(music);
  QTest::qWait(500);  // the tree is read in the background
  // Nothing of this machine.
  auto& tree = *form.findChild<QTreeView*>();
  auto& model = *qobject_cast<QFileSystemModel*>(tree.model());
  tree.setRootIndex(model.index(music));
  for (const char* folder : {"Harbour Lights", "Harbour Lights/Night Ferry"})
    tree.expand(model.index(music + QLatin1Char('/') + QString::fromUtf8(folder)));
  QTest::qWait(500);
  auto& path = *form.findChild<QLineEdit*>();
  const QSignalBlocker quiet(path);
  path.setText(QStringLiteral("/home/you/Music"));
  take("browse-folder", &form);
}

}  // namespace

void TakeHelpPictures(MainWindow& window, const TakePicture& take) {
  HelpForm form(window.main);
  form.resize(660, 460);
  const QString book = QCoreApplication::applicationDirPath();
  const QString contents = book + QStringLiteral("/QUBLET20.hlp");
  form.Open(contents, contents);
  take("help-contents", &form);
  form.Open(contents, HelpBrowser::PageNamed(contents, QStringLiteral("frmSearch")));
  take("help-page", &form);
  form.close();
  TakeBrowser(window, take);
}

}  // namespace qublet
