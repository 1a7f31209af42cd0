#include <gtest/gtest.h>

#include <QMenu>
#include <QScrollBar>

#include "support/main_window.h"

namespace qublet {
namespace {

class SelectionCommands : public testing::Test {
 protected:
  SelectionCommands() {
    for (const char* name : {"one/a.mp3", "one/b.mp3", "two/c.mp3", "two/sub/d.mp3"}) {
      window.drives.Write(name, kNoise);
    }
    window.Start();
    window.Add("c:\\one");
    window.Add("c:\\two");
    window.Run("MEditSelNone");
    window.document->PlaylistChanged = false;
  }

  // As by Ctrl and the mouse.
  void Select(std::initializer_list<int> rows) {
    for (const int row : rows) {
      const QModelIndex index = window.List().model()->index(row - 1, 0);
      window.List().selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
  std::string SelectedAfter(const char* command) {
    window.Run(command);
    return window.Selected();
  }
  std::string Icons() {
    std::string digits;
    for (int i = 1; i <= window.Rows().Count(); ++i) {
      digits += std::to_string(static_cast<int>(window.Rows().At(i).icon));
    }
    return digits;
  }
  std::string Spoken(int row) {
    return window.List().model()->index(row - 1, 0).data(Qt::AccessibleTextRole).toString().toStdString();
  }

  MainWindow window;
};

TEST_F(SelectionCommands, SelectAllNoneAndTheInverse) {
  EXPECT_EQ(SelectedAfter("MEditSelAll"), "xxxx");
  EXPECT_EQ(window.Panel(1), "4 Items");
  EXPECT_EQ(SelectedAfter("MEditSelNone"), "----");
  EXPECT_EQ(window.Panel(1), "Total: 4");
  Select({1});
  EXPECT_EQ(SelectedAfter("MEditSelInv"), "-xxx");
  EXPECT_EQ(window.Panel(1), "3 Items");
}

TEST_F(SelectionCommands, SelectEverySecondAndByChance) {
  Select({1, 2, 3});
  EXPECT_EQ(SelectedAfter("MEditSelAlt"), "-x--");
  window.random.draws = {0.9, 0.1, 0.1, 0.9};
  EXPECT_EQ(SelectedAfter("MEditSelRnd"), "x--x");
  EXPECT_EQ(window.Panel(1), "2 Items");
}

TEST_F(SelectionCommands, SelectInTheFolders) {
  Select({1});
  EXPECT_EQ(SelectedAfter("MEditSelFol"), "xx--");
}

TEST_F(SelectionCommands, OpenTheFolderThatTheRowsShare) {
  Select({3, 4});
  window.Run("MEditSelLoc");
  EXPECT_EQ(window.shell.explored, std::vector<std::string>{"c:\\two"});
}

TEST_F(SelectionCommands, ImportTheFolders) {
  Select({1, 2});
  window.Run("MEditSelImpFol");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3 d.mp3 a.mp3 b.mp3");
  EXPECT_EQ(window.Selected(), "----xx");
  EXPECT_EQ(window.Panel(1), "2 Items");
}

TEST_F(SelectionCommands, MarkUnmarkAndSelectMarkedRows) {
  Select({1});
  window.Run("MEditSeMarkBlue");
  EXPECT_EQ(Icons(), "3111");
  EXPECT_EQ(Spoken(1), "a.mp3, 0:00, blue mark");
  window.Run("MEditSelNone");
  Select({2});
  window.Run("MEditSeMarkGreen");
  Select({4});
  window.Run("MEditSeMarkRed");
  EXPECT_EQ(Icons(), "3515");
  EXPECT_EQ(SelectedAfter("MEditSelectMark"), "xx-x");
  EXPECT_EQ(window.Panel(1), "3 Items");
  window.Run("MEditSeUnMark");
  EXPECT_EQ(Icons(), "1111");
  EXPECT_EQ(SelectedAfter("MEditSelectMark"), "----");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(SelectionCommands, LoseTheMarksOnSaveAndReopen) {
  Select({1});
  window.Run("MEditSeMarkRed");
  window.dialogs.save_names = {"c:\\list.m3u"};
  window.Run("MFileSaveAs");
  window.dialogs.open_names = {"c:\\list.m3u"};
  window.Run("MFileOpen");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3 d.mp3");
  EXPECT_EQ(Icons(), "1111");
}

TEST_F(SelectionCommands, RemoveTheSelectedRows) {
  Select({2, 3});
  window.Run("MEditRemove");
  EXPECT_EQ(window.Names(), "a.mp3 d.mp3");
  EXPECT_TRUE(window.document->PlaylistChanged);
  EXPECT_EQ(window.Panel(1), "Total: 2");
}

TEST_F(SelectionCommands, RemoveAllAndLeaveNothingToAskAbout) {
  window.Run("MEditSelAll");
  window.Run("MEditRemove");
  EXPECT_EQ(window.Rows().Count(), 0);
  EXPECT_TRUE(window.document->PlaylistChanged);
  window.main->close();
  EXPECT_TRUE(window.dialogs.messages.empty());
}

TEST_F(SelectionCommands, StayAtTheirPlaceInALongListWhenRowsGo) {
  window.drives.Write("long.m3u", [] {
    std::string lines;
    for (int i = 0; i < 500; ++i) lines += "c:\\gone\\" + std::to_string(i) + ".mp3\r\n";
    return lines;
  }());
  window.Add("c:\\long.m3u");
  window.Run("MEditSelNone");
  window.Rows().EnsureVisible(250);
  QCoreApplication::processEvents();
  const int before = window.List().verticalScrollBar()->value();
  Select({250, 252});
  window.Run("MEditRemove");
  QCoreApplication::processEvents();
  EXPECT_EQ(window.List().verticalScrollBar()->value(), before);
  EXPECT_EQ(window.List().currentIndex().row() + 1, 250);
}

TEST_F(SelectionCommands, ReplaceAMissingRow) {
  window.drives.Write("list.m3u", "c:\\gone.mp3\r\n");
  window.Add("c:\\list.m3u");
  window.drives.Write("here/gone.mp3", kNoise);
  window.dialogs.open_names = {"c:\\here\\gone.mp3"};
  window.Run("Mreloc");
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3 d.mp3 gone.mp3");
  EXPECT_EQ(window.Selected(), "----x");
  EXPECT_EQ(window.Rows().At(5).cells[kPath], "c:\\here\\");
  EXPECT_EQ(window.Panel(1), "Track: 5/5");
}

TEST_F(SelectionCommands, BearTheirCaptions) {
  const std::vector<std::pair<const char*, const char*>> captions{
      {"MEditSelAll", "Select &All"},
      {"MEditSelNone", "Select &None"},
      {"MEditSelFol", "Select in Folder"},
      {"MEditSelInv", "In&vert Selection"},
      {"MEditSelAlt", "Alternate Selection"},
      {"MEditSelRnd", "&Random Selection"},
      {"MEditSelLoc", "Open &Folder.."},
      {"MEditSelImpFol", "Im&port Folder"},
      {"MEditSeMarkBlue", "Blue.."},
      {"MEditSeMarkGreen", "Green..."},
      {"MEditSeMarkRed", "Red..."},
      {"MEditSeUnMark", "Remove Check Mark..."},
      {"MEditSelectMark", "Select Check Marked..."},
      {"MEditRemove", "&Remove Item"},
      {"Mreloc", "Replace/Relocate..."},
  };
  for (const auto& [name, caption] : captions) EXPECT_EQ(window.Action(name)->text().toStdString(), caption);
  EXPECT_EQ(window.main->findChild<QMenu*>("MEditSel")->title().toStdString(), "&Selection..");
  EXPECT_EQ(window.main->findChild<QMenu*>("MEditSeMark")->title().toStdString(), "Add &Check Mark...");
  EXPECT_TRUE(window.Action("Mrelocs")->isSeparator());
}

TEST_F(SelectionCommands, StandReadyWhateverIsSelectedWhereTheyNeedNoSelection) {
  for (const char* before : {"MEditSelNone", "MEditSelAll"}) {
    window.Run(before);
    for (const char* name : {"MEditSelInv", "MEditSelRnd", "MEditSelImpFol", "MEditSelectMark"}) {
      EXPECT_TRUE(window.Action(name)->isEnabled()) << name << " after " << before;
    }
  }
}

}  // namespace
}  // namespace qublet
