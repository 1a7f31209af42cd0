#pragma once

#include <string>
#include <vector>

#include "platform/associations.h"
#include "platform/player_window.h"

namespace qublet {

// One program for every file.
class FakeAssociations : public Associations {
 public:
  AssociatedProgram ProgramFor(const std::string& path) const override {
    asked.push_back(path);
    return program;
  }

  AssociatedProgram program;
  mutable std::vector<std::string> asked;
};

// A player that does as the test says.
class FakePlayerWindows : public PlayerWindows {
 public:
  PlayerHandle Find(const AssociatedProgram& program) override {
    wanted.push_back(program.id);
    return running;
  }
  PlayerStart Start() const override { return start; }
  bool KeepBookmarks() const override { return keep_bookmarks; }
  void Stop(const PlayerHandle& player) override { calls.push_back("stop " + player); }
  PlayingState State(const PlayerHandle& player) override { return player == running ? state : kStopped; }
  std::int32_t Position(const PlayerHandle& player) override {
    if (!silent.empty() && player == silent) return kNoAnswer;
    return player == running ? position : -1;
  }
  void Jump(const PlayerHandle& player, std::int32_t milliseconds) override {
    calls.push_back("jump " + player + " " + std::to_string(milliseconds));
  }

  PlayerHandle running;
  PlayerHandle silent;  // one that is there and answers nothing
  PlayingState state = kStopped;
  std::int32_t position = -1;
  PlayerStart start;
  bool keep_bookmarks = false;
  std::vector<std::string> wanted, calls;
};

}  // namespace qublet
