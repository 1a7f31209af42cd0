#include "cli/json_text.h"
#include "playlist/paths/text.h"
#include "support/cli_test_base.h"
#include "support/foreign_lines_table.h"

namespace qublet {
namespace {

using ForeignListsCommand = CliTestBase;

TEST_F(ForeignListsCommand, ListsTheFilesThatTheLinesMeanAndSavesThem) {
  ForEachForeignLine([this](const ForeignLine& line, const std::string& list) {
    const TemporaryDrives own_drives;
    const ScopedEnvironment page("QUBLET_CODEPAGE", line.page);
    files_ = OpenFileSystem();
    SCOPED_TRACE(std::string(line.habit) + ", " + list + ": " + line.line);
    const auto filled = [&](const char* text) { return FilledIn(text, *files_, own_drives.Root()); };
    PutOnDisk(line, own_drives.Root());
    own_drives.Write("list/" + list, filled(line.line) + "\n");
    EXPECT_EQ(Run("list", {"c:\\list\\" + list}), 0);
    const Collection lines = Split(Out(), '\n');
    ASSERT_EQ(lines.size(), 3U);
    const Collection cells = Split(lines[1], '\t');
    EXPECT_EQ(cells.at(kSize), line.there ? "3 Bytes" : "0 Bytes");
    EXPECT_EQ(cells.at(kPath) + cells.at(kFileName), PlainValue(filled(line.path)));
    EXPECT_EQ(Run("save", {"c:\\list\\saved.m3u", "c:\\list\\" + list}), 0) << Err();
    EXPECT_EQ(own_drives.Read("list/saved.m3u"), filled(line.m3u) + "\r\n");
    EXPECT_EQ(Run("save", {"c:\\list\\saved.m3u8", "c:\\list\\" + list}), 0) << Err();
    EXPECT_EQ(own_drives.Read("list/saved.m3u8"), filled(line.m3u8) + "\n");
  });
}

// What writes about files or for players works on those that the disk has.
class NamesInAnotherCaseCommand : public CliTestBase {
 protected:
  NamesInAnotherCaseCommand() {
    Touch({"Music/Song.mp3"});
    std::filesystem::create_directory(drives_.C() / "program");
    drives_.Write("list.m3u", "C:\\MUSIC\\SONG.MP3\r\n");
  }
};

TEST_F(NamesInAnotherCaseCommand, ReportsTheFile) {
  EXPECT_EQ(Run("report", {"c:\\out.htm", "c:\\list.m3u"}), 0) << Err();
  EXPECT_NE(drives_.Read("out.htm").find("href=Song.mp3>"), std::string::npos) << drives_.Read("out.htm");
}

TEST_F(NamesInAnotherCaseCommand, BookmarksTheFile) {
  EXPECT_EQ(Run("bookmarks", {"add", "Default", "c:\\list.m3u"}), 0) << Err();
  EXPECT_EQ(drives_.Read("program/Bookmarks/Default.bm"), "c:\\Music\\Song.mp3\r\n");
}

TEST_F(NamesInAnotherCaseCommand, CreatesAPlaylistInItsFolder) {
  EXPECT_EQ(Run("autocreate", {"--dry-run", "c:\\list.m3u"}), 0) << Err();
  EXPECT_NE(Out().find("c:\\Music\\"), std::string::npos) << Out();
}

}  // namespace
}  // namespace qublet
