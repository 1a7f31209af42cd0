#include "generators/disc/icon_file.h"

#include <gtest/gtest.h>

#include "generators/disc/icon_bytes.h"

namespace qublet {
namespace {

using namespace std::string_literals;

IconPicture Filled(int width, int height, std::uint32_t pixel) {
  return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width) * height, pixel)};
}

// Every pixel another one.
IconPicture Coloured(int width, int height) {
  IconPicture picture = Filled(width, height, 0);
  std::uint32_t number = 0x80102030;
  for (std::uint32_t& pixel : picture.pixels) pixel = number += 0x01030507;
  return picture;
}

TEST(IconFileOf, IsADirectoryWithABitmapOfTwiceTheHeightAndAMask) {
  const IconPicture picture{2, 2, {0xFF010203, 0x00000000, 0x80040506, 0xFF070809}};
  const std::string file =
      "\0\0\1\0\1\0"s
      "\2\2\0\0\1\0\x20\0"s +
      Little(40 + 16 + 8, 4) + Little(22, 4) + Little(40, 4) + Little(2, 4) + Little(4, 4) + Little(1, 2) +
      Little(32, 2) + Little(0, 4) + Little(24, 4) + Little(0, 8) + Little(0, 8) +
      "\6\5\4\x80"s
      "\x9\x8\x7\xFF"s
      "\3\2\1\xFF"s
      "\0\0\0\0"s +  // the lowest row first, blue first
      "\0\0\0\0"s
      "\x40\0\0\0"s;  // rows of the mask fill four bytes
  EXPECT_EQ(IconFileOf({{picture}}), file);
}

TEST(IconFileOf, PutsWhatIsLargerThan48PixelsIntoAPng) {
  const std::string file = IconFileOf(std::vector{Filled(48, 48, 0xFF000000), Filled(49, 1, 0xFF0000FF)}).value();
  EXPECT_EQ(file.substr(6 + 32, 4), Little(40, 4));
  const std::size_t start = 6 + 32 + 40 + 48 * 48 * 4 + 48 * 8;
  EXPECT_EQ(file.substr(6 + 16 + 12, 4), Little(static_cast<std::uint32_t>(start), 4));
  const std::string head = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"s + Big(49) + Big(1) + "\x8\x6\0\0\0"s;
  EXPECT_EQ(file.substr(start, head.size()), head);
  EXPECT_TRUE(file.ends_with(Chunk("IEND", {})));
}

TEST(IconFileOf, TellsASideOf256AsZero) {
  EXPECT_EQ(IconFileOf({{Filled(256, 255, 0)}}).value().substr(6, 2), "\0\xFF"s);
}

TEST(IconFileOf, ComesBackPixelForPixel) {
  for (const auto& [width, height] : {std::pair{1, 1}, {33, 7}, {48, 48}, {49, 50}, {1, 256}, {256, 256}}) {
    const IconPicture picture = Coloured(width, height);
    EXPECT_EQ(ReadIcon(IconFileOf({{picture}}).value(), 16), picture) << width << " by " << height;
  }
}

TEST(IconFileOf, MakesNothingOfPicturesOutOfBounds) {
  EXPECT_EQ(IconFileOf({}), std::nullopt);
  for (const auto& [width, height] : {std::pair{0, 0}, {0, 5}, {5, 0}, {257, 1}, {1, 257}}) {
    EXPECT_EQ(IconFileOf({{Filled(width, height, 0)}}), std::nullopt) << width << " by " << height;
  }
  EXPECT_EQ(IconFileOf({{IconPicture{-2, -2, std::vector<std::uint32_t>(4)}}}), std::nullopt);
  EXPECT_EQ(IconFileOf({{IconPicture{2, 2, std::vector<std::uint32_t>(3)}}}), std::nullopt);
  EXPECT_TRUE(IconFileOf(std::vector<IconPicture>(64, Filled(1, 1, 0))));
  EXPECT_EQ(IconFileOf(std::vector<IconPicture>(65, Filled(1, 1, 0))), std::nullopt);
}

TEST(IconFileOf, ReadsTheFittingOneOfMany) {
  std::vector<IconPicture> pictures;
  for (const int side : {32, 16, 256, 48}) pictures.push_back(Filled(side, side, 0xFF000000 + side));
  const std::string file = IconFileOf(pictures).value();
  const auto best = [&](int side) { return ReadIcon(file, side).value().width; };
  EXPECT_EQ(best(16), 16);
  EXPECT_EQ(best(48), 48);
  EXPECT_EQ(best(1), 16);
  EXPECT_EQ(best(20), 32);
  EXPECT_EQ(best(33), 48);
  EXPECT_EQ(best(64), 256);
  EXPECT_EQ(best(1000), 256);
}

}  // namespace
}  // namespace qublet
