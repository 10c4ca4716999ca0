// The operator of a scripted run: answers come from the command line, or from a person at
// the terminal, and everything said is written to the transcript.
#pragma once

#include <deque>
#include <ostream>
#include <stdexcept>
#include <string>

#include "runtime/text.hpp"
#include "screen/operator.hpp"

namespace corvane {

// A question with no answer left and nobody at the terminal to ask.
struct Unanswered : std::runtime_error {
  using std::runtime_error::runtime_error;
};
// The command line was wrong.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class HeadlessOperator : public Operator {
 public:
  HeadlessOperator(std::deque<std::string> answers, bool accept_defaults, std::ostream* transcript,
                   bool interactive);
  ~HeadlessOperator() override;
  HeadlessOperator(const HeadlessOperator&) = delete;
  HeadlessOperator& operator=(const HeadlessOperator&) = delete;

  MsgAnswer MsgBox(std::string_view text, MsgButtons buttons, std::string_view title) override;
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view default_text) override;
  void Progress(std::string_view text) override;
  void Hourglass(bool) override {}
  void RuntimeErrorReport(const RuntimeError& error) override;
  // Writes out what has been said and not yet written to standard error.
  void FlushSaid();

 private:
  bool NextAnswer(std::string& answer);
  std::string AskTerminal(std::string_view question);
  void Record(const std::string& json_line);
  void Say(std::string_view text);
  // Says text with its carriage returns as line breaks, as a person reads it.
  void SayForTerminal(std::string_view text);
  // Under --accept-defaults: false once the same question has taken the same default answer
  // too many times in a row. A question that repeats until its answer is valid would
  // otherwise go round for ever on a default that is not.
  bool DefaultMayRepeat(std::string_view title, std::string_view text, std::string_view answer);

  std::deque<std::string> answers_;
  std::string said_;  // what is said, not yet written to standard error
  std::string json_;  // the transcript line being built, kept to spare an allocation a message
  std::string last_default_;  // title, text and answer of the last question answered by default
  int default_repeats_ = 0;
  bool accept_defaults_;
  std::ostream* transcript_;
  bool interactive_;
};

// Appends single-byte text as a JSON string: UTF-8, with quotes, backslashes and control
// characters escaped as the JSON library escapes them.
void AppendJsonString(std::string& out, std::string_view text);
// What a person reads on the terminal: carriage returns as line breaks.
std::string ForTerminal(std::string_view text);

}  // namespace corvane
