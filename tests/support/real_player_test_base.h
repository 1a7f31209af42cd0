#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "platform/associations.h"
#include "platform/player_window.h"
#include "platform/shell.h"
#include "support/fake_services.h"
#include "support/private_bus.h"

namespace qublet {

// Of mono samples of one byte, 8000 a second.
inline std::string WavOf(double seconds) {
  const auto count = static_cast<std::uint32_t>(std::lround(seconds * 8000));
  const auto number = [](std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
  };
  return "RIFF" + number(36 + count, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) + number(1, 2) + number(8000, 4) +
         number(8000, 4) + number(1, 2) + number(8, 2) + "data" + number(count, 4) + std::string(count, '\x80');
}

// A real player on a bus of its own, as the program that opens playlists. Shell, associations and the link to players
// are real ones; the rest of the surroundings is a test's.
class RealPlayerTestBase : public testing::Test {
 protected:
  RealPlayerTestBase() {
    const std::string root = Root().string();
    // Wherever it runs it says what it plays, and its number, so that it can be ended here.
    desktop_.AddProgram("mpv", "echo $$ >>'" + root + "/numbers'\nexport HOME='" + root + "'\nexec " +
                                   QUBLET_REAL_PLAYER " --no-terminal --ao=null --no-video --log-file='" + root +
                                   "/log'.$$ \"$@\"\n");
    InstallAs("--idle=yes");
    std::filesystem::create_directories(Root() / "c/program");
  }

  ~RealPlayerTestBase() override {
    for (const pid_t number : Numbers()) kill(number, SIGKILL);
  }

  std::filesystem::path Root() const { return desktop_.Drives().Root(); }

  void InstallAs(const std::string& options, const std::string& id = "mpv") const {
    TemporaryDesktop::AddEntry(desktop_.Data(), id,
                               "Exec=mpv " + options + " -- %U\nCategories=AudioVideo;Audio;Player;\n" +
                                   "MimeType=audio/x-mpegurl;audio/mpegurl;audio/x-wav;\n");
  }

  // The players started so far, oldest first.
  std::vector<pid_t> Numbers() const {
    std::vector<pid_t> numbers;
    std::istringstream lines(TemporaryDrives::ReadAt(Root() / "numbers"));
    for (pid_t number = 0; lines >> number;) numbers.push_back(number);
    return numbers;
  }

  TemporaryDesktop desktop_;
  PrivateBus bus_{desktop_};
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<Shell> shell_ = OpenShell(*files_);
  std::unique_ptr<Associations> associations_ = OpenAssociations(*files_);
  std::unique_ptr<PlayerWindows> players_ = OpenPlayerWindows();
  FakeServices fakes_;
  ScriptedDialogs& dialogs_ = fakes_.dialogs;
};

}  // namespace qublet
