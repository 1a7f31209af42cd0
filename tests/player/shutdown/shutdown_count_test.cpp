#include "player/shutdown/shutdown_count.h"

#include <gtest/gtest.h>

#include "platform/player_window.h"

namespace qublet {
namespace {

constexpr std::int32_t kStoppedPosition = -1;
constexpr std::int32_t kInTheTrack = 1000;

class ShutdownCountTest : public testing::Test {
 protected:
  std::string Label(std::int32_t position) { return CountSecond(position, count_).Label2; }
  void BeSilent(int seconds) {
    for (int i = 0; i < seconds; ++i) EXPECT_FALSE(CountSecond(kStoppedPosition, count_).shuts_down) << i;
  }

  ShutdownCount count_;
};

TEST_F(ShutdownCountTest, BeginsWithoutSilence) {
  EXPECT_EQ(count_.SilentSeconds, 0);
  EXPECT_EQ(count_.PlayingPhase, 0);
}

TEST_F(ShutdownCountTest, ShowsThatItPlaysByFourTextsInTurn) {
  for (const char* text : {"Playing.", "Playing..", "Playing...", "Playing....", "Playing."}) {
    EXPECT_EQ(Label(kInTheTrack), text);
    EXPECT_EQ(count_.SilentSeconds, 0);
  }
  EXPECT_EQ(count_.PlayingPhase, 1);
}

TEST_F(ShutdownCountTest, CountsWhatIsBehindTheFirstSecondAsPlaying) {
  EXPECT_EQ(Label(1000), "Playing.");
  EXPECT_EQ(count_.SilentSeconds, 0);
  for (const std::int32_t position : {999, 0, -1, -5000}) {
    EXPECT_EQ(Label(position), "");
    EXPECT_EQ(count_.SilentSeconds, 1) << position;
    count_.SilentSeconds = 0;
  }
}

TEST_F(ShutdownCountTest, KeepsTheTextForTwoSilentSeconds) {
  EXPECT_EQ(Label(kStoppedPosition), "");
  EXPECT_EQ(Label(kStoppedPosition), "");
  EXPECT_EQ(Label(kStoppedPosition), "Shutting down in 23 Seconds...");
}

TEST_F(ShutdownCountTest, CountsDownAndShutsDownAtTheTwentySixthSilentSecond) {
  BeSilent(2);
  for (int left = 23; left >= 1; --left)
    EXPECT_EQ(Label(kStoppedPosition), "Shutting down in " + std::to_string(left) + " Seconds...");
  EXPECT_EQ(count_.SilentSeconds, 25);
  const ShutdownTick last = CountSecond(kStoppedPosition, count_);
  EXPECT_TRUE(last.shuts_down);
  EXPECT_EQ(last.Label2, "Shutting Down Windows...");
  EXPECT_EQ(count_.SilentSeconds, 26);
}

TEST_F(ShutdownCountTest, BeginsAnewWhenItPlaysAgain) {
  BeSilent(25);
  EXPECT_EQ(Label(kInTheTrack), "Playing.");
  EXPECT_EQ(count_.SilentSeconds, 0);
  BeSilent(25);
}

TEST_F(ShutdownCountTest, TakesTheFirstSecondOfATrackForASilentOneAndForgetsIt) {
  EXPECT_EQ(Label(500), "");
  EXPECT_EQ(count_.SilentSeconds, 1);
  EXPECT_EQ(Label(1500), "Playing.");
  EXPECT_EQ(count_.SilentSeconds, 0);
}

TEST_F(ShutdownCountTest, ChangesNothingWithoutAnAnswer) {
  CountSecond(kInTheTrack, count_);
  BeSilent(25);
  const ShutdownTick tick = CountSecond(kNoAnswer, count_);
  EXPECT_EQ(tick.Label2, "");
  EXPECT_FALSE(tick.shuts_down);
  EXPECT_EQ(count_.SilentSeconds, 25);
  EXPECT_EQ(count_.PlayingPhase, 1);
}

}  // namespace
}  // namespace qublet
