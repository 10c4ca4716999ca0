// An operator for unit tests: records every message and answers from a script.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "runtime/errors.hpp"
#include "screen/operator.hpp"

namespace corvane::testing {

struct Shown {
  std::string text;
  std::string title;
  MsgButtons buttons;
};

class FakeOperator : public Operator {
 public:
  std::vector<Shown> messages;
  std::deque<MsgAnswer> answers;  // for questions; OK-only boxes need none

  MsgAnswer MsgBox(std::string_view text, MsgButtons buttons, std::string_view title) override {
    messages.push_back({std::string(text), std::string(title), buttons});
    if (buttons == MsgButtons::OKOnly || answers.empty()) return MsgAnswer::OK;
    MsgAnswer a = answers.front();
    answers.pop_front();
    return a;
  }
  std::string InputBox(std::string_view, std::string_view, std::string_view d) override {
    return std::string(d);
  }
  void Progress(std::string_view) override {}
  void Hourglass(bool) override {}
  void RuntimeErrorReport(const RuntimeError&) override {}
};

}  // namespace corvane::testing
