#include <gtest/gtest.h>

#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class RenameTest : public FileSystemTestBase {};

TEST_F(RenameTest, GivesAFileAnotherName) {
  drives_.Write("a.mp3", "a");
  files_->Rename("c:\\a.mp3", "c:\\b.mp3");
  EXPECT_EQ(NamesIn("c:\\"), Names{"b.mp3"});
  EXPECT_EQ(drives_.Read("b.mp3"), "a");
}

TEST_F(RenameTest, MovesToAnotherFolderOrDrive) {
  drives_.Write("a.mp3", "a");
  drives_.Write("music/b.mp3", "b");
  files_->Rename("c:\\a.mp3", "c:\\music\\a.mp3");
  files_->Rename("c:\\music\\b.mp3", "d:\\b.mp3");
  EXPECT_EQ(NamesIn("c:\\music"), Names{"a.mp3"});
  EXPECT_EQ(NamesIn("d:\\"), Names{"b.mp3"});
}

TEST_F(RenameTest, NeverReplacesATarget) {
  drives_.Write("a.mp3", "a");
  drives_.Write("b.mp3", "b");
  drives_.Write("music/c.mp3", "c");
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "c:\\b.mp3"), Failure);
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "c:\\music"), Failure);
  EXPECT_THROW(files_->Rename("c:\\music", "c:\\a.mp3"), Failure);
  EXPECT_EQ(drives_.Read("a.mp3"), "a");
  EXPECT_EQ(drives_.Read("b.mp3"), "b");
  EXPECT_EQ(NamesIn("c:\\music"), Names{"c.mp3"});
}

TEST_F(RenameTest, NeverReplacesAnEmptyFolder) {
  files_->CreateFolder("c:\\one");
  files_->CreateFolder("c:\\two");
  EXPECT_THROW(files_->Rename("c:\\one", "c:\\two"), Failure);
  EXPECT_EQ(NamesIn("c:\\"), (Names{"one\\", "two\\"}));
}

TEST_F(RenameTest, RenamesAFolderWithWhatIsInIt) {
  drives_.Write("music/a.mp3", "a");
  files_->Rename("c:\\music", "c:\\songs");
  EXPECT_EQ(drives_.Read("songs/a.mp3"), "a");
}

TEST_F(RenameTest, ChangesLetterCase) {
  drives_.Write("song.MP3", "a");
  files_->Rename("c:\\song.MP3", "c:\\Song.mp3");
  EXPECT_EQ(NamesIn("c:\\"), Names{"Song.mp3"});
}

TEST_F(RenameTest, FailsForTheVerySameName) {
  drives_.Write("a.mp3", "a");
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "c:\\a.mp3"), Failure);
  EXPECT_EQ(drives_.Read("a.mp3"), "a");
}

TEST_F(RenameTest, FailsForAMissingFileOrFolder) {
  drives_.Write("a.mp3", "a");
  EXPECT_THROW(files_->Rename("c:\\none.mp3", "c:\\b.mp3"), Failure);
  EXPECT_THROW(files_->Rename("c:\\a.mp3", "c:\\none\\b.mp3"), Failure);
  EXPECT_THROW(files_->Rename("c:\\a.mp3", ""), Failure);
  EXPECT_THROW(files_->Rename("", "c:\\b.mp3"), Failure);
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.mp3"});
}

TEST_F(RenameTest, FailsForAFolderIntoItself) {
  drives_.Write("music/a.mp3", "a");
  EXPECT_THROW(files_->Rename("c:\\music", "c:\\music\\sub"), Failure);
  EXPECT_EQ(drives_.Read("music/a.mp3"), "a");
}

}  // namespace
}  // namespace qublet
