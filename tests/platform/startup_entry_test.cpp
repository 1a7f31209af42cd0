#include "platform/startup_entry.h"

#include <gtest/gtest.h>

#include "support/temporary_drives.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;

class StartupEntriesTest : public testing::Test {
 protected:
  fs::path File() const { return drives_.Root() / "config" / "autostart" / "last.desktop"; }
  std::string Content() const { return TemporaryDrives::ReadAt(File()); }
  // The Exec line of an entry for a path below the root folder.
  std::string ExecLineFor(const std::string& path) const {
    entries_->Set("last", path);
    const std::string content = Content();
    const std::size_t begin = content.find("Exec=");
    return content.substr(begin, content.find('\n', begin) - begin);
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<StartupEntries> entries_ = OpenStartupEntries(*files_);
};

TEST_F(StartupEntriesTest, OpensTheFileUnderItsNativePath) {
  entries_->Set("last", "c:\\music\\last.m3u");
  EXPECT_EQ(Content(),
            "[Desktop Entry]\nType=Application\nName=last\n"
            "Comment=Opens the last playlist at logon\nExec=xdg-open \"" +
                (drives_.C() / "music" / "last.m3u8").string() +
                "\"\nTerminal=false\nNoDisplay=true\nX-Velmora-Startup=true\n");
}

TEST_F(StartupEntriesTest, EscapesWhatAnEntryCouldMisunderstand) {
  EXPECT_EQ(ExecLineFor("z:\\a b.m3u"), R"(Exec=xdg-open "/a b.m3u8")");
  EXPECT_EQ(ExecLineFor("z:\\100%U.m3u"), R"(Exec=xdg-open "/100%%U.m3u8")");
  EXPECT_EQ(ExecLineFor("z:\\$HOME `x` \"q\".m3u"), R"(Exec=xdg-open "/\\$HOME \\`x\\` \\"q\\".m3u8")");
  EXPECT_EQ(ExecLineFor("z:\\back\xEF\x81\x9Cslash.m3u"), R"(Exec=xdg-open "/back\\\\slash.m3u8")");
  EXPECT_EQ(ExecLineFor("z:\\two\nlines\tand\rmore.m3u"), R"(Exec=xdg-open "/two\nlines\tand\rmore.m3u8")");
}

TEST_F(StartupEntriesTest, OpensATwinInThisSystemsOwnForm) {
  EXPECT_EQ(entries_->FileToOpen("c:\\last.m3u"), "c:\\last.m3u8");
  EXPECT_EQ(entries_->FileToOpen("c:\\list.m3u8"), "c:\\list.m3u8");
}

TEST_F(StartupEntriesTest, ASecondPathReplacesTheFirst) {
  entries_->Set("last", "c:\\one.m3u");
  entries_->Set("last", "c:\\two.m3u");
  EXPECT_EQ(Content().find("one.m3u"), std::string::npos);
  EXPECT_NE(Content().find("two.m3u"), std::string::npos);
}

TEST_F(StartupEntriesTest, RemovesItsEntry) {
  entries_->Set("last", "c:\\last.m3u");
  entries_->Remove("last");
  EXPECT_FALSE(fs::exists(File()));
  EXPECT_NO_THROW(entries_->Remove("last"));
}

TEST_F(StartupEntriesTest, LeavesTheEntryOfAnotherProgramAlone) {
  TemporaryDrives::WriteAt(File(), "[Desktop Entry]\nName=Last minute\n");
  EXPECT_THROW(entries_->Set("last", "c:\\last.m3u"), Failure);
  EXPECT_NO_THROW(entries_->Remove("last"));
  EXPECT_EQ(Content(), "[Desktop Entry]\nName=Last minute\n");
}

TEST_F(StartupEntriesTest, FailsWhereNothingCanBeWritten) {
  TemporaryDrives::WriteAt(drives_.Root() / "config", "no folder");
  EXPECT_THROW(entries_->Set("last", "c:\\last.m3u"), Failure);
  EXPECT_NO_THROW(entries_->Remove("last"));
}

TEST_F(StartupEntriesTest, RefusesANameThatLeavesTheFolder) {
  EXPECT_THROW(entries_->Set("../last", "c:\\last.m3u"), Failure);
  EXPECT_THROW(entries_->Set("", "c:\\last.m3u"), Failure);
}

TEST_F(StartupEntriesTest, FailsForADriveThatDoesNotExist) {
  EXPECT_THROW(entries_->Set("last", "q:\\last.m3u"), Failure);
  EXPECT_FALSE(fs::exists(File()));
}

}  // namespace
}  // namespace qublet
