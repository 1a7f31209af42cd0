#include "engine/recovery.h"

#include <gtest/gtest.h>

#include "platform/forwarding_file_system.h"
#include "playlist/row_order.h"
#include "playlist/selection.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

using std::chrono::seconds;

// Files below one folder can't be written for a while.
class FullDisk : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    if (full) throw Failure("no space left", path);
    return ForwardingFileSystem::BeginReplacement(path);
  }

  bool full = false;
};

class RecoveryTest : public ListTestBase {
 protected:
  RecoveryTest() {
    Touch({"a.mp3", "b.mp3", "c.mp3"});
    std::filesystem::create_directory(drives_.C() / "own");
  }

  void Add(const std::string& path) { items_.AddStuff(path, false); }

  // The time goes on by so many seconds, one after the other.
  void Wait(int count) {
    for (int i = 0; i < count; ++i) Tick();
  }
  void Tick() {
    now_ += seconds(1);
    recovery_->Tick(now_);
    recovery_->Finish();
  }

  // The process is killed, and another one starts with an empty list.
  void StartAnew() {
    recovery_.reset();
    document_.ListView1.Clear();
    document_.MarkStored();
    Make();
  }
  void Make() { recovery_ = std::make_unique<Recovery>(document_, disk_, "c:\\own"); }

  std::string Kept(int number = 1) const { return drives_.Read("own/recovery-" + std::to_string(number) + ".m3u"); }
  bool IsKept(int number = 1) const {
    return std::filesystem::exists(drives_.C() / "own" / ("recovery-" + std::to_string(number) + ".m3u"));
  }
  int FilesThere() const {
    const std::filesystem::directory_iterator entries(drives_.C() / "own");
    return static_cast<int>(std::distance(begin(entries), end(entries)));
  }
  void Leave(int number, const std::string& list, int seconds_ago) const {
    const std::string name = "own/recovery-" + std::to_string(number) + ".m3u";
    drives_.Write(name, list);
    std::filesystem::last_write_time(drives_.C() / name,
                                     std::filesystem::file_time_type::clock::now() - seconds(seconds_ago));
  }

  FullDisk disk_{*files_};
  Recovery::Time now_{};
  std::unique_ptr<Recovery> recovery_ = std::make_unique<Recovery>(document_, disk_, "c:\\own");
};

TEST_F(RecoveryTest, WritesAListThreeSecondsAfterItsLastChange) {
  Add("c:\\a.mp3");
  Wait(2);
  Add("c:\\b.mp3");
  Wait(3);
  EXPECT_FALSE(IsKept());
  Wait(1);
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\nc:\\b.mp3\r\n");
}

TEST_F(RecoveryTest, WritesEveryThirtySecondsWhileChangesGoOn) {
  for (int i = 0; i < 30; ++i) {
    Add("c:\\a.mp3");
    Wait(1);
  }
  EXPECT_FALSE(IsKept());
  Add("c:\\b.mp3");
  Wait(1);
  EXPECT_TRUE(Kept().ends_with("c:\\b.mp3\r\n"));
  drives_.Write("own/recovery-1.m3u", "old");
  for (int i = 0; i < 30; ++i) {
    Add("c:\\a.mp3");
    Wait(1);
  }
  EXPECT_EQ(Kept(), "old");
  Wait(1);
  EXPECT_EQ(Kept().size(), 61 * std::string("c:\\a.mp3\r\n").size());
}

TEST_F(RecoveryTest, WritesNothingTwiceAndNothingForASelection) {
  Add("c:\\a.mp3");
  Wait(4);
  drives_.Write("own/recovery-1.m3u", "as it was");
  SelectAll(Rows());
  Wait(60);
  EXPECT_EQ(Kept(), "as it was");
}

TEST_F(RecoveryTest, KeepsAnOrderThatAloneCountsAsNoChange) {
  Add("c:\\a.mp3");
  Add("c:\\b.mp3");
  Wait(4);
  Rows().SetSelected(2, true);
  MoveRowsToTop(Rows());
  Wait(4);
  EXPECT_EQ(Kept(), "c:\\b.mp3\r\nc:\\a.mp3\r\n");
}

