#include "platform/settings_store.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <future>
#include <random>
#include <thread>

#include "platform/failure.h"
#include "support/faults.h"
#include "support/ordinary_user.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

namespace fs = std::filesystem;
const std::string kApplication = "QUBLET2021";
const std::vector<std::string> kNamesAfterASave = {"QUBLET2021.conf", "QUBLET2021.conf.lock"};

class SettingsStoreTest : public testing::Test {
 protected:
  ~SettingsStoreTest() override { setenv("HOME", home_.c_str(), 1); }

  fs::path Folder() const { return drives_.Root() / "config" / "velmora"; }
  fs::path File() const { return Folder() / "QUBLET2021.conf"; }
  fs::path LockFile() const { return File().string() + ".lock"; }
  static mode_t ModeOf(const fs::path& place) {
    struct stat status {};
    EXPECT_EQ(stat(place.c_str(), &status), 0);
    return status.st_mode & 07777;
  }
  void WriteFile(const std::string& content) const { TemporaryDrives::WriteAt(File(), content); }
  std::string ReadFile() const { return TemporaryDrives::ReadAt(File()); }
  std::string Get(const std::string& section, const std::string& key) const {
    return store_->GetSetting(kApplication, section, key);
  }
  void Save(const std::string& section, const std::string& key, const std::string& value) const {
    store_->SaveSetting(kApplication, section, key, value);
  }

  // Of all files in the folder.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder())) names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
  }

  std::string home_ = getenv("HOME");
  TemporaryDrives drives_;
  std::unique_ptr<SettingsStore> store_ = OpenSettingsStore();
};

