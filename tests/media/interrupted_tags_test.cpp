#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include "support/faults.h"
#include "support/tag_bytes.h"
#include "support/temporary_drives.h"

// What stands on the disk after a change of tags was killed, or ran into a full or a broken disk, at each of its
// system calls.

namespace qublet {
namespace {

class InterruptedTagsTest : public testing::Test {
 protected:
  // Runs the tool without a fault and gives what the file is then.
  std::string Wanted(const std::string& before, const std::vector<std::string>& words) {
    drives_.Write("a.mp3", before);
    std::string command = TestProgram("tag_tool").string();
    for (const std::string& word : words) command += " '" + word + "'";
    EXPECT_EQ(std::system((command + " '" + File() + "'").c_str()), 0);
    return drives_.Read("a.mp3");
  }

  std::string File() const { return (drives_.C() / "a.mp3").string(); }

  bool OnlyTheFileIsThere() const {
    const auto entries = std::filesystem::directory_iterator(drives_.C());
    return std::distance(begin(entries), end(entries)) == 1;
  }

  // Every fault leaves `before` or what the tool makes of it without one; less than that is a failure.
  void Check(const std::string& before, std::vector<std::string> words) {
    const std::string after = Wanted(before, words);
    ASSERT_NE(before, after);
    words.push_back(File());
    const FaultyProgram program{TestProgram("tag_tool"), words, drives_.Root()};
    const int faults = ForEveryFault(
        program,
        [&] {
          for (const auto& entry : std::filesystem::directory_iterator(drives_.C())) {
            std::filesystem::remove_all(entry.path());
          }
          drives_.Write("a.mp3", before);
        },
        [&](const FaultRun& run) {
          const std::string left = drives_.Read("a.mp3");
          EXPECT_TRUE(left == before || left == after);
          EXPECT_TRUE(run.killed || (left == after) == run.ended_well);
          EXPECT_TRUE(run.killed || OnlyTheFileIsThere());
        });
    EXPECT_GE(faults, 5 * 5) << "open, two writes, flush and rename can go wrong at least";
  }

  TemporaryDrives drives_;
};

// Long enough for several writes.
const std::string kAudio = AudioBytes(700);
const std::string kTag = TagBytes(3, TextFrameBytes(3, "TIT2", "Title") + std::string(500, '\0'));

TEST_F(InterruptedTagsTest, LeaveTheOldOrTheNewFileWhenATextChanges) {
  Check(kTag + kAudio, {"set", "TIT2", "Another title"});
}

TEST_F(InterruptedTagsTest, LeaveTheOldOrTheNewFileWhenATagGrows) {
  Check(kTag + kAudio + Id3v1Bytes("Old"), {"set", "TIT2", std::string(3000, 'x')});
}

TEST_F(InterruptedTagsTest, LeaveTheOldOrTheNewFileWhenATagIsAdded) {
  Check(kAudio, {"set", "TIT2", "Title"});
  Check(kAudio, {"set", "V1Title", "Title"});
}

TEST_F(InterruptedTagsTest, LeaveTheOldOrTheNewFileWhenATagIsRemoved) {
  Check(kTag + kAudio + Id3v1Bytes("Old"), {"remove", "v1"});
  Check(kTag + kAudio + Id3v1Bytes("Old"), {"remove", "v2"});
}

TEST_F(InterruptedTagsTest, LeaveTheOldOrTheNewFileWhenId3v1Changes) {
  Check(kTag + kAudio + Id3v1Bytes("Old"), {"set", "V1Title", "New"});
}

TEST_F(InterruptedTagsTest, LeaveTheOldOrTheNewFileWhenBothTagsChange) {
  Check(kTag + kAudio + Id3v1Bytes("Old"), {"set", "V1AndV2Title", "New"});
}

}  // namespace
}  // namespace qublet
