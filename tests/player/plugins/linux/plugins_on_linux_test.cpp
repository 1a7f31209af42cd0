#include <gtest/gtest.h>

#include <cstdlib>

#include "player/plugins/plugins.h"
#include "support/child_process.h"
#include "support/fake_services.h"
#include "support/temporary_desktop.h"

namespace qublet {
namespace {

// Plug-ins that are really started, out of this user's real store.
class PluginsOnLinux : public testing::Test {
 protected:
  PluginsOnLinux() { std::filesystem::create_directory(desktop_.Drives().C() / "program"); }

  std::filesystem::path Root() const { return desktop_.Drives().Root(); }
  std::string Log() const { return TemporaryDrives::ReadAt(Root() / "log"); }

  // A plug-in that notes what it is handed, a word a line.
  std::filesystem::path AddTool(const std::string& name) const {
    const std::filesystem::path tool = Root() / name;
    TemporaryDrives::WriteAt(
        tool, "#!/bin/sh\n{ for word; do echo \"$word\"; done; echo end; } >'" + Root().string() + "/log'\n");
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    return tool;
  }
  void Enter(const std::string& slot, const std::string& path) {
    store_->SaveSettings("Velmora Plugins", {{slot, "name", "Tool"}, {slot, "insl", path}});
  }
  void Add(const std::string& name) {
    desktop_.Drives().Write(name, "abc");
    engine_.items.AddFile(files_->FromNative((desktop_.Drives().C() / name).string()), 0, 0);
    engine_.document.ListView1.SetSelected(engine_.document.ListView1.Count(), true);
  }
  void Click(std::int16_t index) {
    Plugins plugins(engine_);
    plugins.LoadPluginMenu();
    plugins.plug_Click(index);
  }
  std::string Twin() const { return (desktop_.Runtime() / "velmora/tmp.m3u8").string(); }

  TemporaryDesktop desktop_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<Shell> shell_ = OpenShell(*files_);
  std::unique_ptr<SettingsStore> store_ = OpenSettingsStore();
  Feedback feedback_;
  FakeServices fakes_;
  Engine engine_{
      {*files_, *store_, fakes_.startup, fakes_.dialogs, fakes_.clock, *shell_, fakes_.random, *fakes_.collation,
       fakes_.associations, fakes_.players, fakes_.power, feedback_, *fakes_.sockets, fakes_.machine_values},
      {"QUBLET2021", "c:\\program", ""},
      ","};
};

TEST_F(PluginsOnLinux, AreHandedOneWordWhateverStandsInTheirPaths) {
  Add("a.mp3");
  for (const char* name :
       {"plain", "with blanks  in it", "50% $HOME `x` 100%s", "quotes \" and '", "back;slash\\n", "\u0414\u0430"}) {
    const std::filesystem::path tool = AddTool(name);
    Enter("1", tool.string());
    Click(1);
    EXPECT_TRUE(Eventually([&] { return Log().ends_with("end\n"); })) << name;
    EXPECT_EQ(Log(), Twin() + "\nend\n") << name;
    std::filesystem::remove(Root() / "log");
  }
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
}

TEST_F(PluginsOnLinux, MayEnterThemselvesInDriveForm) {
  AddTool("c/my tool");
  Enter("1", "c:\\my tool");
  Click(1);
  EXPECT_TRUE(Eventually([&] { return Log() == Twin() + "\nend\n"; }));
}

TEST_F(PluginsOnLinux, FindThePathsAsThisSystemWritesThem) {
  for (const char* name : {"a b.mp3", "c \"d\" 'e'.mp3", "\u0414.mp3"}) Add(name);
  Enter("1", AddTool("tool").string());
  Click(1);
  const std::string folder = desktop_.Drives().C().string() + "/";
  EXPECT_EQ(TemporaryDrives::ReadAt(Twin()),
            folder + "a b.mp3\n" + folder + "c \"d\" 'e'.mp3\n" + folder + "\u0414.mp3\n");
}

TEST_F(PluginsOnLinux, GoToTheSystemsOpenerWhereTheyCantBeExecuted) {
  desktop_.AddProgram("xdg-open", "{ echo \"$@\"; echo end; } >'" + Root().string() + "/log'\n");
  TemporaryDrives::WriteAt(Root() / "page.html", "<p>");
  Enter("1", (Root() / "page.html").string());
  Click(1);
  EXPECT_TRUE(Eventually([&] { return Log() == (Root() / "page.html").string() + "\nend\n"; }));
}

TEST_F(PluginsOnLinux, AreMissingWhereNothingIs) {
  Enter("1", "/no/such/tool");
  Click(1);
  EXPECT_EQ(fakes_.dialogs.messages,
            (std::vector{ScriptedDialogs::Message{"Could not load the Tool Plugin.", MessageIcon::kStop,
                                                  MessageButtons::kOk}}));
}

TEST_F(PluginsOnLinux, AccessoryToolsEnterThemselvesUnlessTheyAreForWindows) {
  for (const char* name : {"c/app/plugins/QUBTGL10", "c/app/plugins/old/QUBTGL10.exe", "c/app/plugins/x/QUBTGL10"})
    AddTool(name);
  TemporaryDrives::WriteAt(Root() / "c/app/plugins/old/QUBTGL10.exe", "MZ");
  std::filesystem::permissions(Root() / "c/app/plugins/x/QUBTGL10", std::filesystem::perms::owner_read);
  desktop_.AddProgram("xdg-open", "echo opened >>'" + Root().string() + "/opened'\n");
  Engine engine(engine_.services, {"QUBLET2021", "c:\\program", "c:\\app\\QUBLET20"}, ",");
  Plugins(engine).RegisterAccessoryTools();
  EXPECT_TRUE(Eventually([&] { return Log() == "-register\nend\n"; }));
  EXPECT_FALSE(std::filesystem::exists(Root() / "opened"));
}

// The one that docs/plugins.md shows.
class ExamplePlugin : public PluginsOnLinux {
 protected:
  ExamplePlugin() {
    std::filesystem::create_symlink("/usr/bin/python3", desktop_.Programs() / "python3");
    std::filesystem::create_directory(Root() / "my \"tools\" 100%");
    std::filesystem::copy_file(QUBLET_EXAMPLE_PLUGIN, Tool());
  }

