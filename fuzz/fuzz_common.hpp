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
  std::string InputBox(std::string_view, std::string_view, std::string_view d) override {
    return std::string(d);
  }
  void Progress(std::string_view) override {}
  void Hourglass(bool) override {}
  void RuntimeErrorReport(const corvane::RuntimeError&) override {}
};

}  // namespace corvane_fuzz
