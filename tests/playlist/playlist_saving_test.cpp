#include "playlist/playlist_files_test_base.h"

namespace qublet {
namespace {

Message Replace(const std::string& path) {
  return {path + " exists, do you want to replace it?", MessageIcon::kQuestion, MessageButtons::kYesNoCancel};
}
Message NoCommonRoot() {
  return {
      "This playlist cannot be saved to a relative directory because it points to files at different Root locations "
      "or items that are pointed to incorrectly.",
      MessageIcon::kInformation, MessageButtons::kOk};
}
Message NotWritten() {
  return {"Unable to write to the specified file.", MessageIcon::kStop, MessageButtons::kOk};
}

using SavePlaylistFile = PlaylistFilesTest;
using PromptSaveFirst = PlaylistFilesTest;
using CheckExists = PlaylistFilesTest;

TEST_F(SavePlaylistFile, DoesNothingForAnEmptyList) {
  document_.CurrentPlaylist = "c:\\one.m3u";
  document_.PlaylistChanged = true;
  EXPECT_FALSE(Save());
  EXPECT_FALSE(SaveAs("c:\\new.m3u"));
  EXPECT_FALSE(SaveAs("c:\\new.m3u", true));
  EXPECT_TRUE(dialogs_.save_requests.empty());
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(drives_.Read("one.m3u"), "c:\\m\\a\\1.mp3\r\n");
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(SavePlaylistFile, AsksForANameWhenThereIsNone) {
  Add("c:\\m");
  dialogs_.save_names.emplace_back("C:\\x\\List.m3u");
  view_.shown.clear();
  EXPECT_TRUE(Save());
  ASSERT_EQ(dialogs_.save_requests.size(), 1U);
  EXPECT_EQ(dialogs_.save_requests[0].filter, kFilter);
  EXPECT_EQ(dialogs_.save_requests[0].default_extension, "m3u");
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(drives_.Read("x/List.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\x\\List.m3u");
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\x\\List.m3u"});
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(view_.shown, (Shown{"caption", "recent"}));
  EXPECT_EQ(feedback_.activities.back(), "");
  EXPECT_EQ(*(feedback_.activities.end() - 2), "Saving file: c:\\x\\List.m3u");
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(SavePlaylistFile, TakesTheOpenFileWithoutADialogButAsksToReplaceItEachTime) {
  Open("c:\\one.m3u");
  Add("d:\\4.mp3");
  dialogs_.answers = {MessageAnswer::kYes, MessageAnswer::kNo, MessageAnswer::kCancel};
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("one.m3u"), "c:\\m\\a\\1.mp3\r\nd:\\4.mp3\r\n");
  EXPECT_FALSE(document_.PlaylistChanged);
  Add("c:\\x\\3.mp3");
  EXPECT_FALSE(Save());
  EXPECT_FALSE(Save());
  EXPECT_EQ(dialogs_.messages, Messages(3, Replace("c:\\one.m3u")));
  EXPECT_TRUE(dialogs_.save_requests.empty());
  EXPECT_EQ(drives_.Read("one.m3u"), "c:\\m\\a\\1.mp3\r\nd:\\4.mp3\r\n");
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(SavePlaylistFile, WritesAgainWhatWasDeletedWithoutAQuestion) {
  Open("c:\\one.m3u");
  std::filesystem::remove(drives_.C() / "one.m3u");
  EXPECT_TRUE(Save());
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(drives_.Read("one.m3u"), "c:\\m\\a\\1.mp3\r\n");
}

TEST_F(SavePlaylistFile, AsksOnceForASaveAsOntoTheOpenFile) {
  Open("c:\\one.m3u");
  dialogs_.answers = {MessageAnswer::kYes};
  EXPECT_TRUE(SaveAs("C:\\one.m3u"));
  EXPECT_EQ(dialogs_.messages, Messages{Replace("c:\\one.m3u")});
}

TEST_F(SavePlaylistFile, EndsSilentlyWhenTheDialogIsCancelled) {
  Add("c:\\m");
  EXPECT_FALSE(Save());
  EXPECT_FALSE(playlist_files_.SavePlaylistFile(true, false));
  EXPECT_FALSE(playlist_files_.SavePlaylistFile(true, true));
  EXPECT_EQ(dialogs_.save_requests.size(), 3U);
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(document_.CurrentPlaylist, "");
  EXPECT_TRUE(document_.PlaylistChanged);
  EXPECT_TRUE(document_.RecentFiles.empty());
}

TEST_F(SavePlaylistFile, ProposesANameFromTheCommonFolderInTheCurrentFolder) {
  Add("c:\\m");
  files_->SetCurrentFolder("c:\\x");
  EXPECT_EQ(Proposed(false, false), "c:\\x\\m.m3u");
  settings_.DefSName = "  %0 of %1 %DATE %TIME ";
  EXPECT_EQ(Proposed(true, false), "c:\\x\\m of c 03-09-2004 07-05-01.m3u");
  EXPECT_EQ(settings_.DefSName, "  %0 of %1 %DATE %TIME ");
  settings_.DefSName = "%9";
  EXPECT_EQ(Proposed(false, false), "c:\\x\\") << "nothing usable is left of the format";
  files_->SetCurrentFolder("c:\\");
  settings_.DefSName = "%0";
  EXPECT_EQ(Proposed(false, false), "c:\\m.m3u");
}

TEST_F(SavePlaylistFile, ProposesPlaylistM3uForItemsOnTwoDrives) {
  Add("c:\\m");
  Add("d:\\4.mp3");
  files_->SetCurrentFolder("c:\\x");
  EXPECT_EQ(Proposed(false, false), "c:\\x\\playlist.m3u");
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(SavePlaylistFile, ProposesTheOpenFileForASaveAs) {
  Open("c:\\one.m3u");
  EXPECT_EQ(Proposed(true, false), "c:\\one.m3u");
}

TEST_F(SavePlaylistFile, ProposesTheCommonFolderForARelativeSave) {
  Open("c:\\two.m3u");
  EXPECT_EQ(Proposed(true, true), "c:\\m\\m.m3u");
  settings_.DefSName = "%9";
  EXPECT_EQ(Proposed(true, true), "c:\\m\\");
}

TEST_F(SavePlaylistFile, WritesPathsRelativeToThePlaylistsOwnFolder) {
  Add("c:\\m");
  EXPECT_TRUE(SaveAs("c:\\m\\m.m3u", true));
  EXPECT_EQ(drives_.Read("m/m.m3u"), "a\\1.mp3\r\nb\\2.mp3\r\n");
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\m\\m.m3u");
  EXPECT_TRUE(dialogs_.messages.empty());

  files_->SetCurrentFolder("d:\\");
  EXPECT_TRUE(Open("c:\\m\\m.m3u"));
  EXPECT_EQ(Paths(), (Collection{"c:\\m\\a\\1.mp3", "c:\\m\\b\\2.mp3"}));
}

TEST_F(SavePlaylistFile, WritesFullPathsForWhatIsNotBelowThePlaylistsFolder) {
  Add("c:\\m");
  EXPECT_TRUE(SaveAs("c:\\m\\a\\a.m3u", true));
  EXPECT_EQ(drives_.Read("m/a/a.m3u"), "1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
  EXPECT_TRUE(SaveAs("c:\\x\\x.m3u", true));
  EXPECT_EQ(drives_.Read("x/x.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
}

TEST_F(SavePlaylistFile, ForgetsARelativeSaveAtTheNextPlainOne) {
  Add("c:\\m");
  EXPECT_TRUE(SaveAs("c:\\m\\m.m3u", true));
  dialogs_.answers = {MessageAnswer::kYes};
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("m/m.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
}

TEST_F(SavePlaylistFile, SaysWhenItemsOnTwoDrivesCanNotBeRelativeAndSavesThemInFull) {
  Add("c:\\m\\a\\1.mp3");
  Add("d:\\4.mp3");
  files_->SetCurrentFolder("c:\\x");
  EXPECT_TRUE(SaveAs("c:\\m\\a\\list.m3u", true));
  EXPECT_EQ(dialogs_.messages, Messages{NoCommonRoot()});
  EXPECT_EQ(dialogs_.save_requests.at(0).file_name, "c:\\x\\playlist.m3u");
  EXPECT_EQ(drives_.Read("m/a/list.m3u"), "c:\\m\\a\\1.mp3\r\nd:\\4.mp3\r\n");
}

TEST_F(SavePlaylistFile, SaysWhenTheFileCanNotBeWrittenAndKeepsAllAsItWas) {
  Open("c:\\one.m3u");
  Add("d:\\4.mp3");
  MakeReadOnly("two.m3u");
  view_.shown.clear();
  dialogs_.answers = {MessageAnswer::kYes};
  EXPECT_FALSE(SaveAs("c:\\two.m3u"));
  EXPECT_EQ(dialogs_.messages, (Messages{Replace("c:\\two.m3u"), NotWritten()}));
  EXPECT_EQ(drives_.Read("two.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\one.m3u");
  EXPECT_TRUE(document_.PlaylistChanged);
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\one.m3u"});
  EXPECT_EQ(Names(), "1.mp3 4.mp3");
  EXPECT_TRUE(view_.shown.empty());
  EXPECT_EQ(feedback_.activities.back(), "");
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(SavePlaylistFile, SaysWhenTheFolderIsNotThereOrTheNameIsAFolders) {
  Add("c:\\m");
  for (const char* target : {"c:\\missing\\list.m3u", "c:\\m", "c:\\"}) {
    dialogs_.messages.clear();
    EXPECT_FALSE(SaveAs(target));
    EXPECT_EQ(dialogs_.messages, Messages{NotWritten()}) << target;
  }
}

TEST_F(SavePlaylistFile, WritesMissingItemsLikeAnyOther) {
  drives_.Write("gone.m3u", "c:\\gone.mp3\r\nq:\\Gone.mp3\r\nc:\\m\\a\\1.mp3\r\n");
  Open("c:\\gone.m3u");
  EXPECT_TRUE(SaveAs("c:\\new.m3u"));
  EXPECT_EQ(drives_.Read("new.m3u"), "c:\\gone.mp3\r\nq:\\Gone.mp3\r\nc:\\m\\a\\1.mp3\r\n");
}

TEST_F(SavePlaylistFile, LosesCommentsOfOtherPrograms) {
  drives_.Write("other.m3u", "#EXTM3U\r\n#EXTINF:1,x\r\nC:\\m\\a\\1.mp3\r\n");
  Open("c:\\other.m3u");
  EXPECT_EQ(Rows().Count(), 1);
  dialogs_.answers = {MessageAnswer::kYes};
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("other.m3u"), "c:\\m\\a\\1.mp3\r\n");
}

TEST_F(SavePlaylistFile, WritesM3u8AndOpensItAgain) {
  Add("c:\\m");
  EXPECT_TRUE(SaveAs("c:\\m\\m.m3u8", true));
  EXPECT_EQ(drives_.Read("m/m.m3u8"), "a/1.mp3\nb/2.mp3\n");
  EXPECT_TRUE(Open("c:\\m\\m.m3u8"));
  EXPECT_EQ(Paths(), (Collection{"c:\\m\\a\\1.mp3", "c:\\m\\b\\2.mp3"}));
}

TEST_F(PromptSaveFirst, ProceedsWithoutAQuestionWhenThereIsNothingToSave) {
  EXPECT_TRUE(playlist_files_.PromptSaveFirst());
  document_.PlaylistChanged = true;
  EXPECT_TRUE(playlist_files_.PromptSaveFirst()) << "a changed empty list";
  Add("c:\\m");
  document_.PlaylistChanged = false;
  EXPECT_TRUE(playlist_files_.PromptSaveFirst()) << "an unchanged list";
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(PromptSaveFirst, ProceedsAfterNoOrAGoodSaveOnly) {
  Open("c:\\one.m3u");
  Add("c:\\x");
  dialogs_.answers = {MessageAnswer::kNo};
  EXPECT_TRUE(playlist_files_.PromptSaveFirst());
  dialogs_.answers = {MessageAnswer::kCancel};
  EXPECT_FALSE(playlist_files_.PromptSaveFirst());
  dialogs_.answers = {MessageAnswer::kYes, MessageAnswer::kNo};
  EXPECT_FALSE(playlist_files_.PromptSaveFirst()) << "the replacement is refused";
  EXPECT_TRUE(document_.PlaylistChanged);
  MakeReadOnly("one.m3u");
  dialogs_.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  EXPECT_FALSE(playlist_files_.PromptSaveFirst()) << "the file can't be written";
  std::filesystem::permissions(drives_.C() / "one.m3u", std::filesystem::perms::owner_all);
  dialogs_.messages.clear();
  dialogs_.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  EXPECT_TRUE(playlist_files_.PromptSaveFirst());
  EXPECT_EQ(dialogs_.messages, (Messages{SaveFirst(), Replace("c:\\one.m3u")}));
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(CheckExists, AsksOnlyForAFileThatIsThere) {
  Touch({".hidden.m3u"});
  for (const char* path : {"c:\\missing.m3u", "c:\\missing\\a.m3u", "c:\\m"}) {
    EXPECT_FALSE(playlist_files_.CheckExists(path)) << path;
  }
  EXPECT_TRUE(dialogs_.messages.empty());
  dialogs_.answers = {MessageAnswer::kYes, MessageAnswer::kNo, MessageAnswer::kCancel, MessageAnswer::kYes};
  EXPECT_FALSE(playlist_files_.CheckExists("c:\\one.m3u"));
  EXPECT_TRUE(playlist_files_.CheckExists("c:\\one.m3u"));
  EXPECT_TRUE(playlist_files_.CheckExists("c:\\one.m3u"));
  EXPECT_FALSE(playlist_files_.CheckExists("c:\\.hidden.m3u"));
  EXPECT_EQ(dialogs_.messages, (Messages{Replace("c:\\one.m3u"), Replace("c:\\one.m3u"), Replace("c:\\one.m3u"),
                                         Replace("c:\\.hidden.m3u")}));
}

TEST_F(CheckExists, RefusesInSilenceWhatCanNotBeAskedFor) {
  EXPECT_TRUE(playlist_files_.CheckExists("q:\\a.m3u")) << "there is no such drive";
  EXPECT_TRUE(playlist_files_.CheckExists(""));
  EXPECT_TRUE(dialogs_.messages.empty());
  Add("c:\\m");
  EXPECT_FALSE(SaveAs("q:\\a.m3u"));
  EXPECT_TRUE(dialogs_.messages.empty());
}

}  // namespace
}  // namespace qublet
