#include "platform/end_requests.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>

#include "support/child_process.h"

namespace qublet {
namespace {

TEST(EndRequestsTest, HearsEachSignalThatAsksForTheEnd) {
  std::atomic<int> heard = 0;
  {
    const EndRequests requests([&] { ++heard; });
    int sent = 0;
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
      raise(number);
      ++sent;
      EXPECT_TRUE(Eventually([&] { return heard == sent; })) << number;
    }
  }
  EXPECT_EQ(heard, 3);
}

TEST(EndRequestsTest, LeavesASignalIgnoredThatWasIgnoredBefore) {
  const auto before = std::signal(SIGHUP, SIG_IGN);
  std::atomic<int> heard = 0;
  {
    const EndRequests requests([&] { ++heard; });
    raise(SIGHUP);
    raise(SIGTERM);
    EXPECT_TRUE(Eventually([&] { return heard == 1; }));
  }
  EXPECT_EQ(std::signal(SIGHUP, before), SIG_IGN);
  EXPECT_EQ(heard, 1);
}

TEST(EndRequestsTest, LeavesThingsAsTheyWere) {
  const auto before = std::signal(SIGTERM, SIG_DFL);
  {
    const EndRequests requests([] {});
  }
  EXPECT_EQ(std::signal(SIGTERM, before), SIG_DFL);
}

}  // namespace
}  // namespace qublet
