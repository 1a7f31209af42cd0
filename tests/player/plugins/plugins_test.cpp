#include "player/plugins/plugins.h"

#include <gtest/gtest.h>

#include "support/editor_test_base.h"

namespace qublet {
namespace {

class PluginsTest : public EditorTestBase {
 protected:
  PluginsTest() {
    std::filesystem::create_directory(drives_.C() / "program");
    drives_.Write("tools/tool.exe", "a program");
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) drives_.Write(name, "abc");
  }

  void Enter(const std::string& slot, const std::string& name, const std::string& description,
             const std::string& path) {
    fakes_.store.SaveSettings("Velmora Plugins",
                              {{slot, "name", name}, {slot, "desc", description}, {slot, "insl", path}});
  }
  // The captions of the slots, "|" behind each.
  std::string Captions() {
    std::string captions;
    for (std::int16_t i = 1; i <= kPluginCount; ++i)
      captions += (plugins_.Slot(i).Name.empty() ? "" : PluginCaption(plugins_.Slot(i))) + "|";
    return captions;
  }
  void Click(std::int16_t index) {
    plugins_.LoadPluginMenu();
    plugins_.plug_Click(index);
  }
  using Messages = std::vector<ScriptedDialogs::Message>;
  static Messages Told(const std::string& text) { return {{text, MessageIcon::kStop, MessageButtons::kOk}}; }

  ScriptedShell& shell_ = fakes_.shell;
  ScriptedDialogs& dialogs_ = fakes_.dialogs;
  Plugins plugins_{engine_};
};

TEST_F(PluginsTest, AreNoneInAnEmptyStore) {
  plugins_.LoadPluginMenu();
  EXPECT_TRUE(plugins_.IsEmpty());
  EXPECT_EQ(Captions(), "|||||||||");
}

TEST_F(PluginsTest, StandInTheirSlotsWithTheGapsBetween) {
  Enter("1", "First", "does this", "c:\\1.exe");
  Enter("3", " Third  ", "  does that ", "c:\\3.exe");
  Enter("9", "Ninth", "", "");
  plugins_.LoadPluginMenu();
  EXPECT_FALSE(plugins_.IsEmpty());
  EXPECT_EQ(Captions(), "First - does this||Third - does that||||||Ninth - |");
}

TEST_F(PluginsTest, AreNothingWithoutAName) {
  Enter("2", "   ", "a description", "c:\\tools\\tool.exe");
  plugins_.LoadPluginMenu();
  EXPECT_TRUE(plugins_.IsEmpty());
  EXPECT_EQ(plugins_.Slot(2).Description, "");
  EXPECT_EQ(plugins_.Slot(2).InstallPath, "");
}

TEST_F(PluginsTest, AreReadFromNineSlotsOnly) {
  for (const char* slot : {"0", "10", "01", ""}) Enter(slot, "Elsewhere", "", "");
  plugins_.LoadPluginMenu();
  EXPECT_TRUE(plugins_.IsEmpty());
  for (const std::string& read : fakes_.store.reads)
    EXPECT_FALSE(read.starts_with("0") || read.starts_with("10")) << read;
}

TEST_F(PluginsTest, AreReadAnewEachTime) {
  Enter("1", "First", "", "");
  plugins_.LoadPluginMenu();
  fakes_.store.applications.clear();
  Enter("2", "Second", "", "");
  plugins_.LoadPluginMenu();
  EXPECT_EQ(Captions(), "|Second - ||||||||");
}

TEST_F(PluginsTest, HaveTextsOfALimitedLength) {
  Enter("1", std::string(300, 'n'), std::string(255, 'd') + "\u00E4\u00F6", "c:\\" + std::string(2000, 'p'));
  plugins_.LoadPluginMenu();
  EXPECT_EQ(plugins_.Slot(1).Name, std::string(256, 'n'));
  EXPECT_EQ(plugins_.Slot(1).Description, std::string(255, 'd') + "\u00E4");
  EXPECT_EQ(plugins_.Slot(1).InstallPath.size(), 1024u);
}

TEST_F(PluginsTest, AreCutBeforeTheyAreTrimmed) {
  Enter("1", std::string(250, ' ') + "name and more", "", "");
  plugins_.LoadPluginMenu();
  EXPECT_EQ(plugins_.Slot(1).Name, "name a");
}

TEST_F(PluginsTest, AreHandedTheSelectedRows) {
  Enter("2", "Tool", "", "  c:\\tools\\tool.exe  ");
  AddRows({"a.mp3", "b.mp3", "c.mp3"});
  Select("x-x");
  Click(2);
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\a.mp3\r\nc:\\c.mp3\r\n");
  EXPECT_EQ(shell_.started, std::vector{"c:\\tools\\tool.exe <" + files_->ToNative("c:\\program\\tmp.m3u") + ">"});
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_EQ(engine_.document.FileArray, (Collection{"c:\\a.mp3", "c:\\c.mp3"}));
}

TEST_F(PluginsTest, AreHandedTheNamesThatTheDiskHas) {
  Enter("1", "Tool", "", "c:\\tools\\tool.exe");
  AddRows({"A.MP3"});
  Select("x");
  Click(1);
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(PluginsTest, AreHandedTheTwinWherePlayersAre) {
  std::filesystem::create_directory(drives_.D() / "hand over");
  shell_.folder = "d:\\hand over";
  Enter("1", "Tool", "", "c:\\tools\\tool.exe");
  AddRows({"a.mp3"});
  Select("x");
  Click(1);
  EXPECT_EQ(TemporaryDrives::ReadAt(drives_.D() / "hand over/tmp.m3u8"), files_->ToNative("c:\\a.mp3") + "\n");
  EXPECT_EQ(shell_.started, std::vector{"c:\\tools\\tool.exe <" + files_->ToNative("d:\\hand over\\tmp.m3u8") + ">"});
}

TEST_F(PluginsTest, AreHandedRowsOfMissingFilesToo) {
  Enter("1", "Tool", "", "c:\\tools\\tool.exe");
  AddRows({"a.mp3"});
  std::filesystem::remove(drives_.C() / "a.mp3");
  Select("x");
  Click(1);
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "c:\\a.mp3\r\n");
}

TEST_F(PluginsTest, AreHandedAnEmptyPlaylistWhenNothingIsSelected) {
  Enter("1", "Tool", "", "c:\\tools\\tool.exe");
  AddRows({"a.mp3"});
  Select("-");
  drives_.Write("program/tmp.m3u", "before");
  Click(1);
  EXPECT_EQ(drives_.Read("program/tmp.m3u"), "");
  EXPECT_EQ(shell_.started.size(), 1u);
}

TEST_F(PluginsTest, AreToldToBeMissingWithoutAProgram) {
  Enter("3", " Tool ", "", "");
  Enter("4", "Gone", "", "c:\\tools\\gone.exe");
  AddRows({"a.mp3"});
  Click(3);
  EXPECT_EQ(dialogs_.messages, Told("Could not load the Tool Plugin."));
  dialogs_.messages.clear();
  Click(4);
  EXPECT_EQ(dialogs_.messages, Told("Could not load the Gone Plugin."));
  EXPECT_TRUE(shell_.started.empty());
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "program/tmp.m3u"));
}

