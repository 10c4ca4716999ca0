// The input file reads in every open mode: whole lines, delimited fields into values and
// into text, and fixed records of any length, on any bytes.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/fuzz_common.hpp"
#include "runtime/errors.hpp"
#include "runtime/infile.hpp"

using namespace corvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  // The first byte picks the open mode and the way of reading, the second the record length.
  const int how = data[0] % 5;
  const int record_length = 1 + data[1];
  const std::string path = corvane_fuzz::WriteScratch("export", data + 2, size - 2);
  InputFile file;
  try {
    switch (how) {
      case 0:
      case 1: {
        file.Open(path, how == 0 ? OpenMode::Text : OpenMode::Byte);
        std::string line;
        while (!file.Eof()) file.LineInput(line);
        break;
      }
      case 2: {
        file.Open(path, OpenMode::Byte);
        Value v;
        while (!file.Eof()) file.Input(v);
        break;
      }
      case 3: {
        file.Open(path, OpenMode::Text);
        std::string text;
        for (int n = 0; !file.Eof(); ++n) {
          // fields and lines mixed, as the readers of headed files do
          if (n % 7 == 6) {
            file.LineInput(text);
          } else {
            file.Input(text);
          }
        }
        break;
      }
      default: {
        file.Open(path, OpenMode::Fixed, record_length);
        std::string record;
        file.Get(record);
        while (!file.Eof()) file.Get(record);
        break;
      }
    }
  } catch (const RuntimeError&) {
    // a read past the end is the reader's normal way of meeting a short file
  }
  return 0;
}
