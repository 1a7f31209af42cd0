#include <gtest/gtest.h>

#include "generators/disc/icon_bytes.h"
#include "generators/disc/icon_file.h"

namespace qublet {
namespace {

using namespace std::string_literals;

using Pixels = std::vector<std::uint32_t>;

const std::string kNothingMasked(4, '\0');

Pixels PixelsOf(const std::string& picture) {
  return ReadIcon(IconWith({picture}), 16).value_or(IconPicture{}).pixels;
}

bool IsReadable(const std::string& picture) {
  return ReadIcon(IconWith({picture}), 16).has_value();
}

TEST(ReadIcon, ReadsBitmapsOfOneBit) {
  const std::string colours =
      "\1\2\3\0"s
      "\4\5\6\0"s;
  EXPECT_EQ(PixelsOf(BitmapHeadBytes({10, 1, 1}) + colours + "\xA0\x40\0\0"s + "\x08\0\0\0"s),
            (Pixels{0xFF060504, 0xFF030201, 0xFF060504, 0xFF030201, 0, 0xFF030201, 0xFF030201, 0xFF030201, 0xFF030201,
                    0xFF060504}));
}

TEST(ReadIcon, ReadsBitmapsOfFourBitsWithFewerColours) {
  EXPECT_EQ(PixelsOf(BitmapHeadBytes({3, 1, 4, 0, 3}) +
                     "\1\1\1\0"s
                     "\2\2\2\0"s
                     "\3\3\3\0"s +
                     "\x21\x00\0\0"s + kNothingMasked),
            (Pixels{0xFF030303, 0xFF020202, 0xFF010101}));
}

TEST(ReadIcon, ReadsBitmapsOfEightBits) {
  std::string colours;
  for (int i = 0; i < 256; ++i) colours += Little(i * 0x010000, 4);
  EXPECT_EQ(PixelsOf(BitmapHeadBytes({2, 2, 8}) + colours +
                     "\1\2\0\0"s
                     "\xFE\xFF\0\0"s +
                     kNothingMasked + kNothingMasked),
            (Pixels{0xFFFE0000, 0xFFFF0000, 0xFF010000, 0xFF020000}));
}

TEST(ReadIcon, ReadsBitmapsOf24Bits) {
  EXPECT_EQ(PixelsOf(BitmapHeadBytes({1, 2, 24}) +
                     "\1\2\3\0"s
                     "\4\5\6\0"s +
                     "\x80\0\0\0"s
                     "\0\0\0\0"s),
            (Pixels{0xFF060504, 0}));
}

TEST(ReadIcon, ReadsBitmapsOf32BitsWithTheirTransparencyOrElseTheMask) {
  const std::string head = BitmapHeadBytes({2, 1, 32});
  EXPECT_EQ(PixelsOf(head +
                     "\1\2\3\x80"s
                     "\4\5\6\0"s +
                     "\xC0\0\0\0"s),
            (Pixels{0x80030201, 0x00060504}));
  EXPECT_EQ(PixelsOf(head +
                     "\1\2\3\0"s
                     "\4\5\6\0"s +
                     "\x40\0\0\0"s),
            (Pixels{0xFF030201, 0}));
  EXPECT_EQ(PixelsOf(head + "\1\2\3\0"s
                            "\4\5\6\0"s),
            (Pixels{0xFF030201, 0xFF060504}));
}

TEST(ReadIcon, ReadsPngsOfEveryKindOfColour) {
  const std::string palette = Chunk("PLTE", "\1\2\3\4\5\6");
  EXPECT_EQ(PixelsOf(PngWith({2, 1, 8, 0}, "\0\x10\x20"s)), (Pixels{0xFF101010, 0xFF202020}));
  EXPECT_EQ(PixelsOf(PngWith({1, 1, 8, 2}, "\0\1\2\3"s)), (Pixels{0xFF010203}));
  EXPECT_EQ(PixelsOf(PngWith({2, 1, 8, 3}, "\0\1\0"s, palette)), (Pixels{0xFF040506, 0xFF010203}));
  EXPECT_EQ(PixelsOf(PngWith({2, 1, 1, 3}, "\0\x40"s, palette + Chunk("tRNS", "\x30"))),
            (Pixels{0x30010203, 0xFF040506}));
  EXPECT_EQ(PixelsOf(PngWith({1, 1, 8, 4}, "\0\x10\x80"s)), (Pixels{0x80101010}));
  EXPECT_EQ(PixelsOf(PngWith({1, 1, 8, 6}, "\0\1\2\3\4"s)), (Pixels{0x04010203}));
}

TEST(ReadIcon, UndoesEveryFilterOfAPng) {
  const std::string rows =
      "\1\x10\1"s
      "\2\1\2"s
      "\3\4\5"s
      "\4\6\7"s
      "\0\x7\x8"s;
  EXPECT_EQ(PixelsOf(PngWith({2, 5, 8, 0}, rows)),
            (Pixels{0xFF101010, 0xFF111111, 0xFF111111, 0xFF131313, 0xFF0C0C0C, 0xFF141414, 0xFF121212, 0xFF1B1B1B,
                    0xFF070707, 0xFF080808}));
}

TEST(ReadIcon, ReadsPixelsThatStandInSeveralChunks) {
  const std::string rows = Deflated("\0\1\2\3\4"s);
  const std::string whole = PngWith({1, 1, 8, 6}, "\0\1\2\3\4"s);
  const std::string head = whole.substr(0, 8 + 25);
  EXPECT_EQ(PixelsOf(head + Chunk("IDAT", rows.substr(0, 3)) + Chunk("IDAT", rows.substr(3)) + Chunk("IEND", {})),
            (Pixels{0x04010203}));
}

TEST(ReadIcon, TakesTheOneOfMostBitsAmongEquals) {
  const std::string two = BitmapHeadBytes({1, 1, 1}) + std::string(8, '\1') + std::string(8, '\0');
  const std::string many = BitmapHeadBytes({1, 1, 24}) + "\7\7\7\0"s + kNothingMasked;
  EXPECT_EQ(ReadIcon(IconWith({two, many, two}), 1).value().pixels, (Pixels{0xFF070707}));
}

TEST(ReadIcon, PassesOverWhatItCanNotRead) {
  const std::string good = BitmapHeadBytes({1, 1, 24}) + "\7\7\7\0"s + kNothingMasked;
  const std::string damaged = PngWith({16, 16, 8, 6}, "\0\1\2\3\4"s);
  EXPECT_EQ(ReadIcon(IconWith({damaged, "short", "", good}), 16).value().pixels, (Pixels{0xFF070707}));
  std::vector<std::string> many(63, "short");
  many.push_back(good);
  EXPECT_TRUE(ReadIcon(IconWith(many), 16));
  many.insert(many.begin(), "short");
  EXPECT_FALSE(ReadIcon(IconWith(many), 16));
}

TEST(ReadIcon, GivesNothingForWhatIsNoIcon) {
  const std::string good = IconWith({BitmapHeadBytes({1, 1, 24}) + "\7\7\7\0"s + kNothingMasked});
  EXPECT_TRUE(ReadIcon(good, 16));
  for (std::size_t size = 0; size < good.size(); ++size) EXPECT_FALSE(ReadIcon(good.substr(0, size), 16)) << size;
  for (const auto& [place, byte] : {std::pair{0, '\1'}, {2, '\2'}, {2, '\0'}, {4, '\0'}}) {
    std::string other = good;
    other[place] = byte;
    EXPECT_FALSE(ReadIcon(other, 16)) << place;
  }
}

TEST(ReadIcon, GivesNothingForEntriesThatLieOutsideTheFile) {
  const std::string good = IconWith({BitmapHeadBytes({1, 1, 24}) + "\7\7\7\0"s + kNothingMasked});
  for (const std::uint32_t start : {0xFFFFFFFFu, 0x7FFFFFFFu, static_cast<std::uint32_t>(good.size()), 23u, 0u}) {
    EXPECT_FALSE(ReadIcon(std::string(good).replace(18, 4, Little(start, 4)), 16)) << start;
  }
  EXPECT_FALSE(ReadIcon(std::string(good).replace(14, 4, Little(0, 4)), 16));
  // A size that claims too much is that of the rest of the file.
  EXPECT_TRUE(ReadIcon(std::string(good).replace(14, 4, Little(0xFFFFFFFF, 4)), 16));
}

TEST(ReadIcon, GivesNothingForBitmapsOutOfBounds) {
  const std::string room(300000, '\0');
  EXPECT_TRUE(IsReadable(BitmapHeadBytes({256, 256, 32}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({257, 1, 32}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, 257, 32}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({0, 1, 32}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, 0, 32}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({-1, 1, 32}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, -1, 32}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, 1, 16}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, 1, 2}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, 1, 8, 1}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, 1, 8, 0, 257}) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({1, 1, 8, 0, 0xFFFFFFFF}) + room));
  EXPECT_FALSE(IsReadable(Little(39, 4) + BitmapHeadBytes({}).substr(4) + room));
  EXPECT_FALSE(IsReadable(Little(0xFFFFFFFF, 4) + BitmapHeadBytes({}).substr(4) + room));
  EXPECT_FALSE(IsReadable(BitmapHeadBytes({}).replace(8, 4, Little(3, 4)) + room));
}

