#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTabBar>

#include "support/rename_form_test_base.h"
#include "tools/rename/rename_settings.h"

namespace qublet {
namespace {

class RenameFormTest : public RenameFormTestBase {
 protected:
  std::string RuleTexts() {
    std::string text;
    for (int row = 0; row < Rules().count(); ++row) {
      text += (Rules().item(row)->checkState() == Qt::Checked ? "[x] " : "[ ] ") +
              Rules().item(row)->text().toStdString() + "\n";
    }
    return text;
  }
  void AddRule(const char* from, const char* to) {
    Find<QLineEdit>("ToReplace").setText(QString::fromUtf8(from));
    Find<QLineEdit>("ReplaceTo").setText(QString::fromUtf8(to));
    Click("AddRule");
  }
  QTimer& Timer1() { return Find<QTimer>("Timer1"); }
};

TEST_F(RenameFormTest, HasTheTabsAndTheCaption) {
  Open();
  EXPECT_EQ(form_->windowTitle().toStdString(), "Batch Rename Selected Items...");
  QStringList titles;
  for (int page = 0; page < Pages().count(); ++page) titles << Pages().tabText(page);
  EXPECT_EQ(titles.join(u'|').toStdString(), "Setup|Macros|Rules|Summary|Preview");
}

TEST_F(RenameFormTest, HasTheGivenCaptionsAndHints) {
  Open();
  struct Caption {
    const char* name;
    const char* text;
    const char* hint;
  };
  for (const Caption& c :
       {Caption{"CmdProcess", "&Rename", "Proceed and Rename Files in the Playlist..."},
        {"CmdClose", "&Close", "Close this Dialogue"},
        {"Warning", "No Warning Dialogue...", "Prevents the warning dialogue from being shown before processing..."},
        {"RulesSave", "&Save", "Saves settings made to a file..."},
        {"RulesLoad", "&Load", "Loads setting in this dialogue from a file..."},
        {"RulesDef", "&Default", "Reset's Dialogues settings to Default..."}}) {
    EXPECT_EQ(Find<QAbstractButton>(c.name).text().toStdString(), c.text);
    EXPECT_EQ(Find<QAbstractButton>(c.name).toolTip().toStdString(), c.hint);
  }
  for (const Caption& c : {Caption{"cmdUndo", "Undo Last", ""},
                           {"AllowOnce", "Allow Processing Only Once", ""},
                           {"Delay", "Delay before allowing reprocess..", ""},
                           {"Capitalise", "Capitalize start of &Each Word and condition", ""},
                           {"LowFilename", "Convert &Filename  to be Lower-Case", ""},
                           {"Extension", "Convert E&xtension to be Lower-Case", ""},
                           {"RemNumbers", "Remove &Numbers from the filename", ""},
                           {"Truncat", "Li&mit filename length to:", ""},
                           {"Increment", "Add &Incremental numbers to each item:", ""},
                           {"RenID3", "Automatic Rename Using ID3 Title/Artist &Data", ""}})
    EXPECT_EQ(Find<QAbstractButton>(c.name).text().toStdString(), c.text);
  for (const Caption& c :
       {Caption{"Label4",
                "CAUTION: Make sure none of the files SELECTED for renaming are in use, E.G. Being PLAYED, or VIEWED "
                "in Windows Explorer...",
                ""},
        {"Label9", "Prevent accidental and unrecoverable renaming", ""},
        {"LabelRules", "Load and Save the configuration to save time and maintain consistency.", ""},
        {"CaptionToReplace", "Replace/Remove:", ""},
        {"CaptionReplaceTo", "With/Add:", ""},
        {"CaptionTruncval", "characters...", ""}})
    EXPECT_EQ(Find<QLabel>(c.name).text().toStdString(), c.text);
  for (const Caption& c : {Caption{"ToReplace", "", "Text in this Box ONLY will create a Remove rule..."},
                           {"ReplaceTo", "", "Text in this Box ONLY will create a addition rule..."},
                           {"RuleList", "", "Current list of Rules executed from Top to Bottom..."}})
    EXPECT_EQ(Find<QWidget>(c.name).toolTip().toStdString(), c.hint);
}

TEST_F(RenameFormTest, BeginsWithItsDefaults) {
  AddSongs({"a.mp3", "b.mp3"});
  Open();
  EXPECT_EQ(Report(), "2 Items Selected.");
  EXPECT_TRUE(Enabled("CmdProcess"));
  EXPECT_FALSE(Enabled("cmdUndo"));
  EXPECT_FALSE(Find<QCheckBox>("Warning").isChecked());
  EXPECT_TRUE(Find<QCheckBox>("AllowOnce").isChecked());
  EXPECT_TRUE(Find<QCheckBox>("Delay").isChecked());
  EXPECT_TRUE(Find<QCheckBox>("Capitalise").isChecked());
  EXPECT_TRUE(Find<QCheckBox>("Extension").isChecked());
  EXPECT_FALSE(Find<QCheckBox>("RenID3").isChecked());
  EXPECT_FALSE(Enabled("Truncval"));
  EXPECT_FALSE(Enabled("IncPosC"));
  EXPECT_EQ(Find<QComboBox>("Truncval").currentText().toStdString(), "32");
  EXPECT_EQ(Find<QComboBox>("Truncval").count(), 255 - 8 + 1);
  EXPECT_EQ(Find<QComboBox>("IncPosC").currentText().toStdString(), "At Start");
  EXPECT_EQ(RuleTexts(), "[x] Replace '_' with ' '\n");
  EXPECT_EQ(Find<QLineEdit>("Test1").text().toStdString(), "SAmPle File_naMe.MP3");
  EXPECT_EQ(Find<QLineEdit>("ToReplace").maxLength(), 99);
  EXPECT_EQ(Find<QLineEdit>("ReplaceTo").maxLength(), 99);
  EXPECT_FALSE(Timer1().isActive());
}

TEST_F(RenameFormTest, IsOfNoUseWithoutASelection) {
  Open();
  EXPECT_EQ(Report(), "Nothing Selected...");
  EXPECT_FALSE(Enabled("CmdProcess"));
}

TEST_F(RenameFormTest, RenamesAndUndoes) {
  AddSongs({"a_b.mp3"});
  Open();
  Run();
  EXPECT_EQ(FilesOfC(), "A B.mp3");
  EXPECT_EQ(Report(), "Done: 1/1 Items were Processed");
  EXPECT_FALSE(Enabled("CmdProcess"));
  EXPECT_TRUE(Enabled("cmdUndo"));
  EXPECT_TRUE(Find<QCheckBox>("Warning").isChecked());
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").value(), 0);
  Click("cmdUndo");
  EXPECT_EQ(FilesOfC(), "a_b.mp3");
  EXPECT_FALSE(Enabled("cmdUndo"));
  EXPECT_TRUE(Timer1().isActive());
  EXPECT_EQ(Timer1().interval(), 4000);
}

TEST_F(RenameFormTest, TheTimerAllowsAnotherRun) {
  AddSongs({"a_b.mp3"});
  Open();
  Click("Delay");
  EXPECT_EQ(Timer1().interval(), 10);
  Click("AllowOnce");
  Run();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Enabled("CmdProcess"); }));
  EXPECT_FALSE(Timer1().isActive());
  Click("AllowOnce");
  EXPECT_FALSE(Enabled("CmdProcess"));
  Click("Delay");
  EXPECT_EQ(Timer1().interval(), 4000);
}

