#include "platform/file_system.h"

#include <gtest/gtest.h>

#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class FileSystemTest : public FileSystemTestBase {};

TEST_F(FileSystemTest, GivesTheAttributesOfFilesAndFolders) {
  drives_.Write("music/a.mp3", "a");
  EXPECT_EQ(files_->Attributes("c:\\music\\a.mp3"), kArchive);
  EXPECT_EQ(files_->Attributes("c:\\music"), kFolder);
  EXPECT_EQ(files_->Attributes("c:\\music\\"), kFolder);
  EXPECT_EQ(files_->Attributes("c:"), kFolder);
  EXPECT_EQ(files_->Attributes("c:\\"), kFolder);
}

TEST_F(FileSystemTest, HasNoAttributesOfWhatCannotBeReached) {
  drives_.Write("a.mp3", "a");
  for (const std::string path : {"c:\\b.mp3", "c:\\a.mp3\\", "c:\\a.mp3\\b", "q:\\a.mp3", "",
                                 "\\\\server\\share\\a.mp3", "http://a.b/c", "c:\\*.mp3"}) {
    EXPECT_EQ(files_->Attributes(path), std::nullopt) << path;
  }
  EXPECT_EQ(files_->Attributes(std::string("c:\\a.mp3\0", 9)), std::nullopt);
  EXPECT_EQ(files_->Attributes("c:\\" + std::string(300, 'x')), std::nullopt);
  EXPECT_EQ(files_->Attributes("c:\\" + std::string(100000, 'x')), std::nullopt);
}

TEST_F(FileSystemTest, SetsAndClearsTheReadOnlyBit) {
  drives_.Write("a.mp3", "a");
  files_->SetAttributes("c:\\a.mp3", kReadOnly | kArchive);
  EXPECT_EQ(files_->Attributes("c:\\a.mp3"), kReadOnly | kArchive);
  EXPECT_TRUE(files_->IsReadOnly("c:\\a.mp3"));
  files_->SetAttributes("c:\\a.mp3", kArchive);
  EXPECT_EQ(files_->Attributes("c:\\a.mp3"), kArchive);
  EXPECT_FALSE(files_->IsReadOnly("c:\\a.mp3"));
}

TEST_F(FileSystemTest, SetsNoAttributesOfWhatCannotBeReached) {
  EXPECT_THROW(files_->SetAttributes("c:\\none.mp3", kArchive), Failure);
  EXPECT_THROW(files_->SetAttributes("", kArchive), Failure);
}

TEST_F(FileSystemTest, GivesTheLengthOfAFileButNotOfAFolder) {
  drives_.Write("a.mp3", "12345");
  drives_.Write("empty.mp3", "");
  EXPECT_EQ(files_->FileLength("C:\\a.mp3"), 5);
  EXPECT_EQ(files_->FileLength("c:\\empty.mp3"), 0);
  EXPECT_THROW(files_->FileLength("c:\\"), Failure);
  EXPECT_THROW(files_->FileLength("c:\\none.mp3"), Failure);
  EXPECT_THROW(files_->FileLength(""), Failure);
}

TEST_F(FileSystemTest, ReadsAnyPlaceOfAFile) {
  drives_.Write("a.mp3", "0123456789");
  const auto file = files_->OpenForReading("c:\\a.mp3");
  EXPECT_EQ(file->Size(), 10);
  std::vector<std::uint8_t> buffer(4);
  EXPECT_EQ(file->ReadAt(3, buffer), 4u);
  EXPECT_EQ(std::string(buffer.begin(), buffer.end()), "3456");
  EXPECT_EQ(file->ReadAt(8, buffer), 2u);
  EXPECT_EQ(buffer[1], '9');
  EXPECT_EQ(file->ReadAt(10, buffer), 0u);
  EXPECT_EQ(file->ReadAt(1000, buffer), 0u);
  EXPECT_EQ(file->ReadAt(0, {}), 0u);
  EXPECT_THROW(file->ReadAt(-1, buffer), Failure);
}

TEST_F(FileSystemTest, OpensOnlyFilesForReading) {
  EXPECT_THROW(files_->OpenForReading("c:\\none.mp3"), Failure);
  EXPECT_THROW(files_->OpenForReading("c:\\"), Failure);
  EXPECT_THROW(files_->OpenForReading(""), Failure);
}

TEST_F(FileSystemTest, ListsAFolderWithFoldersMarked) {
  drives_.Write("music/a.mp3", "a");
  drives_.Write("music/caf\u00E9 \u4E2D.ogg", "b");
  drives_.Write("music/sub/c.mp3", "c");
  EXPECT_EQ(NamesIn("c:\\music"), (Names{"a.mp3", "caf\u00E9 \u4E2D.ogg", "sub\\"}));
  EXPECT_EQ(NamesIn("c:"), Names{"music\\"});
  EXPECT_EQ(NamesIn("d:\\"), Names{});
  EXPECT_THROW(files_->ReadFolder("c:\\none"), Failure);
  EXPECT_THROW(files_->ReadFolder("c:\\music\\a.mp3"), Failure);
  EXPECT_THROW(files_->ReadFolder(""), Failure);
}

