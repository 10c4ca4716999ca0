// "Aspect" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/aspect/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("Aspect", "aspect", "aspect.csv", sets, records, lines, expected);
}

TEST(ASPTranslator, HoursAndTipsDollars) {
  // Covers: "$" dropped from tips; tips with two decimals whether written "$112.40" or 20;
  // "$0.00" and blank skipped; the half record not translated.
  ExpectGolden({}, 3, 6, "expected_123");
}

}  // namespace
}  // namespace corvane_test
