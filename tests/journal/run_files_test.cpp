#include "journal/run_files.h"

#include "support/file_system_test_base.h"
#include "support/memory_file.h"
#include "support/own_file.h"

namespace qublet {
namespace {

constexpr RunKind kKind{"test run", "test-runs"};

class RunFilesTest : public FileSystemTestBase {
 protected:
  NewRun Begin() {
    const std::string folder = RunFolder(*files_, kKind);
    return BeginRun(*files_, kKind, folder, RunFiles(*files_, folder), {"2026-11-22 03:19:43", "qublet"});
  }
};

TEST_F(RunFilesTest, NumbersRunsFromOneOnwards) {
  EXPECT_TRUE(Begin().path.ends_with("\\00000001.run"));
  EXPECT_TRUE(Begin().path.ends_with("\\00000002.run"));
  const std::string folder = RunFolder(*files_, kKind);
  files_->Rename(folder + RunFileName(2, false), folder + RunFileName(2, true));
  EXPECT_TRUE(Begin().path.ends_with("\\00000003.run")) << "a number that was undone is taken";
  EXPECT_EQ(RunFiles(*files_, folder).size(), 3u);
  EXPECT_TRUE(FindRun(*files_, folder, 2).undone);
  EXPECT_THROW(FindRun(*files_, folder, 4), Failure);
}

TEST_F(RunFilesTest, AreForThisUserAlone) {
  const NewRun run = Begin();
  for (const std::string& path : {run.path, run.path + ".lock", RunFolder(*files_, kKind)})
    EXPECT_TRUE(IsForThisUserAlone(files_->ToNative(path))) << path;
}

TEST_F(RunFilesTest, TakesTheNextNumberWhereAnotherProgramWasQuicker) {
  const std::string folder = RunFolder(*files_, kKind);
  Begin();
  const NewRun run = BeginRun(*files_, kKind, folder, {}, {"time", "qublet"});
  EXPECT_EQ(run.path, folder + "00000002.run");
}

TEST_F(RunFilesTest, LooksAtNoOtherFiles) {
  const std::string folder = RunFolder(*files_, kKind);
  for (const char* name : {"1.run", "00000001.txt", "x0000001.run", "00000001.run~"}) Replace(folder + name, "");
  EXPECT_TRUE(RunFiles(*files_, folder).empty());
}

TEST_F(RunFilesTest, ReadsTheFirstLinesOfItsOwnKindOnly) {
  const NewRun run = Begin();
  const RunHead head = ReadRunHead(kKind, *files_->OpenForReading(run.path));
  EXPECT_EQ(head.time, "2026-11-22 03:19:43");
  EXPECT_EQ(head.origin, "qublet");
  EXPECT_THROW(ReadRunHead({"other run", "test-runs"}, *files_->OpenForReading(run.path)), Failure);
}

TEST(RunTime, IsSortedAsText) {
  EXPECT_EQ(RunTime({2026, 1, 2, 3, 4, 5}), "2026-01-02 03:04:05");
}

}  // namespace
}  // namespace qublet
