// "NovaTime" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/novatime/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("NovaTime", "novatime", "novatime.csv", sets, records, lines, expected);
}

TEST(NovaTimeTranslator, PayCodePicksTheCategory) {
  // Covers: each known code under its box; the salary code paid from the amount column with
  // "$" dropped; a code in the wrong case and an unknown code passed over but counted; a zero
  // figure passed over; the half record at the end not translated.
  ExpectGolden({}, 9, 6, "expected_123");
}

}  // namespace
}  // namespace corvane_test
