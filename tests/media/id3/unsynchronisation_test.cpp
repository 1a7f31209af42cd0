#include "media/id3/unsynchronisation.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(Unsynchronise, PutsAZeroBehindWhateverLooksLikeAnAudioFrame) {
  EXPECT_EQ(Unsynchronise(Bytes{0xFF, 0xE0}), (Bytes{0xFF, 0, 0xE0}));
  EXPECT_EQ(Unsynchronise(Bytes{0xFF, 0xFF, 0xFB}), (Bytes{0xFF, 0, 0xFF, 0, 0xFB}));
  EXPECT_EQ(Unsynchronise(Bytes{0xFF, 0}), (Bytes{0xFF, 0, 0}));
  EXPECT_EQ(Unsynchronise(Bytes{1, 0xFF}), (Bytes{1, 0xFF, 0}));
}

TEST(Unsynchronise, LeavesOtherBytesAlone) {
  EXPECT_EQ(Unsynchronise(Bytes{0xFF, 0xDF, 0xE0, 0}), (Bytes{0xFF, 0xDF, 0xE0, 0}));
}

TEST(Resynchronise, UndoesIt) {
  const Bytes bytes{0xFF, 0xFE, 'a', 0, 0xFF, 0, 0xFF, 0xFF, 0xFF};
  EXPECT_EQ(Resynchronise(Unsynchronise(bytes)), bytes);
  EXPECT_TRUE(IsUnsynchronised(Unsynchronise(bytes)));
}

TEST(IsUnsynchronised, IsFalseForBytesTheSchemeCannotHaveMade) {
  EXPECT_FALSE(IsUnsynchronised(Bytes{'a', 0xFF, 0xFE}));
  EXPECT_TRUE(IsUnsynchronised(Bytes{}));
  EXPECT_FALSE(IsUnsynchronised(Bytes{'a', 0xFF}));
}

}  // namespace
}  // namespace qublet
