// "Time-in-a-Box" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/time-in-a-box/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("Time-in-a-Box", "time-in-a-box", "time-in-a-box.txt", sets, records, lines,
                     expected);
}

TEST(TimeInABoxTranslator, HoursTypePicksTheCategory) {
  // Covers: the six hours types under their boxes; an unknown type and a type in the wrong
  // case passed over but counted; zero hours passed over; a record cut short after its first
  // field not translated.
  ExpectGolden({}, 9, 6, "expected_123");
}

}  // namespace
}  // namespace corvane_test
