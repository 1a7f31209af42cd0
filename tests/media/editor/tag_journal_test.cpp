#include "media/editor/tag_journal.h"

#include "media/editor/run_file.h"
#include "media/editor/tag_form.h"
#include "media/editor/tag_run.h"
#include "platform/forwarding_file_system.h"
#include "platform/program.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

class TagJournalTest : public EditorTestBase {
 protected:
  static TagForm Form(const std::string& title) {
    TagForm form;
    form.id3v1_present = form.id3v2_present = true;
    form.v1[kV1Title] = form.v2[kV2Title] = title;
    return form;
  }
  // Gives the reason for which the run can't be undone.
  std::string Update(const Collection& names, const TagForm& form, std::int64_t most = kMostOfTagRuns,
                     const char* origin = kWindowRun) {
    Collection paths;
    for (const std::string& name : names) paths.push_back("c:\\" + name);
    TagRunRecord record(*files_, fakes_.clock, origin, most);
    TagRun(*files_, record, [&](const std::string& path) { return PlanUpdate(*files_, path, form); }, {}).Over(paths);
    return record.Lost();
  }
  std::filesystem::path Folder() const {
    return std::filesystem::path(files_->ToNative(OwnFolderOfUser(*files_))) / "tag-runs";
  }
  std::size_t Runs() const { return TagRuns(*files_).size(); }
};

TEST_F(TagJournalTest, GivesEveryFileItsBytesBack) {
  const std::vector<std::pair<std::string, std::string>> songs{
      {"both.mp3", TaggedSong("One")},
      {"none.mp3", AudioBytes()},
      {"v1.mp3", AudioBytes() + Id3v1Bytes("Old")},
      {"v2.mp3", TagBytes(4, TextFrameBytes(4, "TIT2", "x") + std::string(3000, '\0')) + AudioBytes()},
      {"two.mp3",
       TagBytes(3, TextFrameBytes(3, "TIT2", "x")) + TagBytes(3, TextFrameBytes(3, "TIT2", "y")) + AudioBytes()},
      {"short.mp3", AudioBytes() + Id3v1Bytes("Cut").substr(0, 95) + Id3v1Bytes("Cut").substr(97)},
      {"junk.mp3", std::string(500, '\0') + TagBytes(3, TextFrameBytes(3, "TIT2", "x")) + AudioBytes()},
      {"empty.mp3", ""}};
  Collection names;
  for (const auto& [name, content] : songs) {
    drives_.Write(name, content);
    names.push_back(name);
  }
  for (const TagForm& form : {Form("New"), TagForm{}}) {
    EXPECT_EQ(Update(names, form), "");
    const TagUndo undo = UndoTagRun(*files_, NewestTagRun(*files_, kWindowRun).value());
    EXPECT_TRUE(undo.left.empty());
    for (const auto& [name, content] : songs) EXPECT_EQ(drives_.Read(name), content) << name;
  }
}

TEST_F(TagJournalTest, TellsTheRunsNewestFirst) {
  EXPECT_EQ(NewestTagRun(*files_, ""), std::nullopt);
  for (const char* name : {"a.mp3", "b.mp3"}) drives_.Write(name, TaggedSong("One"));
  Update({"a.mp3", "b.mp3"}, Form("New"));
  Update({"a.mp3"}, Form("Newer"), kMostOfTagRuns, kCommandRun);
  const std::vector<TagRunFacts> runs = TagRuns(*files_);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].number, 2);
  EXPECT_EQ(runs[0].origin, "qublet");
  EXPECT_EQ(runs[0].files, 1);
  EXPECT_EQ(runs[1].number, 1);
  EXPECT_EQ(runs[1].origin, "window");
  EXPECT_EQ(runs[1].files, 2);
  EXPECT_EQ(runs[1].time.size(), 19u);
  EXPECT_EQ(NewestTagRun(*files_, ""), 2);
  EXPECT_EQ(NewestTagRun(*files_, kWindowRun), 1);
  EXPECT_FALSE(runs[0].undone);
  UndoTagRun(*files_, 2);
  EXPECT_TRUE(TagRuns(*files_)[0].undone);
  EXPECT_EQ(NewestTagRun(*files_, ""), 1);
  EXPECT_THROW(UndoTagRun(*files_, 3), Failure);
}

