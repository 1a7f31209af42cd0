#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/qt/BrowseForm.h"
#include "platform/qt/qt_dialogs.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

// The real dialogs, answered from a timer while they are open.
class DialogsTest : public testing::Test {
 protected:
  template <typename Dialog, typename Act>
  void WhenOpen(Act act) {
    QTimer::singleShot(50, QCoreApplication::instance(), [act] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      act(*dialog);
    });
  }

  TemporaryDrives drives;
  std::unique_ptr<FileSystem> files = OpenFileSystem();
  QtDialogs dialogs{nullptr, *files, QStringLiteral("Title"), {QStringLiteral("*.mp3")}};
};

TEST_F(DialogsTest, ShowTheTextAsItIsUnderTheProgramsTitle) {
  QString text, title;
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    text = box.text();
    title = box.windowTitle();
    box.button(QMessageBox::Yes)->click();
  });
  EXPECT_EQ(dialogs.ShowMessage("a<b> & c?", MessageIcon::kQuestion, MessageButtons::kYesNoCancel),
            MessageAnswer::kYes);
  EXPECT_EQ(text, QStringLiteral("a<b> & c?"));
  EXPECT_EQ(title, QStringLiteral("Title"));
}

TEST_F(DialogsTest, ShowEachLineOfAMessageOnItsOwn) {
  QString text;
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    text = box.text();
    box.accept();
  });
  dialogs.ShowMessage("first\rsecond", MessageIcon::kExclamation, MessageButtons::kOk);
  EXPECT_EQ(text, QStringLiteral("first\nsecond"));
}

TEST_F(DialogsTest, TakeAClosedBoxForCancel) {
  WhenOpen<QMessageBox>([](QMessageBox& box) { box.reject(); });
  EXPECT_EQ(dialogs.ShowMessage("?", MessageIcon::kQuestion, MessageButtons::kYesNoCancel), MessageAnswer::kCancel);
  WhenOpen<QMessageBox>([](QMessageBox& box) { box.reject(); });
  EXPECT_EQ(dialogs.ShowMessage("!", MessageIcon::kStop, MessageButtons::kOk), MessageAnswer::kOk);
}

TEST_F(DialogsTest, SaveUnderTheProposedNameInDriveForm) {
  QStringList filters;
  WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
    filters = dialog.nameFilters();
    QMetaObject::invokeMethod(&dialog, "accept");
  });
  const auto chosen = dialogs.ShowSave(
      {"c:\\list.m3u", "M3U Playlist Files (*.m3u)|*.m3u|M3U8 Playlist Files (*.m3u8)|*.m3u8|", "m3u"});
  EXPECT_EQ(chosen, std::optional<std::string>("c:\\list.m3u"));
  EXPECT_EQ(filters, (QStringList{"M3U Playlist Files (*.m3u)", "M3U8 Playlist Files (*.m3u8)"}));
}

TEST_F(DialogsTest, DoNotAskAboutReplacingAFile) {
  drives.Write("list.m3u", "old");
  WhenOpen<QFileDialog>([](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); });
  EXPECT_EQ(dialogs.ShowSave({"c:\\list.m3u", "M3U Playlist Files (*.m3u)|*.m3u|", "m3u"}),
            std::optional<std::string>("c:\\list.m3u"));
}

TEST_F(DialogsTest, GiveABareNameTheDefaultExtension) {
  WhenOpen<QFileDialog>([](QFileDialog& dialog) {
    dialog.findChild<QLineEdit*>()->setText("bare");
    QMetaObject::invokeMethod(&dialog, "accept");
  });
  EXPECT_EQ(dialogs.ShowSave({"", "M3U Playlist Files (*.m3u)|*.m3u|", "m3u"}),
            std::optional<std::string>("c:\\bare.m3u"));
}

TEST_F(DialogsTest, OpenInAFolderThatIsNamedWithAPattern) {
  drives.Write("lists/x.m3u", "");
  QString folder;
  WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
    folder = dialog.directory().absolutePath();
    dialog.reject();
  });
  EXPECT_EQ(dialogs.ShowOpen({"c:\\lists*.m3u", "M3U Playlist Files (*.m3u)|*.m3u|", "m3u"}), std::nullopt);
  EXPECT_EQ(folder.toStdString(), (drives.C() / "lists").generic_string());
}

TEST_F(DialogsTest, BrowseForAFileOrAFolder) {
  drives.Write("music/a.mp3", "abc");
  WhenOpen<BrowseForm>([&](BrowseForm& form) {
    form.findChild<QLineEdit*>("FolderPath")->setText(QString::fromStdString((drives.C() / "music/a.mp3").string()));
    form.accept();
  });
  EXPECT_EQ(dialogs.BrowseForFolder("Select Folder...", "c:\\music", true),
            std::optional<std::string>("c:\\music\\a.mp3"));
  WhenOpen<BrowseForm>([](BrowseForm& form) { form.accept(); });
  EXPECT_EQ(dialogs.BrowseForFolder("Select Folder...", "c:\\music", true), std::optional<std::string>("c:\\music"));
  WhenOpen<BrowseForm>([](BrowseForm& form) { form.reject(); });
  EXPECT_EQ(dialogs.BrowseForFolder("Select Folder...", "", true), std::nullopt);
}

}  // namespace
}  // namespace qublet