  std::filesystem::path Tool() const { return Root() / "my \"tools\" 100%/count_items"; }
  int Run(const std::string& word) const {
    return std::system(("'" + Tool().string() + "' " + word + " >'" + Root().string() + "/out' 2>&1").c_str());
  }
  std::string Out() const { return TemporaryDrives::ReadAt(Root() / "out"); }
};

TEST_F(ExamplePlugin, EntersItselfAndTellsHowManyItemsAreSelected) {
  desktop_.AddProgram("notify-send", "echo \"$1: $2\" >'" + Root().string() + "/log'\n");
  ASSERT_EQ(Run("-register"), 0) << Out();
  for (const char* name : {"a b.mp3", "hash#1.mp3", "c.mp3"}) Add(name);
  engine_.document.ListView1.SetSelected(3, false);
  Click(1);
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
  EXPECT_TRUE(Eventually([&] { return Log() == "Count Items: 2 items\n"; })) << Log();
}

TEST_F(ExamplePlugin, PrintsTheCount) {
  TemporaryDrives::WriteAt(Root() / "list.m3u8", "#EXTM3U\n/m/a.mp3\n\n");
  EXPECT_EQ(Run("'" + (Root() / "list.m3u8").string() + "'"), 0);
  EXPECT_EQ(Out(), "1 item\n");
}

TEST_F(ExamplePlugin, TakesTheFirstFreeSlotOnceAndLeavesTheOthersAlone) {
  Enter("1", "/usr/bin/other \"tool\" ");
  Enter("3", "z:\\third");
  for (int again = 0; again < 2; ++again) ASSERT_EQ(Run("-register"), 0) << Out();
  Plugins plugins(engine_);
  plugins.LoadPluginMenu();
  EXPECT_EQ(PluginCaption(plugins.Slot(2)), "Count Items - tells how many items are selected");
  EXPECT_EQ(plugins.Slot(2).InstallPath, Tool().string());
  EXPECT_EQ(plugins.Slot(1).InstallPath, "/usr/bin/other \"tool\" ");
  EXPECT_EQ(plugins.Slot(3).InstallPath, "z:\\third");
  EXPECT_EQ(plugins.Slot(4).Name, "");
}

TEST_F(ExamplePlugin, SaysThatAllSlotsAreTaken) {
  for (int slot = 1; slot <= kPluginCount; ++slot) Enter(std::to_string(slot), "/usr/bin/other");
  EXPECT_NE(Run("-register"), 0);
  EXPECT_EQ(Out(), "count_items: all nine places of plug-ins are taken\n");
}

}  // namespace
}  // namespace qublet
