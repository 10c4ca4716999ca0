// "ChronoTek" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/chronotek/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("ChronoTek", "chronotek", "chronotek.csv", sets, records, lines, expected);
}

TEST(ChronoTekTranslator, RegularAndOvertimeFromTheSummaryLine) {
  // Covers: the heading line dropped; name as "Last, First" with a comma inside the quoted last
  // name; a quoted department holding a comma not shifting the hours; a blank first name; the
  // total not sent; the half line not translated.
  ExpectGolden({}, 3, 3, "expected_123");
}

}  // namespace
}  // namespace corvane_test
