#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QMimeData>
#include <QToolTip>

#include "support/environment.h"
#include "support/foreign_lines_table.h"
#include "support/main_window.h"

namespace qublet {
namespace {

// Lists of other programs and systems, opened at the menu.
class ForeignLists : public testing::Test {
 protected:
  ForeignLists() { window.Start(); }

  void Open(const std::string& path) {
    window.dialogs.open_names.push_back(path);
    window.Run("MFileOpen");
  }
  void SaveAs(const std::string& path) {
    window.dialogs.save_names.push_back(path);
    window.Run("MFileSaveAs");
  }
  // But for the program's own folders.
  void ClearDrives() {
    for (const char* folder : {"c/list", "c/m", "c/n", "c/Music", "c/MUSIC", "c/m n", "c/a.mp3", "c/a",
                               "c/Brian Tyler", "c/k.mp3", "c/x", "d", "e"})
      std::filesystem::remove_all(window.drives.Root() / folder);
    std::filesystem::create_directories(window.drives.D());
  }
  std::string Shown(int row, int column) {
    return window.List().model()->index(row - 1, column).data().toString().toStdString();
  }
  QPoint CenterOf(int row) {
    return window.List().visualRect(window.List().model()->index(row - 1, kFileName)).center();
  }

  MainWindow window;
};

TEST_F(ForeignLists, ShowTheFilesThatTheirLinesMeanAndSaveThem) {
  const std::filesystem::path root = window.drives.Root();
  const auto filled = [&](const char* text) { return FilledIn(text, *window.files, root); };
  ForEachForeignLine([&](const ForeignLine& line, const std::string& list) {
    const ScopedEnvironment page("QUBLET_CODEPAGE", line.page);
    SCOPED_TRACE(std::string(line.habit) + ", " + list + ": " + line.line);
    ClearDrives();
    PutOnDisk(line, root);
    window.drives.Write("list/" + list, filled(line.line) + "\n");
    Open("c:\\list\\" + list);
    ASSERT_EQ(window.Rows().Count(), 1);
    EXPECT_EQ(window.Rows().At(1).FullPath(), filled(line.path));
    EXPECT_EQ(Shown(1, kSize), line.there ? "3 Bytes" : "0 Bytes");
    EXPECT_EQ(window.Rows().At(1).ghosted, !line.there);
    SaveAs("c:\\list\\saved.m3u");
    EXPECT_EQ(window.drives.Read("list/saved.m3u"), filled(line.m3u) + "\r\n");
    SaveAs("c:\\list\\saved.m3u8");
    EXPECT_EQ(window.drives.Read("list/saved.m3u8"), filled(line.m3u8) + "\n");
  });
}

class NamesInAnotherCase : public ForeignLists {
 protected:
  NamesInAnotherCase() {
    window.drives.Write("Music/Song.mp3", "abc");
    window.drives.Write("list.m3u", "C:\\MUSIC\\SONG.MP3\r\n");
    Open("c:\\list.m3u");
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, Qt::NoModifier, CenterOf(1));
  }
};

TEST_F(NamesInAnotherCase, KeepTheirTextAndTheTipNamesTheFile) {
  EXPECT_EQ(Shown(1, kFileName), "SONG.MP3");
  EXPECT_EQ(Shown(1, kPath), "c:\\MUSIC\\");
  const QPoint place = CenterOf(1);
  QHelpEvent help(QEvent::ToolTip, place, window.List().viewport()->mapToGlobal(place));
  QCoreApplication::sendEvent(window.List().viewport(), &help);
  EXPECT_NE(QToolTip::text().toStdString().find("Song.mp3"), std::string::npos) << QToolTip::text().toStdString();
}

TEST_F(NamesInAnotherCase, ArePlayedUnderTheNameThatTheDiskHas) {
  window.Run("MEditPlayList");
  ASSERT_FALSE(window.shell.opened.empty());
  EXPECT_EQ(window.document->FileArray, Collection{"c:\\Music\\Song.mp3"});
}

TEST_F(NamesInAnotherCase, ArePlayedWithTheFolderThatTheDiskHas) {
  window.drives.Write("Music/Another.mp3", "abc");
  window.Run("MEditPlayFol");
  EXPECT_EQ(window.document->FileArray, (Collection{"c:\\Music\\Another.mp3", "c:\\Music\\Song.mp3"}));
}

TEST_F(NamesInAnotherCase, AreNoMissingFilesAndHaveASize) {
  EXPECT_FALSE(window.Rows().At(1).ghosted);
  EXPECT_EQ(Shown(1, kSize), "3 Bytes");
  window.Run("MViewRefresh");
  EXPECT_FALSE(window.Rows().At(1).ghosted);
  EXPECT_EQ(Shown(1, kFileName), "SONG.MP3");
}

}  // namespace
}  // namespace qublet
