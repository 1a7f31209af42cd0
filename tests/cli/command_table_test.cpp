#include "cli/command_table.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "playlist/paths/text.h"
#include "support/cli_test_base.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

// Runs the program's commands in this process, over two temporary drives.
class CommandTest : public CliTestBase {
 protected:
  // The full paths that a table of rows shows.
  Collection Listed() const {
    Collection paths;
    std::istringstream table(Out());
    std::string line;
    std::getline(table, line);
    while (std::getline(table, line)) {
      const Collection cells = Split(line, '\t');
      paths.push_back(cells.at(kPath) + cells.at(kFileName));
    }
    return paths;
  }
  std::string Native(const std::string& name) const { return (drives_.C() / name).string(); }
};

using CommandLine = CommandTest;
using ListRows = CommandTest;
using SaveRows = CommandTest;
using NameOfPlaylist = CommandTest;

constexpr const char* kHeader =
    "FileName\tTime\tSize\tPath\tID\tLayer\tBitrate\tSamplerate\tMode\tHiddenLen\tHiddenSize\tOriginal Order\n";

TEST_F(CommandLine, WantsACommandItKnows) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_EQ(Err(), "qublet: a command is wanted; see 'qublet help'\n");
  for (const char* name : {"lists", "", "-h", "--json", "LIST"}) {
    EXPECT_EQ(Run({name, "c:\\"}), 2) << name;
    EXPECT_EQ(Err(), std::string("qublet: no such command: ") + name + "; see 'qublet help'\n");
    EXPECT_EQ(Out(), "");
  }
}

TEST_F(CommandLine, PrintsTheVersion) {
  EXPECT_EQ(Run({"--version"}), 0);
  EXPECT_EQ(Out(), "qublet 2.1.93\n");
  EXPECT_EQ(Err(), "");
}

TEST_F(CommandLine, HelpsWithEveryCommand) {
  for (const char* name : {"help", "--help"}) {
    EXPECT_EQ(Run({name}), 0);
    for (const char* usage : {"list [--json] PATH...", "save [--relative] [--replace] OUT PATH...",
                              "name FORMAT PATH", "--version", "help"}) {
      EXPECT_TRUE(Contains(Out(), std::string("\n  ") + usage + "\n")) << usage;
    }
    EXPECT_EQ(Err(), "");
  }
}

TEST_F(ListRows, TakesEitherSeparatorBehindADrive) {
  Touch({"m/1.mp3"});
  EXPECT_EQ(Run({"list", "C:\\m/1.mp3"}), 0);
  EXPECT_EQ(Listed(), Collection{"c:\\m\\1.mp3"});
}

#ifndef _WIN32
TEST_F(CommandLine, IsNotDoneWhenNothingTakesItsOutput) {
  const std::string program = (std::filesystem::canonical("/proc/self/exe").parent_path() / "qublet").string();
  EXPECT_EQ(std::system((program + " help >/dev/null").c_str()), 0);
  EXPECT_NE(std::system((program + " help >/dev/full").c_str()), 0);
}
#endif

TEST_F(ListRows, PrintsATableBelowTheTextsOfTheColumns) {
  drives_.Write("m/Song.mp3", TextOf(Frames(100)));
  drives_.Write("m/empty.mp3", "");
  EXPECT_EQ(Run({"list", "c:\\m"}), 0);
  EXPECT_EQ(Out(),
            std::string(kHeader) +
                "empty.mp3\t0:00\t0 Bytes\tc:\\m\\\t\t\t\t\t\t\t\t\n"
                "Song.mp3\t0:03\t41 Kb\tc:\\m\\\tMPEG 1.0\tLayer III\t128 Kbit\t44100 Hz\tJoint Stereo\t3\t41700\t"
                "2\n");
  EXPECT_EQ(Err(), "");
}

TEST_F(ListRows, SaysNothingBesideTheRowOfAFileWithoutSound) {
  drives_.Write("empty.mp3", "");
  EXPECT_EQ(Run({"list", "c:\\empty.mp3"}), 0);
  EXPECT_EQ(Listed(), Collection{"c:\\empty.mp3"});
  EXPECT_EQ(Err(), "");
}

