// What the line and fixed exports of ADI, BGS, Gradience, Homewatch and Lathem share: which
// lines are employee records, and the pay columns of their maps.
#pragma once

#include <string_view>

#include "pipeline/column_map.hpp"

namespace corvane {

// An employee number is all digits, so a record begins with one; headings, rules, page
// breaks and total lines do not.
inline bool BeginsWithDigit(std::string_view line) {
  return !line.empty() && line.front() >= '0' && line.front() <= '9';
}

}  // namespace corvane
