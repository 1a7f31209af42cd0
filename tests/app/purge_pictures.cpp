#include "purge_pictures.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTabWidget>

#include "support/modal_work.h"

namespace qublet {
namespace {

template <typename Control>
Control& Find(const QWidget& form, const char* name) {
  return *form.findChild<Control*>(QString::fromUtf8(name));
}

void TakeTabs(QWidget& form, const TakePicture& take) {
  const bool active = QTest::qWaitForWindowActive(&form);
  if (active) take("purge-missing", &form);
  auto& action = Find<QComboBox>(form, "MissAction");
  QTest::keyClick(&action, Qt::Key_End);
  take("purge-search", &form);
  auto& tabs = Find<QTabWidget>(form, "FilterTab");
  tabs.setCurrentIndex(1);
  take("purge-duplicates-off", &form);
  Find<QCheckBox>(form, "EnbDuplicate").click();
  take("purge-duplicates", &form);
  Find<QCheckBox>(form, "EnbDuplicate").click();
  tabs.setCurrentIndex(0);
  Find<QPushButton>(form, "CmdSearch").click();
  take("purge-step", &form);
  Find<QPushButton>(form, "SkipPath").click();
  take("purge-no-suggestions", &form);
  Find<QPushButton>(form, "SkipPath").click();
  take("purge-done", &form);
}

}  // namespace

void TakePurgePictures(MainWindow& window, const TakePicture& take) {
  for (const char* name :
       {"Moved/Night Ferry/01 - Slack Water.mp3", "Moved/Night Ferry/02 - Lantern Street.mp3",
        "Backup of last year/Harbour Lights - Night Ferry (remastered)/01 - Slack Water.mp3", "Moved/Tidewrack.MP3"})
    window.drives.Write(name, "abc");
  std::string list;
  for (const char* name :
       {"c:\\Old\\Night Ferry\\01 - Slack Water.mp3", "c:\\Old\\Night Ferry\\02 - Lantern Street.mp3",
        "c:\\Old\\Night Ferry\\03 - Fathoms.mp3", "e:\\Ferry\\Tidewrack.mp3"})
    list += std::string(name) + "\r\n";
  window.drives.Write("purge.m3u", list);
  window.dialogs.open_names = {"c:\\purge.m3u"};
  window.Run("MFileOpen");
  WorkInModal([&] { window.Run("MToolsFilter"); }, [&](QWidget& form) { TakeTabs(form, take); });
}

}  // namespace qublet
