#include "platform/player_window.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "platform/windows/windows_api.h"

namespace qublet {
namespace {

// A window that answers as a player does, on a thread of its own.
class StandIn {
 public:
  explicit StandIn(const wchar_t* window_class) : class_(window_class) {
    thread_ = std::thread([this] { Run(); });
    while (!ready_) std::this_thread::yield();
    if (window_ == nullptr) ADD_FAILURE() << "no window can be made here";
  }
  ~StandIn() {
    patience_ = 0;
    PostMessageW(window_, WM_CLOSE, 0, 0);
    thread_.join();
    UnregisterClassW(class_, GetModuleHandleW(nullptr));
  }
  StandIn(const StandIn&) = delete;
  StandIn& operator=(const StandIn&) = delete;

  std::atomic<int> state_{0};
  std::atomic<int> position_{0};
  std::atomic<int> stops_{0};
  std::atomic<int> asked_with_{-7};  // the first parameter of the last question or order
  std::atomic<int> patience_{0};     // milliseconds that an answer takes

 private:
  void Run() {
    WNDCLASSW kind{};
    kind.lpfnWndProc = &StandIn::Answer;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = class_;
    RegisterClassW(&kind);
    HWND window = CreateWindowW(class_, L"any title", 0, 0, 0, 10, 10, nullptr, nullptr, kind.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    window_ = window;
    ready_ = true;
    if (window == nullptr) return;
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  }

  static LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* self = reinterpret_cast<StandIn*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, first, second);
    if (message == WM_DESTROY) PostQuitMessage(0);
    if (message == WM_COMMAND && first == 40047 && second == 0) ++self->stops_;
    if (message != WM_USER) return DefWindowProcW(window, message, first, second);
    std::this_thread::sleep_for(std::chrono::milliseconds(self->patience_));
    self->asked_with_ = static_cast<int>(first);
    if (second == 106) self->position_ = static_cast<int>(first);
    return second == 104 ? self->state_.load() : second == 105 ? self->position_.load() : 0;
  }

  const wchar_t* class_;
  std::atomic<HWND> window_{nullptr};
  std::atomic<bool> ready_{false};
  std::thread thread_;
};

class PlayerWindowTest : public testing::Test {
 protected:
  std::unique_ptr<PlayerWindows> players_ = OpenPlayerWindows();
};

TEST_F(PlayerWindowTest, FindsNoneWhereNoneRuns) {
  EXPECT_EQ(players_->Find({}), "");
}

TEST_F(PlayerWindowTest, FindsThePlayerByEitherOfItsClasses) {
  for (const wchar_t* window_class : {L"Winamp v1.x", L"STUDIO"}) {
    const StandIn player(window_class);
    EXPECT_NE(players_->Find({}), "");
  }
  EXPECT_EQ(players_->Find({}), "");
}

TEST_F(PlayerWindowTest, PrefersTheFirstClass) {
  const StandIn studio(L"STUDIO");
  StandIn player(L"Winamp v1.x");
  player.state_ = 3;
  EXPECT_EQ(players_->State(players_->Find({})), kPaused);
}

TEST_F(PlayerWindowTest, AsksForStateAndPosition) {
  StandIn player(L"Winamp v1.x");
  const PlayerHandle handle = players_->Find({});
  for (const int state : {1, 3, 0}) {
    player.state_ = state;
    EXPECT_EQ(players_->State(handle), state);
  }
  player.state_ = 17;
  EXPECT_EQ(players_->State(handle), kStopped);
  player.position_ = 123456;
  EXPECT_EQ(players_->Position(handle), 123456);
  EXPECT_EQ(player.asked_with_, 0);
  player.position_ = -1;
  EXPECT_EQ(players_->Position(handle), -1);
}

TEST_F(PlayerWindowTest, StopsAndJumps) {
  StandIn player(L"Winamp v1.x");
  const PlayerHandle handle = players_->Find({});
  players_->Stop(handle);
  EXPECT_EQ(player.stops_, 1);
  players_->Jump(handle, 65000);
  EXPECT_EQ(player.asked_with_, 65000);
  EXPECT_EQ(players_->Position(handle), 65000);
}

TEST_F(PlayerWindowTest, IsDeafToOneThatHasEnded) {
  PlayerHandle handle;
  {
    const StandIn player(L"Winamp v1.x");
    handle = players_->Find({});
  }
  EXPECT_EQ(players_->State(handle), kStopped);
  EXPECT_EQ(players_->Position(handle), -1);
  players_->Stop(handle);
  players_->Jump(handle, 1);
  players_->Stop("");
  players_->Jump("", 1);
  EXPECT_EQ(players_->State(""), kStopped);
  EXPECT_EQ(players_->Position(""), -1);
}

TEST_F(PlayerWindowTest, WaitsASecondForOneThatHangs) {
  StandIn player(L"Winamp v1.x");
  const PlayerHandle handle = players_->Find({});
  player.state_ = 1;
  player.patience_ = 2500;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(players_->State(handle), kStopped);
  const auto passed = std::chrono::steady_clock::now() - start;
  EXPECT_GE(passed, std::chrono::milliseconds(900));
  EXPECT_LT(passed, std::chrono::milliseconds(2200));
}

}  // namespace
}  // namespace qublet
