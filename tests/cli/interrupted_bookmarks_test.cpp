#include <gtest/gtest.h>

#include <filesystem>

#include "support/faults.h"
#include "support/temporary_drives.h"

// What stands on the disk after `qublet bookmarks titles` was killed or its disk failed at each of its calls.

namespace qublet {
namespace {

TEST(InterruptedBookmarksTest, TheOldBookmarksAreInTheFileOrBesideIt) {
  constexpr const char* kNew = "c:\\a.mp3\r\nA\r\n";
  const TemporaryDrives drives;
  drives.Write("a.mp3", "abc");
  const FaultyProgram titles{
      TestProgram("qublet"), {"bookmarks", "titles", "c:\\player\\winamp.bm", "c:\\a.mp3"}, drives.Root()};
  const int faults = ForEveryFault(
      titles,
      [&] {
        std::filesystem::remove_all(drives.C() / "player");
        drives.Write("player/winamp.bm", "old");
        drives.Write("player/winamp.bm.bak", "older");
      },
      [&](const FaultRun& run) {
        const std::string file = drives.Read("player/winamp.bm");
        const std::string backup = drives.Read("player/winamp.bm.bak");
        EXPECT_TRUE(file == "old" || file == kNew) << run.name << " " << run.call;
        EXPECT_TRUE(backup == "old" || (backup == "older" && file == "old")) << run.name << " " << run.call;
        EXPECT_TRUE(!run.ended_well || file == kNew);
      });
  EXPECT_GE(faults, 5 * 6) << "open, write, flush and rename of two files can go wrong at least";
}

}  // namespace
}  // namespace qublet
