#include "playlist/foreign_lines.h"

#include <gtest/gtest.h>

#include "playlist/items.h"
#include "playlist/playlist_files.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

struct Line {
  const char* habit;
  const char* line;
  const char* file;  // that is there, below c:; "" for none
  const char* path;  // of the row
  const char* saved;
};

constexpr Line kLines[] = {
    {"at home", "a.mp3", "list/a.mp3", "c:\\list\\a.mp3", "c:\\list\\a.mp3"},
    {"at home", "C:\\m\\A.MP3", "m/A.MP3", "c:\\m\\A.MP3", "c:\\m\\A.MP3"},
    {"at home in another case", "C:\\M\\A.mp3", "m/a.mp3", "c:\\M\\A.mp3", "c:\\M\\A.mp3"},
    {"gone", "gone.mp3", "", "c:\\list\\gone.mp3", "gone.mp3"},
    {"gone", "sub\\gone.mp3", "", "c:\\list\\sub\\gone.mp3", "sub\\gone.mp3"},
    {"gone", "q:\\gone.mp3", "", "q:\\gone.mp3", "q:\\gone.mp3"},
    {"gone", "\\\\nas\\music\\gone.mp3", "", "\\\\nas\\music\\gone.mp3", "\\\\nas\\music\\gone.mp3"},
    {"a drive and slashes", "c:/m/a.mp3", "m/a.mp3", "c:\\m\\a.mp3", "c:\\m\\a.mp3"},
    {"a drive and slashes", "c:/m/../n/a.mp3", "n/a.mp3", "c:\\n\\a.mp3", "c:\\n\\a.mp3"},
    {"slashes", "sub/a.mp3", "list/sub/a.mp3", "c:\\list\\sub\\a.mp3", "c:\\list\\sub\\a.mp3"},
    {"both separators", "a\\b/c.mp3", "list/a/b/c.mp3", "c:\\list\\a\\b\\c.mp3", "c:\\list\\a\\b\\c.mp3"},
    {"from the root of the drive", "\\m\\a.mp3", "m/a.mp3", "c:\\m\\a.mp3", "c:\\m\\a.mp3"},
    {"from the root of the drive", "/m/a.mp3", "m/a.mp3", "c:\\m\\a.mp3", "c:\\m\\a.mp3"},
    {"steps", "./a.mp3", "list/a.mp3", "c:\\list\\a.mp3", "c:\\list\\a.mp3"},
    {"steps", ".\\a.mp3", "list/a.mp3", "c:\\list\\a.mp3", "c:\\list\\a.mp3"},
    {"steps", "../m/a.mp3", "m/a.mp3", "c:\\m\\a.mp3", "c:\\m\\a.mp3"},
    {"an address of a file", "file:///C:/m/a%20b.mp3", "m/a b.mp3", "c:\\m\\a b.mp3", "c:\\m\\a b.mp3"},
    {"an address of a file", "file://localhost/c:/m/a.mp3", "m/a.mp3", "c:\\m\\a.mp3", "c:\\m\\a.mp3"},
    {"an address of a file that is gone", "file:///C:/gone.mp3", "", "c:\\gone.mp3", "file:///C:/gone.mp3"},
    {"an address", "http://host/a%20b.mp3", "", "\\http://host/a%20b.mp3", "http://host/a%20b.mp3"},
    {"escapes", "m%20n\\a.mp3", "list/m n/a.mp3", "c:\\list\\m n\\a.mp3", "c:\\list\\m n\\a.mp3"},
    {"escapes", "c:/m%20n/a%23.mp3", "m n/a#.mp3", "c:\\m n\\a#.mp3", "c:\\m n\\a#.mp3"},
    {"escapes", "Bj%C3%B6rk.mp3", "list/Bj\u00F6rk.mp3", "c:\\list\\Bj\u00F6rk.mp3", "c:\\list\\Bj\xF6rk.mp3"},
    {"escapes that are none", "a%20b.mp3", "list/a%20b.mp3", "c:\\list\\a%20b.mp3", "c:\\list\\a%20b.mp3"},
    {"blanks", "\ta.mp3 ", "list/a.mp3", "c:\\list\\a.mp3", "c:\\list\\a.mp3"},
    {"blanks", " c:\\m\\a.mp3", "m/a.mp3", "c:\\m\\a.mp3", "c:\\m\\a.mp3"},
    {"Ctrl-Z", "a.mp3\x1A", "list/a.mp3", "c:\\list\\a.mp3", "c:\\list\\a.mp3"},
    {"UTF-8", "Bj\u00F6rk.mp3", "list/Bj\u00F6rk.mp3", "c:\\list\\Bj\u00F6rk.mp3", "c:\\list\\Bj\xF6rk.mp3"},
    {"the code page", "Bj\xF6rk.mp3", "list/Bj\u00F6rk.mp3", "c:\\list\\Bj\u00F6rk.mp3", "c:\\list\\Bj\xF6rk.mp3"},
    {"the code page", "gone\xF6.mp3", "", "c:\\list\\gone\u00F6.mp3", "gone\xF6.mp3"},
};

class WindowsForeignLines : public ListTestBase {
 protected:
  void Check(const Line& line) {
    SCOPED_TRACE(std::string(line.habit) + ": " + line.line);
    const TemporaryDrives own_drives;
    files_ = OpenFileSystem();
    const Services services = fakes_.Over(*files_, feedback_);
    Document document;
    Items items(document, *files_, feedback_, view_, ",");
    PlaylistFiles playlist_files(document, items, settings_, services, view_);
    const bool there = *line.file != '\0';
    if (there) own_drives.Write(line.file, "abc");
    own_drives.Write("list/list.m3u", std::string(line.line) + "\r\n");
    items.AddStuff("c:\\list\\list.m3u", false);
    ASSERT_EQ(document.ListView1.Count(), 1);
    EXPECT_EQ(document.ListView1.At(1).FullPath(), line.path);
    EXPECT_EQ(document.ListView1.At(1).ghosted, !there);
    EXPECT_TRUE(playlist_files.SaveTo("c:\\list\\saved.m3u", PlaylistFiles::LineForm::kFull));
    EXPECT_EQ(own_drives.Read("list/saved.m3u"), std::string(line.saved) + "\r\n");
  }

  AppSettings settings_;
};

TEST_F(WindowsForeignLines, BecomeTheseRowsAndTheseLines) {
  for (const Line& line : kLines) Check(line);
}

}  // namespace
}  // namespace qublet
