#include <fcntl.h>
#include <gtest/gtest.h>

#include "platform/linux/descriptor.h"
#include "platform/linux/file_system_kind.h"
#include "support/faults.h"
#include "support/file_system_test_base.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

class InterruptedWorkTest : public FileSystemTestBase {
 protected:
  FaultyProgram Driver(std::vector<std::string> arguments) const {
    return {TestProgram("file_driver"), std::move(arguments), drives_.Root()};
  }
  void Clear() const {
    for (const fs::path& drive : {drives_.C(), drives_.D()}) {
      for (const auto& entry : fs::directory_iterator(drive)) fs::remove_all(entry.path());
    }
  }
  // The calls that change something, in their order; "list.m3u" is there already.
  Names CallsOf(std::vector<std::string> arguments) const {
    Names calls;
    ForEvery(
        Fault::kKillBefore, Driver(std::move(arguments)),
        [&] {
          Clear();
          drives_.Write("list.m3u", "old");
        },
        [&](const FaultRun& run) { calls.push_back(run.name); });
    return calls;
  }
  static void ExpectOneOf(const Names& allowed, const std::string& content) {
    EXPECT_TRUE(std::find(allowed.begin(), allowed.end(), content) != allowed.end()) << content.size() << " bytes";
  }
  Names AllNames() const {
    Names names = NamesIn("c:\\");
    for (const std::string& name : NamesIn("d:\\")) names.push_back("d:" + name);
    return names;
  }
};

TEST_F(InterruptedWorkTest, LeavesTheOldOrTheNewFileOfAReplacement) {
  const std::string long_content = LongContent(100000);
  const int faults = ForEveryFault(
      Driver({"replace", "c:\\list.m3u", long_content}),
      [&] {
        Clear();
        drives_.Write("list.m3u", "old");
      },
      [&](const FaultRun& run) {
        ExpectOneOf({"old", long_content}, drives_.Read("list.m3u"));
        EXPECT_TRUE(run.killed || (drives_.Read("list.m3u") == long_content) == run.ended_well);
        EXPECT_TRUE(run.killed || AllNames() == Names{"list.m3u"});
      });
  EXPECT_GE(faults, 5 * 5) << "open, two writes, flush and rename can go wrong at least";
}

TEST_F(InterruptedWorkTest, LeavesNothingBehindOnceTheFileIsReplacedAgain) {
  if (!LocksHoldForAll(OpenAt(AT_FDCWD, drives_.C(), O_RDONLY | O_DIRECTORY).Get())) GTEST_SKIP();
  for (const std::string& name : {std::string("list.m3u"), std::string(255, 'x')}) {
    int left = 0;
    for (const Fault fault : {Fault::kKillBefore, Fault::kKillAfter}) {
      ForEvery(
          fault, Driver({"replace", "c:\\" + name, LongContent(100000)}),
          [&] {
            Clear();
            drives_.Write(name, "old");
          },
          [&](const FaultRun&) {
            left += AllNames() == Names{name} ? 0 : 1;
            Replace("c:\\" + name, "next");
            EXPECT_EQ(AllNames(), Names{name});
            EXPECT_EQ(drives_.Read(name), "next");
          });
    }
    EXPECT_GE(left, 8)
        << "opened, twice written, with a mode, flushed: each stays once before and once after its kill";
  }
}

TEST_F(InterruptedWorkTest, LeavesNothingBehindWhenEveryTryIsKilledButTheLast) {
  if (!LocksHoldForAll(OpenAt(AT_FDCWD, drives_.C(), O_RDONLY | O_DIRECTORY).Get())) GTEST_SKIP();
  drives_.Write("list.m3u", "old");
  ForEvery(
      Fault::kKillBefore, Driver({"replace", "c:\\list.m3u", "new"}), [] {},
      [&](const FaultRun&) { EXPECT_LE(AllNames().size(), 2u); });
  EXPECT_EQ(AllNames(), Names{"list.m3u"});
  EXPECT_EQ(drives_.Read("list.m3u"), "new");
}

TEST_F(InterruptedWorkTest, FindsAReplacementFlushedBeforeItsRenameAndTheFolderAfterIt) {
  EXPECT_EQ(CallsOf({"replace", "c:\\list.m3u", "new"}),
            (Names{"open", "write", "fchmod", "fsync", "rename", "fsync"}));
}

