#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>

#include "support/faults.h"
#include "support/temporary_drives.h"
#include "tools/rename/rename_journal.h"

// What stands on the disk, and in the journal, after `qublet rename` was killed or its disk failed at each of its
// calls.

namespace qublet {
namespace {

class InterruptedRenameTest : public testing::Test {
 protected:
  static constexpr const char* kNames[] = {"a_1.mp3", "a_2.mp3", "a_3.mp3"};

  void Prepare() const {
    for (const std::filesystem::path& folder : {drives_.C(), drives_.Root() / "data"}) {
      std::filesystem::create_directories(folder);
      for (const auto& entry : std::filesystem::directory_iterator(folder)) std::filesystem::remove_all(entry.path());
    }
    for (const char* name : kNames) drives_.Write(name, name);
  }
  // What a_1.mp3 became, and so on: every file has its old or its new name, and all that it held.
  std::set<std::string> Renamed() const {
    std::set<std::string> renamed;
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(drives_.C())) {
      const std::string name = entry.path().filename().string();
      std::string old_name = name;
      old_name.replace(0, 2, "a_");
      EXPECT_EQ(TemporaryDrives::ReadAt(entry.path()), old_name);
      if (name != old_name) renamed.insert(name);
      ++files;
    }
    EXPECT_EQ(files, 3);
    return renamed;
  }
  FaultyProgram Rename() const {
    return {TestProgram("qublet"), {"rename", "c:\\a_1.mp3", "c:\\a_2.mp3", "c:\\a_3.mp3"}, drives_.Root()};
  }

  TemporaryDrives drives_;
};

TEST_F(InterruptedRenameTest, EveryFileHasItsOldOrItsNewNameAndTheJournalKnowsWhich) {
  const int faults = ForEveryFault(
      Rename(), [&] { Prepare(); },
      [&](const FaultRun& run) {
        const std::set<std::string> renamed = Renamed();
        EXPECT_TRUE(!run.ended_well || renamed.size() == 3u);
        const auto files = OpenFileSystem();
        int known = 0;
        for (const RenameRunFacts& kept : RenameRuns(*files)) known += kept.renamed;
        EXPECT_TRUE(known == static_cast<int>(renamed.size()) || !run.killed) << run.name << " " << run.call;
        EXPECT_TRUE(known == static_cast<int>(renamed.size()) || known == 0);
        const std::optional<int> newest = NewestRenameRun(*files);
        EXPECT_EQ(newest.has_value(), known > 0);
        EXPECT_EQ(newest ? UndoRenameRun(*files, *newest).left.size() : 0u, 0u) << "nothing stands in the way";
        EXPECT_EQ(Renamed().size(), known > 0 ? 0 : renamed.size());
      });
  EXPECT_GE(faults, 5 * 5) << "making and writing the journal, and three renames can go wrong at least";
}

TEST_F(InterruptedRenameTest, AnUndoThatWasStoppedCanBeCompleted) {
  const FaultyProgram undo{TestProgram("qublet"), {"rename", "--undo"}, drives_.Root()};
  const int faults = ForEveryFault(
      undo,
      [&] {
        Prepare();
        ASSERT_TRUE(EndsWell(Rename()));
      },
      [&](const FaultRun& run) {
        Renamed();
        const auto files = OpenFileSystem();
        const std::optional<int> newest = NewestRenameRun(*files);
        EXPECT_EQ(newest ? UndoRenameRun(*files, *newest).left.size() : 0u, 0u) << run.name << " " << run.call;
        EXPECT_EQ(Renamed().size(), 0u);
      });
  EXPECT_GE(faults, 5 * 3) << "three renames can go wrong at least";
}

}  // namespace
}  // namespace qublet
