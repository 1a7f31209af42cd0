#include "playlist/playlist_form.h"

#include "playlist/paths/text.h"
#include "playlist/playlist_files_test_base.h"

namespace qublet {
namespace {

// A plain playlist of another player of this system, and the form that it goes back in.
class PlaylistFormTest : public PlaylistFilesTest {
 protected:
  PlaylistFormTest() { dialogs_.answers.assign(200, MessageAnswer::kYes); }

  std::string M() const { return (drives_.C() / "m").string(); }
  void OpenLines(const std::string& bytes) {
    drives_.Write("list.m3u", bytes);
    ASSERT_TRUE(Open("c:\\list.m3u")) << bytes;
  }
  std::string SavedAgain(const std::string& bytes) {
    OpenLines(bytes);
    EXPECT_TRUE(Save());
    return drives_.Read("list.m3u");
  }
  std::optional<PlaylistForm> Form(const std::string& bytes, const std::string& name = "c:\\list.m3u") {
    return FormToKeep(*files_, name, bytes);
  }
};

TEST_F(PlaylistFormTest, IsThisSystemsOwnForASlashAndNoDriveBackslashOrCrLf) {
  const PlaylistForm native{.native = true, .utf8 = true};
  EXPECT_EQ(Form("/m/a.mp3\n"), native);
  EXPECT_EQ(Form("#EXTM3U\n#EXTINF:1,c:\\x\na.mp3\nsub/b.mp3"), native) << "comments have no paths";
  EXPECT_EQ(Form("a.mp3\nsub/b.flac\n"), native);
  EXPECT_EQ(Form("http://host/c:\\x.mp3\r\n/m/a.mp3\n"), native) << "addresses don't count";
  EXPECT_EQ(Form("a.mp3\nb.mp3\n"), std::nullopt) << "no slash";
  EXPECT_EQ(Form("#/\na.mp3\n"), std::nullopt);
  EXPECT_EQ(Form("http://host/a.mp3\nfile:///m/a.mp3\na.mp3\n"), std::nullopt);
  EXPECT_EQ(Form("/m/a.mp3\nc:\\b.mp3\n"), std::nullopt);
  EXPECT_EQ(Form("/m/a.mp3\nC:/b.mp3\n"), std::nullopt);
  EXPECT_EQ(Form("/m/a.mp3\nsub\\b.mp3\n"), std::nullopt);
  EXPECT_EQ(Form("/m/a.mp3\n/m/b\\c.mp3\n"), std::nullopt);
  EXPECT_EQ(Form("/m/a.mp3\r\n"), std::nullopt);
  EXPECT_EQ(Form("#EXTM3U\r\n/m/a.mp3\n"), std::nullopt);
  EXPECT_EQ(Form(""), std::nullopt);
}

TEST_F(PlaylistFormTest, IsKeptForPlainPlaylistsOnly) {
  EXPECT_TRUE(Form("/m/a.mp3\n", "c:\\list.M3U"));
  EXPECT_FALSE(Form("/m/a.mp3\n", "c:\\list.m3u8"));
  EXPECT_FALSE(Form("/m/a.mp3\n", "c:\\list.bm"));
}

TEST_F(PlaylistFormTest, GivesPathsOfThisSystemAndLineFeedsBack) {
  EXPECT_EQ(SavedAgain("#EXTM3U\n" + M() + "/a/1.mp3\nm/b/2.mp3\n"), M() + "/a/1.mp3\n" + M() + "/b/2.mp3\n");
}

TEST_F(PlaylistFormTest, KeepsUtf8AndItsMark) {
  drives_.Write("m/\u00F6.mp3", "abc");
  EXPECT_EQ(SavedAgain("m/\u00F6.mp3\n"), M() + "/\u00F6.mp3\n");
  EXPECT_EQ(SavedAgain("\xEF\xBB\xBFm/\u00F6.mp3\n"), "\xEF\xBB\xBF" + M() + "/\u00F6.mp3\n");
}

TEST_F(PlaylistFormTest, KeepsTheCodePageWhileItFits) {
  drives_.Write("m/\u00F6.mp3", "abc");
  drives_.Write("m/\u97F3.mp3", "abc");
  EXPECT_EQ(SavedAgain("m/\xF6.mp3\n"), M() + "/\xF6.mp3\n");
  Add("c:\\m\\\u97F3.mp3");
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("list.m3u"), M() + "/\u00F6.mp3\n" + M() + "/\u97F3.mp3\n");
}

TEST_F(PlaylistFormTest, MakesUtf8OfUtf16) {
  std::string wide = "\xFF\xFE";
  for (const char c : std::string("m/a/1.mp3\n")) wide += {c, '\0'};
  EXPECT_EQ(SavedAgain(wide), M() + "/a/1.mp3\n");
}

TEST_F(PlaylistFormTest, GivesMissingLinesBackAsTheyCame) {
  EXPECT_EQ(SavedAgain("m/a/1.mp3\n/gone/x.mp3\ngone/\xF6.mp3\ngone.mp3\n./gone.mp3\n../gone.mp3\n"),
            M() + "/a/1.mp3\n/gone/x.mp3\ngone/\xF6.mp3\ngone.mp3\n./gone.mp3\n../gone.mp3\n");
}

TEST_F(PlaylistFormTest, IsRelativeWhereTheCommandSaysSo) {
  drives_.Write("m/#3.mp3", "abc");
  drives_.Write("#4.mp3", "abc");
  OpenLines("m/a/1.mp3\nm/#3.mp3\n./#4.mp3\n");
  EXPECT_TRUE(SaveAs("c:\\list.m3u", true));
  EXPECT_EQ(drives_.Read("list.m3u"), "m/a/1.mp3\nm/#3.mp3\n./#4.mp3\n");
}

TEST_F(PlaylistFormTest, WritesWhatAPlainPlaylistWouldMisreadInFullOrInDriveForm) {
  for (const char* name : {"m/a\\b.mp3", "m/a:b.mp3", "m/new\nline.mp3", "m/Bj\xF6rk.mp3"})
    drives_.Write(name, "abc");
  OpenLines("m/a/1.mp3\n");
  Add("c:\\m");
  const Collection paths = Paths();
  for (const bool relative : {false, true}) {
    ASSERT_TRUE(SaveAs("c:\\list.m3u", relative));
    ASSERT_TRUE(Open("c:\\list.m3u"));
    EXPECT_EQ(Paths(), paths) << drives_.Read("list.m3u");
    OpenLines("m/a/1.mp3\n");
    Add("c:\\m");
  }
}

TEST_F(PlaylistFormTest, GivesNamesThatAreNoUtf8BackAsTheirBytes) {
  drives_.Write("m/Bj\xF6rk.mp3", "abc");
  const std::string own = M() + "/Bj\xF6rk.mp3\n" + M() + "/a/1.mp3\n";
  EXPECT_EQ(SavedAgain(own), own);
  OpenLines("m/Bj%F6rk.mp3\n");
  drives_.Write("m/Bj\u00F6rk.mp3", "abc");
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\m\\Bj\uF7F6rk.mp3\n") << "the bytes are another file's name now";
}

TEST_F(PlaylistFormTest, EndsWithNew) {
  OpenLines("m/a/1.mp3\n");
  playlist_files_.MFileNew_Click();
  Add("c:\\m\\a\\1.mp3");
  EXPECT_TRUE(SaveAs("c:\\list.m3u"));
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\m\\a\\1.mp3\r\n");
}

TEST_F(PlaylistFormTest, EndsWithAnotherOpen) {
  OpenLines("m/a/1.mp3\n");
  ASSERT_TRUE(Open("c:\\two.m3u"));
  EXPECT_TRUE(SaveAs("c:\\list.m3u"));
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
}

TEST_F(PlaylistFormTest, EndsWithASaveElsewhere) {
  OpenLines("m/a/1.mp3\n");
  EXPECT_TRUE(SaveAs("c:\\other.m3u"));
  EXPECT_EQ(drives_.Read("other.m3u"), "c:\\m\\a\\1.mp3\r\n");
  EXPECT_TRUE(SaveAs("c:\\list.m3u"));
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\m\\a\\1.mp3\r\n");
}

TEST_F(PlaylistFormTest, StaysWithAnImportAndAFailedSave) {
  OpenLines("m/a/1.mp3\n");
  Import("c:\\two.m3u");
  EXPECT_FALSE(SaveAs("c:\\no folder\\list.m3u"));
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("list.m3u"), M() + "/a/1.mp3\n" + M() + "/a/1.mp3\n" + M() + "/b/2.mp3\n");
}

