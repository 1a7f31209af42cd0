#include "platform/startup_entry.h"

#include <gtest/gtest.h>

#include "platform/windows/registry.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

class RunKeyTest : public testing::Test {
 protected:
  ~RunKeyTest() override { entries_->Remove("qublet test"); }

  static std::optional<std::string> Entry() {
    const auto key =
        RegistryKey::Open(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run", KEY_QUERY_VALUE);
    return key ? key->Text("qublet test") : std::nullopt;
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<StartupEntries> entries_ = OpenStartupEntries(*files_);
};

TEST_F(RunKeyTest, NamesTheFileInTheListOfTheMachine) {
  entries_->Set("qublet test", "c:\\music\\last.m3u");
  EXPECT_EQ(Entry(), (drives_.C() / "music" / "last.m3u").string());
  entries_->Set("qublet test", "d:\\last.m3u");
  EXPECT_EQ(Entry(), (drives_.D() / "last.m3u").string());
}

TEST_F(RunKeyTest, RemovesItsEntry) {
  entries_->Set("qublet test", "c:\\last.m3u");
  entries_->Remove("qublet test");
  EXPECT_EQ(Entry(), std::nullopt);
  EXPECT_NO_THROW(entries_->Remove("qublet test"));
}

TEST_F(RunKeyTest, FailsForADriveThatDoesNotExist) {
  EXPECT_THROW(entries_->Set("qublet test", "q:\\last.m3u"), Failure);
  EXPECT_EQ(Entry(), std::nullopt);
}

}  // namespace
}  // namespace qublet