// Runs `work` in a process of its own; its exit code, or -1 when a signal ended it.
int InOwnProcess(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(SettingsStoreTest, GivesNothingForAnAbsentValue) {
  EXPECT_EQ(Get("SSE", "V"), "");
  EXPECT_TRUE(store_->AllSettings(kApplication).empty());
  EXPECT_FALSE(fs::exists(Folder()));
}

TEST_F(SettingsStoreTest, KeepsAValueForEveryOtherStoreOfThisUser) {
  Save("TableFont", "Name", "Arial Narrow");
  EXPECT_EQ(Get("TableFont", "Name"), "Arial Narrow");
  EXPECT_EQ(OpenSettingsStore()->GetSetting(kApplication, "TableFont", "Name"), "Arial Narrow");
}

TEST_F(SettingsStoreTest, WritesSectionsAndKeysLetterForLetter) {
  Save("ToolB", "3D", "True");
  Save("RF", "W", R"(c:\winamp\winamp.bm)");
  Save("ToolB", "Flat", "False");
  Save("Options", "Show Tips at Startup", "1");
  EXPECT_EQ(ReadFile(), R"([ToolB]
3D=True
Flat=False

[RF]
W=c:\winamp\winamp.bm

[Options]
Show Tips at Startup=1
)");
}

TEST_F(SettingsStoreTest, TellsLetterCaseApart) {
  Save("SSE", "V", "1");
  EXPECT_EQ(Get("sse", "V"), "");
  EXPECT_EQ(Get("SSE", "v"), "");
}

TEST_F(SettingsStoreTest, KeepsApplicationsApart) {
  store_->SaveSetting("Velmora Plugins", "1", "name", "Equaliser");
  Save("1", "name", "other");
  EXPECT_EQ(store_->GetSetting("Velmora Plugins", "1", "name"), "Equaliser");
  EXPECT_TRUE(fs::exists(Folder() / "Velmora Plugins.conf"));
  EXPECT_EQ(store_->GetSetting("QUBLET2022", "1", "name"), "");
}

TEST_F(SettingsStoreTest, KeepsApplicationNamesInsideItsFolder) {
  for (const std::string application : {"../../escape", "..", ".", "a/b", "%2e", "", "line\nbreak"}) {
    store_->SaveSetting(application, "S", "K", "value of " + application);
  }
  for (const std::string application : {"../../escape", "..", ".", "a/b", "%2e", "", "line\nbreak"}) {
    EXPECT_EQ(store_->GetSetting(application, "S", "K"), "value of " + application);
  }
  EXPECT_FALSE(fs::exists(drives_.Root() / "escape.conf"));
  EXPECT_EQ(std::distance(fs::directory_iterator(Folder()), {}), 14);  // a file and its lock for each
}

TEST_F(SettingsStoreTest, AnyTextSurvivesInEveryPlace) {
  std::string every_byte;
  for (int c = 0; c < 256; ++c) every_byte += static_cast<char>(c);
  const std::string texts[] = {"",
                               " ",
                               " a ",
                               "a\nb",
                               "\r\n",
                               "\t",
                               "=",
                               "a=b",
                               "#a",
                               ";a",
                               "[a]",
                               "a]",
                               "]",
                               "\"",
                               "\"a\"",
                               "\"a",
                               "a\"",
                               "\\",
                               "\\n",
                               "c:\\new\\table",
                               "\"\\x41\"",
                               "%0",
                               "K\xC3\xB6ln",
                               "\xC2\xA0",
                               "\xEF\xBB\xBF",
                               "\x7F",
                               every_byte,
                               "\\\\server\\x "};
  for (const std::string& text : texts) {
    Save("value", "of " + text, text);
    Save("section " + text, "k", text);
    Save(text, text, text);
  }
  const std::unique_ptr<SettingsStore> other = OpenSettingsStore();
  for (const std::string& text : texts) {
    EXPECT_EQ(other->GetSetting(kApplication, "value", "of " + text), text);
    EXPECT_EQ(other->GetSetting(kApplication, "section " + text, "k"), text);
    EXPECT_EQ(other->GetSetting(kApplication, text, text), text);
  }
}

TEST_F(SettingsStoreTest, ReadsWhatAPersonWrote) {
  WriteFile(
      "\xEF\xBB\xBF# look\r\n  [ SSE ]\r\n\r\n\tRCount =  12 \r\n; RCount=13\r\nIdir=\"c:\\\\my music "
      "\"\r\nX=\"open\r\n");
  EXPECT_EQ(Get("SSE", "RCount"), "12");
  EXPECT_EQ(Get("SSE", "Idir"), "c:\\my music ");
  EXPECT_EQ(Get("SSE", "X"), "\"open");
}

TEST_F(SettingsStoreTest, KeepsCommentsAndUnknownLines) {
  WriteFile("before\n# first\n[SSE]\nV=1\n\n; about fonts\n[TableFont]\nnonsense\nName=Arial\n");
  Save("TableFont", "Name", "Tahoma");
  Save("SSE", "GRID", "1");
  EXPECT_EQ(ReadFile(), "before\n# first\n[SSE]\nV=1\nGRID=1\n\n; about fonts\n[TableFont]\nnonsense\nName=Tahoma\n");
}

TEST_F(SettingsStoreTest, TakesTheLastOfEqualKeysAndChangesThatOne) {
  WriteFile("[SSE]\nRCount=5\n[PS]\nT=1\n[SSE]\nRCount=7\n");
  EXPECT_EQ(Get("SSE", "RCount"), "7");
  Save("SSE", "RCount", "9");
  EXPECT_EQ(ReadFile(), "[SSE]\nRCount=5\n[PS]\nT=1\n[SSE]\nRCount=9\n");
}

TEST_F(SettingsStoreTest, CompletesALastLineWithoutLineBreak) {
  WriteFile("[SSE]\nV=1");
  Save("SSE", "GRID", "0");
  Save("PS", "T", "1900");
  EXPECT_EQ(ReadFile(), "[SSE]\nV=1\nGRID=0\n\n[PS]\nT=1900\n");
}

TEST_F(SettingsStoreTest, KeysUnderADamagedSectionBelongToNone) {
  WriteFile("V=0\n[SSE]\nV=1\n[Menu\nV=2\n");
  EXPECT_EQ(Get("SSE", "V"), "1");
  EXPECT_EQ(store_->AllSettings(kApplication).size(), 1U);
}

TEST_F(SettingsStoreTest, ListsEveryValueInStoredOrder) {
  store_->SaveSettings(kApplication, {{"SSE", "V", "1"}, {"RF", "20", "z:\\a.m3u"}, {"SSE", "GRID", ""}});
  const std::vector<Setting> expected = {{"SSE", "V", "1"}, {"SSE", "GRID", ""}, {"RF", "20", "z:\\a.m3u"}};
  EXPECT_EQ(store_->AllSettings(kApplication), expected);
}

TEST_F(SettingsStoreTest, SeesAChangeByHandAtOnce) {
  WriteFile("[SSE]\nRCount=11\n");
  EXPECT_EQ(Get("SSE", "RCount"), "11");
  WriteFile("[SSE]\nRCount=12\n");
  EXPECT_EQ(Get("SSE", "RCount"), "12");
  fs::remove(File());
  EXPECT_EQ(Get("SSE", "RCount"), "");
}

TEST_F(SettingsStoreTest, LosesNoKeyOfAnotherInstance) {
  const std::unique_ptr<SettingsStore> other = OpenSettingsStore();
  Save("SSE", "V", "1");
  other->SaveSetting(kApplication, "RF", "20", "z:\\other.m3u");
  Save("RF", "19", "z:\\mine.m3u");
  other->SaveSetting(kApplication, "SSE", "V", "0");
  EXPECT_EQ(Get("RF", "20"), "z:\\other.m3u");
  EXPECT_EQ(other->GetSetting(kApplication, "RF", "19"), "z:\\mine.m3u");
  EXPECT_EQ(Get("SSE", "V"), "0");
}

TEST_F(SettingsStoreTest, TwoProcessesAtOnceLoseNothing) {
  constexpr int kWrites = 60;
  const auto hammer = [](const std::string& name) {
    return InOwnProcess([&] {
      const std::unique_ptr<SettingsStore> store = OpenSettingsStore();
      for (int i = 0; i < kWrites; ++i) {
        store->SaveSetting(kApplication, name, std::to_string(i), name);
        // The lock isn't handed on in turn: whoever took it again at once could keep the other out for its whole
        // wait.
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
      }
      return 0;
    });
  };
  auto second = std::async(std::launch::async, hammer, "second");
  EXPECT_EQ(hammer("first"), 0);
  EXPECT_EQ(second.get(), 0);
  for (int i = 0; i < kWrites; ++i) {
    EXPECT_EQ(Get("first", std::to_string(i)), "first");
    EXPECT_EQ(Get("second", std::to_string(i)), "second");
  }
}

TEST_F(SettingsStoreTest, AnInterruptedSaveLeavesTheOldOrTheNewValues) {
  constexpr int kKeys = 70;
  const FaultyProgram program{TestProgram("settings_driver"), {std::to_string(kKeys), "new"}, Folder()};
  fs::create_directories(Folder());
  const int faults = ForEveryFault(
      program,
      [&] {
        fs::remove_all(Folder());
        TemporaryDrives::WriteAt(File().string() + ".lock", "");
        std::string text = "# mine\n[SSE]\n";
        for (int i = 0; i < kKeys; ++i) text += std::to_string(i) + "=old\n";
        WriteFile(text);
      },
      [&](const FaultRun& run) {
        const std::string first = Get("SSE", "0");
        EXPECT_TRUE(first == "new" || (first == "old" && !run.ended_well)) << first;
        for (int i = 1; i < kKeys; ++i) EXPECT_EQ(Get("SSE", std::to_string(i)), first);
        EXPECT_TRUE(ReadFile().starts_with("# mine\n"));
        EXPECT_TRUE(run.killed || Names() == kNamesAfterASave);
        EXPECT_NO_THROW(Save("SSE", "0", "after"));
        EXPECT_EQ(Get("SSE", "0"), "after");
      });
  EXPECT_GT(faults, 20);
}

TEST_F(SettingsStoreTest, GarbageIsAnEmptyStoreThatCanStillBeWritten) {
  std::mt19937 random(20);
  std::uniform_int_distribution<int> byte(0, 255);
  std::string garbage;
  for (int i = 0; i < 100'000; ++i) garbage += static_cast<char>(byte(random));
  WriteFile(garbage);
  EXPECT_EQ(Get("SSE", "V"), "");
  Save("SSE", "V", "1");
  EXPECT_EQ(Get("SSE", "V"), "1");
  EXPECT_TRUE(ReadFile().starts_with(garbage));
}

TEST_F(SettingsStoreTest, AFileOfZerosIsAnEmptyStoreThatCanStillBeWritten) {
  WriteFile(std::string(4096, '\0'));
  EXPECT_TRUE(store_->AllSettings(kApplication).empty());
  Save("SSE", "V", "1");
  EXPECT_EQ(Get("SSE", "V"), "1");
}

TEST_F(SettingsStoreTest, AFileTooLargeForSettingsIsEmptyAndStaysAsItIs) {
  WriteFile("[SSE]\nV=1\n");
  fs::resize_file(File(), std::uintmax_t{1} << 40);
  EXPECT_EQ(Get("SSE", "V"), "");
  EXPECT_THROW(Save("SSE", "V", "0"), Failure);
  EXPECT_EQ(fs::file_size(File()), std::uintmax_t{1} << 40);
}

TEST_F(SettingsStoreTest, RefusesAValueThatWouldMakeItTooLarge) {
  Save("SSE", "V", "1");
  EXPECT_THROW(Save("SSE", "Idir", std::string(5'000'000, 'a')), Failure);
  EXPECT_EQ(Get("SSE", "V"), "1");
}

TEST_F(SettingsStoreTest, NeverWaitsForAPipeInItsPlace) {
  fs::create_directories(Folder());
  ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
  EXPECT_EQ(Get("SSE", "V"), "");
  EXPECT_THROW(Save("SSE", "V", "1"), Failure);
}

TEST_F(SettingsStoreTest, AReadOnlyFileIsReadAndNeverReplaced) {
  WriteFile("[SSE]\nV=0\n");
  fs::permissions(File(), fs::perms::owner_read);
  EXPECT_EQ(Get("SSE", "V"), "0");
  EXPECT_THROW(Save("SSE", "V", "1"), Failure);
  EXPECT_EQ(ReadFile(), "[SSE]\nV=0\n");
}

TEST_F(SettingsStoreTest, AReadOnlyFolderIsReadAndRefusesToSave) {
  WriteFile("[SSE]\nV=0\n");
  const OrdinaryUser user(drives_.Root());
  fs::permissions(Folder(), fs::perms(0555));
  EXPECT_EQ(Get("SSE", "V"), "0");
  EXPECT_THROW(Save("SSE", "V", "1"), Failure);
  fs::permissions(Folder(), fs::perms(0755));
  EXPECT_EQ(ReadFile(), "[SSE]\nV=0\n");
}

TEST_F(SettingsStoreTest, AnUnreadableFileIsEmptyAndNeverReplaced) {
  WriteFile("[SSE]\nV=0\n");
  const OrdinaryUser user(drives_.Root());
  fs::permissions(File(), fs::perms::none);
  EXPECT_EQ(Get("SSE", "V"), "");
  EXPECT_THROW(Save("SSE", "V", "1"), Failure);
  fs::permissions(File(), fs::perms(0644));
  EXPECT_EQ(ReadFile(), "[SSE]\nV=0\n");
}

TEST_F(SettingsStoreTest, AFileInPlaceOfTheFolderIsAnEmptyStore) {
  TemporaryDrives::WriteAt(drives_.Root() / "config", "no folder");
  EXPECT_EQ(Get("SSE", "V"), "");
  EXPECT_THROW(Save("SSE", "V", "1"), Failure);
}

TEST_F(SettingsStoreTest, ALinkedFileStaysALink) {
  TemporaryDrives::WriteAt(drives_.C() / "dotfiles" / "velmora.conf", "[SSE]\nV=0\n");
  fs::create_directories(Folder());
  fs::create_symlink(drives_.C() / "dotfiles" / "velmora.conf", File());
  Save("SSE", "V", "1");
  EXPECT_TRUE(fs::is_symlink(File()));
  EXPECT_EQ(drives_.Read("dotfiles/velmora.conf"), "[SSE]\nV=1\n");
}

TEST_F(SettingsStoreTest, AnUnchangedValueLeavesTheFileAlone) {
  Save("SSE", "V", "1");
  struct stat before {
  }, after{};
  ASSERT_EQ(stat(File().c_str(), &before), 0);
  Save("SSE", "V", "1");
  ASSERT_EQ(stat(File().c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST_F(SettingsStoreTest, ASavedFileLeavesNoTemporaryFile) {
  Save("SSE", "V", "1");
  EXPECT_EQ(Names(), kNamesAfterASave);
}

TEST_F(SettingsStoreTest, GivesUpWhenAnotherProcessNeverLetsGo) {
  Save("SSE", "V", "1");
  const int held = open((File().string() + ".lock").c_str(), O_RDWR);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  EXPECT_EQ(Get("SSE", "V"), "1");
  EXPECT_THROW(Save("SSE", "V", "0"), Failure);
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < 3; ++i) EXPECT_THROW(Save("SSE", "V", "0"), Failure);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1)) << "it has waited already";
  close(held);
  EXPECT_NO_THROW(Save("SSE", "V", "0"));
}

TEST_F(SettingsStoreTest, WaitsOnceASessionForAnotherProcessThatComesAndGoes) {
  Save("SSE", "V", "1");
  const int held = open(LockFile().c_str(), O_RDWR);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  EXPECT_THROW(Save("SSE", "V", "0"), Failure);
  flock(held, LOCK_UN);
  EXPECT_NO_THROW(Save("SSE", "V", "0"));
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_THROW(Save("SSE", "V", "2"), Failure);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
  close(held);
}

TEST_F(SettingsStoreTest, MakesFilesAndFolderForThisUserAlone) {
  const mode_t before = umask(0);
  Save("SSE", "V", "1");
  umask(before);
  for (const fs::path& place : {File(), LockFile()}) EXPECT_EQ(ModeOf(place), 0600u) << place;
  EXPECT_EQ(ModeOf(Folder()), 0700u);
}

TEST_F(SettingsStoreTest, ShutsALockToOthersThatEveryoneCouldHold) {
  TemporaryDrives::WriteAt(LockFile(), "");
  fs::permissions(LockFile(), fs::perms(0666));
  Save("SSE", "V", "1");
  EXPECT_EQ(ModeOf(LockFile()), 0600u);
}

TEST_F(SettingsStoreTest, ReplacesALockThatIsNoLockOfThisUser) {
  const auto expect_replaced = [&] {
    EXPECT_NO_THROW(Save("SSE", "V", "1"));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(LockFile())));
    EXPECT_EQ(ModeOf(LockFile()), 0600u);
    fs::remove(LockFile());
  };
  TemporaryDrives::WriteAt(drives_.C() / "precious", "precious");
  fs::create_directories(Folder());
  fs::create_symlink(drives_.C() / "precious", LockFile());
  expect_replaced();
  ASSERT_EQ(mkfifo(LockFile().c_str(), 0600), 0);
  expect_replaced();
  EXPECT_EQ(drives_.Read("precious"), "precious");
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make a file of another user";
  TemporaryDrives::WriteAt(LockFile(), "");
  ASSERT_EQ(chown(LockFile().c_str(), 1234, 1234), 0);
  const int held = open(LockFile().c_str(), O_RDWR);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  expect_replaced();
  close(held);
}

