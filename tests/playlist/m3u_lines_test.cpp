#include "playlist/m3u_lines.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/resource.h>
#endif

#include "support/list_test_base.h"

namespace qublet {
namespace {

class M3uLinesTest : public ListTestBase {
 protected:
  // The lines of a playlist with this content.
  Collection Read(const std::string& bytes) const { return ReadAs(bytes, false); }
  Collection ReadNative(const std::string& bytes) const { return ReadAs(bytes, true); }

  std::string Written(const std::string& path, const Collection& lines, bool relative = false) const {
    EXPECT_TRUE(WritePlaylistLines(*files_, path, lines, relative));
    return TemporaryDrives::ReadAt(files_->ToNative(path));
  }
  std::string Root() const { return drives_.Root().string(); }

 private:
  Collection ReadAs(const std::string& bytes, bool native) const {
    Collection lines;
    const bool found = ReadPlaylistText(*files_, bytes, native, lines);
    EXPECT_EQ(found, !lines.empty());
    return lines;
  }
};

using ReadPlaylist = M3uLinesTest;
using ReadM3u8 = M3uLinesTest;
using WritePlaylist = M3uLinesTest;
using WriteM3u8 = M3uLinesTest;
using SavedAndReopened = M3uLinesTest;

TEST_F(ReadPlaylist, SkipsEmptyLinesAndComments) {
  EXPECT_EQ(Read("#EXTM3U\r\n#EXTINF:1,x.mp3\r\n\r\nc:\\a.mp3\r\n#c:\\b.mp3\r\n"), Collection{"c:\\a.mp3"});
  EXPECT_EQ(Read(" #c:\\b.mp3\r\n"), Collection{" #c:\\b.mp3"}) << "the first character decides";
}

TEST_F(ReadPlaylist, KeepsLinesThatHoldOneOfTheFourExtensions) {
  EXPECT_EQ(Read("c:\\a.mp3\nc:\\b.wav\nc:\\c.ogg\nc:\\d.wma\nc:\\e.m3u\nc:\\f.vqf\nc:\\g\nc:\\mp3\n"),
            (Collection{"c:\\a.mp3", "c:\\b.wav", "c:\\c.ogg", "c:\\d.wma"}));
  EXPECT_EQ(Read("c:\\A.MP3\nc:\\b.WaV\n"), (Collection{"c:\\A.MP3", "c:\\b.WaV"}));
}

TEST_F(ReadPlaylist, FindsAnExtensionAnywhereInALine) {
  EXPECT_EQ(Read("c:\\a.mp3.bak\n.mp3\nnot.a.wavelet\n"), (Collection{"c:\\a.mp3.bak", ".mp3", "not.a.wavelet"}));
  EXPECT_EQ(Read("http://host/a.mp3?x=1\n"), Collection{"http://host/a.mp3?x=1"}) << "an address is taken for a path";
}

TEST_F(ReadPlaylist, KeepsALineOnceForEachExtensionItHolds) {
  EXPECT_EQ(Read("c:\\music.mp3\\song.wma\n"), (Collection{"c:\\music.mp3\\song.wma", "c:\\music.mp3\\song.wma"}));
  EXPECT_EQ(Read("a.wav.mp3\nb.mp3.mp3\n"), (Collection{"a.wav.mp3", "a.wav.mp3", "b.mp3.mp3"}));
  EXPECT_EQ(Read("c:\\.mp3.wav.ogg.wma\n").size(), 4U);
}

TEST_F(ReadPlaylist, KeepsLinesThatComeTwiceAndTheirOrder) {
  EXPECT_EQ(Read("c:\\b.mp3\nc:\\a.mp3\nc:\\b.mp3\n"), (Collection{"c:\\b.mp3", "c:\\a.mp3", "c:\\b.mp3"}));
}

TEST_F(ReadPlaylist, LowersTheDriveLetterAndNothingElse) {
  EXPECT_EQ(Read("C:\\A.MP3\nQ:\\X.Mp3\n"), (Collection{"c:\\A.MP3", "q:\\X.Mp3"}));
  EXPECT_EQ(Read("\u00C4:\\A.MP3\n1:a.mp3\nAB:\\c.mp3\n"), (Collection{"\u00E4:\\A.MP3", "1:a.mp3", "AB:\\c.mp3"}));
}

TEST_F(ReadPlaylist, KeepsRelativeLinesAsTheyAre) {
  EXPECT_EQ(Read("a.mp3\nsub\\a.mp3\n..\\a.mp3\n\\a.mp3\n\\\\server\\share\\a.mp3\n"),
            (Collection{"a.mp3", "sub\\a.mp3", "..\\a.mp3", "\\a.mp3", "\\\\server\\share\\a.mp3"}));
}

TEST_F(ReadPlaylist, KeepsBlanksInLines) {
  EXPECT_EQ(Read(" a.mp3\na b .mp3 \n\t.mp3\n"), (Collection{" a.mp3", "a b .mp3 ", "\t.mp3"}));
}

TEST_F(ReadPlaylist, TakesPathsOfThisSystemIntoDriveForm) {
  files_->SetCurrentFolder("d:\\");
  EXPECT_EQ(Read(Root() + "/c/m/a.mp3\n" + Root() + "/d/b:\\.mp3\n/x/y.mp3\n"),
            (Collection{"c:\\m\\a.mp3", "d:\\b\uF03A\uF05C.mp3", "z:\\x\\y.mp3"}));
  EXPECT_EQ(Read("sub/a.mp3\n./b.mp3\n../up/c.mp3\n"),
            (Collection{"d:\\sub\\a.mp3", "d:\\b.mp3", files_->FromNative(Root() + "/up/c.mp3")}));
  EXPECT_EQ(Read("c:/m/a.mp3\nsub/a\\b.mp3\nhttp://host/a.mp3\n"),
            (Collection{"c:/m/a.mp3", "sub/a\\b.mp3", "http://host/a.mp3"}));
}

TEST_F(ReadPlaylist, EndsLinesAtCarriageReturnLineFeedOrBoth) {
  const Collection three{"a.mp3", "b.mp3", "c.mp3"};
  EXPECT_EQ(Read("a.mp3\r\nb.mp3\r\nc.mp3\r\n"), three);
  EXPECT_EQ(Read("a.mp3\nb.mp3\n\n\nc.mp3"), three);
  EXPECT_EQ(Read("a.mp3\rb.mp3\rc.mp3\r"), three);
  EXPECT_EQ(Read("\n\ra.mp3\r\r\nb.mp3\nc.mp3"), three);
}

TEST_F(ReadPlaylist, TakesValidUtf8ForThatAndAllElseForTheCodePage) {
  EXPECT_EQ(Read("c:\\Bj\u00F6rk.mp3\nc:\\\u97F3\u697D.mp3\n"),
            (Collection{"c:\\Bj\u00F6rk.mp3", "c:\\\u97F3\u697D.mp3"}));
  EXPECT_EQ(Read("c:\\Bj\xF6rk.mp3\nc:\\\x80.mp3\n"), (Collection{"c:\\Bj\u00F6rk.mp3", "c:\\\u20AC.mp3"}));
  EXPECT_EQ(Read("c:\\Bj\xF6rk.mp3\nc:\\\xC3\xB6.mp3\n"), (Collection{"c:\\Bj\u00F6rk.mp3", "c:\\\u00F6.mp3"}))
      << "each line by itself";
}

TEST_F(ReadPlaylist, SkipsAByteOrderMark) {
  EXPECT_EQ(Read("\xEF\xBB\xBF#EXTM3U\r\nc:\\\u00F6.mp3\r\n"), Collection{"c:\\\u00F6.mp3"});
  EXPECT_EQ(Read("\xEF\xBB\xBF"
                 "c:\\a.mp3"),
            Collection{"c:\\a.mp3"});
  EXPECT_EQ(ReadNative("\xEF\xBB\xBF#EXTM3U\n/a.mp3\n"), Collection{"z:\\a.mp3"});
  EXPECT_EQ(ReadNative("\xEF\xBB\xBF/a.mp3\n"), Collection{"z:\\a.mp3"});
}

TEST_F(ReadPlaylist, KeepsZeroCharactersAndLongLines) {
  const std::string zeros("c:\\a\0b.mp3", 10);
  EXPECT_EQ(Read(zeros + "\r\n"), Collection{zeros});
  EXPECT_EQ(ReadNative(zeros + "\r\n"), Collection{zeros});
  const std::string native_zeros("/a\0b.mp3", 8);
  EXPECT_EQ(ReadNative(native_zeros), Collection{native_zeros});
  const std::string huge = "c:\\" + std::string(30'000, 'x') + ".mp3";
  EXPECT_EQ(Read(huge + "\r\n" + huge), (Collection{huge, huge}));
  EXPECT_EQ(Read(std::string(5'000'000, '\0')), Collection{});
}

TEST_F(ReadPlaylist, FindsNothingInNothing) {
  EXPECT_EQ(Read(""), Collection{});
  EXPECT_EQ(Read("\r\n\r\n"), Collection{});
  EXPECT_EQ(Read("\xEF\xBB\xBF"), Collection{});
  EXPECT_EQ(Read("#"), Collection{});
}

#ifndef _WIN32
// The most memory that this process has had, in bytes.
std::int64_t MostMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return std::int64_t{usage.ru_maxrss} * 1024;
}

TEST_F(ReadPlaylist, TakesNoRoomForEmptyLines) {
  std::string ends("\n");
  while (ends.size() < 20'000'000) ends += ends;
  ends += "a.mp3";
  const std::int64_t before = MostMemory();
  EXPECT_EQ(Read(ends), Collection{"a.mp3"});
  EXPECT_LT(MostMemory() - before, 300'000'000);
}
#endif

TEST_F(ReadPlaylist, AppendsToTheLinesOfAFile) {
  drives_.Write("a.m3u", "c:\\a.mp3\r\n");
  Collection lines{"before"};
  EXPECT_TRUE(ReadPlaylistLines(*files_, "c:\\a.m3u", lines));
  EXPECT_EQ(lines, (Collection{"before", "c:\\a.mp3"}));
  EXPECT_TRUE(ReadPlaylistLines(*files_, "c:\\a.m3u", lines));
  EXPECT_EQ(lines.size(), 3U);
}

TEST_F(ReadPlaylist, AnswersFalseWhenNothingIsFoundOrNothingCanBeRead) {
  drives_.Write("a.m3u", "#EXTM3U\r\n");
  Collection lines{"before"};
  for (const char* path : {"c:\\a.m3u", "c:\\missing.m3u", "c:\\", "q:\\a.m3u", ""}) {
    EXPECT_FALSE(ReadPlaylistLines(*files_, path, lines)) << path;
  }
  EXPECT_EQ(lines, Collection{"before"});
}

TEST_F(ReadPlaylist, KnowsTheExtensionsOfPlaylists) {
  for (const char* extension : {".m3u", ".m3u8", ".bm"}) EXPECT_TRUE(IsPlaylistExtension(extension)) << extension;
  for (const char* extension : {"", ".", "m3u", ".M3U", ".m3u9", ".pls", ".mp3"}) {
    EXPECT_FALSE(IsPlaylistExtension(extension)) << extension;
  }
}

TEST_F(ReadM3u8, TakesPathsOfThisSystem) {
  files_->SetCurrentFolder("c:\\");
  EXPECT_EQ(ReadNative(Root() + "/d/m/a.mp3\nsub/b.mp3\nc.mp3\n./d.mp3\n../d/e.mp3\n/x.mp3\n"),
            (Collection{"d:\\m\\a.mp3", "c:\\sub\\b.mp3", "c:\\c.mp3", "c:\\d.mp3", "d:\\e.mp3", "z:\\x.mp3"}));
  EXPECT_EQ(ReadNative("/m/a:b.mp3\n/m/\\.mp3\n"), (Collection{"z:\\m\\a\uF03A"
                                                               "b.mp3",
                                                               "z:\\m\\\uF05C.mp3"}));
}

TEST_F(ReadM3u8, TakesPathsInDriveFormToo) {
  EXPECT_EQ(ReadNative("C:\\m\\a.mp3\r\nq:\\A.mp3\r\n"), (Collection{"c:\\m\\a.mp3", "q:\\A.mp3"}));
}

TEST_F(ReadM3u8, TakesABackslashForASeparatorUnlessThereIsAnother) {
  EXPECT_EQ(ReadNative("sub\\a.mp3\n.\\b.mp3\n..\\c.mp3\n\\d.mp3\n"),
            (Collection{"c:\\sub\\a.mp3", "c:\\b.mp3", files_->FromNative(Root() + "/c.mp3"), "c:\\d.mp3"}));
  EXPECT_EQ(ReadNative("./own\\b.mp3\n"), (Collection{"c:\\own\uF05C"
                                                      "b.mp3"}));
}

TEST_F(ReadM3u8, TakesALetterAndAColonForADrive) {
  EXPECT_EQ(ReadNative("q:gone.mp3\n1:b.mp3\n"), (Collection{"q:gone.mp3",
                                                             "c:\\1\uF03A"
                                                             "b.mp3"}));
}

TEST_F(ReadM3u8, KeepsAddresses) {
  EXPECT_EQ(ReadNative("http://host/a.mp3\nHTTPS://host/b.mp3\n"),
            (Collection{"http://host/a.mp3", "HTTPS://host/b.mp3"}));
  EXPECT_EQ(ReadNative("/x/http://a.mp3\n"), Collection{"z:\\x\\http\uF03A\\a.mp3"});
  EXPECT_EQ(ReadNative("c://a.mp3\n"), Collection{"c://a.mp3"});
}

TEST_F(ReadM3u8, TakesEachLineForUtf8ElseForTheCodePage) {
  EXPECT_EQ(ReadNative("\u97F3.mp3\ngone\xF6.mp3\nC:\\Bj\xF6rk.mp3\nhttp://host/\xF6.mp3\n"),
            (Collection{"c:\\\u97F3.mp3", "c:\\gone\u00F6.mp3", "c:\\Bj\u00F6rk.mp3", "http://host/\u00F6.mp3"}));
}

TEST_F(WritePlaylist, WritesOneLineARowAndNothingElse) {
  EXPECT_EQ(Written("c:\\a.m3u", {"c:\\m\\a.mp3", "d:\\gone.mp3", "c:\\m\\a.mp3"}),
            "c:\\m\\a.mp3\r\nd:\\gone.mp3\r\nc:\\m\\a.mp3\r\n");
}

TEST_F(WritePlaylist, ReplacesTheWholeFile) {
  drives_.Write("a.m3u", "#EXTM3U\r\nsomething longer than the new content of the file\r\n");
  EXPECT_EQ(Written("c:\\a.m3u", {"c:\\a.mp3"}), "c:\\a.mp3\r\n");
}

TEST_F(WritePlaylist, WritesTheCodePageUnlessACharacterDoesNotFit) {
  EXPECT_EQ(Written("c:\\a.m3u", {"c:\\Bj\u00F6rk.mp3", "c:\\\u20AC.mp3"}), "c:\\Bj\xF6rk.mp3\r\nc:\\\x80.mp3\r\n");
  EXPECT_EQ(Written("c:\\a.m3u", {"c:\\Bj\u00F6rk.mp3", "c:\\\u97F3.mp3"}),
            "c:\\Bj\u00F6rk.mp3\r\nc:\\\u97F3.mp3\r\n");
}

TEST_F(WritePlaylist, ChoosesTheEncodingByWhatEachLineAloneReadsBackAs) {
  EXPECT_EQ(Written("c:\\a.m3u", {"c:\\\u00C3\u00B6.mp3", "c:\\\u00F6.mp3"}),
            "c:\\\u00C3\u00B6.mp3\r\nc:\\\u00F6.mp3\r\n")
      << "in the code page the first line alone would be UTF-8";
}

TEST_F(WritePlaylist, WritesAnAddressBare) {
  for (const bool relative : {false, true}) {
    EXPECT_EQ(Written("c:\\a.m3u", {"\\http://host/a.mp3", "https://host/b.mp3"}, relative),
              "http://host/a.mp3\r\nhttps://host/b.mp3\r\n");
  }
  EXPECT_TRUE(WritePlainLines(*files_, "c:\\b.m3u", {"\\http://host/a.mp3", "sub\\a.mp3"}));
  EXPECT_EQ(drives_.Read("b.m3u"), "http://host/a.mp3\r\nsub\\a.mp3\r\n");
}

TEST_F(WritePlaylist, CutsItsFolderFromRelativeLines) {
  EXPECT_EQ(Written("c:\\m.m3u", {"c:\\m\\a\\1.mp3", "c:\\2.mp3", "d:\\3.mp3", "C:\\4.mp3"}, true),
            "m\\a\\1.mp3\r\n2.mp3\r\nd:\\3.mp3\r\nC:\\4.mp3\r\n");
  drives_.Write("m/x", "");
  EXPECT_EQ(Written("c:\\m\\m.m3u", {"c:\\m\\a\\1.mp3", "c:\\m\\2.mp3", "c:\\M\\3.mp3", "c:\\4.mp3"}, true),
            "a\\1.mp3\r\n2.mp3\r\nc:\\M\\3.mp3\r\nc:\\4.mp3\r\n")
      << "what isn't below the folder, letter for letter, stays a full path";
}

TEST_F(WritePlaylist, PutsADotBeforeARelativeItemThatWouldReadAsAComment) {
  EXPECT_EQ(Written("c:\\m.m3u", {"c:\\#1.mp3", "c:\\2.mp3", "c:\\#\\3.mp3"}, true),
            ".\\#1.mp3\r\n2.mp3\r\n.\\#\\3.mp3\r\n");
}

TEST_F(WritePlaylist, AnswersFalseAndKeepsTheOldFileWhenItCanNotWrite) {
  drives_.Write("a.m3u", "old");
  std::filesystem::permissions(drives_.C() / "a.m3u", std::filesystem::perms::owner_read);
  for (const char* path : {"c:\\a.m3u", "c:\\no\\a.m3u", "c:\\no\\a.m3u8", "q:\\a.m3u", "", "c:\\"}) {
    EXPECT_FALSE(WritePlaylistLines(*files_, path, {"c:\\b.mp3"}, false)) << path;
  }
  EXPECT_EQ(drives_.Read("a.m3u"), "old");
}

TEST_F(WriteM3u8, WritesPathsOfThisSystemInUtf8WithLineFeeds) {
  EXPECT_EQ(Written("c:\\a.M3U8", {"c:\\m\\Bj\u00F6rk.mp3", "d:\\\u97F3.mp3", "z:\\x.mp3"}),
            Root() + "/c/m/Bj\u00F6rk.mp3\n" + Root() + "/d/\u97F3.mp3\n/x.mp3\n");
}

TEST_F(WriteM3u8, IsPlainForTheUserAndHasAddressesOnlyWhenHandedOver) {
  const Collection paths{"c:\\hash#1.mp3", "c:\\pct%41.mp3", "c:\\q?x.mp3", "c:\\a b \u00E9.mp3",
                         "http://radio/x?y#z.mp3"};
  EXPECT_EQ(Written("c:\\saved.m3u8", paths), Root() + "/c/hash#1.mp3\n" + Root() + "/c/pct%41.mp3\n" + Root() +
                                                  "/c/q?x.mp3\n" + Root() + "/c/a b \u00E9.mp3\n" +
                                                  "http://radio/x?y#z.mp3\n");
  EXPECT_TRUE(WriteHandOver(*files_, "c:\\handed.m3u8", paths));
  const std::string root = "file://" + Root() + "/c/";
  EXPECT_EQ(drives_.Read("handed.m3u8"), root + "hash%231.mp3\n" + root + "pct%2541.mp3\n" + root + "q%3Fx.mp3\n" +
                                             Root() + "/c/a b \u00E9.mp3\n" + "http://radio/x?y#z.mp3\n");
  EXPECT_TRUE(WriteHandOver(*files_, "c:\\handed.m3u8", {"c:\\two\nlines.mp3"}));
  EXPECT_EQ(drives_.Read("handed.m3u8"), root + "two%0Alines.mp3\n");
}

TEST_F(WriteM3u8, WritesRelativeLines) {
  EXPECT_EQ(Written("c:\\a.m3u8", {"c:\\m\\1.mp3", "c:\\2.mp3", "d:\\3.mp3"}, true),
            "m/1.mp3\n2.mp3\n" + Root() + "/d/3.mp3\n");
}

#ifndef _WIN32
TEST_F(WritePlaylist, WritesUtf8ForAUserOfAnotherCodePage) {
  setenv("QUBLET_CODEPAGE", "1251", 1);
  EXPECT_EQ(Written("c:\\a.m3u", {"c:\\\u00F6.mp3"}), "c:\\\u00F6.mp3\r\n");
  EXPECT_EQ(Written("c:\\a.m3u", {"c:\\\u0416.mp3"}), "c:\\\u0416.mp3\r\n");
  unsetenv("QUBLET_CODEPAGE");
}

TEST_F(WriteM3u8, WritesLinesThatLeaveItsFolder) {
  for (const char* name : {"lists/new/x", "m/x"}) drives_.Write(name, "");
  EXPECT_EQ(
      Written("c:\\lists\\new\\a.m3u8",
              {"c:\\m\\1.mp3", "c:\\2.mp3", "c:\\lists\\3.mp3", "c:\\lists\\new\\4.mp3", "c:\\lists\\newer\\5.mp3"},
              true),
      "../../m/1.mp3\n../../2.mp3\n../3.mp3\n4.mp3\n../newer/5.mp3\n");
  EXPECT_EQ(Written("c:\\lists\\a.m3u", {"c:\\m\\1.mp3"}, true), "c:\\m\\1.mp3\r\n") << "the plain type doesn't";
}

TEST_F(WriteM3u8, LeavesItsFolderOnlyWhereLinksLeadToTheSamePlace) {
  drives_.Write("far/away/lists/x", "");
  std::filesystem::create_directory_symlink(drives_.C() / "far/away/lists", drives_.C() / "lists");
  EXPECT_EQ(Written("c:\\lists\\a.m3u8", {"c:\\m\\1.mp3", "c:\\lists\\2.mp3"}, true), Root() + "/c/m/1.mp3\n2.mp3\n");
}

TEST_F(WriteM3u8, LeavesTheFolderOfTheFileThatALinkLeadsTo) {
  drives_.Write("real/list.m3u8", "");
  drives_.Write("a/k.mp3", "abc");
  drives_.Write("deep/a/other.mp3", "abc");
  drives_.Write("a/other.mp3", "abc");
  std::filesystem::create_directories(drives_.C() / "deep/er");
  std::filesystem::create_symlink(drives_.C() / "real/list.m3u8", drives_.C() / "deep/er/list.m3u8");
  EXPECT_EQ(Written("c:\\deep\\er\\list.m3u8", {"c:\\real\\s.mp3", "c:\\a\\k.mp3", "c:\\a\\other.mp3"}, true),
            "s.mp3\n../a/k.mp3\n" + Root() + "/c/a/other.mp3\n")
      << "the last one's line would be read as another file";
}

TEST_F(WritePlaylist, CutsTheFolderOfTheFileThatALinkLeadsToToo) {
  drives_.Write("real/list.m3u", "");
  drives_.Write("shown/there.mp3", "abc");
  std::filesystem::create_symlink(drives_.C() / "real/list.m3u", drives_.C() / "shown/list.m3u");
  EXPECT_EQ(Written("c:\\shown\\list.m3u",
                    {"c:\\shown\\1.mp3", "c:\\real\\sub\\2.mp3", "c:\\3.mp3", "c:\\real\\there.mp3"}, true),
            "1.mp3\r\nsub\\2.mp3\r\nc:\\3.mp3\r\nc:\\real\\there.mp3\r\n")
      << "the last one's line would be read as another file";
}
#endif

TEST_F(WriteM3u8, WritesNamesAsTheyStandOnTheDisk) {
  EXPECT_EQ(Written("c:\\a.m3u8", {"c:\\ab\uF03A\uF05C.mp3", "c:\\Bj\uF7F6rk.mp3"}, true),
            "./ab:\\.mp3\nBj\xF6rk.mp3\n")
      << "a backslash that stands alone would part names";
}

TEST_F(WriteM3u8, WritesInFullWhatWouldBeMisreadAsARelativeLine) {
  EXPECT_EQ(Written("c:\\a.m3u8",
                    {"c:\\a\uF03A"
                     "b.mp3",
                     "c:\\#1.mp3",
                     "c:\\ab\uF03A"
                     "c.mp3"},
                    true),
            Root() + "/c/a:b.mp3\n./#1.mp3\nab:c.mp3\n");
}

TEST_F(WriteM3u8, WritesInFullANameThatWouldLoseItsBeginningAsAByteOrderMark) {
  EXPECT_EQ(Written("c:\\a.m3u8", {"c:\\\uFEFF.mp3"}, true), Root() + "/c/\uFEFF.mp3\n");
}

TEST_F(WriteM3u8, KeepsTheDriveFormOfWhatThisSystemCanNotSay) {
  EXPECT_EQ(Written("c:\\a.m3u8", {"q:\\no drive.mp3", "c:\\m\\new\uF00Aline.mp3", "c:\\m\\a.mp3"}),
            "q:\\no drive.mp3\nc:\\m\\new\uF00Aline.mp3\n" + Root() + "/c/m/a.mp3\n");
  EXPECT_EQ(Written("c:\\a.m3u8", {"c:\\new\uF00Dline.mp3"}, true), "c:\\new\uF00Dline.mp3\n");
}

TEST_F(WriteM3u8, WritesTheAddressOfARowThatIsOne) {
  EXPECT_EQ(Written("c:\\a.m3u8", {"\\http://host/a.mp3"}), "http://host/a.mp3\n");
}

const Collection kDifficultNames{"with blanks.mp3",
                                 " blank in front.mp3",
                                 "Bj\u00F6rk \u20AC.mp3",
                                 "\u97F3\u697D.mp3",
#ifndef _WIN32
                                 "a\\b.mp3",
                                 "a:b.mp3",
                                 "ab:c.mp3",
                                 "c:d\\e.mp3",
                                 "Bj\xF6rk.mp3",
                                 "new\nline.mp3",
                                 "return\rhere.mp3",
                                 "tab\there.mp3",
                                 "?*\"<>|.mp3",
                                 ".mp3",
#endif
                                 "#1.mp3",
                                 "\uF03A private.mp3",
                                 "\uFEFFmark.mp3",
                                 "100%.mp3",
                                 "~.mp3",
                                 "a'b & c.ogg",
                                 "\u00E9.wav",
                                 "e\u0301.wav",
                                 "two.mp3.wma",
                                 "a;b=c,d.mp3"};

TEST_F(SavedAndReopened, KeepsEveryNameInEveryForm) {
  for (const std::string& name : kDifficultNames) drives_.Write("m/" + name, "abc");
  for (const std::string& name : kDifficultNames) {
    drives_.Write("m/of " + name.substr(0, name.size() - 1) + "/" + name, "abc");
  }
  ASSERT_TRUE(items_.AddStuff("c:\\m", false));
  const Collection paths = Paths();
  const auto shown = std::count_if(kDifficultNames.begin(), kDifficultNames.end(),
                                   [](const std::string& name) { return !name.starts_with('.'); });
  ASSERT_EQ(paths.size(), static_cast<std::size_t>(2 * shown)) << "a name with a leading dot is hidden";
  for (const char* target :
       {"c:\\list.m3u", "c:\\list.m3u8", "c:\\m\\list.m3u", "c:\\m\\list.m3u8", "d:\\list.m3u8"}) {
    for (const bool relative : {false, true}) {
      ASSERT_TRUE(WritePlaylistLines(*files_, target, paths, relative));
      Rows().Clear();
      ASSERT_TRUE(items_.AddStuff(target, false));
      Collection expected;
      for (const std::string& path : paths) expected.insert(expected.end(), path.ends_with(".mp3.wma") ? 2 : 1, path);
      EXPECT_EQ(Paths(), expected) << target << " relative " << relative;
      for (int i = 1; i <= Rows().Count(); ++i) EXPECT_EQ(Rows().At(i).icon, RowIcon::kNormal) << Paths()[i - 1];
    }
  }
}

TEST_F(SavedAndReopened, KeepsMissingItemsToo) {
  Collection paths;
  for (const char* name : {"A\uF03A-b.mp3", "#1.mp3", "new\uF00A-line.mp3", "\u97F3.mp3", "blank .mp3"}) {
    paths.push_back(std::string("c:\\gone\\") + name);
    paths.push_back(std::string("c:\\") + name);
  }
  paths.emplace_back("q:\\no drive.mp3");
  for (const char* target : {"c:\\list.m3u", "c:\\list.m3u8"}) {
    for (const bool relative : {false, true}) {
      ASSERT_TRUE(WritePlaylistLines(*files_, target, paths, relative));
      Rows().Clear();
      ASSERT_TRUE(items_.AddStuff(target, false));
      EXPECT_EQ(Paths(), paths) << target << " relative " << relative;
    }
  }
}

TEST_F(SavedAndReopened, KeepsAnAddress) {
  drives_.Write("a.m3u", "http://host/a.mp3\r\n");
  for (const char* target : {"c:\\list.m3u", "c:\\list.m3u8"}) {
    Rows().Clear();
    ASSERT_TRUE(items_.AddStuff("c:\\a.m3u", false));
    const Collection paths = Paths();
    ASSERT_TRUE(WritePlaylistLines(*files_, target, paths, false));
    Rows().Clear();
    ASSERT_TRUE(items_.AddStuff(target, false));
    EXPECT_EQ(Paths(), paths) << target;
  }
}

}  // namespace
}  // namespace qublet
