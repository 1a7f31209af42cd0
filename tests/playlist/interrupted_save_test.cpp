#include <gtest/gtest.h>

#include "support/faults.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

class InterruptedSave : public ListTestBase {
 protected:
  InterruptedSave() { TemporaryDrives::WriteAt(drives_.D() / "source.m3u", PlaylistOfMissingFiles(3000)); }

  // Saves the 3,000 lines as `target` in c:\gone over what is there, with every fault at every call.
  void ExpectOldOrNew(const std::string& target, const std::string& old, bool relative) {
    const FaultyProgram driver{TestProgram("save_driver"),
                               {"d:\\source.m3u", "c:\\gone\\" + target, relative ? "relative" : "plain"},
                               drives_.Root()};
    const auto prepare = [&] {
      std::filesystem::remove_all(drives_.C() / "gone");
      drives_.Write("gone/" + target, old);
    };
    prepare();
    ASSERT_TRUE(EndsWell(driver));
    const std::string saved = drives_.Read("gone/" + target);
    ASSERT_GT(saved.size(), std::size_t{30'000});

    const int faults = ForEveryFault(driver, prepare, [&](const FaultRun& run) {
      const std::string content = drives_.Read("gone/" + target);
      EXPECT_TRUE(content == old || content == saved) << content.size() << " bytes";
      EXPECT_TRUE(run.killed || (content == saved) == run.ended_well);
      const std::filesystem::directory_iterator entries(drives_.C() / "gone");
      EXPECT_TRUE(run.killed || std::distance(begin(entries), end(entries)) == 1) << "a temporary file is left";
    });
    EXPECT_GE(faults, 5 * 4) << "open, write, flush and rename can go wrong at least";
  }
};

TEST_F(InterruptedSave, LeavesTheOldOrTheNewPlaylist) {
  ExpectOldOrNew("list.m3u", "c:\\old.mp3\r\n", false);
}

TEST_F(InterruptedSave, LeavesTheOldOrTheNewRelativePlaylist) {
  ExpectOldOrNew("list.m3u", PlaylistOfMissingFiles(6000), true);
}

TEST_F(InterruptedSave, LeavesTheOldOrTheNewM3u8) {
  ExpectOldOrNew("list.m3u8", "/old.mp3\n", false);
}

}  // namespace
}  // namespace qublet
