#include <gtest/gtest.h>

#include "support/main_window.h"

namespace qublet {
namespace {

// Plug-ins as the menu has them.
class PluginsMenuTest : public testing::Test {
 protected:
  PluginsMenuTest() {
    for (const char* name : {"m/a.mp3", "m/b.mp3", "tools/tool.exe"}) window.drives.Write(name, kNoise);
  }

  static void Enter(SettingsStore& store, const std::string& slot, const std::string& name) {
    store.SaveSettings("Velmora Plugins",
                       {{slot, "name", name}, {slot, "desc", "a tool"}, {slot, "insl", "c:\\tools\\tool.exe"}});
  }
  std::string Shown(QWidget& main) {
    std::string shown;
    for (const QAction* entry : main.findChild<QMenu*>(QStringLiteral("MToolsPlugins"))->actions())
      if (entry->isVisible()) shown += entry->text().toStdString() + "|";
    return shown;
  }

  MainWindow window;
};

TEST_F(PluginsMenuTest, AreReadAtTheStart) {
  Enter(window.store, "2", "Cut & Paste");
  window.Start();
  EXPECT_EQ(Shown(*window.main), "Cut && Paste - a tool|");
  EXPECT_TRUE(window.Action("plug2")->isEnabled());
  Enter(window.store, "3", "Later");
  EXPECT_EQ(Shown(*window.main), "Cut && Paste - a tool|");
  window.Restart();
  EXPECT_EQ(Shown(*window.main), "Cut && Paste - a tool|Later - a tool|");
}

TEST_F(PluginsMenuTest, AreHandedTheSelectedItems) {
  Enter(window.store, "2", "Tool");
  window.Start();
  window.Add("c:\\m");
  window.Run("MEditSelNone");
  window.Rows().SetSelected(2, true);
  window.Run("plug2");
  EXPECT_EQ(window.drives.Read("program/tmp.m3u"), "c:\\m\\b.mp3\r\n");
  EXPECT_EQ(window.shell.started.size(), 1u);
  window.feedback.BeginWait();
  window.Run("plug2");
  window.feedback.EndWait();
  EXPECT_EQ(window.shell.started.size(), 1u) << "not while a command runs";
}

// A shell whose tools enter themselves as soon as they are started.
class EnteringShell : public ScriptedShell {
 public:
  explicit EnteringShell(SettingsStore& store) : store_(store) {}
  void Start(const std::string& program, const std::string& argument) override {
    ScriptedShell::Start(program, argument);
    store_.SaveSetting("Velmora Plugins", "1", "name", "Tool");
  }

 private:
  SettingsStore& store_;
};

TEST_F(PluginsMenuTest, EnterThemselvesForTheNextStartOfTheProgram) {
  window.drives.Write("app/plugins/QUBTGL10.exe", kNoise);
  EnteringShell shell(window.store);
  const Services given = window.fakes.Over(*window.files, window.feedback);
  const Services services{given.files, given.store,     given.startup,   given.dialogs,       given.clock,
                          shell,       given.random,    given.collation, given.associations,  given.players,
                          given.power, window.feedback, given.sockets,   given.machine_values};
  const Session::Places places{"QUBLET2021", "c:\\program", "c:\\app\\QUBLET20", ""};
  for (const char* shown : {"None Loaded...|", "Tool - |"}) {
    window.program.reset();
    Program program(services, window.feedback, places);
    program.main.Load("", nullptr);
    EXPECT_EQ(Shown(program.main), shown);
  }
  EXPECT_EQ(shell.started, std::vector<std::string>(2, "c:\\app\\plugins\\QUBTGL10.exe <-register>"));
}

}  // namespace
}  // namespace qublet
