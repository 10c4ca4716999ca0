// The sample rows of the sample panel: made-up rows that show what a format's input lines
// look like. No logic reads them.
#pragma once

#include <span>
#include <string_view>

namespace corvane {

struct SampleRow {
  std::string_view format;  // the time clock's name
  std::string_view row;
};

// Every sample row, grouped by format, each format's rows in the order shown.
std::span<const SampleRow> SampleRows();

}  // namespace corvane
