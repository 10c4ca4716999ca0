// The Select over the time clock's name, as one table: key, translator, reader shape,
// open mode, record length and error frame of every time clock.
#pragma once

#include <span>
#include <string_view>

#include "runtime/infile.hpp"

namespace corvane {

// How a branch reads its input.
enum class Shape {
  W,  // workbook rows: cells of the active sheet by column letter and row
  L,  // whole lines, read one ahead
  H,  // a whole-line read to drop headings, then comma fields
  C,  // comma fields, a first read of the same shape drops the heading record
  F,  // fixed records
  S,  // self-reading: the translator holds the loop
};

// What an error in the branch means.
enum class Frame {
  NoHandler,  // the run-time error report ends the program
  Handler,    // a silent end of the reading that keeps what was written
  Ignore,     // statement by statement: the statement after the failing one runs
};

struct ClockEntry {
  std::string_view key;         // the PickTC entry, exact text, case included
  std::string_view translator;  // the translator's name; "" for a branch that writes itself
  Shape shape;
  OpenMode mode;
  int record_length;  // Fixed mode only, else 0
  Frame frame;
};

// Every key, in the order of the Select.
std::span<const ClockEntry> DispatchTable();
// The entry of a key compared as exact text; nullptr when none matches.
const ClockEntry* FindClock(std::string_view key);

char ShapeLetter(Shape shape);
std::string_view ModeName(OpenMode mode);
std::string_view FrameName(Frame frame);

}  // namespace corvane
