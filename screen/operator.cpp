#include "screen/operator.hpp"

namespace corvane {

std::vector<std::string_view> ButtonCaptions(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::OKOnly:
      return {"OK"};
    case MsgButtons::OKCancel:
      return {"OK", "Cancel"};
    case MsgButtons::YesNo:
      return {"Yes", "No"};
    case MsgButtons::YesNoCancel:
      return {"Yes", "No", "Cancel"};
    case MsgButtons::RetryCancel:
      return {"Retry", "Cancel"};
    case MsgButtons::AbortRetryIgnore:
      return {"Abort", "Retry", "Ignore"};
  }
  return {"OK"};
}

std::string_view AnswerCaption(MsgAnswer answer) {
  switch (answer) {
    case MsgAnswer::OK:
      return "OK";
    case MsgAnswer::Cancel:
      return "Cancel";
    case MsgAnswer::Yes:
      return "Yes";
    case MsgAnswer::No:
      return "No";
    case MsgAnswer::Retry:
      return "Retry";
    case MsgAnswer::Abort:
      return "Abort";
    case MsgAnswer::Ignore:
      return "Ignore";
  }
  return "OK";
}

bool AnswerFromCaption(MsgButtons buttons, std::string_view caption, MsgAnswer& answer) {
  static constexpr MsgAnswer kAll[] = {MsgAnswer::OK,    MsgAnswer::Cancel, MsgAnswer::Yes,
                                       MsgAnswer::No,    MsgAnswer::Retry,  MsgAnswer::Abort,
                                       MsgAnswer::Ignore};
  for (std::string_view shown : ButtonCaptions(buttons)) {
    if (shown != caption) continue;
    for (MsgAnswer a : kAll) {
      if (AnswerCaption(a) == caption) {
        answer = a;
        return true;
      }
    }
  }
  return false;
}

}  // namespace corvane
