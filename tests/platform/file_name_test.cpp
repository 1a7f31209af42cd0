#include "platform/file_name.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class FileNameTest : public FileSystemTestBase {};

TEST_F(FileNameTest, TellsWhichNamesAreTooLong) {
  EXPECT_EQ(NameRefusal(std::string(255, 'x')), "");
  EXPECT_EQ(NameRefusal(std::string(256, 'x')), "the name is too long");
}

TEST_F(FileNameTest, TellsWhichNamesHoldAForbiddenCharacter) {
  EXPECT_EQ(NameRefusal("AC/DC.mp3"), "the name holds a forbidden character");
  EXPECT_EQ(NameRefusal(std::string("a\0b", 3)), "the name holds a forbidden character");
  EXPECT_EQ(NameRefusal("a 'b' & (c) [d] {e} #1 % ä字.mp3"), "");
}

TEST_F(FileNameTest, HasOneKeyForAPath) {
  EXPECT_EQ(PathKey("c:\\a.mp3"), PathKey("c:\\a.mp3"));
  EXPECT_NE(PathKey("c:\\a.mp3"), PathKey("c:\\b.mp3"));
}

TEST_F(FileNameTest, AFileKeepsItsIdentityUnderAnotherName) {
  drives_.Write("a.mp3", "song");
  const auto before = files_->IdentityOfFile("c:\\a.mp3");
  ASSERT_TRUE(before);
  files_->Rename("c:\\a.mp3", "c:\\b.mp3");
  EXPECT_EQ(files_->IdentityOfFile("c:\\b.mp3"), before);
  EXPECT_FALSE(files_->IdentityOfFile("c:\\a.mp3"));
}

TEST_F(FileNameTest, AnotherFileUnderTheSameNameHasAnotherIdentity) {
  for (const char* name : {"a.mp3", "b.mp3"}) drives_.Write(name, "song");
  EXPECT_NE(files_->IdentityOfFile("c:\\a.mp3"), files_->IdentityOfFile("c:\\b.mp3"));
  const auto before = files_->IdentityOfFile("c:\\a.mp3");
  Replace("c:\\a.mp3", "song");
  EXPECT_NE(files_->IdentityOfFile("c:\\a.mp3"), before);
}

TEST_F(FileNameTest, FoldersAndWhatIsMissingHaveNoIdentityOfAFile) {
  std::filesystem::create_directory(drives_.C() / "folder");
  EXPECT_FALSE(files_->IdentityOfFile("c:\\folder"));
  EXPECT_FALSE(files_->IdentityOfFile("c:\\gone"));
  EXPECT_FALSE(files_->IdentityOfFile(""));
}

}  // namespace
}  // namespace qublet
