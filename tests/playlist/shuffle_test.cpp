#include "playlist/shuffle.h"

#include <algorithm>
#include <numeric>
#include <random>

#include "playlist/row_order_test_base.h"
#include "support/scripted_random.h"

namespace qublet {
namespace {

// The shuffle as it is described, on a pool that is a plain list.
int PlainPass(const std::vector<int>& slots, std::vector<int>& rows, Random& random) {
  const int n = static_cast<int>(slots.size());
  std::vector<int> pool = slots;
  int pick = 0;
  int prev = 0;
  for (int j = 1; j <= n; ++j) {
    int tries = 0;
    random.Reseed();
    while (!(pick != 0 && pick != prev)) {
      pick = static_cast<int>(random.Draw() * n);
      if (++tries >= n * 10) break;
    }
    if (pick != 0) {
      prev = pool[static_cast<std::size_t>(pick - 1)];
      pool.erase(pool.begin() + (pick - 1));
      pool.push_back(prev);
    }
    pick = prev;
  }
  for (std::size_t k = 0; k < slots.size(); ++k) {
    std::swap(rows[static_cast<std::size_t>(slots[k] - 1)], rows[static_cast<std::size_t>(pool[k] - 1)]);
  }
  return pool.back();
}

class SeededRandom : public Random {
 public:
  explicit SeededRandom(unsigned seed) : engine_(seed) {}
  double Draw() override { return std::uniform_real_distribution<>()(engine_); }
  void Reseed() override {}

 private:
  std::mt19937 engine_;
};

std::vector<int> Numbers(int count) {
  std::vector<int> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), 1);
  return numbers;
}

TEST(ShuffleSelectionOnce, MovesTheRowsAsThePlainListDoes) {
  for (unsigned seed = 1; seed <= 300; ++seed) {
    std::mt19937 choose(seed);
    const std::vector<int> all = Numbers(2 + static_cast<int>(choose() % 400));
    std::vector<int> slots;
    for (const int row : all) {
      if (choose() % 3 != 0) slots.push_back(row);
    }
    if (slots.size() < 2) slots = {1, 2};
    std::vector<int> ours = all;
    std::vector<int> plain = all;
    SeededRandom our_random(seed);
    SeededRandom plain_random(seed);
    EXPECT_EQ(ShuffleSelectionOnce(slots, ours, our_random), PlainPass(slots, plain, plain_random)) << seed;
    EXPECT_EQ(ours, plain) << seed;
  }
}

TEST(ShuffleSelectionOnce, FollowsTheDrawsOfFourRows) {
  // Positions 2, 1, 3, 1 of the pool: 1 2 3 4, 1 3 4 2, 3 4 2 1, 3 4 1 2, 4 1 2 3. Then row 1 changes places with 4,
  // 2 with 1, 3 with 2, 4 with 3.
  ScriptedRandom random;
  random.draws = {0.5, 0.25, 0.75, 0.25};
  std::vector<int> rows = Numbers(4);
  EXPECT_EQ(ShuffleSelectionOnce({1, 2, 3, 4}, rows, random), 3);
  EXPECT_EQ(rows, (std::vector<int>{2, 3, 1, 4}));
}

TEST(ShuffleSelectionOnce, DrawsAgainForPositionZeroAndForTheNumberOfTheSlotMovedLast) {
  // The first item takes slot 2 by position 2; the second doesn't take position 0, nor 2, but 1.
  ScriptedRandom random;
  random.draws = {0.7, 0.0, 0.7, 0.4, 0.7};
  std::vector<int> rows = Numbers(3);
  ShuffleSelectionOnce({1, 2, 3}, rows, random);
  EXPECT_EQ(random.drawn, 5);
  EXPECT_EQ(random.reseeded, 3);
}

TEST(ShuffleSelectionOnce, LosesNoRowWhenEveryDrawIsZero) {
  ScriptedRandom random;
  std::vector<int> rows = Numbers(3);
  EXPECT_EQ(ShuffleSelectionOnce({1, 2, 3}, rows, random), 3);
  EXPECT_EQ(rows, Numbers(3)) << "the pool stays, so each row changes places with itself";
  EXPECT_EQ(random.drawn, 3 * 30);
}

