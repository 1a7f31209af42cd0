#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <map>

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

TEST_F(DialogsTest, TakeALineOfText) {
  QString prompt, title;
  WhenOpen<QInputDialog>([&](QInputDialog& dialog) {
    prompt = dialog.labelText();
    title = dialog.windowTitle();
    QTest::keyClicks(dialog.findChild<QLineEdit*>(), QStringLiteral("written"));
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(dialogs.AskText("Enter description.", "Add Image"), "written");
  EXPECT_EQ(prompt, QStringLiteral("Enter description."));
  EXPECT_EQ(title, QStringLiteral("Add Image"));
  WhenOpen<QInputDialog>([&](QInputDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
  EXPECT_EQ(dialogs.AskText("", ""), "");
  WhenOpen<QInputDialog>([&](QInputDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_EQ(dialogs.AskText("", ""), std::nullopt);
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

TEST_F(DialogsTest, AskWithOkAndCancel) {
  QMessageBox::StandardButtons shown;
  WhenOpen<QMessageBox>([&](QMessageBox& box) {
    shown = box.standardButtons();
    box.button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(dialogs.ShowMessage("?", MessageIcon::kQuestion, MessageButtons::kOkCancel), MessageAnswer::kOk);
  EXPECT_EQ(shown, QMessageBox::Ok | QMessageBox::Cancel);
  WhenOpen<QMessageBox>([](QMessageBox& box) { box.close(); });
  EXPECT_EQ(dialogs.ShowMessage("?", MessageIcon::kQuestion, MessageButtons::kOkCancel), MessageAnswer::kCancel);
}

TEST_F(DialogsTest, StandBeforeTheWindowThatTheUserWorksIn) {
  QDialog first, second;
  const auto owner = [&](QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QWidget* before = nullptr;
    WhenOpen<QMessageBox>([&](QMessageBox& box) {
      before = box.parentWidget();
      box.accept();
    });
    dialogs.ShowMessage("!", MessageIcon::kStop, MessageButtons::kOk);
    return before;
  };
  dialogs.SetOwner(&first);
  EXPECT_EQ(owner(second), &second);
  EXPECT_EQ(owner(first), &first);
  second.hide();
  first.hide();
  second.setModal(true);
  EXPECT_EQ(owner(second), &second);
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

// The name as it is saved that someone types and ends with Enter, `type` being chosen in the list below.
class SaveNamesTest : public DialogsTest {
 protected:
  std::string Saved(const QString& typed, const QString& type = "M3U Playlist Files (*.m3u)") {
    WhenOpen<QFileDialog>([&](QFileDialog& dialog) {
      auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
      types->setCurrentText(type);
      emit types->textActivated(type);
      auto* name = dialog.findChild<QLineEdit*>();
      name->clear();
      QTest::keyClicks(name, typed);
      QTest::keyClick(name, Qt::Key_Return);
    });
    return dialogs
        .ShowSave({"c:\\list.m3u", "M3U Playlist Files (*.m3u)|*.m3u|M3U8 Playlist Files (*.m3u8)|*.m3u8|", "m3u"})
        .value_or("nothing");
  }
};

TEST_F(SaveNamesTest, GetTheChosenExtensionWhenADotMerelyStandsInThem) {
  EXPECT_EQ(Saved("Vol. 1"), "c:\\Vol. 1.m3u");
  EXPECT_EQ(Saved("Dr. Dre"), "c:\\Dr. Dre.m3u");
  EXPECT_EQ(Saved("Vol. 1", "M3U8 Playlist Files (*.m3u8)"), "c:\\Vol. 1.m3u8");
  EXPECT_EQ(Saved("bare", "M3U8 Playlist Files (*.m3u8)"), "c:\\bare.m3u8");
}

TEST_F(SaveNamesTest, NeverLeadIntoAFileOfAnotherKind) {
  drives.Write("song.mp3", "sound");
  EXPECT_EQ(Saved("song.mp3"), "c:\\song.mp3.m3u");
}

TEST_F(SaveNamesTest, KeepAnExtensionThatIsOnOffer) {
  EXPECT_EQ(Saved("a.b.m3u"), "c:\\a.b.m3u");
  EXPECT_EQ(Saved("a.M3U8"), "c:\\a.M3U8");
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

class FolderBrowserTest : public DialogsTest {
 protected:
  // The path that the browser begins at.
  std::string StartFor(const std::string& start_folder) {
    QString shown;
    WhenOpen<BrowseForm>([&](BrowseForm& form) {
      shown = form.Chosen();
      form.reject();
    });
    dialogs.BrowseForFolder("Select Folder...", start_folder, true);
    return shown.toStdString();
  }
};

TEST_F(FolderBrowserTest, BeginsInTheKnownFolderForMusicAndSpeaksTheSystemsSeparators) {
  using Paths = QStandardPaths;
  const QString music = Paths::writableLocation(Paths::MusicLocation);
  const QString start = QDir(music).exists() ? music : QDir::homePath();
  QStringList places;
  QString shown;
  WhenOpen<BrowseForm>([&](BrowseForm& form) {
    shown = form.findChild<QLineEdit*>("FolderPath")->text();
    auto* list = form.findChild<QListWidget*>("FolderPlaces");
    for (int i = 0; i < list->count(); ++i) places << list->item(i)->toolTip();
    form.reject();
  });
  dialogs.BrowseForFolder("Select Folder...", "", true);
  EXPECT_EQ(shown, QDir::toNativeSeparators(start));
  EXPECT_TRUE(places.contains(shown));
  EXPECT_TRUE(places.contains(QDir::toNativeSeparators(QDir::homePath())));
  for (const QString& place : places) EXPECT_EQ(place, QDir::toNativeSeparators(place));
}

#ifndef _WIN32
// A home of the test's own.
class BrowserAtHomeTest : public FolderBrowserTest {
 protected:
  BrowserAtHomeTest() {
    setenv("HOME", (drives.Root() / "home").c_str(), 1);
    std::filesystem::create_directories(drives.Root() / "home");
  }
  ~BrowserAtHomeTest() override { before.empty() ? unsetenv("HOME") : setenv("HOME", before.c_str(), 1); }

  std::string Home(const std::string& name = "") const { return (drives.Root() / "home" / name).string(); }

  std::string before = qEnvironmentVariable("HOME").toStdString();
};

TEST_F(BrowserAtHomeTest, BeginsInTheMusicFolderElseAtHome) {
  EXPECT_EQ(StartFor(""), (drives.Root() / "home").string());
  std::filesystem::create_directories(Home("Music"));
  EXPECT_EQ(StartFor(""), Home("Music"));
  EXPECT_EQ(StartFor("c:\\gone"), Home("Music"));
  drives.Write("m/a.mp3", "abc");
  EXPECT_EQ(StartFor("c:\\m\\a.mp3"), (drives.C() / "m/a.mp3").string());
}

TEST_F(BrowserAtHomeTest, OffersHomeMusicAndTheDrives) {
  std::filesystem::create_directories(Home("Music"));
  std::map<std::string, std::string> places;
  std::string chosen;
  bool pictures = true;
  WhenOpen<BrowseForm>([&](BrowseForm& form) {
    auto* list = form.findChild<QListWidget*>("FolderPlaces");
    for (int i = 0; i < list->count(); ++i) {
      places[list->item(i)->text().toStdString()] = list->item(i)->data(Qt::UserRole).toString().toStdString();
      pictures = pictures && !list->item(i)->icon().isNull();
    }
    const QRect music = list->visualItemRect(list->findItems("Music", Qt::MatchExactly).at(0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, music.center());
    chosen = form.Chosen().toStdString();
    form.reject();
  });
  dialogs.BrowseForFolder("Select Folder...", "", true);
  EXPECT_EQ(places["Home"], (drives.Root() / "home").string());
  EXPECT_EQ(places["Music"], Home("Music"));
  EXPECT_EQ(places["c:"], drives.C().string() + "/");
  EXPECT_EQ(places["d:"], drives.D().string() + "/");
  EXPECT_TRUE(places.contains("z:"));
  EXPECT_TRUE(pictures);
  EXPECT_EQ(chosen, Home("Music"));
}
#endif

TEST_F(FolderBrowserTest, ShowsWhereItBeginsOnceTheFoldersAreRead) {
  constexpr int kPatience = 20'000;  // milliseconds
  for (int i = 0; i < 300; ++i)
    std::filesystem::create_directories(drives.C() / ("m/folder " + std::to_string(1000 + i)));
  bool in_view = false, has_picture = false;
  WhenOpen<BrowseForm>([&](BrowseForm& form) {
    auto* tree = form.findChild<QTreeView*>("FolderTree");
    in_view = QTest::qWaitFor(
        [&] {
          const QModelIndex index = tree->currentIndex();
          return index.row() == 250 && tree->viewport()->rect().contains(tree->visualRect(index).center());
        },
        kPatience);
    QTest::qWait(200);
    in_view = in_view && tree->viewport()->rect().contains(tree->visualRect(tree->currentIndex()).center());
    has_picture = !tree->currentIndex().data(Qt::DecorationRole).value<QIcon>().isNull();
    form.reject();
  });
  dialogs.BrowseForFolder("Select Folder...", "c:\\m\\folder 1250", true);
  EXPECT_TRUE(in_view);
  EXPECT_TRUE(has_picture);
}

TEST_F(FolderBrowserTest, TakesWhatIsTypedAtOnceForThePath) {
  drives.Write("music/a.mp3", "abc");
  const QString typed = QDir::toNativeSeparators(QString::fromStdString((drives.C() / "music").string()));
  WhenOpen<BrowseForm>([&](BrowseForm& form) {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.focusWidget() != nullptr; }));
    QTest::keyClicks(form.focusWidget(), typed);
    form.findChild<QLineEdit*>("FolderPath")->completer()->popup()->hide();
    form.accept();
  });
  EXPECT_EQ(dialogs.BrowseForFolder("Select Folder...", "", true), "c:\\music");
}

TEST_F(FolderBrowserTest, CompletesWhatIsTypedAndMovesTheTree) {
  drives.Write("music/one/a.mp3", "abc");
  const QString root = QDir::toNativeSeparators(QString::fromStdString(drives.C().string()));
  const QChar slash = QDir::separator();
  QString completion, current, typed;
  WhenOpen<BrowseForm>([&](BrowseForm& form) {
    auto* path = form.findChild<QLineEdit*>("FolderPath");
    auto* tree = form.findChild<QTreeView*>("FolderTree");
    path->setFocus();
    path->clear();
    QTest::keyClicks(path, root + slash + "music");
    current = tree->currentIndex().data().toString();
    QTest::keyClicks(path, slash + QStringLiteral("o"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return path->completer()->completionCount() == 1; }));
    completion = path->completer()->currentCompletion();
    typed = path->text();
    path->completer()->popup()->hide();
    form.reject();
  });
  dialogs.BrowseForFolder("Select Folder...", "", true);
  EXPECT_EQ(current, "music");
  EXPECT_EQ(completion, root + slash + "music" + slash + "one");
  EXPECT_EQ(typed, root + slash + "music" + slash + "o") << "what is typed stays";
}

TEST_F(FolderBrowserTest, TakesAPathInQuotes) {
  drives.Write("music/a.mp3", "abc");
  WhenOpen<BrowseForm>([&](BrowseForm& form) {
    auto* path = form.findChild<QLineEdit*>("FolderPath");
    path->clear();
    QTest::keyClicks(path, QStringLiteral("\"%1\"").arg(QString::fromStdString((drives.C() / "music").string())));
    path->completer()->popup()->hide();
    QTest::mouseClick(form.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
  });
  EXPECT_EQ(dialogs.BrowseForFolder("Select Folder...", "", true), std::optional<std::string>("c:\\music"));
}

}  // namespace
}  // namespace qublet
