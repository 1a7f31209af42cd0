#include "player/preview.h"

#include <gtest/gtest.h>

#include "support/fake_player.h"
#include "support/fake_services.h"
#include "support/own_file.h"
#include "support/recorders.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

using Message = ScriptedDialogs::Message;

class PreviewTest : public testing::Test {
 protected:
  PreviewTest() {
    std::filesystem::create_directory(drives_.C() / "program");
    std::filesystem::create_directory(drives_.D() / "handover");
  }

  // A row for each path, selected where `selected` has an "x"; the files are made unless the name begins with "gone".
  void Rows(const Collection& paths, const std::string& selected) {
    for (std::size_t i = 0; i < paths.size(); ++i) {
      const std::string name = GetName(paths[i]);
      if (!name.starts_with("gone")) TemporaryDrives::WriteAt(files_->ToNative(paths[i]), "abc");
      std::vector<Row> row(1);
      row[0].cells[kFileName] = name;
      row[0].cells[kPath] = paths[i].substr(0, paths[i].size() - name.size());
      row[0].selected = selected[i] == 'x';
      document_.ListView1.Insert(document_.ListView1.Count() + 1, std::move(row));
    }
  }
  static std::string GetName(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

  // Plays and gives the mode afterwards.
  std::int16_t Play(std::int16_t mode) {
    preview_.PrevM3U(mode);
    return mode;
  }

  std::string Played() const { return drives_.Read("program/tmp.m3u"); }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  Document document_;
  RecordingFeedback feedback_;
  MainView view_;
  FakeServices fakes_;
  ScriptedShell& shell_ = fakes_.shell;
  ScriptedDialogs& dialogs_ = fakes_.dialogs;
  Preview preview_{document_, fakes_.Over(*files_, feedback_), "c:\\program"};
};

TEST_F(PreviewTest, DoesNothingForAnEmptyList) {
  for (const PreviewMode mode : {kPlayList, kPlaySelected, kPlayFolder, kPlayFrom}) EXPECT_EQ(Play(mode), mode);
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "program/tmp.m3u"));
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_TRUE(shell_.opened.empty());
}

TEST_F(PreviewTest, PlaysAllRowsInTheirOrder) {
  Rows({"c:\\b.mp3", "d:\\a.ogg", "c:\\b.mp3"}, "-x-");
  EXPECT_EQ(Play(kPlayList), kPlayList);
  EXPECT_EQ(Played(), "c:\\b.mp3\r\nd:\\a.ogg\r\nc:\\b.mp3\r\n");
  EXPECT_EQ(shell_.opened, Collection{"c:\\program\\tmp.m3u"});
}

TEST_F(PreviewTest, PlaysTheSelectedRows) {
  Rows({"c:\\1.mp3", "c:\\2.mp3", "c:\\3.mp3"}, "x-x");
  EXPECT_EQ(Play(kPlaySelected), kPlaySelected);
  EXPECT_EQ(Played(), "c:\\1.mp3\r\nc:\\3.mp3\r\n");
}

TEST_F(PreviewTest, PlaysTheWholeListWhenNothingIsSelected) {
  Rows({"c:\\1.mp3", "c:\\2.mp3"}, "--");
  for (const std::int16_t mode : {kPlaySelected, kPlayFolder, kPlayFrom}) {
    EXPECT_EQ(Play(mode), kPlayList);
    EXPECT_EQ(Played(), "c:\\1.mp3\r\nc:\\2.mp3\r\n");
    std::filesystem::remove(drives_.C() / "program/tmp.m3u");
  }
}

TEST_F(PreviewTest, PlaysTheFoldersOfTheSelectedRowsOnceEachByKindOfFile) {
  Rows({"c:\\b\\2.mp3", "c:\\a\\1.mp3", "c:\\b\\3.wav"}, "xxx");
  for (const char* more : {"b/also here.mp3", "b/cover.jpg", "b/0.wma", "b/sub/deep.mp3"}) drives_.Write(more, "abc");
  EXPECT_EQ(Play(kPlayFolder), kPlayFolder);
  EXPECT_EQ(Played(), "c:\\b\\2.mp3\r\nc:\\b\\also here.mp3\r\nc:\\b\\3.wav\r\nc:\\b\\0.wma\r\nc:\\a\\1.mp3\r\n");
}

TEST_F(PreviewTest, TellsFoldersApartByCase) {
  Rows({"c:\\a\\1.mp3", "c:\\A\\2.mp3"}, "xx");
  Play(kPlayFolder);
  EXPECT_EQ(Played(), "c:\\a\\1.mp3\r\nc:\\A\\2.mp3\r\n");
}

TEST_F(PreviewTest, PlaysFromTheFirstSelectedRow) {
  Collection paths;
  for (int i = 1; i <= 8; ++i) paths.push_back("c:\\" + std::to_string(i) + ".mp3");
  Rows(paths, "--x---x-");
  EXPECT_EQ(Play(kPlayFrom), kPlayFrom);
  EXPECT_EQ(Played(), "c:\\3.mp3\r\nc:\\4.mp3\r\nc:\\5.mp3\r\nc:\\6.mp3\r\nc:\\7.mp3\r\nc:\\8.mp3\r\n");
}