TEST_F(TagJournalTest, KeepsNothingOfAFileThatStaysAsItIs) {
  drives_.Write("a.mp3", TaggedSong("One"));
  Update({"a.mp3"}, Form("New"));
  Update({"a.mp3"}, Form("New"));
  EXPECT_EQ(Runs(), 1u);
}

TEST_F(TagJournalTest, LeavesFilesAloneWhoseTagsHaveChangedSince) {
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3", "d.mp3"}) drives_.Write(name, TaggedSong("One"));
  Update({"a.mp3", "b.mp3", "c.mp3", "d.mp3"}, Form("New"));
  const std::string changed = drives_.Read("b.mp3") + Id3v1Bytes("Appended");
  drives_.Write("b.mp3", changed);
  std::string same_length = drives_.Read("c.mp3");
  same_length[same_length.find("New")] = 'M';
  drives_.Write("c.mp3", same_length);
  std::filesystem::remove(drives_.C() / "d.mp3");
  const TagUndo undo = UndoTagRun(*files_, 1);
  EXPECT_EQ(undo.restored, Collection{"c:\\a.mp3"});
  ASSERT_EQ(undo.left.size(), 3u);
  EXPECT_EQ(undo.left[0].path, "c:\\d.mp3");
  EXPECT_EQ(undo.left[1].path, "c:\\c.mp3");
  EXPECT_EQ(undo.left[1].reason, "its tags have changed since");
  EXPECT_EQ(drives_.Read("b.mp3"), changed);
  EXPECT_EQ(drives_.Read("c.mp3"), same_length);
  EXPECT_EQ(drives_.Read("a.mp3"), TaggedSong("One"));
}

TEST_F(TagJournalTest, CountsAsNotUndoneWhenNothingCouldBeRestored) {
  drives_.Write("a.mp3", TaggedSong("One"));
  Update({"a.mp3"}, Form("New"));
  SetReadOnly("a.mp3", true);
  EXPECT_EQ(UndoTagRun(*files_, 1).left.size(), 1u);
  SetReadOnly("a.mp3", false);
  EXPECT_EQ(NewestTagRun(*files_, ""), 1);
  EXPECT_EQ(UndoTagRun(*files_, 1).restored.size(), 1u);
  EXPECT_EQ(drives_.Read("a.mp3"), TaggedSong("One"));
}

TEST_F(TagJournalTest, CountsAsNotUndoneWhileAFileWaitsForIt) {
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) drives_.Write(name, TaggedSong("One"));
  Update({"a.mp3", "b.mp3", "c.mp3"}, Form("New"));
  SetReadOnly("b.mp3", true);
  std::filesystem::remove(drives_.C() / "c.mp3");
  EXPECT_EQ(UndoTagRun(*files_, 1).restored, Collection{"c:\\a.mp3"});
  EXPECT_EQ(NewestTagRun(*files_, ""), 1);
  SetReadOnly("b.mp3", false);
  EXPECT_EQ(UndoTagRun(*files_, 1).restored, Collection{"c:\\b.mp3"});
  EXPECT_EQ(drives_.Read("b.mp3"), TaggedSong("One"));
  EXPECT_EQ(NewestTagRun(*files_, ""), std::nullopt) << "a file that has gone isn't waited for";
}

TEST_F(TagJournalTest, TakesAFileThatStandsInARunMoreThanOnce) {
  drives_.Write("a.mp3", TaggedSong("One"));
  std::filesystem::create_symlink(drives_.C() / "a.mp3", drives_.C() / "link.mp3");
  Update({"a.mp3", "a.mp3", "link.mp3"}, Form("New"));
  EXPECT_EQ(Loaded("a.mp3").Frame("TIT2"), "New");
  const TagUndo undo = UndoTagRun(*files_, 1);
  EXPECT_TRUE(undo.left.empty());
  EXPECT_EQ(drives_.Read("a.mp3"), TaggedSong("One"));
}

