#include "platform/clock.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(SystemClock, GivesFieldsInTheRangesOfACalendar) {
  const LocalTime now = SystemClock().Now();
  EXPECT_GE(now.year, 2024);
  EXPECT_TRUE(now.month >= 1 && now.month <= 12);
  EXPECT_TRUE(now.day >= 1 && now.day <= 31);
  EXPECT_TRUE(now.hour >= 0 && now.hour <= 23);
  EXPECT_TRUE(now.minute >= 0 && now.minute <= 59);
  EXPECT_TRUE(now.second >= 0 && now.second <= 60);
}

}  // namespace
}  // namespace qublet