TEST_F(SettingsStoreTest, ReplacesALockThatThisUserCanNotEvenOpen) {
  TemporaryDrives::WriteAt(LockFile(), "");
  const OrdinaryUser user(drives_.Root());
  if (!user.Changed()) GTEST_SKIP() << "only the superuser can make a file of another user";
  ASSERT_EQ(seteuid(0), 0);
  ASSERT_EQ(chown(LockFile().c_str(), 0, 0), 0);
  ASSERT_EQ(chmod(LockFile().c_str(), 0600), 0);
  ASSERT_EQ(seteuid(65534), 0);
  EXPECT_NO_THROW(Save("SSE", "V", "1"));
  EXPECT_EQ(Get("SSE", "V"), "1");
}

TEST_F(SettingsStoreTest, NeitherReadsNorReplacesAFileOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make a file of another user";
  WriteFile("[SSE]\nV=0\n");
  ASSERT_EQ(chown(File().c_str(), 1234, 1234), 0);
  EXPECT_EQ(Get("SSE", "V"), "");
  EXPECT_THROW(Save("SSE", "V", "1"), Failure);
  EXPECT_EQ(ReadFile(), "[SSE]\nV=0\n");
}

TEST_F(SettingsStoreTest, KeepsNothingInAFolderOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can make a folder of another user";
  fs::create_directories(Folder());
  ASSERT_EQ(chown(Folder().c_str(), 1234, 1234), 0);
  EXPECT_THROW(Save("SSE", "V", "1"), Failure);
  EXPECT_EQ(Names(), std::vector<std::string>());
}

