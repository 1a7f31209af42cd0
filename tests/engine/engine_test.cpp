#include "engine/engine.h"

#include <gtest/gtest.h>

#include "support/list_test_base.h"

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

}  // namespace
}  // namespace qublet
