// The job table of the Aloha reports that gather an employee's jobs before writing them: the
// employee's lines go out only once his closing lines have passed.
#pragma once

#include <array>
#include <string>

#include "runtime/errors.hpp"

namespace corvane {

// One job of the employee being gathered. Every field is text, as it stood in the report.
struct AlohaJobRow {
  std::string JobName;   // the text after "Total" on the job's total line
  std::string Rate;      // pay rate of the figures line
  std::string RegHours;  // regular hours
  std::string OTRate;    // a copy of Rate
  std::string OTHours;   // overtime hours
  std::string CCTips;    // card tips: kept, never written
  std::string DeclTips;  // declared tips
};

// Rows 1 to 25, held by the main form for its whole life. Rows are overwritten, never
// cleared: emptying the table is setting the job count back to 0.
struct AlohaJobTable {
  static constexpr long kRows = 25;

  // The row of job number n. A job past the last row is out of range, so an employee's
  // jobs beyond 25 are never stored.
  AlohaJobRow& Row(long n) {
    if (n < 1 || n > kRows) Raise(kSubscriptOutOfRange);
    return rows[static_cast<std::size_t>(n)];
  }

  std::array<AlohaJobRow, kRows + 1> rows{};  // row 0 unused
};

}  // namespace corvane
