#include "cli/headless_operator.hpp"

#include <iostream>
#include <nlohmann/json.hpp>

#include "runtime/errors.hpp"
#include "runtime/text.hpp"

namespace corvane {

void AppendJsonString(std::string& out, std::string_view text) {
  static constexpr char kHex[] = "0123456789abcdef";
  out += '"';
  for (unsigned char c : text) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\b':
        out += "\\b";
        break;
      case '\f':
        out += "\\f";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (c < 0x20) {
          out += "\\u00";
          out += kHex[c >> 4];
          out += kHex[c & 0xF];
        } else if (c < 0x80) {
          out += static_cast<char>(c);
        } else {
          out += static_cast<char>(0xC0 | (c >> 6));
          out += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
  }
  out += '"';
}

std::string ForTerminal(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    if (c == '\r') c = '\n';
  }
  return out;
}

HeadlessOperator::HeadlessOperator(std::deque<std::string> answers, bool accept_defaults,
                                   std::ostream* transcript, bool interactive)
    : answers_(std::move(answers)),
      accept_defaults_(accept_defaults),
      transcript_(transcript),
      interactive_(interactive) {}

HeadlessOperator::~HeadlessOperator() {
  FlushSaid();
}

// What is said goes to standard error in large writes: a run may show a message for every row
// of a long export, and a person reading along loses nothing, since the text is written out
// before every question asked at the terminal and at the end.
void HeadlessOperator::Say(std::string_view text) {
  constexpr std::size_t kMostHeld = 64 * 1024;
  said_.append(text);
  if (said_.size() >= kMostHeld) FlushSaid();
}

void HeadlessOperator::SayForTerminal(std::string_view text) {
  const std::size_t at = said_.size();
  said_.append(text);
  for (std::size_t k = at; k < said_.size(); ++k) {
    if (said_[k] == '\r') said_[k] = '\n';
  }
  if (said_.size() >= 64 * 1024) FlushSaid();
}

void HeadlessOperator::FlushSaid() {
  if (said_.empty()) return;
  std::cerr.write(said_.data(), static_cast<std::streamsize>(said_.size()));
  std::cerr.flush();
  said_.clear();
}

void HeadlessOperator::Record(const std::string& json_line) {
  if (transcript_ == nullptr) return;
  // Buffered: the file is closed, and so written out, whatever way the command ends; a
  // run may show a message for every row of a long export.
  *transcript_ << json_line << '\n';
}

bool HeadlessOperator::NextAnswer(std::string& answer) {
  if (answers_.empty()) return false;
  answer = std::move(answers_.front());
  answers_.pop_front();
  return true;
}

bool HeadlessOperator::DefaultMayRepeat(std::string_view title, std::string_view text,
                                        std::string_view answer) {
  constexpr int kMostRepeats = 20;
  std::string key;
  key.reserve(title.size() + text.size() + answer.size() + 2);
  key.append(title).append(1, '\0').append(text).append(1, '\0').append(answer);
  if (key == last_default_) {
    ++default_repeats_;
  } else {
    last_default_ = std::move(key);
    default_repeats_ = 1;
  }
  return default_repeats_ <= kMostRepeats;
}

std::string HeadlessOperator::AskTerminal(std::string_view question) {
  if (transcript_ != nullptr) transcript_->flush();  // the operator may look while we wait
  Say(question);
  FlushSaid();
  std::string line;
  if (!std::getline(std::cin, line)) throw Unanswered("no answer at the terminal");
  return line;
}

MsgAnswer HeadlessOperator::MsgBox(std::string_view text, MsgButtons buttons,
                                   std::string_view title) {
  // A run may show a message for every row of a long export: an OK message costs no
  // allocation of its own here.
  static const std::vector<std::string_view> kOKOnly = {"OK"};
  std::vector<std::string_view> owned;
  if (buttons != MsgButtons::OKOnly) owned = ButtonCaptions(buttons);
  const std::vector<std::string_view>& captions = buttons == MsgButtons::OKOnly ? kOKOnly : owned;

  std::string& line = json_;
  line.assign(R"({"kind":"message","title":)");
  AppendJsonString(line, title);
  line += R"(,"text":)";
  AppendJsonString(line, text);
  line += R"(,"buttons":[)";
  for (std::size_t k = 0; k < captions.size(); ++k) {
    if (k > 0) line += ',';
    AppendJsonString(line, captions[k]);
  }
  line += ']';

  Say("[");
  Say(title);
  Say("] ");
  SayForTerminal(text);
  Say("\n");

  MsgAnswer answer = MsgAnswer::OK;
  if (buttons != MsgButtons::OKOnly) {
    std::string shown;
    for (std::string_view c : captions) {
      if (!shown.empty()) shown += '/';
      shown += c;
    }
    std::string given;
    if (NextAnswer(given)) {
      if (!AnswerFromCaption(buttons, given, answer)) {
        throw UsageError("the answer \"" + given + "\" is not one of " + shown);
      }
    } else if (accept_defaults_) {
      if (!DefaultMayRepeat(title, text, captions.front())) {
        Record(line + '}');
        throw Unanswered("the question keeps coming back to its default answer");
      }
      AnswerFromCaption(buttons, captions.front(), answer);
    } else if (interactive_) {
      while (!AnswerFromCaption(buttons, AskTerminal("(" + shown + ")? "), answer)) {
      }
    } else {
      Record(line + '}');
      throw Unanswered("the question was left unanswered");
    }
  }
  line += R"(,"answer":)";
  AppendJsonString(line, AnswerCaption(answer));
  line += '}';
  Record(line);
  return answer;
}

std::string HeadlessOperator::InputBox(std::string_view prompt, std::string_view title,
                                       std::string_view default_text) {
  nlohmann::ordered_json line = {{"kind", "input"},
                                 {"title", Latin1ToUtf8(title)},
                                 {"prompt", Latin1ToUtf8(prompt)},
                                 {"default", Latin1ToUtf8(default_text)}};
  Say("[");
  Say(title);
  Say("] ");
  Say(ForTerminal(prompt));
  Say(" [");
  Say(default_text);
  Say("]\n");
  std::string answer;
  if (!NextAnswer(answer)) {
    if (accept_defaults_) {
      if (!DefaultMayRepeat(title, prompt, default_text)) {
        Record(line.dump());
        throw Unanswered("the question keeps coming back to its default answer");
      }
      answer = default_text;
    } else if (interactive_) {
      answer = AskTerminal("> ");
    } else {
      Record(line.dump());
      throw Unanswered("the question was left unanswered");
    }
  }
  line["answer"] = Latin1ToUtf8(answer);
  Record(line.dump());
  return answer;
}

void HeadlessOperator::Progress(std::string_view text) {
  Record(nlohmann::ordered_json{{"kind", "progress"}, {"text", Latin1ToUtf8(text)}}.dump());
}

void HeadlessOperator::RuntimeErrorReport(const RuntimeError& error) {
  Record(nlohmann::ordered_json{{"kind", "runtime-error"},
                                {"number", error.number()},
                                {"description", Latin1ToUtf8(error.description())}}
             .dump());
  Say("Run-time error '" + std::to_string(error.number()) + "':\n\n" + error.description() + "\n");
  FlushSaid();
}

}  // namespace corvane
