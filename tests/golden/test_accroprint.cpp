// "AccroPrint v2.0" exports translated end to end and compared with import and audit files worked
// out by hand from the format's page. The fixture's records are described in
// tests/fixtures/accroprint-v2-0/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("AccroPrint v2.0", "accroprint-v2-0", "accroprint.txt", sets, records, lines,
                     expected);
}

TEST(AccroPrintV20Translator, HoursColumnsGoOutInTheRowsOrder) {
  // Covers: heading dropped; seven columns under their boxes; a quoted name holding a comma
  // joined to the first name; a blank first name adding nothing; blank employee passed over
  // uncounted; zero, negative and text hours skipped; quoted hours kept as written; leading
  // zeros of the employee id kept in the import line; the half record not translated.
  ExpectGolden({}, 3, 8, "expected_123");
}

}  // namespace
}  // namespace corvane_test
