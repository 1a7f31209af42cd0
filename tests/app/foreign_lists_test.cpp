#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QMimeData>
#include <QToolTip>

#include "playlist/paths/text.h"
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
  std::string Shown(int row, int column) {
    return window.List().model()->index(row - 1, column).data().toString().toStdString();
  }

  MainWindow window;
};

TEST_F(ForeignLists, ShowTheFilesThatTheirLinesMean) {
  const std::string own = window.drives.Root().string();
  const auto filled = [&](const char* text) {
    return ReplaceAll(ReplaceAll(text, "@", own), "$", window.files->FromNative(own));
  };
  for (const ForeignLine& line : kForeignLines) {
    const ScopedEnvironment page("QUBLET_CODEPAGE", line.page);
    const std::string list = line.type == ListType::kM3u8 ? "list.m3u8" : "list.m3u";
    SCOPED_TRACE(std::string(line.habit) + ", " + list + ": " + line.line);
    for (const char* place :
         {"c/list", "c/m", "c/n", "c/Music", "c/MUSIC", "c/m n", "c/a.mp3", "c/k.mp3", "c/x", "d", "e"})
      std::filesystem::remove_all(window.drives.Root() / place);
    std::filesystem::create_directories(window.drives.D());
    PutOnDisk(line, window.drives.Root());
    window.drives.Write("list/" + list, filled(line.line) + "\n");
    Open("c:\\list\\" + list);
    ASSERT_EQ(window.Rows().Count(), 1);
    EXPECT_EQ(window.Rows().At(1).FullPath(), filled(line.path));
    EXPECT_EQ(Shown(1, kSize), line.there ? "3 Bytes" : "0 Bytes");
    EXPECT_EQ(window.Rows().At(1).ghosted, !line.there);
  }
}

class NamesInAnotherCase : public ForeignLists {
 protected:
  NamesInAnotherCase() {
    window.drives.Write("Music/Song.mp3", "abc");
    window.drives.Write("list.m3u", "C:\\MUSIC\\SONG.MP3\r\n");
    Open("c:\\list.m3u");
    window.Rows().SetSelected(1, true);
    QCoreApplication::processEvents();
  }
};

TEST_F(NamesInAnotherCase, KeepTheirTextAndTheTipNamesTheFile) {
  EXPECT_EQ(Shown(1, kFileName), "SONG.MP3");
  EXPECT_EQ(Shown(1, kPath), "c:\\MUSIC\\");
  const QPoint place = window.List().visualRect(window.List().model()->index(0, kFileName)).center();
  QHelpEvent help(QEvent::ToolTip, place, window.List().viewport()->mapToGlobal(place));
  QCoreApplication::sendEvent(window.List().viewport(), &help);
  EXPECT_NE(QToolTip::text().toStdString().find("Song.mp3"), std::string::npos) << QToolTip::text().toStdString();
}

TEST_F(NamesInAnotherCase, ArePlayedUnderTheNameThatTheDiskHas) {
  window.Run("MEditPlayList");
  ASSERT_FALSE(window.shell.opened.empty());
  EXPECT_EQ(window.document->FileArray, Collection{"c:\\Music\\Song.mp3"});
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