TEST_F(ListRows, TakesAFileWhoseNameBeginsWithADash) {
  drives_.Write("-dash.mp3", "abc");
  EXPECT_EQ(Run({"list", "-dash.mp3", "--", "-dash.mp3"}), 0);
  EXPECT_EQ(Listed(), (Collection{"c:\\-dash.mp3", "c:\\-dash.mp3"}));
  EXPECT_EQ(Run({"list", "-gone.mp3"}), 2);
  EXPECT_EQ(Err(), "qublet: list: unknown option -gone.mp3\n");
}

TEST_F(ListRows, PrintsOneJsonObjectALine) {
  drives_.Write("a \"b\".mp3", "abc");
  drives_.Write("gone.m3u", "c:\\gone.mp3\n");
  EXPECT_EQ(Run({"list", "c:\\a \"b\".mp3", "c:\\gone.m3u", "--json"}), 0);
  EXPECT_EQ(Out(),
            "{\"FileName\": \"a \\\"b\\\".mp3\", \"Time\": \"0:00\", \"Size\": \"3 Bytes\", \"Path\": \"c:\\\\\", "
            "\"ID\": \"\", \"Layer\": \"\", \"Bitrate\": \"\", \"Samplerate\": \"\", \"Mode\": \"\", "
            "\"HiddenLen\": \"0\", \"HiddenSize\": \"3\", \"Original Order\": \"1\", \"State\": 1}\n"
            "{\"FileName\": \"gone.mp3\", \"Time\": \"0:00\", \"Size\": \"0 Bytes\", \"Path\": \"c:\\\\\", "
            "\"ID\": \"\", \"Layer\": \"\", \"Bitrate\": \"\", \"Samplerate\": \"\", \"Mode\": \"\", "
            "\"HiddenLen\": \"\", \"HiddenSize\": \"\", \"Original Order\": \"\", \"State\": 2}\n");
}

TEST_F(ListRows, TakesNativePathsAndPathsInDriveForm) {
  Touch({"m/1.mp3", "m/sub/2.mp3"});
  TemporaryDrives::WriteAt(drives_.D() / "3.mp3", "abc");
  EXPECT_EQ(Run({"list", Native("m/1.mp3"), "C:\\m\\sub", "m/1.mp3", "./m/../m/sub/2.mp3", "D:", "d:\\3.mp3"}), 0);
  EXPECT_EQ(Listed(), (Collection{"c:\\m\\1.mp3", "c:\\m\\sub\\2.mp3", "c:\\m\\1.mp3", "c:\\m\\sub\\2.mp3",
                                  "d:\\3.mp3", "d:\\3.mp3"}));
  EXPECT_EQ(Err(), "");
}

TEST_F(ListRows, CountsPathsFromTheFolderOfTheStartThoughAPlaylistMovesTheCurrentOne) {
  Touch({"1.mp3", "m/2.mp3"});
  drives_.Write("m/list.m3u", "2.mp3\n");
  EXPECT_EQ(Run({"list", "m/list.m3u", "1.mp3"}), 0);
  EXPECT_EQ(Listed(), (Collection{"c:\\m\\2.mp3", "c:\\1.mp3"}));
}

TEST_F(ListRows, TellsWhatIsMissingAndListsTheOthers) {
  Touch({"1.mp3", "notes.txt"});
  EXPECT_EQ(Run({"list", "gone.mp3", "c:\\1.mp3", "notes.txt", "q:\\1.mp3", ""}), 1);
  EXPECT_EQ(Listed(), Collection{"c:\\1.mp3"});
  EXPECT_EQ(Err(),
            "qublet: gone.mp3: no such file or folder\n"
            "qublet: q:\\1.mp3: no such file or folder\n"
            "qublet: : a path is empty\n"
            "qublet: notes.txt: nothing to list\n");
}

TEST_F(ListRows, SaysWhyAPlaylistGivesNothing) {
  Touch({"1.mp3"});
  drives_.Write("empty.m3u", "#EXTM3U\r\n");
  drives_.Write("secret.m3u", "c:\\1.mp3\r\n");
  std::filesystem::permissions(drives_.C() / "secret.m3u", std::filesystem::perms::none);
  const OrdinaryUser user(drives_.Root());
  EXPECT_EQ(Run({"list", "empty.m3u", "secret.m3u"}), 1);
  EXPECT_EQ(Err(),
            "qublet: empty.m3u: it names no audio file\n"
            "qublet: secret.m3u: permission denied\n");
}