TEST_F(RenameFormTest, WhatItsMessageBoxesDoNotActivateIt) {
  AddSongs({"a_b.mp3"});
  Open();
  Run();
  ASSERT_FALSE(Enabled("CmdProcess"));
  Turn("Macros");
  QMessageBox box(form_.get());
  box.setText("a question");
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
  box.close();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  EXPECT_FALSE(Enabled("CmdProcess"));
  EXPECT_EQ(Pages().currentIndex(), 1);
}

TEST_F(RenameFormTest, OnlyHidesWhenItIsClosed) {
  AddSongs({"a_b.mp3"});
  Open();
  Turn("Rules");
  Click("LowFilename");
  Turn("Macros");
  AddRule("x", "y");
  Run();
  window_.shown.clear();
  Click("CmdClose");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(Report(), "Ready...");
  EXPECT_EQ(window_.shown, std::vector<std::string>{"click"});
  Open();
  EXPECT_EQ(Pages().currentIndex(), 0);
  EXPECT_EQ(Report(), "1 Items Selected.");
  EXPECT_TRUE(Enabled("CmdProcess"));
  EXPECT_TRUE(Enabled("cmdUndo"));
  EXPECT_TRUE(Find<QCheckBox>("LowFilename").isChecked());
  EXPECT_EQ(Rules().count(), 2);
  Click("cmdUndo");
  EXPECT_EQ(FilesOfC(), "a_b.mp3");
}