TEST_F(FileSystemTest, TellsFoldersApartWhateverNameLeadsThere) {
  drives_.Write("music/a.mp3", "a");
  const auto music = files_->IdentityOf("c:\\music");
  ASSERT_TRUE(music);
  EXPECT_EQ(files_->IdentityOf("C:\\music\\."), music);
  EXPECT_EQ(files_->IdentityOf("music"), music);
  EXPECT_FALSE(files_->IdentityOf("c:\\") == music);
  EXPECT_EQ(files_->IdentityOf("c:\\none"), std::nullopt);
  EXPECT_EQ(files_->IdentityOf("c:\\music\\a.mp3"), std::nullopt);
}

TEST_F(FileSystemTest, DeletesFilesButNotFolders) {
  drives_.Write("music/a.mp3", "a");
  files_->DeleteFile("c:\\music\\a.mp3");
  EXPECT_EQ(NamesIn("c:\\music"), Names{});
  EXPECT_THROW(files_->DeleteFile("c:\\music\\a.mp3"), Failure);
  EXPECT_THROW(files_->DeleteFile("c:\\music"), Failure);
  EXPECT_EQ(files_->Attributes("c:\\music"), kFolder);
}

TEST_F(FileSystemTest, MakesAFolderOnce) {
  files_->CreateFolder("d:\\new");
  EXPECT_EQ(files_->Attributes("d:\\new"), kFolder);
  EXPECT_THROW(files_->CreateFolder("d:\\new"), Failure);
  EXPECT_THROW(files_->CreateFolder("d:\\none\\new"), Failure);
  EXPECT_THROW(files_->CreateFolder(""), Failure);
}

TEST_F(FileSystemTest, ChangesAFileInPlace) {
  drives_.Write("a.mp3", "0123456789");
  const auto file = files_->OpenInPlace("c:\\a.mp3");
  file->WriteAt(8, BytesOf("abcd"));
  EXPECT_EQ(file->Size(), 12);
  file->WriteAt(0, BytesOf("X"));
  file->Flush();
  EXPECT_EQ(drives_.Read("a.mp3"), "X1234567abcd");
  file->Truncate(2);
  EXPECT_EQ(drives_.Read("a.mp3"), "X1");
  EXPECT_THROW(file->Truncate(-1), Failure);
  EXPECT_THROW(file->WriteAt(-1, BytesOf("X")), Failure);
}

TEST_F(FileSystemTest, ChangesOnlyExistingFilesInPlace) {
  EXPECT_THROW(files_->OpenInPlace("c:\\none.mp3"), Failure);
  EXPECT_THROW(files_->OpenInPlace("c:\\"), Failure);
  EXPECT_EQ(NamesIn("c:\\"), Names{});
}

TEST_F(FileSystemTest, CopiesAFileOverAnother) {
  drives_.Write("a.mp3", LongContent());
  drives_.Write("b.mp3", "old");
  files_->CopyFile("c:\\a.mp3", "c:\\b.mp3");
  files_->CopyFile("c:\\a.mp3", "d:\\c.mp3");
  EXPECT_EQ(drives_.Read("b.mp3"), LongContent());
  EXPECT_EQ(drives_.ReadAt(drives_.D() / "c.mp3"), LongContent());
  EXPECT_EQ(drives_.Read("a.mp3"), LongContent());
  EXPECT_EQ(NamesIn("c:\\"), (Names{"a.mp3", "b.mp3"}));
}

TEST_F(FileSystemTest, CopiesAnEmptyFile) {
  drives_.Write("a.mp3", "");
  files_->CopyFile("c:\\a.mp3", "c:\\b.mp3");
  EXPECT_EQ(files_->FileLength("c:\\b.mp3"), 0);
}

TEST_F(FileSystemTest, KeepsTheTimeOfTheLastChangeInACopy) {
  drives_.Write("a.mp3", "a");
  const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000);
  std::filesystem::last_write_time(drives_.C() / "a.mp3", past);
  files_->CopyFile("c:\\a.mp3", "c:\\b.mp3");
  EXPECT_EQ(std::filesystem::last_write_time(drives_.C() / "b.mp3"),
            std::filesystem::last_write_time(drives_.C() / "a.mp3"));
}

