#include "generators/disc/disc_icons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "generators/disc/icon_bytes.h"
#include "generators/disc/icon_file.h"

namespace qublet {
namespace {

constexpr int kSides[] = {16, 24, 32, 48, 256};

class DiscIconTest : public testing::TestWithParam<int> {
 protected:
  const std::string_view icon_ = DiscIcon(GetParam());
};

TEST_P(DiscIconTest, HoldsPicturesOfFiveSidesAndNothingElse) {
  ASSERT_GT(icon_.size(), 6u + 5 * 16);
  EXPECT_EQ(icon_.substr(0, 6), Little(0, 2) + Little(1, 2) + Little(5, 2));
  std::uint32_t end = 6 + 5 * 16;
  for (int i = 0; i < 5; ++i) {
    const std::string_view entry = icon_.substr(6 + 16 * i, 16);
    EXPECT_EQ(entry.substr(0, 8),
              Little(kSides[i] % 256, 1) + Little(kSides[i] % 256, 1) + Little(0, 2) + Little(1, 2) + Little(32, 2));
    EXPECT_EQ(entry.substr(12, 4), Little(end, 4));
    std::uint32_t size = 0;
    for (int byte = 3; byte >= 0; --byte) size = size << 8 | static_cast<unsigned char>(entry[8 + byte]);
    end += size;
  }
  EXPECT_EQ(icon_.size(), end);
}

TEST_P(DiscIconTest, IsReadableInEachOfItsSides) {
  for (const int side : kSides) {
    const IconPicture picture = DiscPicture(GetParam(), side);
    EXPECT_EQ(picture.width, side);
    EXPECT_EQ(picture.height, side);
    EXPECT_EQ(picture.pixels.size(), static_cast<std::size_t>(side) * side);
  }
}

TEST_P(DiscIconTest, StandsFreeAndFillsItsPlace) {
  for (const int side : kSides) {
    const IconPicture picture = DiscPicture(GetParam(), side);
    for (const int corner : {0, side - 1, side * (side - 1), side * side - 1}) {
      EXPECT_EQ(picture.pixels.at(corner) >> 24, 0u) << side;
    }
    const auto shown = std::ranges::count_if(picture.pixels, [](auto pixel) { return pixel >> 24 > 0x80; });
    EXPECT_GT(shown, side * side / 6) << side;
    EXPECT_LT(shown, side * side) << side;
  }
}

TEST_P(DiscIconTest, ComesBackFromTheWriter) {
  std::vector<IconPicture> pictures;
  for (const int side : kSides) pictures.push_back(DiscPicture(GetParam(), side));
  EXPECT_TRUE(IconFileOf(pictures) == icon_);
}

INSTANTIATE_TEST_SUITE_P(All, DiscIconTest, testing::Range(1, kDiscIcons + 1));

TEST(DiscIcon, IsLikeNoOtherInAnySide) {
  for (const int side : kSides) {
    std::set<std::vector<std::uint32_t>> pictures;
    for (int number = 1; number <= kDiscIcons; ++number) pictures.insert(DiscPicture(number, side).pixels);
    EXPECT_EQ(pictures.size(), 50u) << side;
  }
}

TEST(DiscIcon, IsNothingForOtherNumbers) {
  for (const int number : {-1, 0, 51, 1000}) {
    EXPECT_EQ(DiscIcon(number), "");
    EXPECT_EQ(DiscPicture(number, 32), IconPicture{});
  }
}

}  // namespace
}  // namespace qublet