TEST_F(PluginsTest, AreNotStartedWithoutAPlaylistButWithTheOwnOneWhereItsTwinIsMissing) {
  Enter("1", "Tool", "", "c:\\tools\\tool.exe");
  std::filesystem::remove(drives_.C() / "program");
  Click(1);
  EXPECT_EQ(dialogs_.messages, Told("Failed to create temp file for plugin transaction."));
  std::filesystem::create_directory(drives_.C() / "program");
  shell_.refuses = true;
  EXPECT_TRUE(shell_.started.empty());
  Click(1);
  EXPECT_EQ(dialogs_.messages.size(), 1u);
  EXPECT_EQ(shell_.started, Collection{"c:\\tools\\tool.exe <" + files_->ToNative("c:\\program\\tmp.m3u") + ">"});
}

class AccessoryToolsTest : public EditorTestBase {
 protected:
  std::vector<std::string> Started(const std::string& program) {
    Engine engine(fakes_.Over(*files_, feedback_), {"QUBLET2021", "c:\\own", program}, ",");
    Plugins(engine).RegisterAccessoryTools();
    return fakes_.shell.started;
  }
};

TEST_F(AccessoryToolsTest, AreStartedFromTheFolderBesideTheProgramWithAllBelow) {
  for (const char* name : {"app/plugins/QUBTGL10.exe", "app/plugins/a b/c/QUBTGL10.exe", "app/plugins/other.exe",
                           "app/QUBTGL10.exe", "own/plugins/QUBTGL10.exe", "plugins/QUBTGL10.exe"})
    drives_.Write(name, "a program");
  EXPECT_EQ(Started("c:\\app\\QUBLET20"),
            (std::vector<std::string>{"c:\\app\\plugins\\QUBTGL10.exe <-register>",
                                      "c:\\app\\plugins\\a b\\c\\QUBTGL10.exe <-register>"}));
}

TEST_F(AccessoryToolsTest, AreFoundInAFolderThatBearsTheNameOfTheProgram) {
  drives_.Write("QUBLET20/plugins/QUBTGL10.exe", "a program");
  EXPECT_EQ(Started("c:\\QUBLET20\\QUBLET20"),
            std::vector<std::string>{"c:\\QUBLET20\\plugins\\QUBTGL10.exe <-register>"});
}

TEST_F(AccessoryToolsTest, MayDoWithoutTheEndOfTheName) {
  drives_.Write("app/plugins/QUBTGL10", "a program");
  EXPECT_EQ(Started("c:\\app\\QUBLET20"), std::vector<std::string>{"c:\\app\\plugins\\QUBTGL10 <-register>"});
}

TEST_F(AccessoryToolsTest, AreLeftAloneWhereTheSystemDoesntRunThem) {
  drives_.Write("app/plugins/QUBTGL10.exe", "a program");
  fakes_.shell.foreign = {"c:\\app\\plugins\\QUBTGL10.exe"};
  EXPECT_TRUE(Started("c:\\app\\QUBLET20").empty());
  EXPECT_TRUE(fakes_.shell.opened.empty());
}

TEST_F(AccessoryToolsTest, AreNoneWithoutAFolderOrAProgram) {
  drives_.Write("plugins/QUBTGL10.exe", "a program");
  files_->SetCurrentFolder("c:\\");
  EXPECT_TRUE(Started("c:\\app\\QUBLET20").empty());
  EXPECT_TRUE(Started("").empty());
}

TEST_F(AccessoryToolsTest, AreLookedForQuietly) {
  drives_.Write("app/plugins/QUBTGL10.exe", "a program");
  Started("c:\\app\\QUBLET20");
  EXPECT_TRUE(feedback_.activities.empty());
}

}  // namespace
}  // namespace qublet
