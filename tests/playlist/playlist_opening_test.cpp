#include <algorithm>

#include "playlist/playlist_files_test_base.h"

namespace qublet {
namespace {

Message RecentGone() {
  return {"Could not open the file, check that it hasnt been moved, renamed or deleted!", MessageIcon::kStop,
          MessageButtons::kOk};
}

using Caption = PlaylistFilesTest;
using OpenPlaylistFile = PlaylistFilesTest;
using ImportPlaylist = PlaylistFilesTest;
using RecentEntry = PlaylistFilesTest;
using NewPlaylist = PlaylistFilesTest;

TEST_F(Caption, IsTheTitleWithTheNameInBracketsAndNoBlank) {
  EXPECT_EQ(CaptionText("Title v2.1b", ""), "Title v2.1b");
  EXPECT_EQ(CaptionText("Title v2.1b", "c:\\m\\My List.m3u"), "Title v2.1b[My List.m3u]");
}

TEST_F(OpenPlaylistFile, EmptiesTheListOpensTheFileAndDeselects) {
  Add("d:\\4.mp3");
  document_.PlaylistChanged = false;
  document_.CurrentPlaylist = "d:\\old.m3u";
  view_.shown.clear();
  dialogs_.open_names.emplace_back("C:\\two.m3u");
  EXPECT_TRUE(playlist_files_.OpenPlaylistFile(false));
  EXPECT_EQ(Names(), "1.mp3 2.mp3");
  EXPECT_EQ(Selection(), "--");
  EXPECT_EQ(Orders(), "1 2");
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\two.m3u");
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\two.m3u"});
  EXPECT_EQ(view_.shown, (Shown{"caption", "recent", "click"}));
  EXPECT_EQ(dialogs_.open_requests.at(0).file_name, "");
  EXPECT_EQ(dialogs_.open_requests.at(0).filter, kFilter);
  EXPECT_EQ(dialogs_.open_requests.at(0).default_extension, "m3u");
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(OpenPlaylistFile, LeavesNothingToSave) {
  EXPECT_TRUE(Open("c:\\two.m3u"));
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(OpenPlaylistFile, ChangesNothingWhenTheDialogIsCancelled) {
  Add("c:\\m");
  playlist_files_.MFileOpen_Click();
  EXPECT_TRUE(dialogs_.messages.empty()) << "the user picks a file first and is asked about the old list after";
  EXPECT_EQ(Rows().Count(), 2);
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(OpenPlaylistFile, OffersToSaveTheOldListOnceAFileIsPicked) {
  Add("c:\\m");
  EXPECT_FALSE(Open("c:\\one.m3u")) << "the answer is Cancel";
  EXPECT_EQ(dialogs_.messages, Messages{SaveFirst()});
  EXPECT_EQ(Rows().Count(), 2);
  EXPECT_TRUE(document_.PlaylistChanged);

  dialogs_.answers = {MessageAnswer::kYes};
  EXPECT_FALSE(Open("c:\\one.m3u")) << "the save is cancelled";
  EXPECT_EQ(Rows().Count(), 2);

  dialogs_.answers = {MessageAnswer::kYes};
  dialogs_.save_names.emplace_back("c:\\saved.m3u");
  EXPECT_TRUE(Open("c:\\one.m3u"));
  EXPECT_EQ(drives_.Read("saved.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
  EXPECT_EQ(Names(), "1.mp3");

  Add("c:\\m");
  dialogs_.answers = {MessageAnswer::kNo};
  EXPECT_TRUE(Open("c:\\two.m3u"));
  EXPECT_EQ(Rows().Count(), 2);
  EXPECT_EQ(document_.RecentFiles, (Collection{"c:\\saved.m3u", "c:\\one.m3u", "c:\\two.m3u"}));
}

TEST_F(OpenPlaylistFile, LeavesAnEmptyListAndTheOldNameWhenAFileGivesNoRows) {
  Open("c:\\one.m3u");
  for (const char* path : {"c:\\none.m3u", "c:\\missing.m3u"}) {
    EXPECT_FALSE(Open(path));
    EXPECT_EQ(Rows().Count(), 0);
    EXPECT_EQ(document_.CurrentPlaylist, "c:\\one.m3u");
    EXPECT_FALSE(document_.PlaylistChanged);
  }
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\one.m3u"});
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(OpenPlaylistFile, LeavesTheOldestFirstAndAKnownFileInItsPlace) {
  Open("c:\\one.m3u");
  Open("c:\\two.m3u");
  Open("C:\\one.m3u");
  EXPECT_EQ(document_.RecentFiles, (Collection{"c:\\one.m3u", "c:\\two.m3u"}));
}

TEST_F(ImportPlaylist, AddsToTheListAndKeepsItsFile) {
  Open("c:\\one.m3u");
  view_.shown.clear();
  EXPECT_TRUE(Import("c:\\two.m3u"));
  EXPECT_EQ(Names(), "1.mp3 1.mp3 2.mp3");
  EXPECT_EQ(Selection(), "---");
  EXPECT_EQ(Orders(), "1 2 3");
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\one.m3u");
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\one.m3u"});
  EXPECT_TRUE(document_.PlaylistChanged);
  EXPECT_EQ(std::count(view_.shown.begin(), view_.shown.end(), "caption"), 0);
  EXPECT_TRUE(dialogs_.messages.empty());

  dialogs_.answers = {MessageAnswer::kYes};
  EXPECT_TRUE(Save());
  EXPECT_EQ(drives_.Read("one.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
}

TEST_F(ImportPlaylist, CountsAsAChangeThoughNoRowsCome) {
  Open("c:\\one.m3u");
  EXPECT_FALSE(Import("c:\\none.m3u"));
  EXPECT_TRUE(document_.PlaylistChanged);
  EXPECT_EQ(Names(), "1.mp3");
}

TEST_F(ImportPlaylist, ChangesNothingWhenTheDialogIsCancelled) {
  Open("c:\\one.m3u");
  EXPECT_FALSE(playlist_files_.OpenPlaylistFile(true));
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(Names(), "1.mp3");
}

TEST_F(ImportPlaylist, StartsTheDialogInItsOwnFolderIfThatIsThere) {
  const std::pair<const char*, const char*> cases[] = {
      {"c:\\m", "c:\\m*.m3u"}, {"  c:\\m\\ ", "c:\\m\\*.m3u"}, {"c:\\missing", ""}, {"", ""}, {"   ", ""}};
  for (const auto& [folder, expected] : cases) {
    settings_.Idir = folder;
    playlist_files_.OpenPlaylistFile(true);
    EXPECT_EQ(dialogs_.open_requests.back().file_name, expected) << folder;
  }
  settings_.Idir = "c:\\m";
  playlist_files_.OpenPlaylistFile(false);
  EXPECT_EQ(dialogs_.open_requests.back().file_name, "");
}

TEST_F(RecentEntry, OpensByItsPlaceInTheMenuAndLeavesTheRowsSelected) {
  document_.RecentFiles = {"c:\\two.m3u", "c:\\one.m3u"};
  playlist_files_.MFileRecent_Click(2);
  EXPECT_EQ(Names(), "1.mp3 2.mp3");
  EXPECT_EQ(Selection(), "xx");
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\two.m3u");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(std::count(view_.shown.begin(), view_.shown.end(), "caption"), 1);
  playlist_files_.MFileRecent_Click(1);
  EXPECT_EQ(Names(), "1.mp3");
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\one.m3u");
  EXPECT_EQ(document_.RecentFiles, (Collection{"c:\\two.m3u", "c:\\one.m3u"}));
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(RecentEntry, OffersToSaveFirst) {
  document_.RecentFiles = {"c:\\one.m3u"};
  Add("c:\\m");
  playlist_files_.MFileRecent_Click(1);
  EXPECT_EQ(dialogs_.messages, Messages{SaveFirst()});
  EXPECT_EQ(Rows().Count(), 2);
  dialogs_.answers = {MessageAnswer::kNo};
  playlist_files_.MFileRecent_Click(1);
  EXPECT_EQ(Rows().Count(), 1);
}

TEST_F(RecentEntry, SaysWhenItsFileIsGoneAndKeepsListAndEntry) {
  document_.RecentFiles = {"c:\\gone.m3u"};
  Add("c:\\m");
  document_.PlaylistChanged = false;
  playlist_files_.MFileRecent_Click(1);
  EXPECT_EQ(dialogs_.messages, Messages{RecentGone()});
  EXPECT_EQ(Rows().Count(), 2);
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\gone.m3u"});
}

TEST_F(RecentEntry, EmptiesTheListAndKeepsTheNameWhenItsFileGivesNoRows) {
  document_.RecentFiles = {"c:\\none.m3u"};
  Open("c:\\one.m3u");
  playlist_files_.MFileRecent_Click(2);
  EXPECT_EQ(Rows().Count(), 0);
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\one.m3u");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(RecentEntry, DoesNothingBeyondTheList) {
  Add("c:\\m");
  document_.PlaylistChanged = false;
  for (const int index : {-1, 0, 1, 20}) playlist_files_.MFileRecent_Click(index);
  EXPECT_EQ(Rows().Count(), 2);
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(NewPlaylist, EmptiesListNameAndFlag) {
  Open("c:\\two.m3u");
  view_.shown.clear();
  playlist_files_.MFileNew_Click();
  EXPECT_EQ(Rows().Count(), 0);
  EXPECT_EQ(document_.CurrentPlaylist, "");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(view_.shown, (Shown{"click", "caption"}));
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\two.m3u"});
}

TEST_F(NewPlaylist, OffersToSaveFirst) {
  Add("c:\\m");
  playlist_files_.MFileNew_Click();
  EXPECT_EQ(dialogs_.messages, Messages{SaveFirst()});
  EXPECT_EQ(Rows().Count(), 2);
  dialogs_.answers = {MessageAnswer::kNo};
  playlist_files_.MFileNew_Click();
  EXPECT_EQ(Rows().Count(), 0);
  EXPECT_FALSE(document_.PlaylistChanged);
}

Message LeftOut(int lines) {
  return {"The list ends at 32,767 items: " + std::to_string(lines) + " lines of this file were left out.",
          MessageIcon::kExclamation, MessageButtons::kOk};
}

TEST_F(OpenPlaylistFile, SaysHowManyLinesWereLeftOutAndForgetsTheName) {
  drives_.Write("long.m3u", PlaylistOfMissingFiles(RowStore::MaxRows + 3));
  EXPECT_FALSE(Open("c:\\long.m3u"));
  EXPECT_EQ(dialogs_.messages, Messages{LeftOut(3)});
  EXPECT_EQ(Rows().Count(), RowStore::MaxRows);
  EXPECT_EQ(document_.CurrentPlaylist, "");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(view_.shown.back(), "caption");
  EXPECT_EQ(document_.RecentFiles, Collection{"c:\\long.m3u"});
}

TEST_F(OpenPlaylistFile, SaysNothingWhereEveryLineFound) {
  drives_.Write("long.m3u", PlaylistOfMissingFiles(RowStore::MaxRows));
  EXPECT_TRUE(Open("c:\\long.m3u"));
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(RecentEntry, SaysHowManyLinesWereLeftOutAndForgetsTheName) {
  drives_.Write("long.m3u", PlaylistOfMissingFiles(RowStore::MaxRows + 1));
  document_.RecentFiles = {"c:\\long.m3u"};
  playlist_files_.MFileRecent_Click(1);
  EXPECT_EQ(dialogs_.messages, Messages{LeftOut(1)});
  EXPECT_EQ(document_.CurrentPlaylist, "");
  EXPECT_FALSE(document_.PlaylistChanged);
  EXPECT_EQ(Rows().Count(), RowStore::MaxRows);
}

TEST_F(ImportPlaylist, SaysNothingOfLinesThatWereLeftOut) {
  Open("c:\\one.m3u");
  drives_.Write("long.m3u", PlaylistOfMissingFiles(RowStore::MaxRows));
  Import("c:\\long.m3u");
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(document_.CurrentPlaylist, "c:\\one.m3u");
}

}  // namespace
}  // namespace qublet
