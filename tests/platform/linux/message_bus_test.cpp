#include "platform/linux/message_bus.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/linux/descriptor.h"
#include "platform/player_window.h"
#include "support/private_bus.h"

namespace qublet {
namespace {

// A bus that looks at nobody who comes, with as many waiting already as it lets wait.
class CrowdedBus {
 public:
  explicit CrowdedBus(const std::filesystem::path& place) {
    place_.sun_family = AF_UNIX;
    place.string().copy(place_.sun_path, sizeof place_.sun_path - 1);
    const bool listens = bind(listener_.Get(), Place(), sizeof place_) == 0 && listen(listener_.Get(), 1) == 0;
    if (!listens) throw std::runtime_error("no socket");
    while (Knock()) {
    }
  }

 private:
  const sockaddr* Place() const { return reinterpret_cast<const sockaddr*>(&place_); }
  bool Knock() {
    waiting_.emplace_back(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    return connect(waiting_.back().Get(), Place(), sizeof place_) == 0;
  }

  sockaddr_un place_{};
  Descriptor listener_{socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  std::vector<Descriptor> waiting_;
};

using Clock = std::chrono::steady_clock;

class MessageBusTest : public testing::Test {
 protected:
  static BusMessage Question() {
    return BusCall(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS, DBUS_INTERFACE_DBUS, "ListNames");
  }
  static BusMessage Ask(MessageBus& bus, std::chrono::milliseconds time) {
    return bus.Ask(Question(), Clock::now() + time);
  }

  TemporaryDesktop desktop_;
};

TEST_F(MessageBusTest, IsGivenUpInTimeWhenItHasNoRoomForAnotherConnection) {
  const std::filesystem::path place = desktop_.Runtime() / "crowded";
  const Variable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + place.string());
  auto crowded = std::make_unique<CrowdedBus>(place);
  MessageBus bus;
  const auto start = Clock::now();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(bus, std::chrono::milliseconds(100)), nullptr);
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(900));
  crowded.reset();
  const PrivateBus open(desktop_);
  EXPECT_NE(Ask(bus, std::chrono::seconds(5)), nullptr) << "another one that can be reached";
}

TEST_F(MessageBusTest, CostsNoMoreThanTheTimeForAPlayerThen) {
  const std::filesystem::path place = desktop_.Runtime() / "crowded";
  const Variable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + place.string());
  const CrowdedBus crowded(place);
  const auto players = OpenPlayerWindows();
  const auto start = Clock::now();
  EXPECT_TRUE(players->Find({"c:\\mpv", "mpv", true, ""}).empty());
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(kPlayerPatience + 200));
}

// A stopped bus takes what fits its socket; the rest waits here.
TEST_F(MessageBusTest, IsGivenUpInTimeWhenItReadsNothingAnyMore) {
  const PrivateBus daemon(desktop_);
  MessageBus bus;
  ASSERT_NE(Ask(bus, std::chrono::seconds(5)), nullptr);
  daemon.Daemon().Freeze();
  const std::string text(1 << 20, 'x');
  const char* const content = text.c_str();
  const auto start = Clock::now();
  std::vector<BusMessage> calls;
  for (int i = 0; i < 20; ++i) {
    calls.push_back(Question());
    dbus_message_append_args(calls.back().get(), DBUS_TYPE_STRING, &content, DBUS_TYPE_INVALID);
  }
  for (const BusMessage& answer : bus.Ask(calls, start + std::chrono::milliseconds(300))) EXPECT_EQ(answer, nullptr);
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(1));
  daemon.Daemon().Thaw();
}

}  // namespace
}  // namespace qublet
