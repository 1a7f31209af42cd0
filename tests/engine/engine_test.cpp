#include "engine/engine.h"

#include <gtest/gtest.h>

#include "support/list_test_base.h"
#include "support/own_file.h"

namespace qublet {
namespace {

class NoWindow : public Session::Window {
 public:
  void ApplyQUBLETSettings() override { applied = true; }
  void CopyState(AppSettings& /*settings*/) override { copied = true; }
  ColumnWidths DefColumnWidths() const override { return {}; }
  ScreenSize Screen() const override { return {}; }
  bool Maximised() const override { return false; }
  void Relayout() override {}
  void EndUnsaved() override {}

  bool applied = false;
  bool copied = false;
};

class EngineTest : public ListTestBase {
 protected:
  EngineTest() {
    Touch({"a.mp3", "b.mp3"});
    std::filesystem::create_directory(drives_.C() / "program");
  }

  Engine engine_{services_, {"QUBLET2021", "c:\\program", ""}, ","};
};

TEST_F(EngineTest, WorksWithoutAWindow) {
  EXPECT_TRUE(engine_.items.AddStuff("c:\\a.mp3", true));
  engine_.list_commands.MEditSelInv_Click();
  EXPECT_TRUE(engine_.playlist_files.SaveTo("c:\\list.m3u", PlaylistFiles::LineForm::kFull));
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(EngineTest, FindsWhatCameWithTheProgramInItsOwnFolderFirst) {
  drives_.Write("program/ReadMe.txt", "here");
  drives_.Write("bin/ReadMe.txt", "there");
  drives_.Write("bin/QUBLET20.htd", "there");
  const Engine engine(services_, {"QUBLET2021", "c:\\program", "", "", {"c:\\bin"}}, ",");
  EXPECT_EQ(engine.CompanionFile("ReadMe.txt"), "c:\\program\\ReadMe.txt");
  EXPECT_EQ(engine.CompanionFile("QUBLET20.htd"), "c:\\bin\\QUBLET20.htd");
  EXPECT_EQ(engine.CompanionFile("QUBLET20.hlp"), "");
}

TEST_F(EngineTest, TellsTheWindowThatShowsIt) {
  NoWindow state;
  engine_.Show(view_, state);
  engine_.items.AddStuff("c:\\a.mp3", true);
  EXPECT_FALSE(view_.shown.empty());
}

TEST_F(EngineTest, BringsBackInASecondSessionWhatTheFirstOneStored) {
  NoWindow state;
  engine_.Show(view_, state);
  engine_.session.Begin();
  engine_.session.RestoreOrBeginAnew();
  EXPECT_TRUE(state.applied);
  engine_.items.AddStuff("c:\\b.mp3", true);
  engine_.settings.V = true;
  engine_.settings.SHUFFLEINT = 7;
  engine_.session.SetFormState(true);
  EXPECT_TRUE(state.copied);
  EXPECT_EQ(drives_.Read("program/last.m3u"), "c:\\b.mp3\r\n");

  Engine next(services_, {"QUBLET2021", "c:\\program", ""}, ",");
  next.Show(view_, state);
  next.session.Begin();
  next.session.RestoreOrBeginAnew();
  EXPECT_EQ(next.settings.SHUFFLEINT, 7);
}

TEST_F(EngineTest, KeepsItsListsForThisUserAlone) {
  std::filesystem::create_directory(drives_.C() / "own");
  NoWindow state;
  Engine engine(services_, {"QUBLET2021", "c:\\program", "", "c:\\own"}, ",");
  engine.Show(view_, state);
  engine.items.AddStuff("c:\\b.mp3", true);
  engine.recovery.Settle();
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "own/recovery-1.m3u"));
  engine.session.SetFormState(true);
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "program/last.m3u"));
}

TEST_F(EngineTest, NeitherReadsNorWritesALastListThatOthersMayHaveLinked) {
  drives_.Write("theirs.m3u", "c:\\a.mp3\r\n");
  std::filesystem::create_symlink("../theirs.m3u", drives_.C() / "program/last.m3u");
  std::filesystem::permissions(drives_.C() / "program", std::filesystem::perms::all);
  NoWindow state;
  engine_.Show(view_, state);
  engine_.session.RestoreLastList();
  EXPECT_EQ(engine_.document.ListView1.Count(), 0);
  engine_.items.AddStuff("c:\\b.mp3", true);
  engine_.session.SetFormState(true);
  EXPECT_EQ(drives_.Read("theirs.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(EngineTest, RemarksThatSettingsAreNotKeptAndWhy) {
  engine_.session.TellOfSettingsNotKept();
  EXPECT_EQ(feedback_.remarks, Collection());
  fakes_.store.refuses_to_save = true;
  engine_.session.TellOfSettingsNotKept();
  EXPECT_EQ(feedback_.remarks, Collection{"Settings aren't kept: read-only"});
}

}  // namespace
}  // namespace qublet