TEST(ReadIcon, GivesNothingForAColourThatIsNotThere) {
  const std::string one_colour = BitmapHeadBytes({1, 1, 8, 0, 1}) + "\1\1\1\0"s;
  EXPECT_TRUE(IsReadable(one_colour + std::string(8, '\0')));
  EXPECT_FALSE(IsReadable(one_colour + "\1\0\0\0"s + kNothingMasked));
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 8, 3}, "\0\1"s, Chunk("PLTE", "\1\2\3"))));
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 8, 3}, "\0\0"s)));
}

TEST(ReadIcon, GivesNothingForPngsOutOfBounds) {
  const std::string rows = "\0\1\2\3\4"s;
  for (const std::uint32_t side : {0u, 257u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    EXPECT_FALSE(IsReadable(PngWith({side, 1}, rows))) << side;
    EXPECT_FALSE(IsReadable(PngWith({1, side}, rows))) << side;
  }
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 16, 6}, rows + rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 4, 0}, rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 8, 1}, rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 8, 5}, rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 8, 6, 1}, rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 1, 8, 2}, "\0\1\2\3"s, Chunk("tRNS", "\0\1\0\2\0\3"s))));
}

TEST(ReadIcon, GivesNothingForPngsWithTooFewOrTooManyPixels) {
  const std::string rows = "\0\1\2\3\4"s;
  EXPECT_TRUE(IsReadable(PngWith({1, 1}, rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 2}, rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 1}, rows + rows)));
  EXPECT_FALSE(IsReadable(PngWith({1, 1}, std::string(10'000'000, '\0'))));
  EXPECT_FALSE(IsReadable(PngWith({1, 1}, "\5\1\2\3\4"s)));
}

