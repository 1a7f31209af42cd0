#include "platform/shell.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "platform/program.h"
#include "platform/windows/windows_api.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

class WindowsShellTest : public testing::Test {
 protected:
  // What the tool has noted; "" after a time in which any program would have come.
  std::string Noted() const {
    for (int tenths = 0; tenths < 100; ++tenths) {
      const std::string text = drives_.Read("log.txt");
      if (text.ends_with('\n')) return text;
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return "";
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<Shell> shell_ = OpenShell(*files_);
};

TEST_F(WindowsShellTest, StartsAProgramWithOneWord) {
  drives_.Write("my tools/tool.bat", "@echo [%~1]>\"" + (drives_.C() / "log.txt").string() + "\"\r\n");
  for (const char* word : {"-register", "c:\\list.m3u", "c:\\a b  c\\tmp.m3u"}) {
    shell_->Start("c:\\my tools\\tool.bat", word);
    EXPECT_NE(Noted().find(word), std::string::npos) << word;
    std::filesystem::remove(drives_.C() / "log.txt");
  }
}

// Wine has none; where there is one, that comes up.
TEST_F(WindowsShellTest, TakesNoVolumeControlFromTheCurrentFolder) {
  const std::string own = ExecutablePath(*files_);
  const std::filesystem::path harmless = files_->ToNative(own.substr(0, own.rfind('\\')) + "\\player_stand_in.exe");
  for (const char* name : {"sndvol32.exe", "sndvol.exe"}) std::filesystem::copy_file(harmless, drives_.C() / name);
  wchar_t system[MAX_PATH] = L"";
  GetSystemDirectoryW(system, MAX_PATH);
  EXPECT_EQ(shell_->OpenVolumeControl(), std::filesystem::exists(std::filesystem::path(system) / "sndvol.exe"));
}

TEST_F(WindowsShellTest, KnowsProgramsOfItsOwn) {
  std::filesystem::copy_file(files_->ToNative(ExecutablePath(*files_)), drives_.C() / "tool.EXE");
  std::filesystem::copy_file(drives_.C() / "tool.EXE", drives_.C() / "tool");
  drives_.Write("script.exe", "#!/bin/sh\n");
  EXPECT_TRUE(shell_->CanStart("c:\\tool.EXE"));
  for (const char* path : {"c:\\tool", "c:\\script.exe", "c:\\gone.exe", "c:\\", "q:\\tool.exe", ""})
    EXPECT_FALSE(shell_->CanStart(path)) << path;
}

}  // namespace
}  // namespace qublet
