#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "engine/engine.h"
#include "platform/background.h"
#include "player/shutdown/shutdown_count.h"

namespace qublet {

// Whether the computer is to be watched over until the player is silent: one runs, the user agrees, and the playlist
// may be left. What stands against it the user is told.
bool BeginShutdown(Engine& engine, Background& background);

// What the window shows, by the names of its controls.
struct ShutdownView {
  std::int16_t ProgressBar1 = 0;  // of 25
  std::string Label2 = "Monitoring...";
  std::string cmdHALT = "&Pause>";
  bool tmrSHUTDOWN = false;  // whether the timer runs
};

// Watches the player second by second, and switches the computer off when it has been silent for long enough. A
// player that goes away ends the watch instead. The player is asked beside the windows; a second without an answer
// counts for nothing.
class ShutdownMonitor {
 public:
  // `render`: the view has changed. `close`: the window is to close.
  struct Window {
    std::function<void()> render, close;
  };

  ShutdownMonitor(Engine& engine, Background& background, ShutdownCount& count, Window window)
      : engine_(engine), background_(background), count_(count), window_(std::move(window)) {}

  ShutdownView view;

  // The timer runs only if the player is found.
  void Form_Load();
  // Every second.
  void tmrSHUTDOWN_Timer();
  void cmdHALT_Click();

 private:
  struct Answer {
    PlayerHandle player;  // "" when it is gone
    std::int32_t position = kNoAnswer;
  };

  static Answer Ask(const PlayerLink& link, PlayerWindows& players, const PlayerHandle& known);
  void StartTimer();
  void StopTimer();
  void TakeAnswer(const Answer& answer);
  void EndWithoutPlayer();
  void ShutDown();

  Engine& engine_;
  Background& background_;
  ShutdownCount& count_;
  Window window_;
  std::shared_ptr<bool> watch_;  // there while the timer runs: an answer to an earlier watch counts for nothing
};

}  // namespace qublet