TEST_F(RecoveryTest, KeepsNoListThatIsStored) {
  Add("c:\\a.mp3");
  document_.MarkStored();
  Wait(60);
  EXPECT_EQ(FilesThere(), 0);
}

TEST_F(RecoveryTest, GoesWhenTheListIsSavedOrEmptied) {
  Add("c:\\a.mp3");
  Wait(4);
  document_.MarkStored();
  Wait(1);
  EXPECT_FALSE(IsKept());
  Add("c:\\b.mp3");
  Wait(4);
  EXPECT_TRUE(IsKept());
  SelectAll(Rows());
  RemoveSelectedRows(document_);
  ASSERT_TRUE(document_.PlaylistChanged);
  Wait(1);
  EXPECT_FALSE(IsKept());
}

TEST_F(RecoveryTest, SettlesAtOnce) {
  Add("c:\\a.mp3");
  recovery_->Settle();
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  document_.MarkStored();
  recovery_->Settle();
  EXPECT_FALSE(IsKept());
}

TEST_F(RecoveryTest, ADroppedListComesBackWithTheNextChangeOnly) {
  Add("c:\\a.mp3");
  Wait(4);
  Add("c:\\b.mp3");
  recovery_->Drop();
  EXPECT_FALSE(IsKept());
  recovery_->Settle();
  Wait(60);
  EXPECT_FALSE(IsKept());
  Add("c:\\c.mp3");
  Wait(4);
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\nc:\\b.mp3\r\nc:\\c.mp3\r\n");
}

TEST_F(RecoveryTest, LeavesTheOldListOnAFullDiskAndTriesAgain) {
  Add("c:\\a.mp3");
  Wait(4);
  disk_.full = true;
  Add("c:\\b.mp3");
  Wait(20);
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  disk_.full = false;
  Wait(10);
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\n") << "tried again too soon";
  Wait(30);
  EXPECT_EQ(Kept(), "c:\\a.mp3\r\nc:\\b.mp3\r\n");
}

TEST_F(RecoveryTest, SaysNothingWithoutAFolder) {
  Recovery none(document_, *files_, "");
  Recovery gone(document_, *files_, "c:\\gone");
  Add("c:\\a.mp3");
  for (Recovery* recovery : {&none, &gone}) {
    recovery->Tick(now_);
    recovery->Tick(now_ + seconds(60));
    recovery->Settle();
    recovery->Drop();
    EXPECT_TRUE(recovery->Find().empty());
  }
}

TEST_F(RecoveryTest, FindsListsTheNewestFirstAndNothingElse) {
  Leave(1, "c:\\a.mp3\r\n", 20);
  Leave(2, "c:\\b.mp3\r\n", 10);
  Leave(12, "c:\\c.mp3\r\n", 30);
  for (const char* name : {"recovery-.m3u", "recovery-x.m3u", "recovery-1.lock", "last.m3u", "recovery-1.m3u8"})
    drives_.Write(std::string("own/") + name, "");
  std::filesystem::create_directory(drives_.C() / "own/recovery-3.m3u");
  const std::vector<FoundList> found = recovery_->Find();
  ASSERT_EQ(found.size(), 3U);
  EXPECT_EQ(found[0].path, "c:\\own\\recovery-2.m3u");
  EXPECT_EQ(found[1].path, "c:\\own\\recovery-1.m3u");
  EXPECT_EQ(found[2].path, "c:\\own\\recovery-12.m3u");
}

TEST_F(RecoveryTest, ARestoredListIsKeptUnderItsNameUntilItIsStored) {
  Leave(7, "c:\\a.mp3\r\n", 10);
  EXPECT_TRUE(recovery_->Restore("c:\\own\\recovery-7.m3u", items_));
  document_.PlaylistChanged = false;
  EXPECT_EQ(Names(), "a.mp3");
  Wait(60);
  EXPECT_EQ(Kept(7), "c:\\a.mp3\r\n");
  Add("c:\\b.mp3");
  Wait(4);
  EXPECT_EQ(Kept(7), "c:\\a.mp3\r\nc:\\b.mp3\r\n");
  EXPECT_FALSE(IsKept(1));
  document_.MarkStored();
  Wait(1);
  EXPECT_FALSE(IsKept(7));
}