TEST_F(TagJournalTest, BelongsToThisUserAlone) {
  drives_.Write("a.mp3", TaggedSong("One"));
  Update({"a.mp3"}, Form("New"));
  const auto rights = std::filesystem::status(Folder() / "00000001.run").permissions();
  EXPECT_EQ(rights, std::filesystem::perms(0600));
}

TEST_F(TagJournalTest, LetsTheOldestRunsGoFirst) {
  const std::string song = TagBytes(3, TextFrameBytes(3, "TIT2", std::string(3000, 'x'))) + AudioBytes();
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) {
    drives_.Write(name, song);
    EXPECT_EQ(Update({name}, Form("New"), 7000), "");
  }
  const std::vector<TagRunFacts> runs = TagRuns(*files_);
  ASSERT_EQ(runs.size(), 2u);
  EXPECT_EQ(runs[0].number, 3);
  EXPECT_EQ(runs[1].number, 2);
}

TEST_F(TagJournalTest, LosesARunThatOutgrowsTheRoomAndGoesOn) {
  const std::string song = TagBytes(3, TextFrameBytes(3, "TIT2", std::string(3000, 'x'))) + AudioBytes();
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) drives_.Write(name, song);
  EXPECT_EQ(Update({"a.mp3", "b.mp3", "c.mp3"}, Form("New"), 7000), "the run is too large to be kept");
  EXPECT_EQ(Loaded("c.mp3").Frame("TIT2"), "New");
  EXPECT_EQ(Runs(), 0u);
}

TEST_F(TagJournalTest, GoesOnWithoutARecordWhereNoneCanBeMade) {
  drives_.Write("a.mp3", TaggedSong("One"));
  TemporaryDrives::WriteAt(Folder(), "a file in the way");
  EXPECT_NE(Update({"a.mp3"}, Form("New")), "");
  EXPECT_EQ(Loaded("a.mp3").Frame("TIT2"), "New");
}

TEST_F(TagJournalTest, ReadsARunThatWasCutOffByAKill) {
  for (const char* name : {"a.mp3", "b.mp3"}) drives_.Write(name, TaggedSong("One"));
  Update({"a.mp3", "b.mp3"}, Form("New"));
  const std::string whole = TemporaryDrives::ReadAt(Folder() / "00000001.run");
  for (std::size_t length = 0; length < whole.size(); length += 7) {
    TemporaryDrives::WriteAt(Folder() / "00000001.run", whole.substr(0, length));
    const std::vector<TagRunFacts> runs = TagRuns(*files_);
    EXPECT_LE(runs.size(), 1u);
    for (const TagRunFacts& run : runs) EXPECT_LT(run.files, 2);
  }
}

TEST_F(TagJournalTest, NamesARecordThatIsDamaged) {
  drives_.Write("a.mp3", TaggedSong("One"));
  Update({"a.mp3"}, Form("New"));
  std::string run = TemporaryDrives::ReadAt(Folder() / "00000001.run");
  run[run.size() / 2] ^= 1;
  TemporaryDrives::WriteAt(Folder() / "00000001.run", run);
  EXPECT_EQ(UndoTagRun(*files_, 1).left[0].reason, "a record of a run is damaged");
  EXPECT_EQ(Loaded("a.mp3").Frame("TIT2"), "New");
}

TEST_F(TagJournalTest, CountsTheFilesThatWereChangedOnly) {
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) drives_.Write(name, TaggedSong("One"));
  TagRunRecord record(*files_, fakes_.clock, kWindowRun);
  int done = 0;
  TagRun::Watch watch;
  watch.done = [&](const std::string&, const Outcome&) { ++done; };
  watch.stopped = [&] { return done == 1; };
  TagRun(
      *files_, record, [&](const std::string& path) { return PlanUpdate(*files_, path, Form("New")); }, watch)
      .Over({"c:\\a.mp3", "c:\\b.mp3", "c:\\c.mp3"});
  ASSERT_EQ(Runs(), 1u);
  EXPECT_EQ(TagRuns(*files_)[0].files, 1);
  EXPECT_EQ(UndoTagRun(*files_, 1).restored.size(), 1u);
  for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) EXPECT_EQ(drives_.Read(name), TaggedSong("One"));
}

