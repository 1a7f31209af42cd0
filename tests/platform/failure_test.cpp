#include "platform/failure.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

namespace qublet {
namespace {

Outcome Thrown(const auto& error) {
  return Attempt([&] { throw error; });
}

int WithoutOne() {
  throw Failure("not a number");
}

std::string Reason(std::errc error) {
  return ReasonOf(std::make_error_code(error));
}

TEST(Failure, TellsAReasonAndWhatMoreIsKnown) {
  const Failure failure("read-only", "open \"/a.mp3\"");
  EXPECT_EQ(failure.Reason(), "read-only");
  EXPECT_STREQ(failure.what(), "read-only: open \"/a.mp3\"");
  EXPECT_EQ(Failure("no such row").Reason(), "no such row");
  EXPECT_STREQ(Failure("no such row").what(), "no such row");
}

TEST(Failure, KeepsItsReasonInACopy) {
  const Failure copy = Failure("read-only", "a.mp3");
  EXPECT_EQ(copy.Reason(), "read-only");
}

TEST(ReasonOf, SaysWhatUsersUnderstand) {
  EXPECT_EQ(Reason(std::errc::no_such_file_or_directory), "no such file or folder");
  EXPECT_EQ(Reason(std::errc::permission_denied), "permission denied");
  EXPECT_EQ(Reason(std::errc::operation_not_permitted), "permission denied");
  EXPECT_EQ(Reason(std::errc::read_only_file_system), "read-only");
  EXPECT_EQ(Reason(std::errc::no_space_on_device), "no space left");
  EXPECT_EQ(Reason(std::errc::io_error), "input/output error");
}

TEST(ReasonOf, KnowsTheErrorsOfTheSystemToo) {
  std::error_code error;
  std::filesystem::directory_iterator("no such folder/no such folder", error);
  EXPECT_EQ(ReasonOf(error), "no such file or folder");
}

TEST(ReasonOf, TakesTheSystemsWordsForTheRest) {
  const std::string reason = Reason(std::errc::network_unreachable);
  EXPECT_EQ(reason.substr(0, 3), "net") << "in lower case: " << reason;
  EXPECT_NE(reason.back(), '.');
}

TEST(Outcome, IsDoneUnlessItWasGivenUp) {
  EXPECT_TRUE(Outcome());
  EXPECT_EQ(Outcome().Reason(), "");
  EXPECT_FALSE(Outcome::GivenUp("read-only"));
  EXPECT_EQ(Outcome::GivenUp("read-only").Reason(), "read-only");
  EXPECT_FALSE(Outcome::GivenUp("")) << "without a word it is given up all the same";
}

TEST(Outcome, GoesOnAsAFailureWhereItIsWanted) {
  EXPECT_NO_THROW(Outcome().OrThrow());
  const Outcome refused = Outcome::GivenUp("read-only");
  EXPECT_EQ(Attempt([&] { refused.OrThrow(); }).Reason(), "read-only");
}

TEST(Attempt, IsDoneWhenNothingIsThrown) {
  bool ran = false;
  EXPECT_TRUE(Attempt([&] { ran = true; }));
  EXPECT_TRUE(ran);
}

TEST(Attempt, EndsTheStepsAndTellsTheReason) {
  int steps = 0;
  const Outcome outcome = Attempt([&] {
    ++steps;
    throw Failure("no space left", "write \"/a.mp3\"");
    ++steps;
  });
  EXPECT_FALSE(outcome);
  EXPECT_EQ(outcome.Reason(), "no space left");
  EXPECT_EQ(steps, 1);
}

TEST(Attempt, TakesErrorsOfTheSystemForFailures) {
  const auto denied = std::make_error_code(std::errc::permission_denied);
  EXPECT_EQ(Thrown(std::system_error(denied)).Reason(), "permission denied");
  EXPECT_EQ(Thrown(std::filesystem::filesystem_error("list", denied)).Reason(), "permission denied");
}

TEST(Attempt, TakesAWantOfMemoryForAFailure) {
  EXPECT_EQ(Thrown(std::bad_alloc()).Reason(), "not enough memory");
  EXPECT_EQ(Thrown(std::length_error("vector")).Reason(), "too large");
}

TEST(Outcome, GoesOnWhateverFailedButForWantOfMemory) {
  EXPECT_NO_THROW(Outcome().MindMemory());
  EXPECT_NO_THROW(Outcome::GivenUp("read-only").MindMemory());
  EXPECT_FALSE(Outcome::WantOfMemory());
  EXPECT_THROW(Outcome::WantOfMemory().MindMemory(), std::bad_alloc);
  EXPECT_THROW(Outcome::WantOfMemory().OrThrow(), std::bad_alloc);
  EXPECT_THROW(Thrown(std::bad_alloc()).MindMemory(), std::bad_alloc);
}

TEST(Attempt, LetsMistakesOfTheProgramThrough) {
  EXPECT_THROW(Thrown(std::out_of_range("at")), std::out_of_range);
  EXPECT_THROW(Thrown(std::logic_error("never")), std::logic_error);
  EXPECT_THROW(Thrown(std::runtime_error("unknown")), std::runtime_error);
  EXPECT_THROW(Attempt([] { std::optional<int>().value(); }), std::bad_optional_access);
  EXPECT_THROW(Attempt([] { throw 1; }), int);
}

TEST(Guarded, AnswersWhetherTheStepsCameToTheirEnd) {
  EXPECT_TRUE(Guarded([] {}));
  EXPECT_FALSE(Guarded([] { throw Failure("no such row"); }));
  EXPECT_THROW(Guarded([] { std::vector<int>().at(1); }), std::out_of_range);
}

TEST(ResumeNext, LeavesTheTargetAndGoesOn) {
  int target = 1;
  ResumeNext([&] { target = WithoutOne(); });
  EXPECT_EQ(target, 1);
  ResumeNext([&] { target = 2; });
  EXPECT_EQ(target, 2);
  EXPECT_THROW(ResumeNext([] { std::vector<int>().at(1); }), std::out_of_range);
}

}  // namespace
}  // namespace qublet
