#include "platform/power.h"

#include <gtest/gtest.h>

#include <chrono>

#include "support/login_stand_in.h"

namespace qublet {
namespace {

class PowerTest : public testing::Test {
 protected:
  // How long a request takes.
  static std::chrono::milliseconds Ask() {
    const auto begin = std::chrono::steady_clock::now();
    OpenPower()->ForceShutdown();
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin);
  }

  TemporaryDesktop desktop_;
};

TEST_F(PowerTest, IsOutOfReachInEveryTest) {
  EXPECT_STREQ(getenv("DBUS_SYSTEM_BUS_ADDRESS"), "unix:path=/nonexistent/system-bus");
}

TEST_F(PowerTest, AsksTheLoginManagerWhichMayAskTheUser) {
  const LoginStandIn manager(desktop_);
  EXPECT_LT(Ask(), std::chrono::seconds(1));
  EXPECT_EQ(manager.Requests(), "PowerOff True\n");
}

TEST_F(PowerTest, AsksForNothingBeforehand) {
  const LoginStandIn manager(desktop_);
  OpenPower()->EnableShutdownPrivilege();
  EXPECT_EQ(manager.Requests(), "");
}

TEST_F(PowerTest, SaysNothingOfARefusal) {
  const LoginStandIn manager(desktop_, "refuses");
  EXPECT_LT(Ask(), std::chrono::seconds(1));
  EXPECT_EQ(manager.Requests(), "PowerOff True\n");
}

TEST_F(PowerTest, WaitsTwoSecondsForAnAnswer) {
  const LoginStandIn manager(desktop_, "hangs");
  const std::chrono::milliseconds taken = Ask();
  EXPECT_GE(taken, std::chrono::milliseconds(1900));
  EXPECT_LT(taken, std::chrono::milliseconds(2600));
  EXPECT_EQ(manager.Requests(), "PowerOff True\n");
}

TEST_F(PowerTest, SaysNothingWhereNobodyHasTheName) {
  const PrivateBus bus(desktop_, "DBUS_SYSTEM_BUS_ADDRESS");
  EXPECT_LT(Ask(), std::chrono::seconds(1));
}

TEST_F(PowerTest, SaysNothingWhereThereIsNoBus) {
  EXPECT_LT(Ask(), std::chrono::seconds(1));
}

}  // namespace
}  // namespace qublet