TEST_F(RecoveryTest, ARestoredListIsThereAgainAfterAnotherCrash) {
  Add("c:\\a.mp3");
  Wait(4);
  for (int crash = 0; crash < 3; ++crash) {
    StartAnew();
    ASSERT_EQ(recovery_->Find().size(), 1U);
    EXPECT_TRUE(recovery_->Restore(recovery_->Find()[0].path, items_));
    document_.PlaylistChanged = false;
    Wait(4);
    EXPECT_EQ(Kept(), "c:\\a.mp3\r\n");
  }
}

TEST_F(RecoveryTest, OneProcessAloneTakesAList) {
  Leave(1, "c:\\a.mp3\r\n", 10);
  Document other_document;
  Items other_items(other_document, *files_, feedback_, view_, ",");
  Recovery other(other_document, *files_, "c:\\own");
  EXPECT_TRUE(recovery_->Restore("c:\\own\\recovery-1.m3u", items_));
  EXPECT_FALSE(other.Restore("c:\\own\\recovery-1.m3u", other_items));
  EXPECT_EQ(other_document.ListView1.Count(), 0);
  EXPECT_EQ(other_document.Recovered, Document::Recovery::kNone);
  recovery_->Drop();
  recovery_.reset();
  EXPECT_FALSE(other.Restore("c:\\own\\recovery-1.m3u", other_items)) << "it has gone";
}

TEST_F(RecoveryTest, AListThatGivesNoRowStays) {
  Leave(1, "no path at all\r\n", 10);
  EXPECT_FALSE(recovery_->Restore("c:\\own\\recovery-1.m3u", items_));
  recovery_->Settle();
  recovery_->Drop();
  EXPECT_EQ(Kept(), "no path at all\r\n");
  EXPECT_EQ(FilesThere(), 1) << "nobody holds it any more";
}

TEST_F(RecoveryTest, ReadsEachLineOnceAndAsItStands) {
  Leave(1, "c:\\track01.wav.mp3\r\nhttp://host/a.mp3\r\nc:\\a%20b.mp3\r\nc:\\renamed\r\n", 10);
  EXPECT_TRUE(recovery_->Restore("c:\\own\\recovery-1.m3u", items_));
  EXPECT_EQ(Paths(), (Collection{"c:\\track01.wav.mp3", "\\http://host/a.mp3", "c:\\a%20b.mp3", "c:\\renamed"}));
}

TEST_F(RecoveryTest, HoldsFullPathsAndBareAddresses) {
  drives_.Write("m/list.m3u", "sub/gone.mp3\r\nC:\\Gone.mp3\r\nhttp://host/a.mp3\r\n");
  Add("c:\\m\\list.m3u");
  recovery_->Settle();
  EXPECT_EQ(Kept(), "c:\\m\\sub\\gone.mp3\r\nc:\\Gone.mp3\r\nhttp://host/a.mp3\r\n");
}

TEST_F(RecoveryTest, NoProcessWritesOverTheListOfAnother) {
  Leave(1, "c:\\c.mp3\r\n", 10);
  Document other_document;
  Items other_items(other_document, *files_, feedback_, view_, ",");
  Recovery other(other_document, *files_, "c:\\own");
  other_items.AddStuff("c:\\b.mp3", false);
  other.Settle();
  Add("c:\\a.mp3");
  recovery_->Settle();
  EXPECT_EQ(Kept(1), "c:\\c.mp3\r\n");
  EXPECT_EQ(Kept(2), "c:\\b.mp3\r\n");
  EXPECT_EQ(Kept(3), "c:\\a.mp3\r\n");
}

}  // namespace
}  // namespace qublet
