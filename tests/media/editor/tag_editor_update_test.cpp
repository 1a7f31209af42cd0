#include <algorithm>

#include "media/editor/tag_editor.h"
#include "media/editor/tag_journal.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

class TagEditorUpdateTest : public EditorTestBase {
 protected:
  TagEditorUpdateTest() {
    for (const char* name : {"1.mp3", "2.mp3", "3.mp3", "4.mp3"}) drives_.Write(name, TaggedSong(name));
    AddRows({"1.mp3", "2.mp3", "3.mp3", "4.mp3"});
  }
  void Load(const std::string& letters) {
    Select(letters);
    editor_.LoadSelection();
  }
  void Update() {
    editor_.CmdUpdate_Click({[&](int value, int maximum) {
                               values_.push_back(value);
                               maximum_ = maximum;
                             },
                             [&] { return stops_ && values_.size() >= 6; }});
  }
  std::string Orders() {
    std::string orders;
    for (int i = 1; i <= Rows().Count(); ++i) orders += Rows().At(i).cells[kOriginalOrder] + " ";
    return orders;
  }

  EditorSurroundings around_;
  TagEditor editor_{engine_, around_.codec, around_.background};
  EditorView& view_ = editor_.view;
  std::vector<int> values_;
  int maximum_ = 0;
  bool stops_ = false;
};

TEST_F(TagEditorUpdateTest, WritesTheFormIntoTheFile) {
  Load("-x--");
  view_.form.v2[kV2Title] = "New";
  view_.form.v1[kV1Title] = "Old";
  Update();
  EXPECT_EQ(Loaded("2.mp3").Frame("TIT2"), "New");
  EXPECT_EQ(Loaded("2.mp3").V1Title(), "Old");
  EXPECT_EQ(drives_.Read("1.mp3"), TaggedSong("1.mp3"));
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
  EXPECT_EQ(view_.form.v2[kV2Title], "New");
  EXPECT_EQ(maximum_, 2);
  EXPECT_EQ((std::vector<int>{values_[0], values_[1]}), (std::vector<int>{1, 2}));
  EXPECT_EQ(feedback_.waits, 0);
}

TEST_F(TagEditorUpdateTest, GivesSeveralFilesTheSameTags) {
  Load("x---");
  editor_.comments.Show({{"QUBLET_tpsidata", "000001000"}});
  editor_.positions.LoadTpsi();
  editor_.pictures.Show({{"p", "image/png", {1, 2, 3}}});
  editor_.CmdCopy_Click();
  Load("-xxx");
  editor_.CmdPaste_Click();
  Update();
  for (const char* name : {"2.mp3", "3.mp3", "4.mp3"}) {
    EXPECT_EQ(Loaded(name).Frame("TIT2"), "1.mp3");
    EXPECT_EQ(Loaded(name).Comments().At(1).text, "000001000");
    EXPECT_EQ(Loaded(name).Images().At(1).data, (Bytes{1, 2, 3}));
  }
  EXPECT_EQ(maximum_, 6);
  EXPECT_TRUE(std::is_sorted(values_.begin(), values_.end()));
}

TEST_F(TagEditorUpdateTest, StripsBothTagsOfAllFilesWithABlankForm) {
  Load("xxxx");
  Update();
  for (const char* name : {"1.mp3", "4.mp3"}) EXPECT_EQ(drives_.Read(name), AudioBytes(20));
}

