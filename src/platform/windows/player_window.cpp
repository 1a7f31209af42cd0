#include "platform/player_window.h"

#include <cstdlib>

#include "platform/windows/windows_api.h"

namespace qublet {
namespace {

// The player's window and the messages that it understands.
constexpr const wchar_t* kWindowClasses[] = {L"Winamp v1.x", L"STUDIO"};
constexpr WPARAM kStopCommand = 40047;                                       // of WM_COMMAND
enum Query : LPARAM { kAskState = 104, kAskPosition = 105, kJumpTo = 106 };  // of WM_USER

HWND WindowOf(const PlayerHandle& player) {
  return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(std::strtoull(player.c_str(), nullptr, 10)));
}

class MessagePlayers : public PlayerWindows {
 public:
  PlayerHandle Find(const AssociatedProgram& /*program*/) override {
    for (const wchar_t* window_class : kWindowClasses) {
      if (HWND window = FindWindowW(window_class, nullptr); window != nullptr)
        return std::to_string(reinterpret_cast<ULONG_PTR>(window));
    }
    return "";
  }

  PlayerStart Start() const override { return {}; }
  bool KeepBookmarks() const override { return true; }

  void Stop(const PlayerHandle& player) override {
    if (!player.empty()) Send(player, WM_COMMAND, kStopCommand, 0, 0);
  }

  PlayingState State(const PlayerHandle& player) override {
    const LRESULT state = player.empty() ? LRESULT{kStopped} : Send(player, WM_USER, 0, kAskState, kStopped);
    return state == kPlaying ? kPlaying : state == kPaused ? kPaused : kStopped;
  }

  std::int32_t Position(const PlayerHandle& player) override {
    if (player.empty()) return -1;
    const auto position = static_cast<std::int32_t>(Send(player, WM_USER, 0, kAskPosition, kNoAnswer));
    return position == kNoAnswer && IsWindow(WindowOf(player)) == 0 ? -1 : position;
  }

  void Jump(const PlayerHandle& player, std::int32_t milliseconds) override {
    if (!player.empty()) Send(player, WM_USER, static_cast<WPARAM>(milliseconds), kJumpTo, 0);
  }

 private:
  // What the window answers; `otherwise` when it is gone or hangs.
  LRESULT Send(const PlayerHandle& player, UINT message, WPARAM first, LPARAM second, LRESULT otherwise) const {
    using namespace std::chrono;
    const auto left = duration_cast<milliseconds>(Deadline() - steady_clock::now()).count();
    if (left <= 0) return otherwise;
    DWORD_PTR answer = 0;
    const LRESULT sent = SendMessageTimeoutW(WindowOf(player), message, first, second, SMTO_ABORTIFHUNG,
                                             static_cast<UINT>(left), &answer);
    return sent != 0 ? static_cast<LRESULT>(answer) : otherwise;
  }
};

}  // namespace

std::unique_ptr<PlayerWindows> OpenPlayerWindows() {
  return std::make_unique<MessagePlayers>();
}

}  // namespace qublet