TEST_F(SettingsStoreTest, TellsThatItCanKeepValuesAndChangesNothingForIt) {
  EXPECT_EQ(store_->CanKeep(kApplication).Reason(), "");
  EXPECT_FALSE(fs::exists(File()));
  WriteFile("[SSE]\nV=0\n");
  EXPECT_EQ(store_->CanKeep(kApplication).Reason(), "");
  EXPECT_EQ(ReadFile(), "[SSE]\nV=0\n");
  EXPECT_EQ(Names(), kNamesAfterASave);
}

TEST_F(SettingsStoreTest, TellsWhyItCanNotKeepValues) {
  Save("SSE", "V", "0");
  const int held = open(LockFile().c_str(), O_RDWR);
  ASSERT_EQ(flock(held, LOCK_EX), 0);
  EXPECT_EQ(store_->CanKeep(kApplication).Reason(), "locked by another process");
  close(held);
  fs::permissions(File(), fs::perms::owner_read);
  EXPECT_EQ(store_->CanKeep(kApplication).Reason(), "read-only");
  fs::permissions(File(), fs::perms(0600));
  const OrdinaryUser user(drives_.Root());
  fs::permissions(Folder(), fs::perms(0555));
  EXPECT_NE(store_->CanKeep(kApplication).Reason(), "");
  fs::permissions(Folder(), fs::perms(0755));
  EXPECT_EQ(store_->CanKeep(kApplication).Reason(), "");
}

