#include "tools/rename/rename_journal.h"

#include <gtest/gtest.h>

#include "platform/forwarding_file_system.h"
#include "platform/program.h"
#include "support/rename_test_base.h"
#include "tools/rename/apply_rules.h"

namespace qublet {
namespace {

class RenameJournalTest : public RenameTestBase {
 protected:
  // "a>b": c:\a becomes c:\b. What isn't noted is renamed without a word of it in the journal.
  void Run(const std::vector<std::string>& renames, bool noted = true) {
    std::vector<PlannedRename> plan;
    for (const std::string& rename : renames) {
      const std::size_t mark = rename.find('>');
      plan.push_back({"c:\\" + rename.substr(0, mark), "c:\\" + rename.substr(mark + 1)});
    }
    RenameRunRecord record(*files_);
    ASSERT_TRUE(record.Begin(fakes_.clock, plan));
    for (std::size_t i = 0; i < plan.size(); ++i) {
      const bool renamed = static_cast<bool>(RenameTo(*files_, plan[i].old_path, plan[i].new_path).outcome);
      if (noted) record.Note(i, renamed);
    }
  }
  std::string Undo(std::optional<int> run = std::nullopt) const {
    const RenameUndo undo = UndoRenameRun(*files_, run ? *run : NewestRenameRun(*files_).value());
    std::string text;
    for (const PlannedRename& rename : undo.restored) text += rename.old_path + " > " + rename.new_path + "\n";
    for (const RenameUndo::Left& left : undo.left) text += left.path + ": " + left.reason + "\n";
    return text;
  }
  std::string History() const {
    std::string text;
    for (const RenameRunFacts& run : RenameRuns(*files_))
      text += std::to_string(run.number) + ": " + std::to_string(run.renamed) + "\n";
    return text;
  }
  std::filesystem::path RunPlace(int number) const {
    const std::filesystem::path folder =
        std::filesystem::path(files_->ToNative(OwnFolderOfUser(*files_))) / "rename-runs";
    return folder / ("0000000" + std::to_string(number) + ".run");
  }
  void Songs(const std::vector<std::string>& names) {
    for (const std::string& name : names) drives_.Write(name, name);
  }
};

TEST_F(RenameJournalTest, TakesARunBackTheLastRenameFirst) {
  Songs({"b.mp3", "a.mp3"});
  Run({"b.mp3>c.mp3", "a.mp3>b.mp3"});
  EXPECT_EQ(History(), "1: 2\n");
  EXPECT_EQ(Undo(), "c:\\b.mp3 > c:\\a.mp3\nc:\\c.mp3 > c:\\b.mp3\n");
  EXPECT_EQ(FilesOfC(), "a.mp3|b.mp3");
  EXPECT_EQ(drives_.Read("b.mp3"), "b.mp3");
  EXPECT_EQ(NewestRenameRun(*files_), std::nullopt);
  EXPECT_EQ(History(), "1: 2\n");
  EXPECT_EQ(Undo(1), "") << "nothing is left of it";
}

TEST_F(RenameJournalTest, TellsTheTimeAndTheNewestFirst) {
  Songs({"a.mp3", "b.mp3"});
  Run({"a.mp3>c.mp3", "b.mp3>c.mp3"});
  Run({"b.mp3>d.mp3"});
  EXPECT_EQ(History(), "2: 1\n1: 1\n");
  EXPECT_EQ(RenameRuns(*files_)[0].time.size(), std::string("2026-11-22 03:19:43").size());
  EXPECT_EQ(NewestRenameRun(*files_), 2);
  Undo();
  EXPECT_EQ(NewestRenameRun(*files_), 1);
}

TEST_F(RenameJournalTest, KnowsWithoutAWordWhichFilesWereRenamed) {
  Songs({"a.mp3", "b.mp3"});
  std::vector<PlannedRename> plan{{"c:\\a.mp3", "c:\\c.mp3"}, {"c:\\b.mp3", "c:\\d.mp3"}};
  ASSERT_TRUE(RenameRunRecord(*files_).Begin(fakes_.clock, plan));
  files_->Rename("c:\\a.mp3", "c:\\c.mp3");
  EXPECT_EQ(History(), "1: 1\n");
  EXPECT_EQ(Undo(), "c:\\c.mp3 > c:\\a.mp3\n");
  EXPECT_EQ(FilesOfC(), "a.mp3|b.mp3");
}

TEST_F(RenameJournalTest, LeavesARunAloneThatGoesOn) {
  Songs({"a.mp3"});
  {
    RenameRunRecord record(*files_);
    ASSERT_TRUE(record.Begin(fakes_.clock, {{"c:\\a.mp3", "c:\\b.mp3"}}));
    EXPECT_TRUE(RenameTo(*files_, "c:\\a.mp3", "c:\\b.mp3").outcome);
    EXPECT_THROW(UndoRenameRun(*files_, 1), Failure);
    EXPECT_EQ(FilesOfC(), "b.mp3");
    record.Note(0, true);
  }
  EXPECT_EQ(Undo(1), "c:\\b.mp3 > c:\\a.mp3\n");
}

TEST_F(RenameJournalTest, NeverReplacesAFile) {
  Songs({"a.mp3", "b.mp3"});
  Run({"a.mp3>c.mp3", "b.mp3>d.mp3"});
  drives_.Write("a.mp3", "another");
  EXPECT_EQ(Undo(), "c:\\d.mp3 > c:\\b.mp3\nc:\\c.mp3: there is a file of this name already\n");
  EXPECT_EQ(drives_.Read("a.mp3"), "another");
  std::filesystem::remove(drives_.C() / "a.mp3");
  EXPECT_EQ(Undo(), "c:\\c.mp3 > c:\\a.mp3\n") << "what was left can be tried again, and nothing else is";
  EXPECT_EQ(NewestRenameRun(*files_), std::nullopt);
}

TEST_F(RenameJournalTest, NeverTouchesAFileThatIsAnotherOne) {
  Songs({"a.mp3"});
  for (const bool noted : {true, false}) {
    Run({"a.mp3>c.mp3"}, noted);
    std::filesystem::remove(drives_.C() / "c.mp3");
    drives_.Write("c.mp3", "a.mp3");
    const int run = RenameRuns(*files_)[0].number;
    EXPECT_EQ(Undo(run), "c:\\c.mp3: it isn't the file that was renamed\n");
    EXPECT_EQ(FilesOfC(), "c.mp3");
    files_->Rename("c:\\c.mp3", "c:\\a.mp3");
  }
}

TEST_F(RenameJournalTest, NamesAFileThatHasGone) {
  Songs({"a.mp3"});
  Run({"a.mp3>c.mp3"});
  std::filesystem::remove(drives_.C() / "c.mp3");
  EXPECT_EQ(Undo(), "c:\\c.mp3: no such file or folder\n");
  EXPECT_EQ(NewestRenameRun(*files_), 1);
}

TEST_F(RenameJournalTest, SaysNothingOfAFileThatIsBackAlready) {
  Songs({"a.mp3"});
  Run({"a.mp3>c.mp3"});
  files_->Rename("c:\\c.mp3", "c:\\a.mp3");
  EXPECT_EQ(Undo(), "");
  EXPECT_EQ(FilesOfC(), "a.mp3");
}

TEST_F(RenameJournalTest, KeepsTheLastHundredRuns) {
  Songs({"0.mp3"});
  for (int i = 0; i < 103; ++i) Run({std::to_string(i) + ".mp3>" + std::to_string(i + 1) + ".mp3"});
  const std::vector<RenameRunFacts> runs = RenameRuns(*files_);
  EXPECT_EQ(runs.size(), 100u);
  EXPECT_EQ(runs.front().number, 103);
  EXPECT_EQ(runs.back().number, 4);
}

TEST_F(RenameJournalTest, ReadsARunThatWasCutOffByAKill) {
  Songs({"a.mp3", "b.mp3"});
  Run({"a.mp3>c.mp3", "b.mp3>d.mp3"});
  const std::string whole = TemporaryDrives::ReadAt(RunPlace(1));
  TemporaryDrives::WriteAt(RunPlace(1), whole.substr(0, whole.size() - 5));
  EXPECT_EQ(History(), "1: 2\n");
  EXPECT_EQ(Undo(), "c:\\d.mp3 > c:\\b.mp3\nc:\\c.mp3 > c:\\a.mp3\n");
}

TEST_F(RenameJournalTest, TakesARunWithoutItsPlanForEmpty) {
  Songs({"a.mp3"});
  Run({"a.mp3>c.mp3"});
  const std::string whole = TemporaryDrives::ReadAt(RunPlace(1));
  TemporaryDrives::WriteAt(RunPlace(1), whole.substr(0, 60));
  EXPECT_EQ(History(), "1: 0\n");
  EXPECT_EQ(Undo(1), "");
  EXPECT_EQ(FilesOfC(), "c.mp3");
}

TEST_F(RenameJournalTest, RefusesADamagedPlan) {
  Songs({"a.mp3"});
  Run({"a.mp3>c.mp3"});
  std::string damaged = TemporaryDrives::ReadAt(RunPlace(1));
  damaged[damaged.find("a.mp3")] = 'x';
  TemporaryDrives::WriteAt(RunPlace(1), damaged);
  EXPECT_THROW(UndoRenameRun(*files_, 1), Failure);
  EXPECT_EQ(NewestRenameRun(*files_), std::nullopt);
  EXPECT_EQ(FilesOfC(), "c.mp3");
}

TEST_F(RenameJournalTest, KnowsNoOtherRuns) {
  EXPECT_THROW(UndoRenameRun(*files_, 7), Failure);
  EXPECT_TRUE(RenameRuns(*files_).empty());
}

TEST_F(RenameJournalTest, SaysWhyARunCannotBeKept) {
  class Full : public ForwardingFileSystem {
   public:
    using ForwardingFileSystem::ForwardingFileSystem;
    std::unique_ptr<InPlaceFile> CreatePrivate(const std::string&) const override { throw Failure("no space left"); }
  } files(*files_);
  RenameRunRecord record(files);
  EXPECT_EQ(record.Begin(fakes_.clock, {{"c:\\a", "c:\\b"}}).Reason(), "no space left");
  record.Note(0, true);
  EXPECT_TRUE(RenameRuns(*files_).empty());
}

}  // namespace
}  // namespace qublet