TEST(ReadIcon, GivesNothingForAPngThatIsCutAnywhereBeforeItsPixelsEnd) {
  const std::string png = PngWith({1, 1}, "\0\1\2\3\4"s);
  const std::size_t end_of_pixels = png.size() - 12;
  for (std::size_t size = 0; size < end_of_pixels; ++size) EXPECT_FALSE(IsReadable(png.substr(0, size))) << size;
  EXPECT_TRUE(IsReadable(png.substr(0, end_of_pixels)));
}

TEST(ReadIcon, SurvivesEveryWrongByte) {
  const std::string icon = IconWith({BitmapHeadBytes({3, 2, 4, 0, 2}) + std::string(24, '\1'),
                                     PngWith({2, 1, 4, 3}, "\0\x10"s, Chunk("PLTE", "\1\2\3\4\5\6"))});
  int readable = 0;
  for (std::size_t place = 0; place < icon.size(); ++place) {
    for (const char byte : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
      std::string damaged = icon;
      damaged[place] = byte;
      const IconPicture picture = ReadIcon(damaged, 16).value_or(IconPicture{});
      EXPECT_EQ(picture.pixels.size(), static_cast<std::size_t>(picture.width) * picture.height);
      readable += picture.width > 0;
    }
  }
  EXPECT_GT(readable, 0);
}

}  // namespace
}  // namespace qublet