TEST_F(TagJournalTest, LeavesARunAloneThatGoesOn) {
  for (const char* name : {"a.mp3", "b.mp3"}) drives_.Write(name, TaggedSong("One"));
  TagRunRecord record(*files_, fakes_.clock, kWindowRun);
  TagRun::Watch watch;
  bool refused = false;
  watch.done = [&](const std::string&, const Outcome&) { refused = !Guarded([&] { UndoTagRun(*files_, 1); }); };
  TagRun(
      *files_, record, [&](const std::string& path) { return PlanUpdate(*files_, path, Form("New")); }, watch)
      .Over({"c:\\a.mp3", "c:\\b.mp3"});
  EXPECT_TRUE(refused);
  EXPECT_EQ(Loaded("a.mp3").Frame("TIT2"), "New");
}

// Nothing more can be written but what is open already.
class FullDisk : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::unique_ptr<FileReplacement> BeginReplacement(const std::string&) const override {
    throw Failure("no space left");
  }
};

TEST_F(TagJournalTest, KeepsNoRunThatChangedNothing) {
  drives_.Write("a.mp3", TaggedSong("One"));
  Update({"a.mp3"}, Form("New"));
  const FullDisk full(*files_);
  TagRunRecord record(full, fakes_.clock, kWindowRun);
  TagRun(full, record, [&](const std::string& path) { return PlanUpdate(full, path, Form("Newer")); }, {})
      .Over({"c:\\a.mp3"});
  EXPECT_EQ(Loaded("a.mp3").Frame("TIT2"), "New");
  EXPECT_EQ(NewestTagRun(*files_, kWindowRun), 1);
  EXPECT_EQ(Runs(), 1u);
}

// --- the run itself ---

TEST_F(TagJournalTest, HasTheRecordOnTheDiskBeforeAFileIsChanged) {
  for (const char* name : {"a.mp3", "b.mp3"}) drives_.Write(name, TaggedSong("One"));
  int records = -1;
  const TagForm form = Form("New");
  TagRunRecord record(*files_, fakes_.clock, kWindowRun);
  TagRun::Watch watch;
  watch.stopped = [&] {
    const bool untouched = drives_.Read("a.mp3") == TaggedSong("One");
    if (untouched && Runs() == 1) records = TagRuns(*files_)[0].files;
    return false;
  };
  TagRun(
      *files_, record, [&](const std::string& path) { return PlanUpdate(*files_, path, form); }, watch)
      .Over({"c:\\a.mp3", "c:\\b.mp3"});
  EXPECT_EQ(records, 2);
}

TEST_F(TagJournalTest, StopsBetweenTwoFiles) {
  Collection paths;
  for (int i = 0; i < 40; ++i) {
    drives_.Write(std::to_string(i) + ".mp3", TaggedSong("One"));
    paths.push_back("c:\\" + std::to_string(i) + ".mp3");
  }
  int done = 0;
  const TagForm form = Form("New");
  TagRunRecord record(*files_, fakes_.clock, kWindowRun);
  TagRun::Watch watch;
  watch.stopped = [&] { return done == 18; };
  watch.done = [&](const std::string&, const Outcome& outcome) { done += outcome ? 1 : 100; };
  TagRun(
      *files_, record, [&](const std::string& path) { return PlanUpdate(*files_, path, form); }, watch)
      .Over(paths);
  EXPECT_EQ(done, 18);
  EXPECT_EQ(Loaded("17.mp3").Frame("TIT2"), "New");
  EXPECT_EQ(drives_.Read("18.mp3"), TaggedSong("One"));
  EXPECT_TRUE(UndoTagRun(*files_, 1).left.empty()) << "files in front of which it stopped are as they were";
  EXPECT_EQ(drives_.Read("17.mp3"), TaggedSong("One"));
}

}  // namespace
}  // namespace qublet
