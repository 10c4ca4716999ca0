// What the system asks of the operator and tells him: message boxes, input boxes, the
// progress line and the hourglass. Each front end implements it once.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class RuntimeError;

enum class MsgButtons { OKOnly, OKCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore };
enum class MsgAnswer { OK, Cancel, Yes, No, Retry, Abort, Ignore };

// The captions of a message box's buttons, in the order shown ("Yes", "No").
std::vector<std::string_view> ButtonCaptions(MsgButtons buttons);
std::string_view AnswerCaption(MsgAnswer answer);
// The answer of a caption among the box's buttons; false when no button has that caption.
bool AnswerFromCaption(MsgButtons buttons, std::string_view caption, MsgAnswer& answer);

class Operator {
 public:
  virtual ~Operator() = default;
  // A modal message: text (a carriage return breaks a line), buttons, title.
  virtual MsgAnswer MsgBox(std::string_view text, MsgButtons buttons, std::string_view title) = 0;
  // A modal input box; Cancel answers "".
  virtual std::string InputBox(std::string_view prompt, std::string_view title,
                               std::string_view default_text) = 0;
  virtual void Progress(std::string_view text) = 0;
  virtual void Hourglass(bool on) = 0;
  // The platform's run-time error report; the program ends after it.
  virtual void RuntimeErrorReport(const RuntimeError& error) = 0;
};

}  // namespace corvane
