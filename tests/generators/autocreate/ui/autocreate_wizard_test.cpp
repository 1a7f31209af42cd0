#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeWidget>

#include "desk/report_line.h"
#include "generators/autocreate/ui/AutoCreateWizard.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

class AutoCreateWizardTest : public EditorTestBase {
 protected:
  AutoCreateWizardTest() {
    for (const char* name : {"m/a/1.mp3", "m/b/2.mp3"}) drives_.Write(name, "song");
    std::filesystem::create_directory(drives_.C() / "lists");
  }

  void Open(const std::vector<std::string>& names = {"m\\a\\1.mp3", "m\\b\\2.mp3"}) {
    AddRows(names);
    form_ = std::make_unique<AutoCreateWizard>(engine_, nullptr);
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = form_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  void Click(const char* name) {
    auto& button = Find<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
  }
  void Next(int times = 1) {
    for (int i = 0; i < times; ++i) Click("CmdNext");
  }
  // Return, wherever the keyboard is.
  void Press(Qt::Key key) { QTest::keyClick(form_->focusWidget(), key); }
  std::string Focused() const { return form_->focusWidget()->objectName().toStdString(); }
  int Frame() { return Find<QStackedWidget>("FrameStep").currentIndex(); }
  std::string Text(const char* name) { return Find<QLabel>(name).text().toStdString(); }
  bool IsEnabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
  std::string RowsOf(const char* name) {
    std::string texts;
    auto& list = Find<QTreeWidget>(name);
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
      const QTreeWidgetItem& item = *list.topLevelItem(row);
      const bool has_box = item.data(0, Qt::CheckStateRole).isValid();
      if (has_box) texts += item.checkState(0) == Qt::Checked ? "x " : "- ";
      texts += item.text(0).toStdString() + "\n";
    }
    return texts;
  }
  bool IsThere(const std::string& path) const { return files_->Exists(path); }

  std::unique_ptr<AutoCreateWizard> form_;
};

