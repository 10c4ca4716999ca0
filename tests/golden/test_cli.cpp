// "CLI" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/cli/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("CLI", "cli", "cli.txt", sets, records, lines, expected);
}

TEST(CLITranslator, SixColumnsWithTheBonusInDollars) {
  // Covers: every column under its box in the row's order; the bonus as dollars from "$150.00"
  // and from 150; a record with text, blank and negative figures counted with no line.
  ExpectGolden({}, 3, 8, "expected_123");
}

}  // namespace
}  // namespace corvane_test