TEST_F(RenameFormTest, EscapeAndTheCloseBoxAreTheSameAsClose) {
  AddSongs({"a_b.mp3"});
  Open();
  window_.shown.clear();
  QTest::keyClick(form_.get(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  Open();
  form_->close();
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(window_.shown, (std::vector<std::string>{"click", "click"}));
}

TEST_F(RenameFormTest, OptionsEnableTheirValues) {
  Open();
  Turn("Rules");
  Click("Truncat");
  EXPECT_TRUE(Enabled("Truncval"));
  Click("Increment");
  EXPECT_TRUE(Enabled("IncPosC"));
  QTest::keyClick(&Find<QComboBox>("IncPosC"), Qt::Key_Down);
  QTest::keyClick(&Find<QComboBox>("Truncval"), Qt::Key_Home);
  EXPECT_EQ(Find<QComboBox>("Truncval").currentText().toStdString(), "8");
  Click("RenTest");
  EXPECT_EQ(Find<QLineEdit>("Test2").text().toStdString(), "Sample F.mp3");
  Click("Truncat");
  EXPECT_FALSE(Enabled("Truncval"));
  Click("RenTest");
  EXPECT_EQ(Find<QLineEdit>("Test2").text().toStdString(), "Sample File Name - 08.mp3");
}

TEST_F(RenameFormTest, TriesASampleName) {
  Open();
  Turn("Rules");
  auto& sample = Find<QLineEdit>("Test1");
  sample.clear();
  QTest::keyClicks(&sample, "my_song.mp3");
  QTest::keyClick(&sample, Qt::Key_Return);
  EXPECT_EQ(Find<QLineEdit>("Test2").text().toStdString(), "My Song.mp3");
  EXPECT_EQ(Report(), "Generated Test FileName from: my_song.mp3");
  Click("RenReset");
  EXPECT_EQ(sample.text().toStdString(), "SAmPle File_naMe.MP3");
  EXPECT_EQ(Find<QLineEdit>("Test2").text().toStdString(), "");
}

TEST_F(RenameFormTest, RulesAreMadeByKeyboard) {
  Open();
  Turn("Macros");
  QTest::keyClicks(&Find<QLineEdit>("ToReplace"), "a");
  QTest::keyClick(&Find<QLineEdit>("ToReplace"), Qt::Key_Return);
  EXPECT_EQ(RuleTexts(), "[x] Replace '_' with ' '\n[x] Remove 'a'\n");
  Rules().setFocus();
  Rules().setCurrentRow(1);
  QTest::keyClick(&Rules(), Qt::Key_Space);
  EXPECT_EQ(RuleTexts(), "[x] Replace '_' with ' '\n[ ] Remove 'a'\n");
  Rules().setCurrentRow(0);
  QTest::keyClick(&Rules(), Qt::Key_Delete);
  EXPECT_EQ(RuleTexts(), "[ ] Remove 'a'\n");
}

TEST_F(RenameFormTest, RemovesTheHighlightedRuleOnly) {
  Open();
  Turn("Macros");
  Click("RemoveRule");
  EXPECT_EQ(Rules().count(), 1) << "none is highlighted";
  AddRule("a", "b");
  Rules().setCurrentRow(1);
  Click("RemoveRule");
  EXPECT_EQ(RuleTexts(), "[x] Replace '_' with ' '\n");
}

TEST_F(RenameFormTest, TicksReachTheRun) {
  AddSongs({"a_b.mp3"});
  Open();
  Turn("Macros");
  Rules().item(0)->setCheckState(Qt::Unchecked);
  Run();
  EXPECT_EQ(FilesOfC(), "A_B.mp3");
}

TEST_F(RenameFormTest, ShowsTheSummary) {
  Open();
  Turn("Summary");
  auto& list = Find<QTreeWidget>("TestList");
  ASSERT_EQ(list.topLevelItemCount(), 5);
  EXPECT_EQ(list.topLevelItem(1)->text(0).toStdString(), "2");
  EXPECT_EQ(list.topLevelItem(1)->text(1).toStdString(), "'_' in the filename will be replaced with ' '.");
  EXPECT_EQ(Report(), "Generated Report of Renaming Rules...");
  Turn("Rules");
  Click("RemNumbers");
  Turn("Summary");
  EXPECT_EQ(list.topLevelItemCount(), 6);
}

TEST_F(RenameFormTest, ALengthOutsideTheListIsShownAndStays) {
  RenameConfig config;
  config.Truncat = true;
  config.Truncval = 300;
  ASSERT_TRUE(WriteRenameSettings(*files_, "c:\\long.rps", config));
  fakes_.dialogs.open_names = {"c:\\long.rps"};
  fakes_.dialogs.save_names = {"c:\\again.rps"};
  Open();
  Click("RulesLoad");
  auto& length = Find<QComboBox>("Truncval");
  EXPECT_EQ(length.placeholderText().toStdString(), "300");
  EXPECT_EQ(length.currentIndex(), -1);
  Click("RulesSave");
  EXPECT_EQ(drives_.Read("again.rps"), drives_.Read("long.rps"));
  Turn("Rules");
  QTest::keyClick(&length, Qt::Key_End);
  EXPECT_EQ(length.currentText().toStdString(), "255");
}

TEST_F(RenameFormTest, GetsItsDefaultsBack) {
  Open();
  Turn("Rules");
  Click("Capitalise");
  Click("Increment");
  Turn("Setup");
  Click("RulesDef");
  EXPECT_TRUE(Find<QCheckBox>("Capitalise").isChecked());
  EXPECT_FALSE(Find<QCheckBox>("Increment").isChecked());
  EXPECT_FALSE(Enabled("IncPosC"));
}

}  // namespace
}  // namespace qublet