TEST_F(TagEditorUpdateTest, SaysWhenTheOneFileFailsAndRebuildsTheRow) {
  Load("-x--");
  SetReadOnly("2.mp3", true);
  Rows().SetIcon(2, RowIcon::kBlue);
  Update();
  EXPECT_EQ(fakes_.dialogs.messages,
            (std::vector{ScriptedDialogs::Message{
                "Failed to update the file!, check that it is not in use or set as Read-Only.",
                MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(Rows().At(2).icon, RowIcon::kNormal) << "the row is read anew";
  EXPECT_EQ(drives_.Read("2.mp3"), TaggedSong("2.mp3"));
}

TEST_F(TagEditorUpdateTest, SaysWhenSomeFilesFailAndWritesTheOthers) {
  Load("x---");
  editor_.CmdCopy_Click();
  Load("xxxx");
  editor_.CmdPaste_Click();
  SetReadOnly("2.mp3", true);
  std::filesystem::remove(drives_.C() / "3.mp3");
  Update();
  EXPECT_EQ(fakes_.dialogs.messages,
            (std::vector{ScriptedDialogs::Message{
                "Some files could not be updated!, check that they are not in use or set as Read-Only.",
                MessageIcon::kExclamation, MessageButtons::kOk}}));
  EXPECT_EQ(Loaded("4.mp3").Frame("TIT2"), "1.mp3");
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kMissing);
  EXPECT_TRUE(view_.unusable) << "a file is missing now";
}

TEST_F(TagEditorUpdateTest, NeverWritesAFileThatIsNoMp3AnyMore) {
  Load("x---");
  std::filesystem::remove(drives_.C() / "1.mp3");
  std::filesystem::create_directory(drives_.C() / "1.mp3");
  Update();
  EXPECT_EQ(fakes_.dialogs.messages.size(), 1u);
  EXPECT_TRUE(std::filesystem::is_directory(drives_.C() / "1.mp3"));
}

TEST_F(TagEditorUpdateTest, LeavesTheRowsWhereTheyWere) {
  Rows().Reorder({4, 3, 2, 1});
  Rows().SetFocusedRow(3);
  Load("-xx-");
  Update();
  EXPECT_EQ(Selection(), "-xx-");
  EXPECT_EQ(Rows().FocusedRow(), 3);
  EXPECT_EQ(Orders(), "4 3 2 1 ");
  EXPECT_EQ(Rows().At(2).cells[kFileName], "3.mp3");
}

TEST_F(TagEditorUpdateTest, StopsBetweenTwoFilesAndCallsTheRestNoFailure) {
  Load("xxxx");
  stops_ = true;
  Update();
  EXPECT_EQ(drives_.Read("1.mp3"), AudioBytes(20));
  EXPECT_EQ(drives_.Read("2.mp3"), AudioBytes(20));
  EXPECT_EQ(drives_.Read("3.mp3"), TaggedSong("3.mp3"));
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
  EXPECT_EQ(Selection(), "xxxx");
}

// --- undo ---

TEST_F(TagEditorUpdateTest, CanBeUndoneOneUpdateAfterTheOther) {
  Load("x---");
  EXPECT_FALSE(view_.undo);
  Update();
  EXPECT_FALSE(view_.undo) << "an unchanged file is no run";
  view_.form.v2[kV2Title] = "New";
  Update();
  EXPECT_TRUE(view_.undo);
  Load("--xx");
  Update();
  editor_.CmdUndo_Click();
  EXPECT_EQ(view_.report, "Update undone: 2 files.");
  EXPECT_EQ(drives_.Read("4.mp3"), TaggedSong("4.mp3"));
  EXPECT_TRUE(view_.undo);
  editor_.CmdUndo_Click();
  EXPECT_EQ(view_.report, "Update undone: 1 file.");
  EXPECT_EQ(drives_.Read("1.mp3"), TaggedSong("1.mp3"));
  EXPECT_FALSE(view_.undo);
  editor_.CmdUndo_Click();
  EXPECT_EQ(Selection(), "--xx");
}

TEST_F(TagEditorUpdateTest, NamesWhatAnUndoLeavesAsItIs) {
  Load("xx--");
  Update();
  drives_.Write("2.mp3", TaggedSong("Changed"));
  editor_.CmdUndo_Click();
  EXPECT_EQ(view_.report, "Update undone: 1 file. Left as they are: c:\\2.mp3");
  EXPECT_EQ(drives_.Read("2.mp3"), TaggedSong("Changed"));
  EXPECT_EQ(drives_.Read("1.mp3"), TaggedSong("1.mp3"));
}

TEST_F(TagEditorUpdateTest, UndoesRunsOfTheWindowOnly) {
  TagRunRecord record(*files_, fakes_.clock, kCommandRun);
  const TagWrite write = PlanUpdate(*files_, "c:\\1.mp3", {});
  record.Note(write);
  record.Flush();
  Load("x---");
  EXPECT_FALSE(view_.undo);
}

}  // namespace
}  // namespace qublet
