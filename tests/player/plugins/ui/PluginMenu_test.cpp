#include "player/plugins/ui/PluginMenu.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "support/editor_test_base.h"

namespace qublet {
namespace {

// A feedback that says whether a command runs.
class Work : public Feedback {
 public:
  bool Busy() const override { return busy; }
  bool busy = false;
};

class PluginMenuTest : public EditorTestBase {
 protected:
  PluginMenuTest() {
    std::filesystem::create_directory(drives_.C() / "program");
    drives_.Write("tool", "a program");
  }

  void Enter(const std::string& slot, const std::string& name, const std::string& description) {
    fakes_.store.SaveSettings("Velmora Plugins",
                              {{slot, "name", name}, {slot, "desc", description}, {slot, "insl", "c:\\tool"}});
    plugins_.LoadPluginMenu();
  }
  // What can be seen, "|" behind each, "(...)" around what can't be chosen.
  std::string Shown() const {
    std::string shown;
    for (const QAction* entry : menu_.actions()) {
      const std::string text = entry->text().toStdString();
      if (entry->isVisible()) shown += (entry->isEnabled() ? text : "(" + text + ")") + "|";
    }
    return shown;
  }
  QAction& Entry(int number) { return *menu_.actions().at(number - 1); }

  Work work_;
  Commands commands_{work_};
  QMenu menu_;
  PluginMenu plugins_{menu_, commands_, engine_};
};

TEST_F(PluginMenuTest, SaysThatThereAreNone) {
  EXPECT_EQ(Shown(), "(None Loaded...)|");
  plugins_.LoadPluginMenu();
  EXPECT_EQ(Shown(), "(None Loaded...)|");
  EXPECT_TRUE(Entry(9).isVisible());
}

TEST_F(PluginMenuTest, HasNineNamedEntries) {
  for (int number = 1; number <= 9; ++number) {
    EXPECT_EQ(Entry(number).objectName().toStdString(), "plug" + std::to_string(number));
  }
  EXPECT_EQ(menu_.actions().size(), 9);
}

TEST_F(PluginMenuTest, ShowsEachInItsSlot) {
  Enter("3", "Third", "does that");
  Enter("8", "Eighth", "");
  EXPECT_EQ(Shown(), "Third - does that|Eighth - |");
  EXPECT_TRUE(Entry(3).isVisible());
  EXPECT_TRUE(Entry(8).isVisible());
  EXPECT_EQ(Entry(3).statusTip().toStdString(), "Hand the selected items to c:\\tool");
}

TEST_F(PluginMenuTest, SaysAgainThatThereAreNone) {
  Enter("9", "Ninth", "");
  EXPECT_EQ(Shown(), "Ninth - |");
  Enter("9", "", "");
  EXPECT_EQ(Shown(), "(None Loaded...)|");
}

TEST_F(PluginMenuTest, ShowsAnAmpersand) {
  Enter("1", "Cut & Paste", "A&B\tC");
  EXPECT_TRUE(Shown().starts_with("Cut && Paste - A&&B")) << Shown();
  EXPECT_EQ(Shown().find('\t'), std::string::npos) << "behind a tab stands a key";
}

TEST_F(PluginMenuTest, StartsWhatIsChosen) {
  Enter("1", "First", "");
  Enter("4", "Fourth", "");
  Entry(4).trigger();
  EXPECT_EQ(fakes_.shell.started, std::vector{"c:\\tool <" + files_->ToNative("c:\\program\\tmp.m3u") + ">"});
}

TEST_F(PluginMenuTest, StartsNothingWhileACommandRuns) {
  Enter("1", "First", "");
  work_.busy = true;
  Entry(1).trigger();
  EXPECT_TRUE(fakes_.shell.started.empty());
}

}  // namespace
}  // namespace qublet
