#pragma once

#include <chrono>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include "platform/associations.h"

namespace qublet {

// A running player, by this system's own name for it; "" is none. Messages to one that has ended do nothing.
using PlayerHandle = std::string;

enum PlayingState : std::int32_t { kStopped = 0, kPlaying = 1, kPaused = 3 };

inline constexpr int kPlayerPatience = 1000;  // milliseconds
inline constexpr std::int32_t kNoAnswer = std::numeric_limits<std::int32_t>::min();

// How this system's players start, and so how one is waited for.
struct PlayerStart {
  std::chrono::milliseconds appears{0};   // until it can be found at all
  std::chrono::milliseconds plays{5000};  // until it plays, after that
  std::chrono::milliseconds pause{0};     // between two questions
  int questions = 2000000;                // whether it plays, at most
  bool anew = false;                      // it may be another one than was found first: it is looked up each time
  bool says_so_early = false;  // it calls itself playing ahead of having the file; its position moves later
};

// Live control of a running player. Every call comes back within a second (kPlayerPatience) whatever the player does;
// one that doesn't answer is as good as stopped. Nothing here throws. One thread at a time.
class PlayerWindows {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // What one action of the user asks of a player: for as long as it lives, all calls together have the time of one.
  class Action {
   public:
    explicit Action(PlayerWindows& players) : players_(players) { players_.end_of_action_ = FromNow(); }
    ~Action() { players_.end_of_action_.reset(); }
    Action(const Action&) = delete;
    Action& operator=(const Action&) = delete;

   private:
    PlayerWindows& players_;
  };

  virtual ~PlayerWindows() = default;

  // The player that runs, "" if none does. Where the system can't know a player by its window, it is `program` and no
  // other; among its instances the one that plays, else the one started last.
  virtual PlayerHandle Find(const AssociatedProgram& program) = 0;

  virtual PlayerStart Start() const = 0;

  // Whether players here keep bookmarks in a file of their own, so that commands about it belong to a player.
  // Elsewhere it is any file that the user names.
  virtual bool KeepBookmarks() const = 0;

  virtual void Stop(const PlayerHandle& player) = 0;
  virtual PlayingState State(const PlayerHandle& player) = 0;
  // Where it plays, in milliseconds; -1 when it is stopped, kNoAnswer when it doesn't say.
  virtual std::int32_t Position(const PlayerHandle& player) = 0;
  // Goes on from there, playing or paused as it was.
  virtual void Jump(const PlayerHandle& player, std::int32_t milliseconds) = 0;

 protected:
  // When a call that begins now is to be over.
  Time Deadline() const { return end_of_action_.value_or(FromNow()); }

 private:
  static Time FromNow() { return std::chrono::steady_clock::now() + std::chrono::milliseconds(kPlayerPatience); }

  std::optional<Time> end_of_action_;
};

// The players of this user's session.
std::unique_ptr<PlayerWindows> OpenPlayerWindows();

}  // namespace qublet
