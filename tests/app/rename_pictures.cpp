#include "rename_pictures.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "support/modal_work.h"

namespace qublet {
namespace {

void AddRule(const QWidget& form, const char* from, const char* to) {
  form.findChild<QLineEdit*>(QStringLiteral("ToReplace"))->setText(QString::fromUtf8(from));
  form.findChild<QLineEdit*>(QStringLiteral("ReplaceTo"))->setText(QString::fromUtf8(to));
  form.findChild<QPushButton*>(QStringLiteral("AddRule"))->click();
}

void TakeTabs(QWidget& form, const TakePicture& take) {
  const bool active = QTest::qWaitForWindowActive(&form);
  auto& tabs = *form.findChild<QTabWidget*>(QStringLiteral("RenameTab"));
  AddRule(form, "(Live)", "");
  AddRule(form, " feat. ", " with ");
  form.findChild<QPushButton*>(QStringLiteral("RenTest"))->click();
  for (int tab = 0; tab < tabs.count(); ++tab) {
    tabs.setCurrentIndex(tab);
    const auto* counts = form.findChild<QLabel*>(QStringLiteral("Counts"));
    const bool preview = tabs.tabText(tab) == u"Preview";
    const bool ready = QTest::qWaitFor([&] { return !preview || counts->text().contains(u"files:"); });
    if (active && ready) take("rename-" + tabs.tabText(tab).toLower().toStdString(), &form);
  }
}

}  // namespace

void TakeRenamePictures(MainWindow& window, const TakePicture& take) {
  std::string list;
  for (const char* name :
       {"harbour_lights-lantern_street (Live).MP3", "harbour_lights-tidewrack.mp3", "Night Ferry.mp3",
        "slack_water.ogg", "slack water.ogg", "harbour lights feat. the quay.mp3"}) {
    window.drives.Write(std::string("ferry/") + name, "abc");
    list += std::string("ferry\\") + name + "\r\n";
  }
  window.drives.Write("rename.m3u", list + "ferry\\gone_overboard.mp3\r\n");
  window.dialogs.open_names = {"c:\\rename.m3u"};
  window.Run("MFileOpen");
  window.Run("MEditSelAll");
  WorkInModal([&] { window.Run("MToolsRename"); }, [&](QWidget& form) { TakeTabs(form, take); });
}

}  // namespace qublet
