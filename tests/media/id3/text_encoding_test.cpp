#include "media/id3/text_encoding.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

using namespace std::string_literals;

std::string Decoded(const Bytes& bytes, TextEncoding encoding) {
  return StringReader(bytes, encoding).Next();
}

TEST(StringReader, ReadsEveryEncoding) {
  EXPECT_EQ(Decoded({'C', 0xE9}, TextEncoding::kLatin1), "Cé");
  EXPECT_EQ(Decoded({0xFF, 0xFE, 0x1F, 0x04}, TextEncoding::kUtf16), "П");
  EXPECT_EQ(Decoded({0xFE, 0xFF, 0x04, 0x1F}, TextEncoding::kUtf16), "П");
  EXPECT_EQ(Decoded({0x04, 0x1F}, TextEncoding::kUtf16BigEndian), "П");
  EXPECT_EQ(Decoded({0xD0, 0x9F}, TextEncoding::kUtf8), "П");
}

TEST(StringReader, TakesUtf16WithoutAMarkForLittleEndian) {
  EXPECT_EQ(Decoded({0x1F, 0x04}, TextEncoding::kUtf16), "П");
}

TEST(StringReader, LetsAMarkHoldForTheStringsBehindIt) {
  const Bytes bytes{0xFE, 0xFF, 0, 'a', 0, 0, 0, 'b'};
  StringReader reader(bytes, TextEncoding::kUtf16);
  EXPECT_EQ(reader.Next(), "a");
  EXPECT_EQ(reader.Next(), "b");
  EXPECT_TRUE(reader.AtEnd());
}

TEST(StringReader, ReadsPairsAndShowsBrokenOnes) {
  EXPECT_EQ(Decoded({0x3D, 0xD8, 0x00, 0xDE}, TextEncoding::kUtf16), "😀");
  EXPECT_EQ(Decoded({0x3D, 0xD8, 'a', 0}, TextEncoding::kUtf16), "\uFFFDa");
  EXPECT_EQ(Decoded({0x00, 0xDE}, TextEncoding::kUtf16), "\uFFFD");
  EXPECT_EQ(Decoded({0x3D, 0xD8}, TextEncoding::kUtf16), "\uFFFD");
}

TEST(StringReader, ReadsBytesThatAreNoUtf8AsLatin1) {
  EXPECT_EQ(Decoded({'a', 0xE9, 'b'}, TextEncoding::kUtf8), "aéb");
}

TEST(StringReader, SaysWhetherAStringWasTerminated) {
  const Bytes bytes{'a', 0, 'b'};
  StringReader reader(bytes, TextEncoding::kLatin1);
  EXPECT_EQ(reader.Next(), "a");
  EXPECT_TRUE(reader.WasTerminated());
  EXPECT_EQ(reader.Next(), "b");
  EXPECT_FALSE(reader.WasTerminated());
}

TEST(StringReader, LooksForAWideTerminatorAtWholeCharactersOnly) {
  const Bytes bytes{0x00, 0x01, 0x00, 0x00, 0x02, 0x00};
  StringReader reader(bytes, TextEncoding::kUtf16BigEndian);
  EXPECT_EQ(reader.Next(), "\u0001");
  EXPECT_EQ(reader.Rest().size(), 2u);
}

TEST(StringReader, EndsAtAnOddByte) {
  const Bytes bytes{'a', 0, 'b'};
  StringReader reader(bytes, TextEncoding::kUtf16);
  EXPECT_EQ(reader.Next(), "a");
  EXPECT_TRUE(reader.AtEnd());
}

TEST(EncodeString, WritesWhatStringReaderReads) {
  const std::string text = "aé П 😀";
  for (const auto encoding : {TextEncoding::kUtf16, TextEncoding::kUtf16BigEndian, TextEncoding::kUtf8}) {
    EXPECT_EQ(Decoded(EncodeString(text, encoding), encoding), text);
  }
  EXPECT_EQ(Decoded(EncodeString("aé", TextEncoding::kLatin1), TextEncoding::kLatin1), "aé");
}

TEST(EncodeString, PutsAMarkInFrontOfUtf16) {
  EXPECT_EQ(EncodeString("a", TextEncoding::kUtf16), (Bytes{0xFF, 0xFE, 'a', 0}));
  EXPECT_EQ(EncodeString("", TextEncoding::kUtf16), (Bytes{0xFF, 0xFE}));
  EXPECT_EQ(EncodeString("a", TextEncoding::kUtf16BigEndian), (Bytes{0, 'a'}));
}

TEST(EncodeString, EndsAtAZero) {
  EXPECT_EQ(EncodeString("a\0b"s, TextEncoding::kLatin1), (Bytes{'a'}));
}

TEST(FitsLatin1, IsFalseForOtherLetters) {
  EXPECT_TRUE(FitsLatin1("Café \u0080ÿ"));
  EXPECT_FALSE(FitsLatin1("€"));
  EXPECT_FALSE(FitsLatin1("П"));
}

}  // namespace
}  // namespace qublet
