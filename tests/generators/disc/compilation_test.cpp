#include "generators/disc/compilation.h"

#include <gtest/gtest.h>

#include "support/editor_test_base.h"
#include "support/huge_files.h"

namespace qublet {
namespace {

class CompilationTest : public EditorTestBase {
 protected:
  // One file of this length.
  void Fill(std::uintmax_t bytes, const char* name = "disc/a.mp3") { drives_.WriteSparse(name, "a", bytes); }
  CompilationCheck Check(int row) { return CheckCompilation(*files_, feedback_, "c:\\disc", row, ",", found_); }
  std::string Refusal(int row) {
    const CompilationCheck check = Check(row);
    EXPECT_FALSE(check.fits);
    return check.refusal;
  }
  static std::string TooLarge(const std::string& excess) {
    return "The total size of all the files is " + excess +
           " more than the capacity of the CD-ROM!\r\nRemove some of the files and try again...";
  }

  Collection found_;
};

constexpr std::uintmax_t kMebibyte = 1048576;

TEST(CapacityBytes, IsWhatTheTextSaysUpToOneGigabyte) {
  EXPECT_EQ(CapacityBytes(0), 104857600);
  EXPECT_EQ(CapacityBytes(1), 209715200);
  EXPECT_EQ(CapacityBytes(2), 419430400);
  EXPECT_EQ(CapacityBytes(3), 629145600);
  EXPECT_EQ(CapacityBytes(4), 671088640);
  EXPECT_EQ(CapacityBytes(5), 681574400);
  EXPECT_EQ(CapacityBytes(6), 713031680);
  EXPECT_EQ(CapacityBytes(7), 734003200);
  EXPECT_EQ(CapacityBytes(8), 838860800);
  EXPECT_EQ(CapacityBytes(9), 1073741824);
}

TEST(CapacityBytes, FailsForTwoToEighteenGigabytesAndIsNothingForTwentyFour) {
  for (int row = 10; row <= 14; ++row) EXPECT_THROW(CapacityBytes(row), Failure) << row;
  EXPECT_EQ(CapacityBytes(15), 0);
  EXPECT_THROW(CapacityBytes(16), Failure);
  EXPECT_THROW(CapacityBytes(-1), Failure);
}

TEST_F(CompilationTest, WantsAFile) {
  std::filesystem::create_directories(drives_.C() / "disc/empty");
  EXPECT_EQ(Refusal(6), "You must add at least one file to the compilation.");
  Fill(1, "disc/empty/notes.txt");
  EXPECT_TRUE(Check(6).fits);
  EXPECT_EQ(found_, Collection{"c:\\disc\\empty\\notes.txt"});
}

TEST_F(CompilationTest, KeepsAMebibyteFreeToTheByte) {
  Fill(104857600 - kMebibyte - 1);
  EXPECT_TRUE(Check(0).fits);
  Fill(104857600 - kMebibyte);
  // What FormatSize says of nothing.
  EXPECT_EQ(Refusal(0), TooLarge("0 Bytes"));
}

TEST_F(CompilationTest, CountsEveryFileOfAllFolders) {
  Fill(104857600 - kMebibyte - 10);
  Fill(9, "disc/sub/deep/cover.jpg");
  EXPECT_TRUE(Check(0).fits);
  Fill(20, "disc/sub/deep/cover.jpg");
  EXPECT_EQ(Refusal(0), TooLarge("10 Bytes"));
}

TEST_F(CompilationTest, SixHundredAndEightyGoOntoSevenHundredOnly) {
  Fill(680 * kMebibyte);
  EXPECT_TRUE(Check(7).fits);
  EXPECT_EQ(Refusal(6), TooLarge("1,024 Kb"));
}

TEST_F(CompilationTest, HasNoAnswerForSizesBeyondItsNumbers) {
  Fill(10);
  for (int row = 10; row <= 14; ++row) EXPECT_EQ(Refusal(row), "") << row;
}

TEST_F(CompilationTest, CallsTheLargestSizeFull) {
  Fill(10);
  EXPECT_EQ(Refusal(15), TooLarge("1,024 Kb"));
}

TEST_F(CompilationTest, HasNoAnswerForTwoGibibytes) {
  Fill(2048 * kMebibyte - 1);
  EXPECT_EQ(Refusal(9), TooLarge("1,025 Mb"));
  Fill(1, "disc/b.mp3");
  EXPECT_EQ(Refusal(9), "");
}

TEST_F(CompilationTest, DoesNotFitHoweverHugeTheFilesAre) {
  for (const char* name : {"disc/1.mp3", "disc/2.mp3", "disc/3.mp3"}) drives_.Write(name, "abc");
  EXPECT_FALSE(CheckCompilation(HugeFiles(*files_), feedback_, "c:\\disc", 3, ",", found_).fits);
}

}  // namespace
}  // namespace qublet
