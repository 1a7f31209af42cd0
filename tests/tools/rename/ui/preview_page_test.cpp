#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>

#include "support/rename_form_test_base.h"

namespace qublet {
namespace {

class PreviewPageTest : public RenameFormTestBase {
 protected:
  std::string Counts() { return Find<QLabel>("Counts").text().toStdString(); }
};

TEST_F(PreviewPageTest, ShowsOldAndNewNamesWithTheirFate) {
  AddSongs({"a_b.MP3", "C.mp3", "x_y.mp3", "d_e.mp3"});
  drives_.Write("D E.mp3", "");
  Select("xx-x");
  Open();
  Turn("Preview");
  EXPECT_EQ(Preview(),
            "1 a_b.MP3 > A B.mp3: renamed\n2 C.mp3 > C.mp3: unchanged\n3 d_e.mp3 > D E.mp3: name taken on disk\n");
  EXPECT_EQ(Counts(), "3 files: 1 renamed, 1 unchanged, 1 with a problem");
  EXPECT_EQ(FilesOfC(), "C.mp3|D E.mp3|a_b.MP3|d_e.mp3|x_y.mp3");
}

TEST_F(PreviewPageTest, ShowsOnlyProblems) {
  AddSongs({"a_b.mp3", "d_e.mp3"});
  drives_.Write("D E.mp3", "");
  Open();
  Turn("Preview");
  Preview();
  Click("OnlyProblems");
  EXPECT_EQ(Preview(), "2 d_e.mp3 > D E.mp3: name taken on disk\n");
  EXPECT_EQ(Counts(), "2 files: 1 renamed, 0 unchanged, 1 with a problem");
  Click("OnlyProblems");
  EXPECT_EQ(Find<QTreeView>("PreviewTable").model()->rowCount(), 2);
}

TEST_F(PreviewPageTest, FollowsTheOptions) {
  AddSongs({"a_b.mp3"});
  Open();
  Turn("Preview");
  EXPECT_EQ(Preview(), "1 a_b.mp3 > A B.mp3: renamed\n");
  Turn("Rules");
  Click("LowFilename");
  Turn("Preview");
  EXPECT_EQ(Preview(), "1 a_b.mp3 > a b.mp3: renamed\n");
}

TEST_F(PreviewPageTest, FollowsARunAndItsUndo) {
  AddSongs({"a_b.mp3"});
  Open();
  Turn("Preview");
  EXPECT_EQ(Preview(), "1 a_b.mp3 > A B.mp3: renamed\n");
  Run();
  EXPECT_EQ(Preview(), "1 A B.mp3 > A B.mp3: unchanged\n");
  Click("cmdUndo");
  EXPECT_EQ(Preview(), "1 a_b.mp3 > A B.mp3: renamed\n");
}

TEST_F(PreviewPageTest, SeesAFileThatHasGone) {
  AddSongs({"a_b.mp3"});
  Open();
  std::filesystem::remove(drives_.C() / "a_b.mp3");
  Turn("Preview");
  EXPECT_EQ(Preview(), "1 a_b.mp3 > A B.mp3: missing\n");
}

TEST_F(PreviewPageTest, AFileThatVanishesBeforeTheRunCostsOnlyItself) {
  AddSongs({"a_b.mp3", "c_d.mp3"});
  Open();
  Turn("Preview");
  EXPECT_EQ(Preview(), "1 a_b.mp3 > A B.mp3: renamed\n2 c_d.mp3 > C D.mp3: renamed\n");
  std::filesystem::remove(drives_.C() / "a_b.mp3");
  fakes_.dialogs.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  Click("CmdProcess");
  EXPECT_EQ(Report(), "Done: 1/2 Items were Processed");
  EXPECT_EQ(Preview(), "1 a_b.mp3 > A B.mp3: missing\n2 C D.mp3 > C D.mp3: unchanged\n");
  EXPECT_EQ(FilesOfC(), "C D.mp3");
}

TEST_F(PreviewPageTest, ShowsTheNumbersForBothAnswers) {
  AddSongs({"1\\a.mp3", "2\\b.mp3"});
  Open();
  Turn("Preview");
  EXPECT_TRUE(Find<QCheckBox>("ResetCount").isChecked());
  EXPECT_FALSE(Enabled("ResetCount"));
  Turn("Rules");
  Click("Increment");
  Turn("Preview");
  EXPECT_TRUE(Enabled("ResetCount"));
  EXPECT_EQ(Preview(), "1 a.mp3 > 1 - A.mp3: renamed\n2 b.mp3 > 1 - B.mp3: renamed\n");
  Click("ResetCount");
  EXPECT_EQ(Preview(), "1 a.mp3 > 1 - A.mp3: renamed\n2 b.mp3 > 2 - B.mp3: renamed\n");
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  Click("CmdProcess");
  EXPECT_EQ(fakes_.dialogs.messages.size(), 2u) << "the run asks all the same";
}

TEST_F(PreviewPageTest, CopiesTheRowsAsText) {
  AddSongs({"a_b.mp3", "C.mp3"});
  Open();
  Turn("Preview");
  Preview();
  Click("CopyText");
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            "1\ta_b.mp3\tA B.mp3\trenamed\n2\tC.mp3\tC.mp3\tunchanged\n");
}

TEST_F(PreviewPageTest, ShowsTheFolderThatAFileGoesTo) {
  AddSongs({"a+b.mp3", "a\\c.mp3"});
  Select("x-");
  Open();
  Turn("Macros");
  Find<QLineEdit>("ToReplace").setText("+");
  Find<QLineEdit>("ReplaceTo").setText("\\");
  Click("AddRule");
  Turn("Rules");
  Click("Capitalise");
  Turn("Preview");
  EXPECT_EQ(Preview(), "1 a+b.mp3 > a\\b.mp3: goes to another folder\n");
  std::filesystem::remove_all(drives_.C() / "a");
  Click("CmdClose");
  Open();
  Turn("Preview");
  EXPECT_EQ(Preview(), "1 a+b.mp3 > a\\b.mp3: refused: no such file or folder\n");
}

TEST_F(PreviewPageTest, NamesAreNeverMarkup) {
  AddSongs({"<b>a_b.mp3"});
  Open();
  Turn("Preview");
  Preview();
  const QModelIndex cell = Find<QTreeView>("PreviewTable").model()->index(0, 1);
  EXPECT_EQ(cell.data().toString().toStdString(), "<b>a_b.mp3");
  EXPECT_TRUE(cell.data(Qt::ToolTipRole).toString().contains(u"&lt;b&gt;"));
}

}  // namespace
}  // namespace qublet
