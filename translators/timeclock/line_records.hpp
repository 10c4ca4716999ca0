// Which lines of a clock's export are employee records: an employee number is all digits, so
// a record begins with one; headings, rules, page breaks and total lines do not.
#pragma once

#include <string_view>

namespace corvane {

inline bool BeginsWithDigit(std::string_view line) {
  return !line.empty() && line.front() >= '0' && line.front() <= '9';
}

}  // namespace corvane
