// "Angel Fire" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/angel-fire/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("Angel Fire", "angel-fire", "angel-fire.csv", sets, records, lines, expected);
}

TEST(AngelFireTranslator, OnlyTheRegularPayTypeIsPaid) {
  // Covers: the heading line dropped; "REG" under the Reg box; another pay type and zero hours
  // passed over but counted; a total line without an employee passed over uncounted; quoted
  // hours kept as written; the half line not translated.
  ExpectGolden({}, 4, 2, "expected_123");
}

}  // namespace
}  // namespace corvane_test