TEST_F(InterruptedWorkTest, FindsTheFolderOfABatchFlushedOnce) {
  EXPECT_EQ(CallsOf({"batch", "c:\\one.m3u", "c:\\other.m3u"}),
            (Names{"open", "write", "fsync", "rename", "open", "write", "fsync", "rename", "fsync"}));
}

TEST_F(InterruptedWorkTest, FindsEachFolderOfABatchFlushed) {
  EXPECT_EQ(CallsOf({"batch", "c:\\one.m3u", "d:\\other.m3u"}),
            (Names{"open", "write", "fsync", "rename", "open", "write", "fsync", "rename", "fsync", "fsync"}));
}

TEST_F(InterruptedWorkTest, LeavesTheOldOrTheNewFilesOfABatch) {
  ForEveryFault(
      Driver({"batch", "c:\\one.m3u", "c:\\other.m3u"}),
      [&] {
        Clear();
        drives_.Write("one.m3u", "old");
        drives_.Write("other.m3u", "old");
      },
      [&](const FaultRun& run) {
        ExpectOneOf({"old", "new"}, drives_.Read("one.m3u"));
        ExpectOneOf({"old", "new"}, drives_.Read("other.m3u"));
        EXPECT_TRUE(run.killed || !run.ended_well || drives_.Read("other.m3u") == "new");
        EXPECT_TRUE(run.killed || AllNames() == (Names{"one.m3u", "other.m3u"}));
      });
}

TEST_F(InterruptedWorkTest, LeavesNoFileOrAWholeOneWhereThereWasNone) {
  const int faults = ForEveryFault(
      Driver({"replace", "c:\\list.m3u", "new text"}), [&] { Clear(); },
      [&](const FaultRun& run) {
        EXPECT_EQ(drives_.Read("list.m3u"), fs::exists(drives_.C() / "list.m3u") ? "new text" : "");
        EXPECT_TRUE(run.killed || AllNames() == (run.ended_well ? Names{"list.m3u"} : Names{}));
      });
  EXPECT_GE(faults, 4 * 5);
}

TEST_F(InterruptedWorkTest, LeavesTheOldOrTheNewFileOfANewVersionOfALongOne) {
  const std::string old = LongContent(400000);
  const std::string more = LongContent(80000);
  const int faults = ForEveryFault(
      Driver({"append", "c:\\a.mp3", "c:\\b.mp3"}),
      [&] {
        Clear();
        drives_.Write("a.mp3", old);
        drives_.Write("b.mp3", more);
      },
      [&](const FaultRun& run) {
        ExpectOneOf({old, old + more}, drives_.Read("a.mp3"));
        EXPECT_TRUE(run.killed || (drives_.Read("a.mp3") == old + more) == run.ended_well);
        EXPECT_TRUE(run.killed || AllNames() == (Names{"a.mp3", "b.mp3"}));
      });
  EXPECT_GE(faults, 5 * 5);
}

TEST_F(InterruptedWorkTest, LeavesTheOldOrTheNewTargetOfACopy) {
  const std::string content = LongContent(200000);
  ForEveryFault(
      Driver({"copy", "c:\\a.mp3", "d:\\b.mp3"}),
      [&] {
        Clear();
        drives_.Write("a.mp3", content);
        drives_.WriteAt(drives_.D() / "b.mp3", "old");
      },
      [&](const FaultRun& run) {
        ExpectOneOf({"old", content}, drives_.ReadAt(drives_.D() / "b.mp3"));
        EXPECT_EQ(drives_.Read("a.mp3"), content);
        EXPECT_TRUE(run.killed || AllNames() == (Names{"a.mp3", "d:b.mp3"}));
      });
}

TEST_F(InterruptedWorkTest, LeavesARenamedFileUnderOneOfItsNames) {
  for (const bool old_file_system : {false, true}) {
    FaultyProgram program = Driver({"rename", "c:\\a.mp3", "d:\\b.mp3"});
    program.old_file_system = old_file_system;
    const int faults = ForEveryFault(
        program,
        [&] {
          Clear();
          drives_.Write("a.mp3", "a");
        },
        [&](const FaultRun& run) {
          const Names names = AllNames();
          // A file system without a rename that never replaces has both names for a moment.
          const bool both = names == (Names{"a.mp3", "d:b.mp3"});
          EXPECT_TRUE(names == Names{"a.mp3"} || names == Names{"d:b.mp3"} ||
                      (both && old_file_system && run.killed));
          EXPECT_TRUE(run.killed || (names == Names{"d:b.mp3"}) == run.ended_well);
        });
    EXPECT_GE(faults, 5);
  }
}

