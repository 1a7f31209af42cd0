#include <gtest/gtest.h>

#include "playlist/paths/text.h"
#include "support/cli_test_base.h"

namespace qublet {
namespace {

class BookmarksCommandTest : public CliTestBase {
 protected:
  BookmarksCommandTest() { std::filesystem::create_directory(drives_.C() / "program"); }

  int Run(Arguments arguments) { return CliTestBase::Run("bookmarks", std::move(arguments)); }
  void Write(const std::string& category, const std::string& content) const {
    drives_.Write("program/Bookmarks/" + category + ".bm", content);
  }
  std::string Read(const std::string& category) const {
    return drives_.Read("program/Bookmarks/" + category + ".bm");
  }
  bool Has(const std::string& category) const {
    return std::filesystem::exists(drives_.C() / "program/Bookmarks" / (category + ".bm"));
  }
};

TEST_F(BookmarksCommandTest, ListsTheNames) {
  EXPECT_EQ(Run({"list"}), 0);
  EXPECT_EQ(Out(), "Default\n") << "it is always there";
  EXPECT_TRUE(Has("Default"));
  Write("Rock", "c:\\a.mp3\r\n");
  Write("blues", "");
  EXPECT_EQ(Run({"list"}), 0);
  EXPECT_EQ(Out(), "blues\nDefault\nRock\n");
  EXPECT_EQ(Err(), "");
}

TEST_F(BookmarksCommandTest, ShowsTheLinesAsTheyStand) {
  Write("Rock", "c:\\Bj\xF6rk.mp3\r\n\r\nno path\r\nc:\\a.mp3");
  EXPECT_EQ(Run({"show", "Rock"}), 0);
  EXPECT_EQ(Out(), "c:\\Bj\u00f6rk.mp3\n\nno path\nc:\\a.mp3\n");
  EXPECT_EQ(Run({"show", "Default"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_EQ(Run({"show", "None"}), 1);
  EXPECT_EQ(Err(), "qublet: None: no such file or folder\n");
  EXPECT_FALSE(Has("None"));
}

TEST_F(BookmarksCommandTest, AddsWhatThePathsHold) {
  Touch({"m/b.mp3", "m/a.mp3", "x.wav"});
  drives_.Write("list.m3u", "gone.mp3\r\nx.wav\r\n");
  EXPECT_EQ(Run({"add", "Rock", "m", "list.m3u"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_EQ(Read("Rock"), "c:\\m\\a.mp3\r\nc:\\m\\b.mp3\r\nc:\\gone.mp3\r\nc:\\x.wav\r\n");
  EXPECT_EQ(Run({"add", "Rock", "c:\\x.wav"}), 0);
  EXPECT_EQ(Read("Rock"), "c:\\m\\a.mp3\r\nc:\\m\\b.mp3\r\nc:\\gone.mp3\r\nc:\\x.wav\r\nc:\\x.wav\r\n");
  EXPECT_TRUE(Has("Default"));
}

TEST_F(BookmarksCommandTest, AddsTheBookmarksOfAnotherCategory) {
  Write("Rock", "c:\\a.mp3\r\n");
  EXPECT_EQ(Run({"add", "Best", "c:\\program\\Bookmarks\\Rock.bm"}), 0);
  EXPECT_EQ(Read("Best"), "c:\\a.mp3\r\n");
}

TEST_F(BookmarksCommandTest, AddsNothingWhereAPathIsNotThere) {
  Touch({"a.mp3"});
  EXPECT_EQ(Run({"add", "Rock", "a.mp3", "gone.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: gone.mp3: no such file or folder\n");
  EXPECT_FALSE(Has("Rock"));
}

TEST_F(BookmarksCommandTest, SaysWhyNothingCouldBeAdded) {
  Touch({"a.mp3"});
  Write("Rock", "c:\\old.mp3\r\n");
  files_->SetAttributes("c:\\program\\Bookmarks\\Rock.bm", kReadOnly);
  EXPECT_EQ(Run({"add", "Rock", "a.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: Rock: read-only\n");
  EXPECT_EQ(Read("Rock"), "c:\\old.mp3\r\n");
  EXPECT_EQ(Run({"add", "AC/DC", "a.mp3"}), 1);
  EXPECT_TRUE(Err().starts_with("qublet: AC/DC: ")) << Err();
}

TEST_F(BookmarksCommandTest, SaysThatThereIsNoPlaceForThem) {
  Touch({"a.mp3"});
  drives_.Write("program/Bookmarks", "a file");
  EXPECT_EQ(Run({"list"}), 1);
  EXPECT_TRUE(Err().starts_with("qublet: c:\\program\\Bookmarks\\Default.bm: ")) << Err();
  EXPECT_EQ(Run({"add", "Rock", "a.mp3"}), 1);
  EXPECT_EQ(drives_.Read("program/Bookmarks"), "a file");
}

TEST_F(BookmarksCommandTest, RemovesACategoryWithoutAQuestion) {
  Write("Rock", "c:\\a.mp3\r\n");
  Write("Soul", "");
  EXPECT_EQ(Run({"remove", "Rock"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_FALSE(Has("Rock"));
  EXPECT_TRUE(Has("Soul"));
  EXPECT_EQ(Run({"remove", "Rock"}), 1);
  EXPECT_EQ(Err(), "qublet: Rock: no such category\n");
}

TEST_F(BookmarksCommandTest, NeverRemovesDefault) {
  Write("Default", "c:\\a.mp3\r\n");
  EXPECT_EQ(Run({"remove", "Default"}), 1);
  EXPECT_EQ(Err(), "qublet: This category cannot be removed.\n");
  EXPECT_EQ(Read("Default"), "c:\\a.mp3\r\n");
}

TEST_F(BookmarksCommandTest, RemovesNothingOutsideTheFolder) {
  drives_.Write("program/winamp.bm", "c:\\a.mp3\r\n");
  Write("Default", "");
  for (const char* name : {"..\\winamp", "../winamp", ".\\Default"}) {
    EXPECT_EQ(Run({"remove", name}), 1);
    EXPECT_EQ(Err(), std::string("qublet: ") + name + ": no such category\n");
  }
  EXPECT_EQ(drives_.Read("program/winamp.bm"), "c:\\a.mp3\r\n");
  EXPECT_TRUE(Has("Default"));
}

TEST_F(BookmarksCommandTest, WritesPathsAndTitles) {
  Touch({"m/the song.mp3", "m/b.ogg"});
  drives_.Write("list.m3u", "m\\the song.mp3\r\ngone.mp3\r\nm\\the song.mp3\r\n");
  EXPECT_EQ(Run({"titles", "c:\\out.bm", "list.m3u", "m/b.ogg"}), 0);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_EQ(drives_.Read("out.bm"),
            "c:\\m\\the song.mp3\r\nThe Song\r\nc:\\gone.mp3\r\nGone\r\nc:\\m\\the song.mp3\r\nThe Song\r\n"
            "c:\\m\\b.ogg\r\nB\r\n");
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "out.bm.bak"));
  EXPECT_FALSE(Has("Default")) << "a player's file is no category";
}

TEST_F(BookmarksCommandTest, KeepsTheFileThatItReplaces) {
  Touch({"a.mp3"});
  drives_.Write("out.bm", "old");
  drives_.Write("out.bm.bak", "older");
  EXPECT_EQ(Run({"titles", "out.bm", "a.mp3"}), 0);
  EXPECT_EQ(drives_.Read("out.bm"), "c:\\a.mp3\r\nA\r\n");
  EXPECT_EQ(drives_.Read("out.bm.bak"), "old");
}

TEST_F(BookmarksCommandTest, WritesNothingWithoutABackup) {
  Touch({"a.mp3", "out.bm.bak/inside"});
  drives_.Write("out.bm", "old");
  EXPECT_EQ(Run({"titles", "out.bm", "a.mp3"}), 1);
  EXPECT_TRUE(Err().starts_with("qublet: out.bm.bak: ")) << Err();
  EXPECT_EQ(drives_.Read("out.bm"), "old");
}

TEST_F(BookmarksCommandTest, WritesNothingWhereAPathIsNotThere) {
  Touch({"a.mp3"});
  drives_.Write("out.bm", "old");
  EXPECT_EQ(Run({"titles", "out.bm", "a.mp3", "gone.mp3"}), 1);
  EXPECT_EQ(drives_.Read("out.bm"), "old");
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "out.bm.bak"));
}

TEST_F(BookmarksCommandTest, SaysWhyTheFileCouldNotBeWritten) {
  Touch({"a.mp3"});
  EXPECT_EQ(Run({"titles", "none/out.bm", "a.mp3"}), 1);
  EXPECT_TRUE(Err().starts_with("qublet: none/out.bm: ")) << Err();
  drives_.Write("out.bm", "old");
  files_->SetAttributes("c:\\out.bm", kReadOnly);
  EXPECT_EQ(Run({"titles", "out.bm", "a.mp3"}), 1);
  EXPECT_EQ(Err(), "qublet: out.bm: read-only\n");
  EXPECT_EQ(drives_.Read("out.bm"), "old");
  EXPECT_EQ(drives_.Read("out.bm.bak"), "old");
}

TEST_F(BookmarksCommandTest, NeverWritesIntoMusic) {
  Touch({"a.mp3", "b.MP3"});
  for (const char* name : {"a.mp3", "b.MP3", "c:\\new.ogg"}) {
    EXPECT_EQ(Run({"titles", name, "a.mp3"}), 2);
    EXPECT_EQ(Err(), std::string("qublet: bookmarks: ") + name + " is no bookmark file\n");
  }
  EXPECT_EQ(drives_.Read("a.mp3"), "abc");
}

TEST_F(BookmarksCommandTest, SaysWhatIsWrong) {
  Touch({"a.mp3"});
  for (const Arguments& arguments : std::vector<Arguments>{{},
                                                           {"odd"},
                                                           {"list", "more"},
                                                           {"list", "--odd"},
                                                           {"show"},
                                                           {"show", ""},
                                                           {"show", "a", "b"},
                                                           {"add"},
                                                           {"add", "Rock"},
                                                           {"add", "", "a.mp3"},
                                                           {"remove"},
                                                           {"remove", ""},
                                                           {"remove", "a", "b"},
                                                           {"titles"},
                                                           {"titles", "out.bm"},
                                                           {"titles", "", "a.mp3"}}) {
    EXPECT_EQ(Run(arguments), 2);
    EXPECT_TRUE(Err().starts_with("qublet: bookmarks: ")) << Err();
    EXPECT_EQ(Out(), "");
  }
  EXPECT_FALSE(Has("Default"));
}

TEST_F(BookmarksCommandTest, TakesANameThatLooksLikeAnOption) {
  Touch({"a.mp3"});
  EXPECT_EQ(Run({"add", "--", "-loud", "a.mp3"}), 0) << Err();
  EXPECT_EQ(Read("-loud"), "c:\\a.mp3\r\n");
}

TEST_F(BookmarksCommandTest, HelpNamesItsUses) {
  EXPECT_EQ(CliTestBase::Run({"help"}), 0);
  EXPECT_TRUE(Contains(Out(), "\n  bookmarks list | show CATEGORY | add CATEGORY PATH... | remove CATEGORY\n"));
  EXPECT_TRUE(Contains(Out(), "\n  bookmarks titles FILE PATH...\n"));
}

}  // namespace
}  // namespace qublet
