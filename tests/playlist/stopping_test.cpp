#include "playlist/list_commands.h"
#include "playlist/playlist_files.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

// Three rows, the second marked, selected and focused, under a caption; and commands that the user stops on the way.
class StoppingTest : public ListTestBase {
 protected:
  StoppingTest() {
    Touch({"old/1.mp3", "old/2.mp3", "old/3.mp3", "m/a/4.mp3", "m/b/5.mp3", "n/6.mp3"});
    for (int i = 10; i < 60; ++i) drives_.Write("many/" + std::to_string(i) + ".mp3", "abc");
    drives_.Write("list.m3u", "c:\\m\\a\\4.mp3\r\nc:\\m\\b\\5.mp3\r\n");
    items_.AddStuff("c:\\old", false);
    Rows().SetSelected(2, true);
    Rows().SetIcon(2, RowIcon::kGreen);
    Rows().SetFocusedRow(2);
    document_.PlaylistChanged = false;
    document_.CurrentPlaylist = "c:\\old.m3u";
    feedback_.progress.clear();
    feedback_.activities.clear();
    view_.shown.clear();
  }

  void StopInBatch(std::size_t batch) { feedback_.stop_in_batch = batch; }
  void ExpectAllAsItWas() {
    EXPECT_TRUE(feedback_.stopped) << "it wasn't stopped at all";
    EXPECT_EQ(Names(), "1.mp3 2.mp3 3.mp3");
    EXPECT_EQ(Orders(), "1 2 3");
    EXPECT_EQ(Selection(), "-x-");
    EXPECT_EQ(Rows().At(2).icon, RowIcon::kGreen);
    EXPECT_EQ(Rows().FocusedRow(), 2);
    EXPECT_FALSE(document_.PlaylistChanged);
    EXPECT_EQ(document_.CurrentPlaylist, "c:\\old.m3u");
    EXPECT_TRUE(fakes_.dialogs.messages.empty());
    EXPECT_EQ(feedback_.waits, 0);
  }

  AppSettings settings_;
  PlaylistFiles playlist_files_{document_, items_, settings_, services_, view_};
  ListCommands commands_{document_, items_, settings_, services_, view_};
};

TEST_F(StoppingTest, EndsAWalkAndClearsItsPanel) {
  feedback_.stop_at = "\\a";
  EXPECT_EQ(items_.AddStuff("c:\\m", true).Reason(), "stopped");
  ExpectAllAsItWas();
  EXPECT_EQ(feedback_.activities.back(), "");
  EXPECT_EQ(feedback_.activities.at(1), "c:\\m\\a");
  EXPECT_EQ(std::ranges::count(feedback_.activities, "c:\\m\\b"), 0);
  EXPECT_TRUE(feedback_.progress.empty()) << "nothing is read any more";
}

TEST_F(StoppingTest, EndsABatchOfAFewFilesAndOneOfMany) {
  for (const char* folder : {"c:\\m", "c:\\many"}) {
    feedback_.stopped = false;
    StopInBatch(feedback_.progress.size() + 1);
    EXPECT_EQ(items_.AddStuff(folder, true).Reason(), "stopped");
    ExpectAllAsItWas();
    EXPECT_TRUE(feedback_.progress.back().ended);
  }
}

TEST_F(StoppingTest, EndsAnOpening) {
  StopInBatch(1);
  fakes_.dialogs.open_names = {"c:\\list.m3u"};
  playlist_files_.MFileOpen_Click();
  ExpectAllAsItWas();
  EXPECT_TRUE(document_.RecentFiles.empty());
}

TEST_F(StoppingTest, EndsAnImport) {
  StopInBatch(1);
  fakes_.dialogs.open_names = {"c:\\list.m3u"};
  playlist_files_.MFileImport_Click();
  ExpectAllAsItWas();
}

TEST_F(StoppingTest, EndsTheOpeningOfARecentFile) {
  StopInBatch(1);
  document_.RecentFiles = {"c:\\list.m3u"};
  playlist_files_.MFileRecent_Click(1);
  ExpectAllAsItWas();
}

TEST_F(StoppingTest, KeepsAChangedListThatTheUserDidNotWantToSave) {
  StopInBatch(1);
  document_.PlaylistChanged = true;
  fakes_.dialogs.open_names = {"c:\\list.m3u"};
  fakes_.dialogs.answers = {MessageAnswer::kNo};
  playlist_files_.MFileOpen_Click();
  EXPECT_EQ(Names(), "1.mp3 2.mp3 3.mp3");
  EXPECT_TRUE(document_.PlaylistChanged);
}

TEST_F(StoppingTest, EndsARefresh) {
  StopInBatch(1);
  items_.MViewRefresh_Click();
  ExpectAllAsItWas();
  EXPECT_EQ(view_.shown, (std::vector<std::string>{"hide", "show"}));
}

TEST_F(StoppingTest, TakesBackWhatEarlierFoldersOfTheSameCommandBrought) {
  items_.AddStuff("c:\\m", false);
  Rows().SelectWhere([](int index, const Row&) { return index >= 4; });
  document_.PlaylistChanged = false;
  feedback_.progress.clear();
  StopInBatch(2);
  commands_.MEditSelImpFol_Click();
  EXPECT_EQ(feedback_.progress.size(), 2U) << "the first folder was read";
  EXPECT_EQ(Names(), "1.mp3 2.mp3 3.mp3 4.mp3 5.mp3");
  EXPECT_EQ(Selection(), "---xx");
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(StoppingTest, EndsAReplacementWithoutAWord) {
  StopInBatch(1);
  fakes_.dialogs.open_names = {"c:\\list.m3u"};
  commands_.Mreloc_Click();
  ExpectAllAsItWas();
}

TEST_F(StoppingTest, HidesTheListWhileItIsReadAnew) {
  items_.MViewRefresh_Click();
  ASSERT_EQ(view_.shown.size(), 3U);
  EXPECT_EQ(view_.shown, (std::vector<std::string>{"hide", "show", "click"}));
  EXPECT_EQ(Rows().At(2).icon, RowIcon::kNormal);
}

}  // namespace
}  // namespace qublet