TEST_F(ListRows, WantsAPathAndKnownOptions) {
  for (const Arguments& arguments : {Arguments{"list"}, {"list", "--json"}, {"list", "--"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_EQ(Err(), "qublet: list: a path is wanted\n");
  }
  EXPECT_EQ(Run({"list", "--jsn", "c:\\"}), 2);
  EXPECT_EQ(Err(), "qublet: list: unknown option --jsn\n");
  EXPECT_EQ(Run({"list", "c:\\", "-x"}), 2);
  EXPECT_EQ(Out(), "");
}

TEST_F(ListRows, TakesEverythingBehindTwoDashesForAPath) {
  Touch({"--json/1.mp3"});
  EXPECT_EQ(Run({"list", "--", "--json"}), 0);
  EXPECT_EQ(Listed(), Collection{"c:\\--json\\1.mp3"});
}

TEST_F(ListRows, KeepsOneLineARowWhateverAPlaylistHolds) {
  drives_.Write("list.m3u", "c:\\a\tb.mp3\n");
  EXPECT_EQ(Run({"list", "list.m3u"}), 0);
  EXPECT_EQ(Listed(), Collection{"c:\\a b.mp3"});
  EXPECT_EQ(Run({"list", "--json", "list.m3u"}), 0);
  EXPECT_TRUE(Contains(Out(), "\"FileName\": \"a\\u0009b.mp3\""));
}

TEST_F(ListRows, TellsWhenTheListIsFull) {
  drives_.Write("list.m3u", PlaylistOfMissingFiles(32768));
  Touch({"1.mp3"});
  EXPECT_EQ(Run({"list", "list.m3u", "1.mp3"}), 1);
  EXPECT_EQ(Listed().size(), 32767U);
  EXPECT_EQ(Err(),
            "qublet: list.m3u: the list ends at row 32767, the rest is left out\n"
            "qublet: 1.mp3: the list ends at row 32767, the rest is left out\n");
}

TEST_F(SaveRows, WritesAPlaylist) {
  Touch({"m/1.mp3", "m/b/2.mp3"});
  EXPECT_EQ(Run({"save", "out.m3u", "m", "c:\\m\\1.mp3"}), 0);
  EXPECT_EQ(drives_.Read("out.m3u"), "c:\\m\\1.mp3\r\nc:\\m\\b\\2.mp3\r\nc:\\m\\1.mp3\r\n");
  EXPECT_EQ(Out() + Err(), "");
}

TEST_F(SaveRows, WritesRelativePathsAndM3u8) {
  Touch({"m/1.mp3", "m/b/2.mp3"});
  EXPECT_EQ(Run({"save", "--relative", "C:\\m\\out.M3U", "m"}), 0);
  EXPECT_EQ(drives_.Read("m/out.M3U"), "1.mp3\r\nb\\2.mp3\r\n");
  EXPECT_EQ(Run({"save", "m/out.m3u8", "m", "--relative"}), 0);
  EXPECT_EQ(drives_.Read("m/out.m3u8"), "1.mp3\nb/2.mp3\n");
  EXPECT_EQ(Run({"save", Native("abs.m3u8"), "m"}), 0);
  EXPECT_EQ(drives_.Read("abs.m3u8"), Native("m/1.mp3") + "\n" + Native("m/b/2.mp3") + "\n");
}

TEST_F(SaveRows, NamesTheDriveOfItemsOnAnother) {
  Touch({"m/1.mp3"});
  TemporaryDrives::WriteAt(drives_.D() / "2.mp3", "abc");
  EXPECT_EQ(Run({"save", "--relative", "m/out.m3u", "m", "d:\\2.mp3"}), 0);
  EXPECT_EQ(drives_.Read("m/out.m3u"), "1.mp3\r\nd:\\2.mp3\r\n");
}

TEST_F(SaveRows, RefusesToReplaceAFileUnlessTold) {
  Touch({"1.mp3"});
  drives_.Write("out.m3u", "old");
  EXPECT_EQ(Run({"save", "out.m3u", "1.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: out.m3u exists; --replace replaces it\n");
  EXPECT_EQ(drives_.Read("out.m3u"), "old");
  EXPECT_EQ(Run({"save", "--replace", "out.m3u", "1.mp3"}), 0);
  EXPECT_EQ(drives_.Read("out.m3u"), "c:\\1.mp3\r\n");
}

TEST_F(SaveRows, AddsToAPlaylistThatIsAmongThePaths) {
  Touch({"1.mp3", "2.mp3"});
  drives_.Write("out.m3u", "c:\\2.mp3\r\n");
  EXPECT_EQ(Run({"save", "--replace", "out.m3u", "out.m3u", "1.mp3"}), 0);
  EXPECT_EQ(drives_.Read("out.m3u"), "c:\\2.mp3\r\nc:\\1.mp3\r\n");
}

TEST_F(SaveRows, GivesMissingLinesBackAsTheyCame) {
  Touch({"a.mp3"});
  drives_.Write("list.m3u", "C:\\a.mp3\r\nC:/Gone\\\xF6.mp3\r\nsub/gone.mp3\r\nhttp://host/a.mp3\r\n");
  EXPECT_EQ(Run({"save", "--replace", "c:\\list.m3u", "c:\\list.m3u"}), 0);
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\a.mp3\r\nC:/Gone\\\xF6.mp3\r\nsub/gone.mp3\r\nhttp://host/a.mp3\r\n");
}

TEST_F(SaveRows, SaysHowManyLinesOfOtherTypesAreLeftOut) {
  Touch({"a.mp3"});
  drives_.Write("list.m3u", "#EXTM3U\r\nc:\\a.mp3\r\nc:\\b.flac\r\n\r\nother.m3u\r\nc:\\c.m4a\r\nc:\\d.wav.mp3\r\n");
  EXPECT_EQ(Run({"save", "c:\\out.m3u", "c:\\list.m3u"}), 0);
  EXPECT_EQ(Err(), "qublet: c:\\list.m3u: 3 lines of other types are left out\n");
  drives_.Write("list.m3u", "c:\\a.mp3\r\nc:\\b.flac\r\n");
  EXPECT_EQ(Run({"save", "--replace", "c:\\out.m3u", "c:\\list.m3u"}), 0);
  EXPECT_EQ(Err(), "qublet: c:\\list.m3u: 1 line of another type is left out\n");
  EXPECT_EQ(Run({"list", "c:\\list.m3u"}), 0);
  EXPECT_EQ(Err(), "");
}

TEST_F(SaveRows, SaysHowManyItemsOfARelativeListKeepTheirFullPaths) {
  Touch({"m/a.mp3", "x/b.mp3"});
  EXPECT_EQ(Run({"save", "--relative", "c:\\m\\out.m3u", "c:\\m", "c:\\x"}), 0);
  EXPECT_EQ(Err(), "qublet: c:\\m\\out.m3u: 1 item had to keep its full path\n");
  EXPECT_EQ(drives_.Read("m/out.m3u"), "a.mp3\r\nc:\\x\\b.mp3\r\n");
}

TEST_F(SaveRows, RefusesAListOfMoreThanThereIsRoomFor) {
  drives_.Write("long.m3u", PlaylistOfMissingFiles(RowStore::MaxRows + 1));
  const std::string before = drives_.Read("long.m3u");
  EXPECT_EQ(Run({"save", "--replace", "c:\\long.m3u", "c:\\long.m3u"}), 1);
  EXPECT_EQ(Err(), "qublet: c:\\long.m3u: the list ends at row 32767, the rest is left out\n");
  EXPECT_EQ(drives_.Read("long.m3u"), before);
}

#ifndef _WIN32
TEST_F(SaveRows, GivesAListOfThisSystemBackInItsForm) {
  Touch({"m/a.mp3"});
  drives_.Write("list.m3u", "#EXTM3U\nm/a.mp3\n/gone/b.mp3\n");
  EXPECT_EQ(Run({"save", "--replace", "c:\\list.m3u", "c:\\list.m3u"}), 0);
  EXPECT_EQ(drives_.Read("list.m3u"), Native("m/a.mp3") + "\n/gone/b.mp3\n");
  EXPECT_EQ(Run({"save", "--replace", "c:\\other.m3u", "c:\\list.m3u"}), 0);
  EXPECT_EQ(drives_.Read("other.m3u"), "c:\\m\\a.mp3\r\n/gone/b.mp3\r\n");
}
#endif

TEST_F(SaveRows, WritesNothingWhenAPathIsMissingOrHoldsNothing) {
  Touch({"1.mp3", "a.txt"});
  drives_.Write("old.m3u", "old");
  for (const char* path : {"gone.mp3", "a.txt"}) {
    EXPECT_EQ(Run({"save", "out.m3u", "1.mp3", path}), 1) << path;
    EXPECT_EQ(Run({"save", "--replace", "old.m3u", path, "1.mp3"}), 1) << path;
  }
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "out.m3u"));
  EXPECT_EQ(drives_.Read("old.m3u"), "old");
}

TEST_F(SaveRows, SaysWhenTheFileCanNotBeWritten) {
  Touch({"1.mp3"});
  drives_.Write("old.m3u", "old");
  std::filesystem::permissions(drives_.C() / "old.m3u", std::filesystem::perms::owner_read);
  const std::pair<std::string, std::string> refused[] = {{"old.m3u", "read-only"},
                                                         {"missing/out.m3u", "no such file or folder"},
                                                         {"q:\\out.m3u", "there is no drive q:"}};
  for (const auto& [target, reason] : refused) {
    EXPECT_EQ(Run({"save", "--replace", target, "1.mp3"}), 1) << target;
    EXPECT_EQ(Err(), "qublet: " + target + ": " + reason + "\n");
  }
  EXPECT_EQ(drives_.Read("old.m3u"), "old");
}

TEST_F(SaveRows, WantsAPlaylistsNameAPathAndKnownOptions) {
  Touch({"1.mp3"});
  for (const char* name : {"out", "out.txt", "out.bm", "out.m3u9", "m3u", "out.m3u\\"}) {
    EXPECT_EQ(Run({"save", name, "1.mp3"}), 2) << name;
    EXPECT_EQ(Err(), "qublet: save: the playlist's name must end in .m3u or .m3u8\n") << name;
  }
  for (const Arguments& arguments : {Arguments{"save"}, {"save", "out.m3u"}, {"save", "--relative", "out.m3u"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_EQ(Err(), "qublet: save: a playlist and a path are wanted\n");
  }
  EXPECT_EQ(Run({"save", "--force", "out.m3u", "1.mp3"}), 2);
  EXPECT_EQ(Err(), "qublet: save: unknown option --force\n");
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "out.m3u"));
}

TEST_F(NameOfPlaylist, IsMadeOfTheTwoTextsAsGiven) {
  EXPECT_EQ(Run({"name", "%1-%2", "d:\\music\\abba\\gold\\"}), 0);
  EXPECT_EQ(Out(), "gold-abba.m3u\n");
  EXPECT_EQ(Run({"name", "", "d:\\a\\"}), 0);
  EXPECT_EQ(Out(), "-a-d--------.m3u\n");
  EXPECT_EQ(Run({"name", "--%0", "/home/u"}), 0);
  EXPECT_EQ(Out(), "--homeu.m3u\n");
}

TEST_F(NameOfPlaylist, MustBeValid) {
  EXPECT_EQ(Run({"name", "%9", "c:\\a"}), 1);
  EXPECT_EQ(Err(), "qublet: The resultant File name will not be valid.\n");
  EXPECT_EQ(Out(), "");
  for (const Arguments& arguments : {Arguments{"name"}, {"name", "%0"}, {"name", "%0", "a", "b"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_EQ(Err(), "qublet: name: a format and a path are wanted\n");
  }
}

TEST_F(CommandLine, SaysWhatIsWrongInOneLine) {
  EXPECT_EQ(Run({"list", "x\nqublet, all done.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: x qublet, all done.mp3: no such file or folder\n");
}

}  // namespace
}  // namespace qublet
