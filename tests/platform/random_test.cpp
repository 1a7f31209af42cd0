#include "platform/random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace qublet {
namespace {

TEST(SystemRandom, DrawsEvenlyFromZeroToBelowOne) {
  SystemRandom random;
  std::array<int, 10> tenths{};
  for (int i = 0; i < 100'000; ++i) {
    const double draw = random.Draw();
    ASSERT_GE(draw, 0.0);
    ASSERT_LT(draw, 1.0);
    ++tenths[static_cast<std::size_t>(draw * 10)];
  }
  for (const int count : tenths) EXPECT_NEAR(count, 10'000, 600);
}

TEST(SystemRandom, DrawsEvenlyWhenItIsReseededBeforeEachDraw) {
  SystemRandom random;
  std::array<int, 10> tenths{};
  std::vector<double> draws;
  for (int i = 0; i < 100'000; ++i) {
    random.Reseed();
    draws.push_back(random.Draw());
    ++tenths[static_cast<std::size_t>(draws.back() * 10)];
  }
  for (const int count : tenths) EXPECT_NEAR(count, 10'000, 600);
  std::sort(draws.begin(), draws.end());
  EXPECT_EQ(std::adjacent_find(draws.begin(), draws.end()), draws.end()) << "no two draws are alike";
}

TEST(SystemRandom, DrawsOtherNumbersThanAnotherOne) {
  SystemRandom one;
  SystemRandom other;
  EXPECT_NE(one.Draw(), other.Draw());
}

}  // namespace
}  // namespace qublet