TEST_F(PlaylistFormTest, OfARecentEntryIsKeptToo) {
  drives_.Write("list.m3u", "m/a/1.mp3\n");
  document_.RecentFiles = {"c:\\list.m3u"};
  playlist_files_.MFileRecent_Click(1);
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("list.m3u"), M() + "/a/1.mp3\n");
}

TEST_F(PlaylistFormTest, OfANewPlainPlaylistIsRemarkedUponOnce) {
  Add("c:\\m");
  EXPECT_TRUE(SaveAs("c:\\new.m3u8"));
  EXPECT_EQ(feedback_.remarks, Shown{});
  EXPECT_TRUE(SaveAs("c:\\new.m3u"));
  EXPECT_EQ(drives_.Read("new.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
  EXPECT_EQ(feedback_.remarks, Shown{"players of this system want .m3u8"});
  EXPECT_TRUE(SaveAs("c:\\newer.m3u"));
  EXPECT_EQ(feedback_.remarks.size(), 1U);
}

TEST_F(PlaylistFormTest, OfAListThatGoesBackIsNotRemarkedUpon) {
  SavedAgain("m/a/1.mp3\n");
  SavedAgain("c:\\m\\a\\1.mp3\r\n");
  EXPECT_EQ(feedback_.remarks, Shown{});
}

TEST_F(PlaylistFormTest, RemarksHowManyItemsOfARelativeSaveKeptTheirFullPaths) {
  Add("c:\\m\\a\\1.mp3");
  Add("c:\\x\\3.mp3");
  EXPECT_TRUE(SaveAs("c:\\m\\new.m3u8", true));
  EXPECT_EQ(drives_.Read("m/new.m3u8"), "a/1.mp3\n../x/3.mp3\n");
  EXPECT_EQ(feedback_.remarks, Shown{});
  EXPECT_TRUE(SaveAs("c:\\m\\new.m3u", true));
  EXPECT_EQ(feedback_.remarks, Shown{"1 item had to keep its full path; players of this system want .m3u8"});
  EXPECT_TRUE(SaveAs("d:\\new.m3u8", true));
  EXPECT_EQ(feedback_.remarks.back(), "2 items had to keep their full paths");
  EXPECT_TRUE(SaveAs("c:\\new.m3u8"));
  EXPECT_EQ(feedback_.remarks.size(), 2U) << "a plain save has none";
}

// What a missing line becomes in the other type.
struct OtherType {
  const char* line;
  const char* written;
};

TEST_F(PlaylistFormTest, OfMissingLinesChangesInM3u8) {
  const std::string c = drives_.C().string();
  const OtherType table[] = {
      {"gone.mp3", "gone.mp3"},
      {"sub\\gone.mp3", "sub/gone.mp3"},
      {"..\\gone.mp3", "../gone.mp3"},
      {"sub/gone.mp3", "sub/gone.mp3"},
      {"sub/a\\gone.mp3", "sub/a/gone.mp3"},
      {"Bj\xF6rk.mp3", "Bj\u00F6rk.mp3"},
      {"C:\\Gone\\X.mp3", "*/Gone/X.mp3"},
      {"c:/gone/x.mp3", "*/gone/x.mp3"},
      {"\\gone\\x.mp3", "*/gone/x.mp3"},
      {"q:\\gone\\\xF6.mp3", "q:\\gone\\\xF6.mp3"},
      {"\\\\server\\share\\x.mp3", "\\\\server\\share\\x.mp3"},
      {"/gone/x.mp3", "/gone/x.mp3"},
      {"http://host/x.mp3", "http://host/x.mp3"},
  };
  for (const OtherType& row : table) {
    drives_.Write("list.m3u", std::string(row.line) + "\r\n");
    ASSERT_TRUE(Open("c:\\list.m3u")) << row.line;
    ASSERT_TRUE(SaveAs("c:\\other.m3u8"));
    EXPECT_EQ(drives_.Read("other.m3u8"), ReplaceAll(row.written, "*", c) + "\n") << row.line;
  }
}

TEST_F(PlaylistFormTest, OfMissingLinesChangesInM3u) {
  const std::string c = drives_.C().string();
  const OtherType table[] = {
      {"gone.mp3", "gone.mp3"},
      {"sub/gone.mp3", "sub\\gone.mp3"},
      {"../gone.mp3", "..\\gone.mp3"},
      {"sub/a\\gone.mp3", "sub/a\\gone.mp3"},
      {"sub\\gone.mp3", "sub\\gone.mp3"},
      {"Bj\u00F6rk.mp3", "Bj\xF6rk.mp3"},
      {"*/gone/x.mp3", "c:\\gone\\x.mp3"},
      {"/gone/a:b.mp3", "/gone/a:b.mp3"},
      {"/gone/a\\b.mp3", "/gone/a\\b.mp3"},
      {"C:/gone/x.mp3", "C:\\gone\\x.mp3"},
      {"q:\\gone.mp3", "q:\\gone.mp3"},
      {"http://host/x.mp3", "http://host/x.mp3"},
  };
  for (const OtherType& row : table) {
    drives_.Write("list.m3u8", ReplaceAll(row.line, "*", c) + "\n");
    ASSERT_TRUE(Open("c:\\list.m3u8")) << row.line;
    ASSERT_TRUE(SaveAs("c:\\other.m3u"));
    EXPECT_EQ(drives_.Read("other.m3u"), ReplaceAll(row.written, "*", c) + "\r\n") << row.line;
  }
}

}  // namespace
}  // namespace qublet
