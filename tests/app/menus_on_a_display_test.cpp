#include <gtest/gtest.h>

#include <QMenuBar>
#include <QProcess>
#include <set>

#include "support/main_window.h"

namespace qublet {
namespace {

constexpr int kPatience = 20'000;  // milliseconds
constexpr int kSoon = 2'000;

// The menus of the main window, walked through by keys that come from the display as a person's do. What an entry
// runs is noted instead of done.
class MenusOnADisplay : public testing::Test {
 protected:
  MenusOnADisplay() {
    for (const char* name : {"a", "b", "c"}) window.drives.Write(std::string("m/") + name + ".mp3", kNoise);
    window.drives.Write("list.m3u", "c:\\m\\a.mp3\r\nc:\\m\\b.mp3\r\nc:\\m\\c.mp3\r\n");
    window.associations.program = {"c:\\player", "player", true};
    window.Start();
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
    window.Rows().SetSelected(2, true);
    window.main->findChild<RowList*>("ListView1")->setFocus();
    emit window.List().rowsSelected();
    for (std::size_t i = 0; i < kMenu.size(); ++i) {
      const CommandName command = CommandName::At(i);
      if (window.program->commands.IsBound(command))
        window.program->commands.Bind(command, [this, command] { ran.emplace_back(command.Row().name); });
    }
  }

  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
    window.main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
  }

  static void Press(const QString& key) {
    QProcess tool;
    tool.start("xdotool", {"key", key});
    EXPECT_TRUE(QTest::qWaitFor([&] { return tool.state() == QProcess::NotRunning; }, kPatience));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
  }

  // Goes down in the open menu until the entry is the current one.
  static bool GoTo(const QMenu& menu, const QAction* entry) {
    for (qsizetype tries = 0; tries <= menu.actions().size(); ++tries) {
      if (menu.activeAction() == entry) return true;
      const QAction* before = menu.activeAction();
      Press("Down");
      if (!QTest::qWaitFor([&] { return menu.activeAction() != before; }, kSoon)) return false;
    }
    return false;
  }

  // Opens menu after menu along the path and presses Return on its last entry.
  bool Choose(const QList<QAction*>& path) {
    const QString caption = path.front()->text();
    Press("alt+" + caption.mid(caption.indexOf(u'&') + 1, 1).toLower());
    for (qsizetype i = 0; i < path.size(); ++i) {
      QMenu* menu = i == 0 ? nullptr : path[i - 1]->menu();
      if (menu != nullptr && !GoTo(*menu, path[i])) return false;
      if (path[i]->menu() == nullptr) continue;
      if (i > 0) Press("Right");
      if (!QTest::qWaitFor([&] { return path[i]->menu()->isVisible(); }, kSoon)) return false;
    }
    Press("Return");
    return QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }, kSoon);
  }

  // Every entry that is shown below these, with the way to it.
  static void Collect(const QList<QAction*>& entries, const QList<QAction*>& way, QList<QList<QAction*>>& found) {
    for (QAction* entry : entries) {
      if (entry->isSeparator() || !entry->isVisible()) continue;
      QList<QAction*> path = way;
      path << entry;
      entry->menu() != nullptr ? Collect(entry->menu()->actions(), path, found) : found.append(path);
    }
  }

  // The entries with a tool, and whether each can be chosen while one of three rows is selected, the second, and its
  // file is there.
  static bool CanBeChosen(const std::string& name) {
    static const std::set<std::string> kNot{"Mreloc"};
    return !kNot.contains(name);
  }

  MainWindow window;
  std::vector<std::string> ran;
};

TEST_F(MenusOnADisplay, ReachEveryEntryByTheKeyboardAndRunItOrSayWhyNot) {
  QList<QList<QAction*>> paths;
  Collect(window.main->menuBar()->actions(), {}, paths);
  ASSERT_GT(paths.size(), 70);
  for (const QList<QAction*>& path : paths) {
    const QAction& entry = *path.back();
    const std::string name = entry.objectName().toStdString();
    const auto command = CommandName::Find(name);
    if (!command) continue;  // recent files and plug-ins, below
    for (qsizetype i = 0; i + 1 < path.size(); ++i) EXPECT_TRUE(path[i]->isEnabled()) << "the way to " << name;
    EXPECT_EQ(entry.isEnabled(), CanBeChosen(name)) << name;
    if (!entry.isEnabled()) continue;
    ran.clear();
    EXPECT_TRUE(Choose(path)) << name;
    EXPECT_EQ(ran, std::vector<std::string>{name});
  }
}

TEST_F(MenusOnADisplay, OpenARecentFileByTheKeyboard) {
  window.document->ListView1.Clear();
  QMenu& recent = *window.main->findChild<QMenu*>("MFileRec");
  EXPECT_TRUE(Choose({window.main->menuBar()->actions().front(), recent.menuAction(), recent.actions().front()}));
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3");
}

}  // namespace
}  // namespace qublet
