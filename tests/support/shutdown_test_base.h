#pragma once

#include <functional>
#include <string>
#include <vector>

#include "player/shutdown/shutdown_monitor.h"
#include "support/editor_test_base.h"
#include "support/fake_window_state.h"

namespace qublet {

// The program without a window, with a player that runs; what the system and the process are asked at the end is
// noted.
class ShutdownTestBase : public EditorTestBase {
 protected:
  ShutdownTestBase() {
    std::filesystem::create_directory(drives_.C() / "program");
    players_.running = ":1.7";
    fakes_.associations.program = {"c:\\mpv.exe", "mpv", true};
    fakes_.power.asked = [this] {
      order_ += "power off|";
      stored_before_ = fakes_.store.saves > 0;
      Expect();
    };
  }
  void SetUp() override { engine_.Show(window_, state_); }

  // Looked at while the system is asked.
  virtual void Expect() {}

  using Messages = std::vector<ScriptedDialogs::Message>;
  static Messages Told(const std::string& text, MessageIcon icon = MessageIcon::kExclamation) {
    return {{text, icon, MessageButtons::kOk}};
  }
  static Messages PlayerGone() {
    return Told("WinAMP was detected to be no longer running on the system, the process will halt.");
  }

  ScriptedDialogs& dialogs_ = fakes_.dialogs;
  FakePlayerWindows& players_ = fakes_.players;
  FakePower& power_ = fakes_.power;
  FakeWindowState state_;
  ShutdownCount count_;
  std::string order_;
  bool stored_before_ = false;
};

}  // namespace qublet
