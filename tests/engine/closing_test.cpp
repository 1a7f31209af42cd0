#include "engine/closing.h"

#include <gtest/gtest.h>

#include <functional>

#include "engine/engine.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

class NoWindow : public Session::Window {
 public:
  void ApplyQUBLETSettings() override {}
  void CopyState(AppSettings& settings) override { settings.W = 1234; }
  ColumnWidths DefColumnWidths() const override { return {}; }
  ScreenSize Screen() const override { return {20'000, 20'000}; }
  bool Maximised() const override { return false; }
  void Relayout() override {}
  void EndUnsaved() override {}
};

// A feedback that says whether a command runs.
class Work : public Feedback {
 public:
  bool Busy() const override { return busy; }
  bool busy = false;
};

class ClosingTest : public ListTestBase {
 protected:
  ClosingTest() {
    Touch({"a.mp3", "b.mp3"});
    for (const char* folder : {"program", "own"}) std::filesystem::create_directory(drives_.C() / folder);
    StartAnew();
    engine_->items.AddStuff("c:\\a.mp3", false);
  }

  void StartAnew() {
    engine_.reset();
    engine_ = std::make_unique<Engine>(fakes_.Over(*files_, work_),
                                       Session::Places{"QUBLET2021", "c:\\program", "", "c:\\own"}, ",");
    engine_->Show(view_, window_);
    engine_->session.Begin();
    engine_->session.RestoreOrBeginAnew();
  }
  void RestoreLastList(bool recovered) {
    StartAnew();
    EXPECT_EQ(engine_->session.RestoreLastList(), recovered);
    engine_->document.PlaylistChanged = false;
  }
  void SetAge(const char* name, int age) const {
    std::filesystem::last_write_time(drives_.C() / name,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::seconds(age));
  }

  std::string LastList() const { return drives_.Read("program/last.m3u"); }
  std::string Kept() const { return drives_.Read("own/recovery-1.m3u"); }
  std::string StoredWidth() const { return fakes_.store.GetSetting("QUBLET2021", "PS", "W"); }

  Work work_;
  NoWindow window_;
  std::unique_ptr<Engine> engine_;
};

TEST_F(ClosingTest, ARefusalStoresNothing) {
  const int saves = fakes_.store.saves;
  fakes_.dialogs.answers = {MessageAnswer::kCancel};
  engine_->closing.KeepList();
  EXPECT_FALSE(engine_->closing.Ask());
  EXPECT_EQ(LastList(), "");
  EXPECT_EQ(fakes_.store.saves, saves);
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
}

TEST_F(ClosingTest, NoStoresTheLastListAndEndsTheRecoveryList) {
  engine_->recovery.Settle();
  fakes_.dialogs.answers = {MessageAnswer::kNo};
  EXPECT_TRUE(engine_->closing.Ask());
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
  EXPECT_EQ(Kept(), "");
}

TEST_F(ClosingTest, NoEndsTheRecoveryListAlsoWhereNoListIsStored) {
  engine_->settings.V = false;
  fakes_.store.SaveSetting("QUBLET2021", "SSE", "V", "0");
  StartAnew();
  engine_->items.AddStuff("c:\\a.mp3", false);
  engine_->recovery.Settle();
  fakes_.dialogs.answers = {MessageAnswer::kNo};
  EXPECT_TRUE(engine_->closing.Ask());
  EXPECT_EQ(LastList(), "");
  EXPECT_EQ(Kept(), "");
}

TEST_F(ClosingTest, YesSavesAndEndsTheRecoveryList) {
  engine_->recovery.Settle();
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  fakes_.dialogs.save_names.emplace_back("c:\\list.m3u");
  EXPECT_TRUE(engine_->closing.Ask());
  EXPECT_EQ(drives_.Read("list.m3u"), "c:\\a.mp3\r\n");
  EXPECT_EQ(Kept(), "");
}

TEST_F(ClosingTest, ASaveThatFailsCountsAsARefusal) {
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  fakes_.dialogs.save_names.emplace_back("c:\\gone\\list.m3u");
  engine_->closing.KeepList();
  EXPECT_FALSE(engine_->closing.Ask());
  EXPECT_EQ(LastList(), "");
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
}

TEST_F(ClosingTest, UnaskedItStoresAllThatClosingStores) {
  engine_->closing.StoreUnasked();
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
  EXPECT_EQ(StoredWidth(), "1234");
  EXPECT_EQ(Kept(), "");
}

TEST_F(ClosingTest, UnaskedTheRecoveryListStaysWhereNoLastListCanBeWritten) {
  std::filesystem::remove_all(drives_.C() / "program");
  engine_->closing.StoreUnasked();
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  RestoreLastList(true);
  EXPECT_EQ(NamesOf(engine_->document.ListView1), "a.mp3");
}

TEST_F(ClosingTest, AListThatIsBeingReadAnewIsNotTakenForAnEmptiedOne) {
  engine_->recovery.Settle();
  engine_->document.ListView1.Clear();
  work_.busy = true;
  engine_->closing.StoreUnasked();
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  work_.busy = false;
  engine_->closing.StoreUnasked();
  EXPECT_EQ(Kept(), "");
}

