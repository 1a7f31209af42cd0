#include <gtest/gtest.h>

#include "support/faults.h"
#include "support/list_test_base.h"

namespace qublet {
namespace {

class InterruptedRecovery : public ListTestBase {
 protected:
  // What is left of c:\own after every fault at every call, the lock aside.
  int ForEveryFaultIn(const char* what, const std::function<void(const FaultRun&, const std::string&)>& check) {
    Touch({"b.mp3"});
    const FaultyProgram driver{TestProgram("recovery_driver"), {"c:\\b.mp3", what}, drives_.C() / "own"};
    return ForEveryFault(
        driver,
        [&] {
          std::filesystem::remove_all(drives_.C() / "own");
          drives_.Write("own/recovery-1.m3u", kOld);
        },
        [&](const FaultRun& run) { check(run, drives_.Read("own/recovery-1.m3u")); });
  }

  const std::string kOld = PlaylistOfMissingFiles(500);
  const std::string kNew = kOld + "c:\\b.mp3\r\n";
};

TEST_F(InterruptedRecovery, LeavesTheOldOrTheNewList) {
  const int faults = ForEveryFaultIn("kept", [&](const FaultRun& run, const std::string& list) {
    EXPECT_TRUE(list == kOld || list == kNew) << list.size() << " bytes";
    EXPECT_TRUE(run.killed || (list == kNew) == run.ended_well);
  });
  EXPECT_GE(faults, 5 * 5) << "lock, open, write, flush and rename can go wrong at least";
}

TEST_F(InterruptedRecovery, GoesAsAWhole) {
  const int faults = ForEveryFaultIn("stored", [&](const FaultRun& run, const std::string& list) {
    EXPECT_TRUE(list.empty() || list == kOld || list == kNew) << list.size() << " bytes";
    EXPECT_TRUE(run.killed || list.empty() == run.ended_well);
  });
  EXPECT_GE(faults, 5 * 6);
}

}  // namespace
}  // namespace qublet