TEST_F(SettingsStoreTest, TellsWhyItsFolderCanNotBeMade) {
  const OrdinaryUser user(drives_.Root());
  fs::permissions(drives_.Root(), fs::perms(0555));
  EXPECT_EQ(store_->CanKeep(kApplication).Reason(), "permission denied");
  fs::permissions(drives_.Root(), fs::perms(0755));
}

TEST_F(SettingsStoreTest, FallsBackToTheHomeFolder) {
  setenv("XDG_CONFIG_HOME", "relative/is/ignored", 1);
  setenv("HOME", (drives_.Root() / "home").c_str(), 1);
  OpenSettingsStore()->SaveSetting(kApplication, "SSE", "V", "1");
  EXPECT_TRUE(fs::exists(drives_.Root() / "home" / ".config" / "velmora" / "QUBLET2021.conf"));
}

TEST_F(SettingsStoreTest, AUserWithoutHomeFolderHasAnEmptyStore) {
  for (const char* name : {"XDG_CONFIG_HOME", "HOME"}) unsetenv(name);
  const std::unique_ptr<SettingsStore> store = OpenSettingsStore();
  EXPECT_EQ(store->GetSetting(kApplication, "SSE", "V"), "");
  EXPECT_THROW(store->SaveSetting(kApplication, "SSE", "V", "1"), Failure);
}

}  // namespace
}  // namespace qublet