TEST_F(ClosingTest, TheNextStartTakesTheNewerOfTheTwoLists) {
  drives_.Write("program/last.m3u", "c:\\b.mp3\r\n");
  engine_->recovery.Settle();
  SetAge("program/last.m3u", 60);
  RestoreLastList(true);
  EXPECT_EQ(NamesOf(engine_->document.ListView1), "a.mp3");
  EXPECT_FALSE(engine_->document.PlaylistChanged);
  EXPECT_EQ(engine_->document.CurrentPlaylist, "");
  SetAge("own/recovery-1.m3u", 120);
  RestoreLastList(false);
  EXPECT_EQ(NamesOf(engine_->document.ListView1), "b.mp3");
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n") << "the older one stays";
}

TEST_F(ClosingTest, AListInUseIsLeftToItsOwner) {
  drives_.Write("program/last.m3u", "c:\\b.mp3\r\n");
  SetAge("program/last.m3u", 60);
  engine_->recovery.Settle();
  const std::unique_ptr<Engine> owner = std::move(engine_);
  RestoreLastList(false);
  EXPECT_EQ(NamesOf(engine_->document.ListView1), "b.mp3");
  engine_->closing.StoreUnasked();
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
}

TEST_F(ClosingTest, ARecoveredListAsksNothingAndGoesWithTheExitThatStoredIt) {
  engine_->recovery.Settle();
  RestoreLastList(true);
  EXPECT_TRUE(engine_->closing.Ask());
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
  EXPECT_EQ(Kept(), "");
}

TEST_F(ClosingTest, ARecoveredListStaysAfterAnExitThatStoredNoList) {
  engine_->recovery.Settle();
  fakes_.store.SaveSetting("QUBLET2021", "SSE", "V", "0");
  RestoreLastList(true);
  EXPECT_TRUE(engine_->closing.Ask());
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  RestoreLastList(true);
}

TEST_F(ClosingTest, ARecoveredListGoesWhenItIsSavedOrEmptied) {
  PlaylistFiles* files = nullptr;
  const std::function<void()> ways[] = {
      [&] { files->MFileNew_Click(); },
      [&] { EXPECT_TRUE(files->SaveTo("c:\\saved.m3u", PlaylistFiles::LineForm::kFull)); },
  };
  for (const auto& finish : ways) {
    drives_.Write("own/recovery-1.m3u", "c:\\a.mp3\r\n");
    RestoreLastList(true);
    files = &engine_->playlist_files;
    finish();
    engine_->recovery.Settle();
    EXPECT_EQ(Kept(), "");
  }
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
}

TEST_F(ClosingTest, ARecoveredListThatNobodyWasAskedAboutStaysWhenAnotherIsOpened) {
  drives_.Write("list.m3u", "c:\\b.mp3\r\n");
  PlaylistFiles* files = nullptr;
  const std::function<void()> ways[] = {
      [&] { files->MFileOpen_Click(); },
      [&] { files->MFileRecent_Click(1); },
  };
  fakes_.dialogs.open_names.emplace_back("c:\\list.m3u");
  for (const auto& open : ways) {
    drives_.Write("own/recovery-1.m3u", "c:\\a.mp3\r\n");
    RestoreLastList(true);
    engine_->document.RecentFiles = {"c:\\list.m3u"};
    files = &engine_->playlist_files;
    open();
    EXPECT_EQ(NamesOf(engine_->document.ListView1), "b.mp3");
    engine_->items.AddStuff("c:\\a.mp3", false);
    engine_->closing.KeepList();
    EXPECT_EQ(drives_.Read("own/recovery-2.m3u"), "c:\\b.mp3\r\nc:\\a.mp3\r\n");
    engine_->closing.StoreUnasked();
    EXPECT_FALSE(std::filesystem::exists(drives_.C() / "own/recovery-2.m3u"));
    EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  }
}

TEST_F(ClosingTest, ARecoveredListGoesWithANoToTheQuestionAboutItsChanges) {
  drives_.Write("list.m3u", "c:\\b.mp3\r\n");
  engine_->recovery.Settle();
  RestoreLastList(true);
  engine_->items.AddStuff("c:\\b.mp3", false);
  fakes_.dialogs.open_names.emplace_back("c:\\list.m3u");
  fakes_.dialogs.answers = {MessageAnswer::kNo};
  engine_->playlist_files.MFileOpen_Click();
  engine_->recovery.Settle();
  EXPECT_EQ(Kept(), "");
}

#ifndef _WIN32
TEST_F(ClosingTest, TheLastListKeepsItsRowsFromStartToStart) {
  Touch({"track01.wav.mp3"});
  engine_->document.ListView1.Clear();
  engine_->items.AddStuff("c:\\track01.wav.mp3", false);
  for (int start = 0; start < 4; ++start) {
    fakes_.dialogs.answers = {MessageAnswer::kNo};
    engine_->session.SetFormState(true);
    RestoreLastList(false);
    EXPECT_EQ(NamesOf(engine_->document.ListView1), "track01.wav.mp3") << start;
  }
}
#endif

TEST_F(ClosingTest, TheLastListHoldsFullPathsAndBareAddresses) {
  drives_.Write("m/list.m3u", "sub/gone.mp3\r\nC:\\Gone.mp3\r\nhttp://host/a.mp3\r\n");
  engine_->document.ListView1.Clear();
  engine_->items.AddStuff("c:\\m\\list.m3u", false);
  engine_->session.SetFormState(true);
  EXPECT_EQ(LastList(), "c:\\m\\sub\\gone.mp3\r\nc:\\Gone.mp3\r\nhttp://host/a.mp3\r\n");
  RestoreLastList(false);
  EXPECT_EQ(engine_->document.ListView1.At(3).FullPath(), "\\http://host/a.mp3");
}

}  // namespace
}  // namespace qublet