TEST_F(AutoCreateWizardTest, HasItsTexts) {
  Open();
  const char* const headings[] = {"Step 1 - Choose Mode...", "Step 2 - Select Folders...",
                                  "Step 3 - Select Playlist Naming Format...", "Step 4 - Create Files..."};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Text(("Heading" + std::to_string(i)).c_str()), headings[i]);
  for (const auto& [name, text] :
       {std::pair{"BaseFolderOnly", "Create M3U's in the base folder where the MP3 files reside..."},
        {"RootFolderOnly", "Create M3U's in the 'Relative' or highest level folder only..."},
        {"BothFolders", "Create M3U's in both of the above folders..."},
        {"MyFolderOnly", "Just Create absolute M3U's at a location specified..."},
        {"CmdTest", "Test"},
        {"cmdUndo", "Undo"},
        {"CmdBack", "<Back"},
        {"CmdNext", "Next>"},
        {"CmdClose", "Close"}})
    EXPECT_EQ(Find<QAbstractButton>(name).text().remove(u'&').toStdString(), text);
  EXPECT_EQ(Text("Label2"),
            "Please remove the tick from any folders you wish the process not to automatically create an M3U file "
            "for...");
  EXPECT_EQ(Text("Label3"), "Now choose the naming convention that should be applied to the M3U files created.");
  EXPECT_EQ(Text("Label4"),
            "%1 will give the lowest level folder name, %2 the next highest etc. You can insert any user text you "
            "wish to add to the playlist name. Insert %TIME or %DATE to add the time/date to the playlist name.");
  EXPECT_EQ(Text("Label7"),
            " If you leave this box blank the playlist name will be based on the names of all the subfolders up to "
            "the root...");
  EXPECT_EQ(Text("Label6"), "Autocreate Playlists Wizard...");
  EXPECT_TRUE(Text("Label1").starts_with("Welcome to the 'Autocreate M3U's Wizard'. This Wizard will"));
  EXPECT_TRUE(Text("Label5").starts_with("The process is now ready to begin."));
  EXPECT_TRUE(form_->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(AutoCreateWizardTest, GoesThroughItsStepsByReturnAlone) {
  Open();
  EXPECT_EQ(Focused(), "BaseFolderOnly");
  EXPECT_FALSE(IsEnabled("CmdBack"));
  std::string way;
  for (int i = 0; i < 3; ++i) {
    Press(Qt::Key_Return);
    way += std::to_string(Frame()) + " " + Focused() + "\n";
  }
  EXPECT_EQ(way, "1 CmdNext\n2 CmdNext\n3 CmdNext\n");
  EXPECT_FALSE(IsThere("c:\\m\\a\\a-m.m3u"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Frame(), 3);
  EXPECT_EQ(Focused(), "CmdClose");
  EXPECT_FALSE(IsEnabled("CmdBack"));
  EXPECT_EQ(drives_.Read("m/a/a-m.m3u"), "1.mp3\r\n");
  Press(Qt::Key_Return);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(AutoCreateWizardTest, GoesBack) {
  Open();
  Next(3);
  for (const int frame : {2, 1, 0}) {
    Click("CmdBack");
    EXPECT_EQ(Frame(), frame);
  }
  EXPECT_FALSE(IsEnabled("CmdBack"));
  EXPECT_EQ(Focused(), "CmdNext");
}

TEST_F(AutoCreateWizardTest, ShowsTheWholeReportAndItsLastLine) {
  Open();
  Next(4);
  EXPECT_EQ(RowsOf("lstReport"),
            "Searching for Root Folder...\n"
            "Root Folder found as: c:\\m\n"
            "Building a list of files to be created...\n"
            "c:\\m\\a\\a-m.m3u\n"
            "c:\\m\\b\\b-m.m3u\n"
            "Searching for duplicates...\n"
            "No duplicates found...\n"
            "Creating Files...\n"
            "> - c:\\m\\a\\a-m.m3u\n"
            "> - c:\\m\\b\\b-m.m3u\n"
            "PROCESS COMPLETE!\n"
            "2 Files Requested\n"
            "2 Files written OK\n"
            "0 Files could not be created\n");
  auto& list = Find<QTreeWidget>("lstReport");
  const QRect last = list.visualItemRect(list.topLevelItem(list.topLevelItemCount() - 1));
  EXPECT_TRUE(list.viewport()->rect().contains(last.bottomLeft()));
  EXPECT_TRUE(list.selectedItems().isEmpty());
  EXPECT_EQ(Find<QProgressBar>("ProgressBar2").value(), 0);
  EXPECT_TRUE(Text("Label5").starts_with("Process Complete, Click Next> to repeat the Wizard."));
}

TEST_F(AutoCreateWizardTest, StartsAnew) {
  Open();
  Next(4);
  AddRows({"m\\a\\3.mp3"});
  Next();
  EXPECT_EQ(Frame(), 0);
  EXPECT_EQ(RowsOf("lstPaths"), "x c:\\m\\a\\\nx c:\\m\\b\\\nx c:\\m\\a\\\n");
  EXPECT_EQ(RowsOf("lstReport"), "");
  EXPECT_FALSE(IsEnabled("cmdUndo"));
  EXPECT_TRUE(Text("Label5").starts_with("The process is now ready to begin."));
}

TEST_F(AutoCreateWizardTest, EachOptionSaysWhereThePlaylistsGo) {
  struct Case {
    const char* option;
    std::vector<std::string> files;
  };
  for (const Case& one : {Case{"RootFolderOnly", {"c:\\m\\a-m.m3u", "c:\\m\\b-m.m3u"}},
                          Case{"BothFolders", {"c:\\m\\a\\a-m.m3u", "c:\\m\\a-m.m3u", "c:\\m\\b\\b-m.m3u"}},
                          Case{"BaseFolderOnly", {"c:\\m\\a\\a-m.m3u", "c:\\m\\b\\b-m.m3u"}},
                          Case{"MyFolderOnly", {"c:\\lists\\a-m.m3u", "c:\\lists\\b-m.m3u"}}}) {
    fakes_.dialogs.folders = {"c:\\lists"};
    Rows().Clear();
    Open();
    Click(one.option);
    Next(4);
    for (const std::string& file : one.files) EXPECT_TRUE(IsThere(file)) << one.option << " " << file;
    fakes_.dialogs.answers = {MessageAnswer::kYes};
    Click("cmdUndo");
    for (const std::string& file : one.files) EXPECT_FALSE(IsThere(file)) << one.option << " " << file;
  }
}

TEST_F(AutoCreateWizardTest, ShowsTheFolderForAllBelowItsOption) {
  Open();
  fakes_.dialogs.folders = {"c:\\lists", std::nullopt};
  Click("MyFolderOnly");
  EXPECT_EQ(Find<ReportLine>("MyFolderLine").Reported().toStdString(), "c:\\lists\\");
  EXPECT_TRUE(Find<QRadioButton>("MyFolderOnly").isChecked());
  Click("MyFolderOnly");
  EXPECT_EQ(fakes_.dialogs.browse_titles.size(), 2U);
  EXPECT_TRUE(Find<QRadioButton>("BaseFolderOnly").isChecked());
  EXPECT_FALSE(Find<QRadioButton>("MyFolderOnly").isChecked());
  EXPECT_EQ(Find<ReportLine>("MyFolderLine").Reported().toStdString(), "");
  EXPECT_EQ(Focused(), "BaseFolderOnly");
}

TEST_F(AutoCreateWizardTest, TheArrowKeysChooseAModeToo) {
  Open();
  Press(Qt::Key_Down);
  EXPECT_TRUE(Find<QRadioButton>("RootFolderOnly").isChecked());
  Next(4);
  EXPECT_TRUE(IsThere("c:\\m\\a-m.m3u"));
  EXPECT_FALSE(IsThere("c:\\m\\a\\a-m.m3u"));
}

TEST_F(AutoCreateWizardTest, ATwoDrivesRunSwitchesTheOption) {
  drives_.WriteAt(drives_.D() / "n" / "4.mp3", "song");
  engine_.items.AddFile("d:\\n\\4.mp3", 0, 0);
  Open();
  Click("BothFolders");
  Next(5);
  EXPECT_EQ(Frame(), 0);
  EXPECT_TRUE(Find<QRadioButton>("BaseFolderOnly").isChecked());
}

TEST_F(AutoCreateWizardTest, SpaceTicksAFolder) {
  Open();
  Next();
  EXPECT_EQ(RowsOf("lstPaths"), "x c:\\m\\a\\\nx c:\\m\\b\\\n");
  auto& list = Find<QTreeWidget>("lstPaths");
  list.setFocus();
  Press(Qt::Key_Down);
  Press(Qt::Key_Space);
  EXPECT_EQ(RowsOf("lstPaths"), "x c:\\m\\a\\\n- c:\\m\\b\\\n");
  Next(3);
  EXPECT_TRUE(IsThere("c:\\m\\a\\a-m.m3u"));
  EXPECT_FALSE(IsThere("c:\\m\\b\\b-m.m3u"));
}

TEST_F(AutoCreateWizardTest, ADoubleClickOrF4OpensAFolder) {
  Open();
  Next();
  auto& list = Find<QTreeWidget>("lstPaths");
  const QPoint second = list.visualItemRect(list.topLevelItem(1)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(fakes_.shell.explored, std::vector<std::string>{"c:\\m\\b\\"});
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Home);
  QTest::keyClick(&list, Qt::Key_F4);
  EXPECT_EQ(fakes_.shell.explored.back(), "c:\\m\\a\\");
  EXPECT_EQ(RowsOf("lstPaths"), "x c:\\m\\a\\\nx c:\\m\\b\\\n");
}

TEST_F(AutoCreateWizardTest, TestsTheFormatThatIsWritten) {
  Open();
  Next(2);
  auto& format = Find<QLineEdit>("Parameters");
  EXPECT_EQ(format.text().toStdString(), "%1-%2");
  Click("CmdTest");
  EXPECT_EQ(Find<ReportLine>("TestOutput").Reported().toStdString(), "a-m.m3u");
  format.clear();
  QTest::keyClicks(&format, QStringLiteral("all of %1"));
  Click("CmdTest");
  EXPECT_EQ(Find<ReportLine>("TestOutput").Reported().toStdString(), "all of a.m3u");
  Next(2);
  EXPECT_EQ(drives_.Read("m/b/all of b.m3u"), "2.mp3\r\n");
}

TEST_F(AutoCreateWizardTest, AFormatThatGivesNoNameIsPutBack) {
  Open();
  Next(2);
  auto& format = Find<QLineEdit>("Parameters");
  format.clear();
  QTest::keyClicks(&format, QStringLiteral(":"));
  Click("CmdTest");
  EXPECT_EQ(fakes_.dialogs.messages.back().text, "The resultant File name will not be valid.");
  EXPECT_EQ(format.text().toStdString(), "%1-%2");
  EXPECT_EQ(Focused(), "Parameters");
}

TEST_F(AutoCreateWizardTest, UndoesARun) {
  Open();
  EXPECT_FALSE(IsEnabled("cmdUndo"));
  Next(4);
  EXPECT_TRUE(IsEnabled("cmdUndo"));
  Click("cmdUndo");
  EXPECT_TRUE(IsThere("c:\\m\\a\\a-m.m3u"));
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  Find<QPushButton>("cmdUndo").setFocus();
  Press(Qt::Key_Space);
  EXPECT_FALSE(IsThere("c:\\m\\a\\a-m.m3u"));
  EXPECT_FALSE(IsEnabled("cmdUndo"));
  EXPECT_EQ(Focused(), "CmdClose");
  EXPECT_TRUE(RowsOf("lstReport")
                  .ends_with("2 Files Requested\n2 Files deleted OK\n"
                             "0 Files could not be deleted [in use, missing?]\n"));
}

TEST_F(AutoCreateWizardTest, ShutsItselfWhereNoFolderIsThere) {
  Open({"gone\\9.mp3"});
  EXPECT_EQ(Text("Label1"), "This Wizard can only work with items that are pointed to correctly in the Playlist...");
  for (const char* name : {"BaseFolderOnly", "RootFolderOnly", "BothFolders", "MyFolderOnly", "CmdNext", "CmdBack"})
    EXPECT_FALSE(IsEnabled(name)) << name;
  EXPECT_EQ(Focused(), "CmdClose");
}

TEST_F(AutoCreateWizardTest, TheEscapeKeyClosesIt) {
  Open();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(AutoCreateWizardTest, LongNamesNeverWidenIt) {
  const std::string deep = "m/" + std::string(200, 'a') + "/" + std::string(200, 'b');
  drives_.Write(deep + "/1.mp3", "song");
  const int usual = [this] {
    Open();
    return form_->width();
  }();
  engine_.items.AddFile("c:\\m\\" + std::string(200, 'a') + "\\" + std::string(200, 'b') + "\\1.mp3", 0, 0);
  Open({});
  EXPECT_EQ(form_->width(), usual);
  Next(4);
  EXPECT_EQ(form_->width(), usual);
  EXPECT_LE(form_->minimumSizeHint().width(), usual);
}

// The text of a name is no markup and no mark of a key.
TEST_F(AutoCreateWizardTest, ShowsNamesAsPlainText) {
  drives_.Write("m/R&B &lt;/5.mp3", "song");
  Open({"m\\R&B &lt;\\5.mp3"});
  Next(2);
  EXPECT_EQ(RowsOf("lstPaths"), "x c:\\m\\R&B &lt;\\\n");
  Click("CmdTest");
  EXPECT_EQ(Find<ReportLine>("TestOutput").text().toStdString(), "R&B &lt;-m.m3u");
  Next(2);
  EXPECT_TRUE(IsThere("c:\\m\\R&B &lt;\\R&B &lt;-m.m3u"));
}

TEST_F(AutoCreateWizardTest, AFullListRunsWithoutLossOfALine) {
  constexpr int kFolders = 300;
  for (int i = 0; i < kFolders; ++i) {
    drives_.Write("n/" + std::to_string(i) + "/1.mp3", "song");
    AddRows({"n\\" + std::to_string(i) + "\\1.mp3"});
  }
  Open({});
  Next(4);
  EXPECT_EQ(Find<QTreeWidget>("lstReport").topLevelItemCount(), 2 * kFolders + 10);
  EXPECT_TRUE(RowsOf("lstReport").ends_with("300 Files written OK\n0 Files could not be created\n"));
}

}  // namespace
}  // namespace qublet
