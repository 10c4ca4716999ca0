// The scripted operator's answers: a question that keeps coming back to the same default
// answer must not hold a scripted run for ever.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

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

namespace corvane {
namespace {

// The transcript's strings are written by hand for speed; they must read back as the JSON
// library would have written them, for every single byte.
TEST(HeadlessOperator, TranscriptStringsMatchTheJsonLibrary) {
  std::string every;
  for (int c = 0; c < 256; ++c) every += static_cast<char>(c);
  for (const std::string& text : {every, std::string("Emp# 40, Hours = T\r\rok \"q\" \\")}) {
    std::string mine;
    AppendJsonString(mine, text);
    EXPECT_EQ(mine, nlohmann::json(Latin1ToUtf8(text)).dump());
  }
}

TEST(HeadlessOperator, MessagesGoToTheTranscriptWhole) {
  std::ostringstream transcript;
  {
    HeadlessOperator ui({"No"}, false, &transcript, false);
    EXPECT_EQ(ui.MsgBox("Line one\rline \"two\"", MsgButtons::OKOnly, "Corvane - A"),
              MsgAnswer::OK);
    EXPECT_EQ(ui.MsgBox("Go on?", MsgButtons::YesNo, "Corvane"), MsgAnswer::No);
  }
  std::istringstream lines(transcript.str());
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(nlohmann::ordered_json::parse(line),
            (nlohmann::ordered_json{{"kind", "message"},
                                    {"title", "Corvane - A"},
                                    {"text", "Line one\rline \"two\""},
                                    {"buttons", {"OK"}},
                                    {"answer", "OK"}}));
  std::getline(lines, line);
  EXPECT_EQ(nlohmann::ordered_json::parse(line), (nlohmann::ordered_json{{"kind", "message"},
                                                                         {"title", "Corvane"},
                                                                         {"text", "Go on?"},
                                                                         {"buttons", {"Yes", "No"}},
                                                                         {"answer", "No"}}));
}

}  // namespace
}  // namespace corvane
