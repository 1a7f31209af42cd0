#include <gtest/gtest.h>

#include <QCloseEvent>

#include "support/main_window.h"

namespace qublet {
namespace {

class StartAndExit : public testing::Test {
 protected:
  StartAndExit() {
    window.drives.Write("a.mp3", kNoise);
    window.drives.Write("b c.mp3", kNoise);
  }

  std::string Stored(const char* section, const char* key) {
    return window.store.GetSetting("QUBLET2021", section, key);
  }

  MainWindow window;
};

TEST_F(StartAndExit, AFirstStartWritesTheDefaultsAtOnceAndNoList) {
  window.Start();
  EXPECT_EQ(Stored("Startup", "insl"), "c:\\program\\QUBLET20.exe");
  EXPECT_EQ(Stored("SSE", "V"), "1");
  EXPECT_EQ(Stored("PS", "T"), "1900");
  EXPECT_EQ(Stored("PS", "W"), "7920");
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "program/last.m3u"));
  EXPECT_EQ(window.Caption(), "[Velmora] M3U Playlist Editor v2.1b");
}

TEST_F(StartAndExit, BringsTheListOfTheLastSessionBack) {
  window.Start();
  window.Add("c:\\a.mp3");
  window.dialogs.answers = {MessageAnswer::kNo};
  window.main->close();
  EXPECT_EQ(window.drives.Read("program/last.m3u"), "c:\\a.mp3\r\n");
  window.Restart();
  EXPECT_EQ(window.Names(), "a.mp3");
  EXPECT_FALSE(window.document->PlaylistChanged);
  EXPECT_EQ(window.document->CurrentPlaylist, "");
  EXPECT_TRUE(window.document->RecentFiles.empty());
  EXPECT_EQ(window.Panel(1), "Total: 1");
}

TEST_F(StartAndExit, LeavesATwinOfTheListWhereThatIsOpenedAtLogon) {
  window.startup.wants_twins = true;
  window.Start();
  window.Add("c:\\a.mp3");
  window.dialogs.answers = {MessageAnswer::kNo};
  window.main->close();
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "program/last.m3u8")) << "not wanted";
  window.store.SaveSetting("QUBLET2021", "SSE", "WINSTART", "1");
  window.Restart();
  window.Run("MFileNew");
  window.main->close();
  EXPECT_EQ(window.drives.Read("program/last.m3u8"), window.files->ToNative("c:\\a.mp3") + "\n") << "of the file";
  EXPECT_EQ(window.startup.paths.at("last"), "c:\\program\\last.m3u");
}

TEST_F(StartAndExit, AnEmptyListLeavesTheEarlierOneForTheNextStart) {
  window.drives.Write("program/last.m3u", "c:\\a.mp3\r\n");
  window.Start();
  window.Run("MFileNew");
  window.main->close();
  window.Restart();
  EXPECT_EQ(window.Names(), "a.mp3");
}

TEST_F(StartAndExit, TheCommandLineWinsOverTheLastList) {
  window.drives.Write("program/last.m3u", "c:\\a.mp3\r\n");
  window.Start("\"c:\\b c.mp3\"");
  EXPECT_EQ(window.Names(), "b c.mp3");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(StartAndExit, CancelKeepsTheProgramRunningWithNothingWritten) {
  window.Start();
  window.Add("c:\\a.mp3");
  const int saves = window.store.saves;
  window.dialogs.answers = {MessageAnswer::kCancel};
  window.main->close();
  EXPECT_TRUE(window.main->isVisible());
  EXPECT_EQ(window.store.saves, saves);
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "program/last.m3u"));
}

TEST_F(StartAndExit, WithoutSavingSettingsOnlyTheRecentListIsKept) {
  window.Start();
  window.main->close();
  window.store.SaveSetting("QUBLET2021", "SSE", "V", "0");
  window.Restart();
  window.drives.Write("list.m3u", "c:\\a.mp3\r\n");
  window.dialogs.open_names.push_back("c:\\list.m3u");
  window.Run("MFileOpen");
  window.settings->RCount = 3;
  window.main->close();
  EXPECT_EQ(Stored("RF", "20"), "c:\\list.m3u");
  EXPECT_EQ(Stored("SSE", "RCount"), "10");
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "program/last.m3u"));
}

