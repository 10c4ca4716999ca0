// What the fuzz targets share: a private scratch folder and files written into it.
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>

#include "runtime/errors.hpp"
#include "screen/operator.hpp"

namespace corvane_fuzz {

// One scratch folder per process, made at the first call.
inline const std::string& Scratch() {
  static const std::string folder = [] {
    std::string pattern = "/tmp/corvane_fuzz_XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) abort();
    return pattern;
  }();
  return folder;
}

inline std::string WriteScratch(const std::string& name, const std::uint8_t* data,
                                std::size_t size) {
  const std::string path = Scratch() + "/" + name;
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  return path;
}

// An operator that answers every question with its default and keeps nothing.
class QuietOperator : public corvane::Operator {
 public:
  corvane::MsgAnswer MsgBox(std::string_view, corvane::MsgButtons buttons,
                            std::string_view) override {
    return buttons == corvane::MsgButtons::YesNo || buttons == corvane::MsgButtons::YesNoCancel
               ? corvane::MsgAnswer::Yes
               : corvane::MsgAnswer::OK;
  }
  // A question that keeps coming back with the same default would be asked for ever (the
  // side files that are asked for until one exists); the twentieth round stops the run, as
  // the headless command does.
  std::string InputBox(std::string_view prompt, std::string_view title,
                       std::string_view d) override {
    std::string asked = std::string(title) + '\n' + std::string(prompt) + '\n' + std::string(d);
    rounds_ = asked == last_asked_ ? rounds_ + 1 : 1;
    last_asked_ = std::move(asked);
    if (rounds_ >= 20) throw corvane::FatalError(corvane::RuntimeError(5));
    return std::string(d);
  }
  void Progress(std::string_view) override {}
  void Hourglass(bool) override {}
  void RuntimeErrorReport(const corvane::RuntimeError&) override {}

 private:
  std::string last_asked_;
  int rounds_ = 0;
};

}  // namespace corvane_fuzz
