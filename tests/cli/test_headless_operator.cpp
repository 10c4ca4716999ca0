// The scripted operator's answers: a question that keeps coming back to the same default
// answer must not hold a scripted run for ever.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/headless_operator.hpp"

namespace corvane {
namespace {

TEST(HeadlessOperator, ARepeatedDefaultAnswerStopsAfterTwentyRounds) {
  std::ostringstream transcript;
  HeadlessOperator ui({}, /*accept_defaults=*/true, &transcript, /*interactive=*/false);
  for (int round = 1; round <= 20; ++round) {
    ASSERT_EQ(ui.InputBox("How many?", "Count", "0"), "0") << "round " << round;
  }
  EXPECT_THROW(ui.InputBox("How many?", "Count", "0"), Unanswered);
  // the unanswered question is still in the transcript
  EXPECT_EQ(transcript.str().find("\"answer\"", transcript.str().rfind("{\"kind\"")),
            std::string::npos);
}

TEST(HeadlessOperator, AnotherQuestionOrDefaultBetweenStartsTheCountAgain) {
  HeadlessOperator ui({}, true, nullptr, false);
  for (int round = 1; round <= 30; ++round) {
    EXPECT_EQ(ui.InputBox("How many?", "Count", round % 2 ? "0" : "1"), round % 2 ? "0" : "1");
    EXPECT_EQ(ui.MsgBox("Go on?", MsgButtons::YesNo, "Corvane"), MsgAnswer::Yes);
  }
}

TEST(HeadlessOperator, GivenAnswersAreNotCounted) {
  std::deque<std::string> answers(40, "0");
  HeadlessOperator ui(answers, true, nullptr, false);
  for (int round = 1; round <= 40; ++round) EXPECT_EQ(ui.InputBox("How many?", "Count", "0"), "0");
  EXPECT_EQ(ui.InputBox("How many?", "Count", "0"), "0");  // the first taken by default
}

TEST(HeadlessOperator, ARepeatedMessageWithItsFirstButtonStopsToo) {
  HeadlessOperator ui({}, true, nullptr, false);
  for (int round = 1; round <= 20; ++round) {
    EXPECT_EQ(ui.MsgBox("Try again?", MsgButtons::RetryCancel, "Corvane"), MsgAnswer::Retry);
  }
  EXPECT_THROW(ui.MsgBox("Try again?", MsgButtons::RetryCancel, "Corvane"), Unanswered);
}

}  // namespace
}  // namespace corvane