TEST(ShuffleSelectionOnce, LosesNoRowWhenTheFirstTwoAreSelected) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SeededRandom random(seed);
    std::vector<int> rows = Numbers(2);
    ShuffleSelectionOnce({1, 2}, rows, random);
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows, Numbers(2));
  }
}

TEST(ShuffleSelectionOnce, TakesADrawThatRoundsUpToTheCount) {
  ScriptedRandom random;
  random.otherwise = 1.0;
  std::vector<int> rows = Numbers(5);
  ShuffleSelectionOnce({1, 2, 3, 4, 5}, rows, random);
  std::sort(rows.begin(), rows.end());
  EXPECT_EQ(rows, Numbers(5));
}

using Shuffling = RowOrderTest;

TEST_F(Shuffling, ChangesNothingWithOneRowSelectedOrNone) {
  ScriptedRandom random;
  std::int16_t intensity = 1;
  for (const char* selection : {"-x-", "---"}) {
    Rows().Clear();
    Fill({"a", "b", "c"}, selection);
    ShuffleSelection(Rows(), intensity, random);
    EXPECT_EQ(Names(), "a b c");
    EXPECT_EQ(Selection(), selection);
  }
  EXPECT_EQ(random.drawn, 0);
}

TEST_F(Shuffling, MakesOnePassMoreThanTheIntensitySays) {
  for (const int passes : {1, 2, 10}) {
    ScriptedRandom random;
    random.otherwise = 0.5;
    Rows().Clear();
    Fill({"a", "b", "c", "d"}, "xxxx");
    auto intensity = static_cast<std::int16_t>(passes);
    ShuffleSelection(Rows(), intensity, random);
    EXPECT_EQ(random.reseeded, 4 * (passes + 1));
    EXPECT_EQ(intensity, passes);
  }
}

TEST_F(Shuffling, AtIntensityZeroStoresOneAndMakesTwoPasses) {
  ScriptedRandom random;
  random.otherwise = 0.5;
  Fill({"a", "b", "c", "d"}, "xxxx");
  std::int16_t intensity = 0;
  ShuffleSelection(Rows(), intensity, random);
  EXPECT_EQ(intensity, 1);
  EXPECT_EQ(random.reseeded, 8);
}

TEST_F(Shuffling, MovesOnlySelectedRowsAndLeavesTheSelectedPlacesAndTheChangeFlag) {
  for (unsigned seed = 1; seed <= 100; ++seed) {
    SeededRandom random(seed);
    Rows().Clear();
    Fill({"a", "b", "c", "d", "e", "f"}, "x-xx-x");
    std::int16_t intensity = 1;
    ShuffleSelection(Rows(), intensity, random);
    EXPECT_EQ(Selection(), "x-xx-x");
    EXPECT_EQ(Rows().At(2).cells[kFileName], "b");
    EXPECT_EQ(Rows().At(5).cells[kFileName], "e");
    std::string names = Names();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, "     abcdef");
  }
  EXPECT_FALSE(document_.PlaylistChanged);
}

TEST_F(Shuffling, CarriesMarksAlongAndFocusesTheLastPartner) {
  ScriptedRandom random;
  random.draws = {0.5, 0.25, 0.75, 0.25};
  random.otherwise = 0;  // the second pass finds no position and leaves the rows alone
  Fill({"a", "b", "c", "d"}, "xxxx");
  Rows().SetIcon(1, RowIcon::kBlue);
  std::int16_t intensity = 1;
  ShuffleSelection(Rows(), intensity, random);
  EXPECT_EQ(Names(), "b c a d");
  EXPECT_EQ(Rows().At(3).icon, RowIcon::kBlue);
  EXPECT_EQ(Rows().FocusedRow(), 4);
}

TEST_F(Shuffling, PutsRowsIntoManyOrders) {
  SystemRandom random;
  std::vector<std::string> orders;
  for (int i = 0; i < 200; ++i) {
    Rows().Clear();
    Fill({"a", "b", "c", "d", "e"}, "xxxxx");
    std::int16_t intensity = 1;
    ShuffleSelection(Rows(), intensity, random);
    orders.push_back(Names());
  }
  std::sort(orders.begin(), orders.end());
  const auto unlike = std::unique(orders.begin(), orders.end()) - orders.begin();
  EXPECT_GT(unlike, 30);
}

}  // namespace
}  // namespace qublet
