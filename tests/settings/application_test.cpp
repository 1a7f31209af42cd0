#include "settings/application.h"

#include <gtest/gtest.h>

namespace qublet {
namespace {

TEST(AppKey, IsTheStemAndBothVersionNumbersWithNothingBetween) {
  EXPECT_EQ(AppKey(), "QUBLET2021");
}

TEST(AppKey, ChangesWithTheMinorVersionAndNotWithTheRevision) {
  EXPECT_EQ(AppKey({"QUBLET20", 2, 2, 93}), "QUBLET2022");
  EXPECT_EQ(AppKey({"QUBLET20", 2, 1, 94}), "QUBLET2021");
  EXPECT_EQ(AppKey({"QUBLET20", 2, 10, 0}), "QUBLET20210");
}

TEST(AppTitle, EndsInTheVersionAndAFixedLetter) {
  EXPECT_EQ(AppTitle(), "[Velmora] M3U Playlist Editor v2.1b");
  EXPECT_EQ(AppTitle({"QUBLET20", 3, 0, 1}), "[Velmora] M3U Playlist Editor v3.0b");
}

TEST(ProgramVersion, HasTheRevisionOfTheProject) {
  EXPECT_EQ(ProgramVersion{}.revision, 93);
}

}  // namespace
}  // namespace qublet