TEST_F(PreviewTest, LeavesOutMissingFilesWithoutAWord) {
  Rows({"c:\\gone.mp3", "c:\\2.mp3"}, "xx");
  Play(kPlaySelected);
  EXPECT_EQ(Played(), "c:\\2.mp3\r\n");
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(PreviewTest, SaysWhenAllFilesAreMissing) {
  drives_.Write("program/tmp.m3u", "before");
  Rows({"c:\\gone.mp3", "c:\\gone too.mp3"}, "xx");
  for (const std::int16_t mode : {kPlayList, kPlaySelected, kPlayFrom}) {
    Play(mode);
    EXPECT_EQ(dialogs_.messages,
              (std::vector{Message{"You cannot preview the item(s) because they are pointed to incorrectly.\r"
                                   "Use 'Purge Playlist Entries' to remove or relocate the missing items..",
                                   MessageIcon::kExclamation, MessageButtons::kOk}}));
    dialogs_.messages.clear();
  }
  EXPECT_EQ(Played(), "before");
  EXPECT_TRUE(shell_.opened.empty());
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(PreviewTest, ReplacesTheTemporaryPlaylistWhole) {
  drives_.Write("program/tmp.m3u", "c:\\much longer than before.mp3\r\nc:\\more.mp3\r\n");
  Rows({"c:\\1.mp3"}, "x");
  Play(kPlaySelected);
  EXPECT_EQ(Played(), "c:\\1.mp3\r\n");
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "program/tmp.m3u"));
}

TEST_F(PreviewTest, WritesNoPlaylistThroughALinkThatOthersMayHaveMade) {
  drives_.Write("home/.profile", "export A=1");
  std::filesystem::create_symlink("../home/.profile", drives_.C() / "program/tmp.m3u");
  std::filesystem::permissions(drives_.C() / "program", std::filesystem::perms::all);
  Rows({"c:\\1.mp3"}, "x");
  Play(kPlaySelected);
  EXPECT_EQ(drives_.Read("home/.profile"), "export A=1");
}

TEST_F(PreviewTest, HandsATwinInTheSystemsOwnFormToPlayersThatNeedIt) {
  shell_.folder = "d:\\handover";
  Rows({"c:\\m\\\u0414\u0430 & \u00E9.mp3", "d:\\1.mp3"}, "--");
  Play(kPlayList);
  EXPECT_EQ(shell_.opened, Collection{"d:\\handover\\tmp.m3u8"});
  EXPECT_EQ(TemporaryDrives::ReadAt(drives_.D() / "handover/tmp.m3u8"),
            (drives_.C() / "m/\u0414\u0430 & \u00E9.mp3").string() + "\n" + (drives_.D() / "1.mp3").string() + "\n");
  EXPECT_TRUE(IsForThisUserAlone(drives_.D() / "handover/tmp.m3u8"));
  EXPECT_EQ(Played(), "c:\\m\\\u0414\u0430 & \u00E9.mp3\r\nd:\\1.mp3\r\n");
}

TEST_F(PreviewTest, OpensTheFilesOneByOneWhenThePlaylistCannotBeWritten) {
  std::filesystem::remove(drives_.C() / "program");
  Rows({"c:\\2.mp3", "c:\\gone.mp3", "c:\\1.mp3"}, "xxx");
  Play(kPlaySelected);
  EXPECT_EQ(shell_.opened, (Collection{"c:\\2.mp3", "c:\\1.mp3"}));
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(PreviewTest, HandsOverItsOwnPlaylistWhenTheTwinCannotBeWritten) {
  Rows({"c:\\2.mp3", "c:\\1.mp3"}, "--");
  shell_.folder = "d:\\nowhere";
  Play(kPlayList);
  shell_.refuses = true;
  Play(kPlayList);
  EXPECT_EQ(shell_.opened, (Collection{"c:\\program\\tmp.m3u", "c:\\program\\tmp.m3u"}));
}

TEST_F(PreviewTest, TellsWhetherAProgramWasStarted) {
  EXPECT_FALSE(preview_.Play(kPlayList)) << "an empty list";
  Rows({"c:\\1.mp3"}, "-");
  EXPECT_TRUE(preview_.Play(kPlayList));
  shell_.opens = false;
  EXPECT_FALSE(preview_.Play(kPlayList));
  std::filesystem::remove_all(drives_.C() / "program");
  EXPECT_FALSE(preview_.Play(kPlayList));
  shell_.opens = true;
  EXPECT_TRUE(preview_.Play(kPlayList)) << "one by one";
}

TEST_F(PreviewTest, ShowsTheWaitCursorMeanwhile) {
  Rows({"c:\\1.mp3"}, "-");
  Play(kPlayList);
  EXPECT_GE(feedback_.most_waits, 1);
  EXPECT_EQ(feedback_.waits, 0);
}

}  // namespace
}  // namespace qublet
