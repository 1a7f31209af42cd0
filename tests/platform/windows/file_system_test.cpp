#include "platform/file_system.h"

#include <gtest/gtest.h>

#include "platform/windows/wide_text.h"
#include "platform/windows/windows_api.h"
#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class WindowsFileSystemTest : public FileSystemTestBase {
 protected:
  // By a program that knows how to.
  void WriteByAnother(const std::string& name) const {
    const std::wstring place = L"\\\\?\\" + WideText(files_->ToNative("c:\\" + name));
    CloseHandle(CreateFileW(place.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
  }
};

TEST_F(WindowsFileSystemTest, WorksWithPathsOfAnyLength) {
  std::string folder = "c:";
  for (int depth = 0; depth < 30; ++depth) {
    folder += "\\a folder of a long path";
    files_->CreateFolder(folder);
  }
  ASSERT_GT(folder.size(), 600u);
  Replace(folder + "\\a.mp3", "one");
  Replace(folder + "\\a.mp3", "two");
  EXPECT_EQ(files_->FileLength(folder + "\\a.mp3"), 3);
  files_->Rename(folder + "\\a.mp3", folder + "\\b.mp3");
  files_->CopyFile(folder + "\\b.mp3", folder + "\\c.mp3");
  EXPECT_EQ(NamesIn(folder), (Names{"b.mp3", "c.mp3"}));
  files_->DeleteFile(folder + "\\b.mp3");
  EXPECT_EQ(NamesIn(folder), Names{"c.mp3"});
}

TEST_F(WindowsFileSystemTest, ReachesNamesThatOldProgramsCannot) {
  const Names names{"con.mp3", "ends with a blank ", "ends with a dot.", "nul"};
  for (const std::string& name : names) {
    WriteByAnother(name);
    Replace("c:\\" + name, "text");
    EXPECT_EQ(files_->FileLength("c:\\" + name), 4) << name;
  }
  EXPECT_EQ(NamesIn("c:\\"), names);
  // The standard library couldn't.
  for (const std::string& name : names) files_->DeleteFile("c:\\" + name);
}

TEST_F(WindowsFileSystemTest, MakesNothingUnderTheNameOfADevice) {
  drives_.Write("a.m3u", "list");
  for (const std::string name :
       {"con.m3u", "NUL", "Aux.tar.gz", "com1.m3u", "lpt9", "prn .m3u", "conout$", "com\u00B9"}) {
    EXPECT_THROW(files_->BeginReplacement("c:\\" + name), Failure) << name;
    EXPECT_THROW(files_->CreateFolder("c:\\" + name), Failure) << name;
    EXPECT_THROW(files_->Rename("c:\\a.m3u", "c:\\" + name), Failure) << name;
    EXPECT_THROW(files_->CopyFile("c:\\a.m3u", "c:\\" + name), Failure) << name;
  }
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.m3u"});
  for (const std::string name : {"console.m3u", "com.m3u", "com10.m3u", "xnul"}) Replace("c:\\" + name, "list");
}

TEST_F(WindowsFileSystemTest, ShowsHiddenFilesAsHidden) {
  drives_.Write("a.mp3", "a");
  files_->SetAttributes("c:\\a.mp3", kHidden | kSystem | kArchive);
  EXPECT_EQ(files_->Attributes("c:\\a.mp3"), kHidden | kSystem | kArchive);
  const auto entries = files_->ReadFolder("c:\\");
  ASSERT_EQ(entries.size(), 1u);
  EXPECT_TRUE(entries[0].hidden);
}

TEST_F(WindowsFileSystemTest, SetsOnlyTheBitsThatCanBeSet) {
  files_->CreateFolder("c:\\music");
  files_->SetAttributes("c:\\music", kHidden);
  EXPECT_EQ(files_->Attributes("c:\\music"), kFolder | kHidden);
  files_->SetAttributes("c:\\music", kFolder | kVolumeLabel);
  EXPECT_EQ(files_->Attributes("c:\\music"), kFolder);
}

TEST_F(WindowsFileSystemTest, RefusesAStreamInsideAFile) {
  drives_.Write("a.mp3", "a");
  EXPECT_EQ(files_->Attributes("c:\\a.mp3:x"), std::nullopt);
  EXPECT_THROW(files_->BeginReplacement("c:\\a.mp3:x"), Failure);
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.mp3"});
}

TEST_F(WindowsFileSystemTest, TakesServersInBothForms) {
  EXPECT_EQ(files_->FromNative("\\\\?\\UNC\\nas\\music\\a.mp3"), "\\\\nas\\music\\a.mp3");
  EXPECT_EQ(files_->FromNative("//nas/music/a.mp3"), "\\\\nas\\music\\a.mp3");
  EXPECT_EQ(files_->ToNative("\\\\nas\\music\\a.mp3"), "\\\\nas\\music\\a.mp3");
}

TEST_F(WindowsFileSystemTest, KeepsARelativePathRelative) {
  EXPECT_EQ(files_->ToNative("sub/a.mp3"), "sub\\a.mp3");
}

TEST_F(WindowsFileSystemTest, KeepsTheAttributesOfAReplacedFile) {
  drives_.Write("a.m3u", "old");
  files_->SetAttributes("c:\\a.m3u", kHidden | kArchive);
  Replace("c:\\a.m3u", "new");
  EXPECT_EQ(files_->Attributes("c:\\a.m3u"), kHidden | kArchive);
  EXPECT_EQ(drives_.Read("a.m3u"), "new");
}

TEST_F(WindowsFileSystemTest, RefusesToReplaceOrChangeAReadOnlyFile) {
  drives_.Write("a.m3u", "old");
  files_->SetAttributes("c:\\a.m3u", kReadOnly);
  EXPECT_THROW(files_->BeginReplacement("c:\\a.m3u"), Failure);
  EXPECT_THROW(files_->OpenInPlace("c:\\a.m3u"), Failure);
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.m3u"});
  files_->SetAttributes("c:\\a.m3u", kArchive);
}

TEST_F(WindowsFileSystemTest, CopiesTheAttributesOfTheSource) {
  drives_.Write("a.mp3", "a");
  files_->SetAttributes("c:\\a.mp3", kReadOnly | kArchive);
  files_->CopyFile("c:\\a.mp3", "c:\\b.mp3");
  EXPECT_EQ(files_->Attributes("c:\\b.mp3"), kReadOnly | kArchive);
  files_->SetAttributes("c:\\a.mp3", kArchive);
  files_->SetAttributes("c:\\b.mp3", kArchive);
}

TEST_F(WindowsFileSystemTest, DeletesWhatAKilledReplacementLeft) {
  drives_.Write("a.m3u", "old");
  std::string left;
  {
    const auto next = files_->BeginReplacement("c:\\a.m3u");
    for (const std::string& name : NamesIn("c:\\"))
      if (name != "a.m3u") left = name;
  }
  drives_.Write(left, "half a list");
  Replace("c:\\a.m3u", "new");
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.m3u"});
}

TEST_F(WindowsFileSystemTest, WritesOneFileTwiceAtOnce) {
  drives_.Write("a.m3u", "old");
  const auto one = files_->BeginReplacement("c:\\a.m3u");
  const auto two = files_->BeginReplacement("c:\\a.m3u");
  one->Write(BytesOf("one"));
  two->Write(BytesOf("two"));
  one->Commit();
  EXPECT_EQ(drives_.Read("a.m3u"), "one");
  two->Commit();
  EXPECT_EQ(drives_.Read("a.m3u"), "two");
  EXPECT_EQ(NamesIn("c:\\"), Names{"a.m3u"});
}

}  // namespace
}  // namespace qublet