TEST_F(StartAndExit, ReadsAsManyRecentFilesAsAreWanted) {
  window.Start();
  window.store.SaveSettings("QUBLET2021",
                            {{"RF", "18", "c:\\1.m3u"}, {"RF", "19", "c:\\2.m3u"}, {"RF", "20", "c:\\3.m3u"}});
  window.store.SaveSetting("QUBLET2021", "SSE", "RCount", "2");
  window.Restart();
  EXPECT_EQ(window.document->RecentFiles, (Collection{"c:\\2.m3u", "c:\\3.m3u"}));
  EXPECT_EQ(window.Action("MFileRecent1")->text().toStdString(), "1: 3.m3u");
}

TEST_F(StartAndExit, TwoInstancesLoseNoMoreRecentFilesThanTheKeysTheyShare) {
  window.Start();
  window.document->RecentFiles = {"c:\\a1.m3u", "c:\\a2.m3u", "c:\\a3.m3u"};
  window.main->close();
  // The other instance began before that and knows of one file only; it writes the keys that its list ends at.
  window.document->RecentFiles = {"c:\\b1.m3u"};
  window.main->close();
  EXPECT_EQ(Stored("RF", "18"), "c:\\a1.m3u");
  EXPECT_EQ(Stored("RF", "19"), "c:\\a2.m3u");
  EXPECT_EQ(Stored("RF", "20"), "c:\\b1.m3u");
  window.Restart();
  EXPECT_EQ(window.document->RecentFiles, (Collection{"c:\\a1.m3u", "c:\\a2.m3u", "c:\\b1.m3u"}));
}

TEST_F(StartAndExit, PurgesRecentFilesThatAreGone) {
  window.drives.Write("2.m3u", "");
  window.Start();
  window.store.SaveSettings("QUBLET2021",
                            {{"RF", "19", "c:\\2.m3u"}, {"RF", "20", "c:\\3.m3u"}, {"SSE", "RPurge", "True"}});
  window.Restart();
  EXPECT_EQ(window.document->RecentFiles, (Collection{"c:\\2.m3u"}));
}

TEST_F(StartAndExit, RestoresTheWorkFolderAndMakesItCurrent) {
  std::filesystem::create_directory(window.drives.C() / "music");
  window.Start();
  window.store.SaveSetting("QUBLET2021", "RF", "Wkdir", "c:\\music");
  window.Restart();
  EXPECT_EQ(window.document->WorkFolder, "c:\\music");
  EXPECT_EQ(window.files->CurrentFolder(), "c:\\music");
}

TEST_F(StartAndExit, DeletesTemporaryFilesAtExit) {
  window.drives.Write("preview.htm", "x");
  window.Start();
  window.document->TempFiles = {"c:\\preview.htm", "c:\\gone.htm"};
  window.main->close();
  EXPECT_FALSE(std::filesystem::exists(window.drives.C() / "preview.htm"));
}

TEST_F(StartAndExit, BringsBackTheListOfACrashAndSaysSo) {
  window.Start();
  window.main->close();
  window.drives.Write("own/recovery-1.m3u", "c:\\b c.mp3\r\n");
  window.Restart("\"c:\\a.mp3\"");
  EXPECT_EQ(window.Names(), "a.mp3") << "the command line wins over it too";
  EXPECT_EQ(window.Panel(4), "");
  window.Restart();
  EXPECT_EQ(window.Names(), "b c.mp3");
  EXPECT_EQ(window.Panel(4), "Recovered the last list");
  const auto* panel = window.main->findChild<QLabel*>("Panel4");
  EXPECT_LE(panel->sizeHint().width(), panel->width()) << "it is cut off";
  EXPECT_EQ(window.Caption(), "[Velmora] M3U Playlist Editor v2.1b");
  EXPECT_FALSE(window.document->PlaylistChanged);
  EXPECT_EQ(window.drives.Read("own/recovery-1.m3u"), "c:\\b c.mp3\r\n");
  window.main->close();
  EXPECT_TRUE(window.dialogs.messages.empty());
  EXPECT_EQ(window.drives.Read("program/last.m3u"), "c:\\b c.mp3\r\n");
  EXPECT_EQ(window.drives.Read("own/recovery-1.m3u"), "");
  window.Restart();
  EXPECT_EQ(window.Panel(4), "") << "an ordinary start says nothing";
}