TEST_F(FileSystemTest, RefusesToCopyWhatIsNoFile) {
  drives_.Write("music/a.mp3", "a");
  EXPECT_THROW(files_->CopyFile("c:\\none.mp3", "c:\\b.mp3"), Failure);
  EXPECT_THROW(files_->CopyFile("c:\\music", "c:\\b.mp3"), Failure);
  EXPECT_THROW(files_->CopyFile("c:\\music\\a.mp3", "c:\\music"), Failure);
  EXPECT_THROW(files_->CopyFile("c:\\music\\a.mp3", "c:\\none\\a.mp3"), Failure);
  EXPECT_EQ(NamesIn("c:\\"), Names{"music\\"});
  EXPECT_EQ(NamesIn("c:\\music"), Names{"a.mp3"});
}

TEST_F(FileSystemTest, StartsInTheCurrentFolderOfTheProcess) {
  EXPECT_EQ(files_->CurrentFolder(), "c:\\");
  drives_.Write("music/a.mp3", "a");
  std::filesystem::current_path(drives_.C() / "music");
  EXPECT_EQ(OpenFileSystem()->CurrentFolder(), "c:\\music");
}

TEST_F(FileSystemTest, MakesAFolderAndItsDriveCurrent) {
  drives_.Write("music/a.mp3", "abc");
  drives_.Write("music/sub/b.mp3", "b");
  files_->SetCurrentFolder("C:\\music\\");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\music");
  EXPECT_EQ(files_->FileLength("a.mp3"), 3);
  EXPECT_EQ(files_->FileLength("sub\\b.mp3"), 1);
  EXPECT_EQ(files_->FileLength("\\music\\a.mp3"), 3);
  EXPECT_EQ(files_->FileLength(".\\a.mp3"), 3);
  EXPECT_TRUE(files_->OpenForReading("a.mp3"));

  files_->SetCurrentFolder("d:");
  EXPECT_EQ(files_->CurrentFolder(), "d:\\");
  EXPECT_THROW(files_->FileLength("a.mp3"), Failure);
  EXPECT_THROW(files_->FileLength("\\music\\a.mp3"), Failure);
}

TEST_F(FileSystemTest, TakesARelativeFolderFromTheCurrentOne) {
  drives_.Write("music/sub/b.mp3", "b");
  files_->SetCurrentFolder("music");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\music");
  files_->SetCurrentFolder("sub");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\music\\sub");
  files_->SetCurrentFolder("..");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\music");
  files_->SetCurrentFolder("\\");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\");
  files_->SetCurrentFolder("\\music\\sub");
  EXPECT_EQ(files_->CurrentFolder(), "c:\\music\\sub");
}

TEST_F(FileSystemTest, KeepsTheCurrentFolderWhenANewOneFails) {
  drives_.Write("a.mp3", "a");
  for (const std::string folder : {"c:\\none", "q:\\", "", "c:\\a.mp3", "\\\\server\\share"}) {
    EXPECT_THROW(files_->SetCurrentFolder(folder), Failure) << folder;
    EXPECT_EQ(files_->CurrentFolder(), "c:\\");
  }
  EXPECT_EQ(files_->FileLength("a.mp3"), 1);
}

TEST_F(FileSystemTest, ConvertsPathsToTheSystemsFormAndBack) {
  drives_.Write("music/a.mp3", "a");
  const std::string native = (drives_.C() / "music" / "a.mp3").string();
  EXPECT_EQ(files_->ToNative("C:\\music\\a.mp3"), native);
  EXPECT_EQ(files_->FromNative(native), "c:\\music\\a.mp3");
  EXPECT_EQ(files_->FromNative(drives_.D().string()), "d:\\");
  EXPECT_EQ(files_->FromNative("music"), "c:\\music");
  EXPECT_EQ(files_->FromNative("."), "c:\\");
  files_->SetCurrentFolder("c:\\music");
  EXPECT_EQ(files_->FromNative("a.mp3"), "c:\\music\\a.mp3");
  EXPECT_EQ(files_->FromNative("../b.mp3"), "c:\\b.mp3");
  EXPECT_EQ(files_->FromNative("./x/../a.mp3"), "c:\\music\\a.mp3");
  EXPECT_EQ(files_->ToNative("\\b.mp3"), (drives_.C() / "b.mp3").string());
}

TEST_F(FileSystemTest, RefusesPathsThatNameNothing) {
  EXPECT_THROW(files_->ToNative(""), Failure);
  EXPECT_THROW(files_->ToNative("q:\\a.mp3"), Failure);
  EXPECT_THROW(files_->ToNative(std::string("c:\\a\0b", 6)), Failure);
  EXPECT_THROW(files_->FromNative(""), Failure);
  EXPECT_THROW(files_->FromNative(std::string("/a\0b", 4)), Failure);
}

}  // namespace
}  // namespace qublet