TEST_F(InterruptedWorkTest, NeverLosesAFileThatMovesToAnotherFileSystem) {
  const fs::path other = "/dev/shm/qublet-test-" + drives_.Root().filename().string();
  fs::create_directories(other);
  fs::create_directory_symlink(other, drives_.Root() / "dosdevices/e:");
  const std::string content = LongContent(100000);
  FaultyProgram program = Driver({"rename", "c:\\a.mp3", "e:\\b.mp3"});
  int faults = 0;
  for (const fs::path& below : {drives_.C(), other}) {
    program.below = below;
    faults += ForEveryFault(
        program,
        [&] {
          fs::remove(other / "b.mp3");
          drives_.Write("a.mp3", content);
        },
        [&](const FaultRun& run) {
          const bool source = fs::exists(drives_.C() / "a.mp3");
          const bool target = fs::exists(other / "b.mp3");
          EXPECT_TRUE(source || target);
          EXPECT_EQ(drives_.Read("a.mp3"), source ? content : "");
          EXPECT_EQ(drives_.ReadAt(other / "b.mp3"), target ? content : "");
          EXPECT_TRUE(run.killed || (source != target && target == run.ended_well));
        });
  }
  fs::remove_all(other);
  EXPECT_GE(faults, 5) << "the deletion of the source at least can go wrong";
}

TEST_F(InterruptedWorkTest, LeavesNothingBehindWhereNoFileCanBeLocked) {
  drives_.Write("list.m3u", "old");
  FaultyProgram program = Driver({"replace", "c:\\list.m3u", "new"});
  program.no_locks = true;
  EXPECT_TRUE(EndsWell(program));
  EXPECT_EQ(drives_.Read("list.m3u"), "new");
  EXPECT_EQ(AllNames(), Names{"list.m3u"});
}

TEST_F(InterruptedWorkTest, NeverReplacesATargetOnAnOldFileSystemEither) {
  drives_.Write("a.mp3", "a");
  drives_.Write("b.mp3", "b");
  drives_.Write("one/c.mp3", "c");
  files_->CreateFolder("c:\\two");
  const auto rename = [&](const std::string& from, const std::string& to) {
    FaultyProgram program = Driver({"rename", from, to});
    program.old_file_system = true;
    return EndsWell(program);
  };
  EXPECT_FALSE(rename("c:\\a.mp3", "c:\\b.mp3"));
  EXPECT_FALSE(rename("c:\\one", "c:\\two"));
  EXPECT_FALSE(rename("c:\\one", "c:\\a.mp3"));
  EXPECT_FALSE(rename("c:\\one", "c:\\one\\three"));
  EXPECT_EQ(NamesIn("c:\\"), (Names{"a.mp3", "b.mp3", "one\\", "two\\"}));
  EXPECT_EQ(drives_.Read("b.mp3"), "b");

  EXPECT_TRUE(rename("c:\\one", "c:\\two\\three"));
  EXPECT_TRUE(rename("c:\\a.mp3", "c:\\A.mp3"));
  EXPECT_EQ(NamesIn("c:\\"), (Names{"A.mp3", "b.mp3", "two\\"}));
  EXPECT_EQ(drives_.Read("two/three/c.mp3"), "c");
}

TEST_F(InterruptedWorkTest, IsSeenInAFileThatIsTruncatedAndWritten) {
  const std::string content = LongContent(1000);
  int torn = 0;
  ForEveryFault(
      Driver({"truncate", "c:\\list.m3u", content}),
      [&] {
        Clear();
        drives_.Write("list.m3u", "old");
      },
      [&](const FaultRun&) {
        const std::string left = drives_.Read("list.m3u");
        torn += left != "old" && left != content ? 1 : 0;
      });
  EXPECT_GE(torn, 5) << "each kind of fault tears such a file";
}

}  // namespace
}  // namespace qublet