TEST_F(StartAndExit, LeavesTheListOfACrashWhereNoListIsToComeBack) {
  window.Start();
  window.main->close();
  window.store.SaveSetting("QUBLET2021", "SSE", "RESPLAYLIST", "0");
  window.drives.Write("own/recovery-1.m3u", "c:\\a.mp3\r\n");
  window.Restart();
  EXPECT_EQ(window.Names(), "");
  window.main->close();
  EXPECT_EQ(window.drives.Read("own/recovery-1.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(StartAndExit, KeepsAChangedListWithinSecondsAndLetsItGoWithTheSave) {
  const auto kept = [&] { return window.drives.Read("own/recovery-1.m3u"); };
  window.Start();
  window.Add("c:\\a.mp3");
  EXPECT_TRUE(QTest::qWaitFor([&] { return kept() == "c:\\a.mp3\r\n"; }, 10'000));
  window.dialogs.save_names.emplace_back("c:\\list.m3u");
  window.Run("MFileSave");
  EXPECT_TRUE(QTest::qWaitFor([&] { return kept().empty(); }, 5'000));
}

class SystemsEnd : public StartAndExit {
 protected:
  SystemsEnd() {
    window.Start();
    window.Add("c:\\a.mp3");
    QObject::connect(window.main, &Main::ended, window.main, [this] { ++ends; });
  }

  std::string LastList() { return window.drives.Read("program/last.m3u"); }
  std::string Kept() { return window.drives.Read("own/recovery-1.m3u"); }

  int ends = 0;
};

TEST_F(SystemsEnd, StoresAllUnaskedAndEnds) {
  window.main->EndUnasked();
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
  EXPECT_EQ(ends, 1);
  EXPECT_TRUE(window.dialogs.messages.empty());
}

TEST_F(SystemsEnd, StoresNothingBeforeTheProgramIsThere) {
  const int saves = window.store.saves;
  MainWindow beginning;
  const int begun = beginning.store.saves;
  beginning.main->EndUnasked();
  EXPECT_TRUE(beginning.main->PrepareEnd([] { return true; }));
  EXPECT_EQ(window.store.saves, saves);
  EXPECT_EQ(beginning.store.saves, begun);
}

TEST_F(SystemsEnd, AsksWhereThatIsAllowedAndARefusalHoldsItUp) {
  window.dialogs.answers = {MessageAnswer::kCancel, MessageAnswer::kNo};
  EXPECT_FALSE(window.main->PrepareEnd([] { return true; }));
  EXPECT_EQ(LastList(), "");
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  EXPECT_TRUE(window.main->PrepareEnd([] { return true; }));
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
  EXPECT_EQ(Kept(), "");
  EXPECT_EQ(window.dialogs.messages.size(), 2U);
  EXPECT_EQ(ends, 0) << "the process ends when it is told to";
}

TEST_F(SystemsEnd, StoresAllWhereNobodyMayBeAsked) {
  EXPECT_TRUE(window.main->PrepareEnd([] { return false; }));
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
  EXPECT_TRUE(window.dialogs.messages.empty());
}

TEST_F(SystemsEnd, WantsNoDialogForAListWithoutAChange) {
  window.document->MarkStored();
  bool wanted = false;
  EXPECT_TRUE(window.main->PrepareEnd([&] { return wanted = true; }));
  EXPECT_FALSE(wanted);
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
}

TEST_F(SystemsEnd, AsksNobodyInTheMiddleOfACommand) {
  const WaitCursor wait(window.feedback);
  EXPECT_TRUE(window.main->PrepareEnd([] { return true; }));
  EXPECT_TRUE(window.dialogs.messages.empty());
  EXPECT_EQ(LastList(), "c:\\a.mp3\r\n");
}

TEST_F(StartAndExit, AStoreThatCannotBeWrittenIsRemarkedUponOnceAndNoFailure) {
  window.store.refuses_to_save = true;
  window.Start();
  EXPECT_EQ(window.Panel(4), "Settings aren't kept: read-only");
  window.main->close();
  EXPECT_TRUE(window.dialogs.messages.empty());
}

}  // namespace
}  // namespace qublet
