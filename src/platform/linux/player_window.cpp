#include "platform/player_window.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/failure.h"
#include "platform/linux/bus_answers.h"
#include "platform/linux/message_bus.h"

namespace qublet {
namespace {

// Players by MPRIS 2 (specifications.freedesktop.org/mpris-spec). A handle is the unique name of a player's
// connection: it dies with the player and never belongs to another.

constexpr std::string_view kNames = "org.mpris.MediaPlayer2.";
constexpr const char* kPath = "/org/mpris/MediaPlayer2";
constexpr const char* kRoot = "org.mpris.MediaPlayer2";
constexpr const char* kPlayer = "org.mpris.MediaPlayer2.Player";
constexpr const char* kNoTrack = "/org/mpris/MediaPlayer2/TrackList/NoTrack";
constexpr std::int64_t kLongest = std::int64_t{1} << 60;  // microseconds; nothing plays as long

BusMessage PlayerCall(const std::string& player, const char* method) {
  return BusCall(player.c_str(), kPath, kPlayer, method);
}

BusMessage Property(const std::string& player, const char* interface, const char* name) {
  BusMessage call = BusCall(player.c_str(), kPath, DBUS_INTERFACE_PROPERTIES, "Get");
  dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &interface, DBUS_TYPE_STRING, &name, DBUS_TYPE_INVALID);
  return call;
}

// A question to the bus about one of its names.
BusMessage NameCall(const char* method, const std::string& name) {
  BusMessage call = BusCall(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, method);
  const char* text = name.c_str();
  dbus_message_append_args(call.get(), DBUS_TYPE_STRING, &text, DBUS_TYPE_INVALID);
  return call;
}

// The program of the process whose number the bus told; "" when it can't be known.
std::string ExecutableFrom(const BusMessage& answer) {
  const auto process = ProcessFrom(answer);
  if (!process) return "";
  std::error_code error;
  return std::filesystem::read_symlink("/proc/" + std::to_string(*process) + "/exe", error).string();
}

char Small(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Ids are written like domains ("org.videolan.VLC"), while a program calls itself by the last part on the bus
// ("vlc").
bool IsLastPart(std::string_view name, std::string_view id) {
  id.remove_prefix(id.rfind('.') + 1);
  return std::ranges::equal(name, id, {}, Small, Small);
}

PlayingState StateFrom(const std::string& status) {
  return status == "Playing" ? kPlaying : status == "Paused" ? kPaused : kStopped;
}

// ":1.42" comes later than ":1.7".
std::vector<unsigned long> Age(std::string_view unique_name) {
  std::vector<unsigned long> numbers;
  while (!unique_name.empty()) {
    unique_name.remove_prefix(1);
    unsigned long number = 0;
    const char* end = unique_name.data() + unique_name.size();
    std::from_chars(unique_name.data(), end, number);
    numbers.push_back(number);
    const std::size_t next = unique_name.find('.');
    unique_name.remove_prefix(next == unique_name.npos ? unique_name.size() : next);
  }
  return numbers;
}

class BusPlayers : public PlayerWindows {
 public:
  PlayerHandle Find(const AssociatedProgram& program) override {
    PlayerHandle player;
    if (program.id.empty()) return player;
    ResumeNext([&] {
      const Time deadline = Deadline();
      // Half the time is kept for the choice: who doesn't answer may be no player of ours. And some of it for what
      // the one that is chosen will be asked.
      player = Best(Candidates(program, deadline - std::chrono::milliseconds(kPlayerPatience / 2)),
                    deadline - std::chrono::milliseconds(kPlayerPatience / 4));
    });
    return player;
  }

  // A player that was stopped ends, another one starts, and both take their time on the bus.
  PlayerStart Start() const override {
    PlayerStart start;
    start.appears = std::chrono::milliseconds(3000);
    start.pause = std::chrono::milliseconds(30);
    start.anew = start.says_so_early = true;
    return start;
  }
  bool KeepBookmarks() const override { return false; }

  void Stop(const PlayerHandle& player) override {
    if (!player.empty()) ResumeNext([&] { bus_.Ask(PlayerCall(player, "Stop"), Deadline()); });
  }

  PlayingState State(const PlayerHandle& player) override {
    PlayingState state = kStopped;
    if (player.empty()) return state;
    ResumeNext(
        [&] { state = StateFrom(TextFrom(bus_.Ask(Property(player, kPlayer, "PlaybackStatus"), Deadline()))); });
    return state;
  }

  std::int32_t Position(const PlayerHandle& player) override {
    std::int32_t position = -1;
    if (player.empty()) return position;
    const Time deadline = Deadline();
    ResumeNext([&] {
      std::vector<BusMessage> calls;
      calls.push_back(Property(player, kPlayer, "PlaybackStatus"));
      calls.push_back(Property(player, kPlayer, "Position"));
      const std::vector<BusMessage> answers = bus_.Ask(calls, deadline);
      const std::optional<std::int64_t> microseconds = NumberFrom(answers[1]);
      const bool stopped = StateFrom(TextFrom(answers[0])) == kStopped;
      const bool missing = !answers[0] || (!stopped && !answers[1]);
      if (missing && std::chrono::steady_clock::now() >= deadline) position = kNoAnswer;
      if (stopped || !microseconds) return;
      // At the start of a track some are a little before it, which is no reason to call them stopped.
      position = static_cast<std::int32_t>(
          std::clamp<std::int64_t>(*microseconds / 1000, 0, std::numeric_limits<std::int32_t>::max()));
    });
    return position;
  }

  void Jump(const PlayerHandle& player, std::int32_t milliseconds) override {
    if (!player.empty()) ResumeNext([&] { JumpTo(player, std::int64_t{milliseconds} * 1000, Deadline()); });
  }

 private:
  // A jump is for the track that is named with it, so the name is asked for each time. A player that names none can
  // still be moved from where it is.
  void JumpTo(const PlayerHandle& player, dbus_int64_t target, Time deadline) {
    std::vector<BusMessage> calls;
    calls.push_back(Property(player, kPlayer, "Metadata"));
    calls.push_back(Property(player, kPlayer, "Position"));
    const std::vector<BusMessage> answers = bus_.Ask(calls, deadline);
    const std::string track = TrackFrom(answers[0]);
    if (track == kNoTrack) return;
    if (!track.empty()) {
      BusMessage call = PlayerCall(player, "SetPosition");
      const char* id = track.c_str();
      dbus_message_append_args(call.get(), DBUS_TYPE_OBJECT_PATH, &id, DBUS_TYPE_INT64, &target, DBUS_TYPE_INVALID);
      bus_.Ask(std::move(call), deadline);
    } else if (const std::optional<std::int64_t> present = NumberFrom(answers[1])) {
      BusMessage call = PlayerCall(player, "Seek");
      const dbus_int64_t offset = target - std::clamp<std::int64_t>(*present, 0, kLongest);
      dbus_message_append_args(call.get(), DBUS_TYPE_INT64, &offset, DBUS_TYPE_INVALID);
      bus_.Ask(std::move(call), deadline);
    }
  }

  std::vector<std::string> PlayerNames(Time deadline) {
    std::vector<std::string> names =
        NamesFrom(bus_.Ask(BusCall(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "ListNames"), deadline));
    std::erase_if(names, [](const std::string& name) { return !name.starts_with(kNames); });
    return names;
  }

  // The names of the program's instances. Only if none of them bears its id are all players asked what they are.
  std::vector<std::string> Candidates(const AssociatedProgram& program, Time deadline) {
    const std::vector<std::string> names = PlayerNames(deadline);
    std::vector<std::string> exact, alike;
    for (const std::string& name : names) {
      const std::string_view part = std::string_view(name).substr(kNames.size());
      const std::string_view own = part.substr(0, part.find(".instance"));
      if (own == program.id) exact.push_back(name);
      if (IsLastPart(own, program.id)) alike.push_back(name);
    }
    if (!exact.empty()) return exact;
    return alike.empty() ? ByWhatTheyAre(names, program, deadline) : alike;
  }

  std::vector<std::string> ByWhatTheyAre(const std::vector<std::string>& names, const AssociatedProgram& program,
                                         Time deadline) {
    std::vector<BusMessage> calls;
    for (const std::string& name : names) calls.push_back(Property(name, kRoot, "DesktopEntry"));
    for (const std::string& name : names) calls.push_back(NameCall("GetConnectionUnixProcessID", name));
    const std::vector<BusMessage> answers = bus_.Ask(calls, deadline);
    std::vector<std::string> candidates;
    for (std::size_t i = 0; i < names.size(); ++i) {
      const std::string entry = TextFrom(answers[i]);
      const std::string executable = ExecutableFrom(answers[names.size() + i]);
      const bool same = !executable.empty() && executable == program.executable;
      if (same || (!entry.empty() && (entry == program.id || IsLastPart(entry, program.id))))
        candidates.push_back(names[i]);
    }
    return candidates;
  }

  // The unique name of the one that plays, else of the newest; one that doesn't answer comes last.
  PlayerHandle Best(const std::vector<std::string>& candidates, Time deadline) {
    const std::size_t count = candidates.size();
    std::vector<BusMessage> calls;
    for (const std::string& name : candidates) calls.push_back(NameCall("GetNameOwner", name));
    // Nothing is to be chosen of one.
    for (std::size_t i = 0; i < count && count > 1; ++i)
      calls.push_back(Property(candidates[i], kPlayer, "PlaybackStatus"));
    const std::vector<BusMessage> answers = bus_.Ask(calls, deadline);

    using Rank = std::tuple<bool, bool, std::vector<unsigned long>>;
    std::optional<Rank> highest;
    PlayerHandle best;
    for (std::size_t i = 0; i < count; ++i) {
      const std::optional<std::string> owner = OwnerFrom(answers[i]);
      if (!owner) continue;
      const std::string status = count > 1 ? TextFrom(answers[count + i]) : "";
      Rank rank{status == "Playing", !status.empty(), Age(*owner)};
      if (highest && rank < *highest) continue;
      highest = std::move(rank);
      best = *owner;
    }
    return best;
  }

  MessageBus bus_;
};

}  // namespace

std::unique_ptr<PlayerWindows> OpenPlayerWindows() {
  return std::make_unique<BusPlayers>();
}

}  // namespace qublet
