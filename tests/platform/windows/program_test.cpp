#include "platform/program.h"

#include <gtest/gtest.h>

#include "platform/user_locale.h"
#include "platform/windows/windows_api.h"
#include "support/file_system_test_base.h"

namespace qublet {
namespace {

class WindowsProgramTest : public FileSystemTestBase {};

TEST_F(WindowsProgramTest, IsOnTheServerLine) {
  EXPECT_EQ(GetPlatformId(), 3);
}

TEST_F(WindowsProgramTest, KnowsItsOwnExecutable) {
  EXPECT_TRUE(ExecutablePath(*files_).ends_with("\\platform_tests.exe")) << ExecutablePath(*files_);
  EXPECT_GT(files_->FileLength(ExecutablePath(*files_)), 1000);
}

TEST_F(WindowsProgramTest, KeepsItsFilesBesideTheExecutableWhereItMay) {
  const std::string path = ExecutablePath(*files_);
  EXPECT_EQ(ProgramFolder(*files_), path.substr(0, path.rfind('\\')));
}

TEST_F(WindowsProgramTest, TakesPathsInTheLetterCaseOfTheDisk) {
  drives_.Write("Music/One Two.mp3", "abc");
  EXPECT_EQ(PathFromArgument(*files_, "C:\\MUSIC\\one two.MP3"), "C:\\Music\\One Two.mp3");
  EXPECT_EQ(PathFromArgument(*files_, "c:/music/New.m3u"), "c:\\Music\\New.m3u");
  EXPECT_EQ(PathFromArgument(*files_, "c:\\gone\\New.m3u"), "c:\\gone\\New.m3u");
}

TEST_F(WindowsProgramTest, LooksForItsCompanionsBesideTheExecutable) {
  const std::string path = ExecutablePath(*files_);
  EXPECT_EQ(CompanionFolders(*files_), Names{path.substr(0, path.rfind('\\'))});
}

TEST_F(WindowsProgramTest, HasAFolderOfThisUserElse) {
  unsetenv("QUBLET_DOSDEVICES");  // the real drives
  files_ = OpenFileSystem();
  const std::string folder = OwnFolderOfUser(*files_);
  EXPECT_TRUE(folder.ends_with("\\Velmora")) << folder;
  EXPECT_EQ(files_->Attributes(folder), kFolder);
}

TEST_F(WindowsProgramTest, KnowsItsArgumentsBesideMain) {
  // The program's own name is left out, whatever main() was told.
  for (const std::string& argument : CommandLineArguments(0, nullptr))
    EXPECT_FALSE(argument.ends_with("platform_tests.exe"));
}

// The library of this build that stands in a folder by itself.
std::wstring FolderOfPlantedLibrary() {
  std::wstring place(MAX_PATH, L'\0');
  place.resize(GetModuleFileNameW(nullptr, place.data(), MAX_PATH));
  return place.substr(0, place.rfind(L'\\')) + L"\\planted";
}

TEST_F(WindowsProgramTest, LoadsNoLibraryFromTheCurrentFolderOrThePath) {
  const std::wstring folder = FolderOfPlantedLibrary();
  ASSERT_TRUE(SetCurrentDirectoryW(folder.c_str()));
  const HMODULE before = LoadLibraryW(L"planted_library");
  ASSERT_NE(before, nullptr) << "nothing to keep out";
  FreeLibrary(before);

  LoadNothingForeign();
  EXPECT_EQ(LoadLibraryW(L"planted_library"), nullptr);
  SetEnvironmentVariableW(L"PATH", folder.c_str());
  EXPECT_EQ(LoadLibraryW(L"planted_library.dll"), nullptr);
  const HMODULE of_system = LoadLibraryW(L"winmm");
  EXPECT_NE(of_system, nullptr);
  FreeLibrary(of_system);
}

TEST_F(WindowsProgramTest, FindsProgramsInTheCurrentFolderLast) {
  drives_.Write("notepad.exe", "planted");
  files_->SetCurrentFolder("c:\\");
  SetCurrentDirectoryW(drives_.C().wstring().c_str());
  LoadNothingForeign();
  wchar_t found[MAX_PATH] = L"";
  ASSERT_NE(SearchPathW(nullptr, L"notepad.exe", nullptr, MAX_PATH, found, nullptr), 0u);
  EXPECT_EQ(std::wstring(found).find(drives_.C().wstring()), std::wstring::npos);
}

TEST(DigitGroupMark, IsTheOneOfTheUsersCountry) {
  EXPECT_LE(DigitGroupMark().size(), 3u);
}

}  // namespace
}  // namespace qublet
