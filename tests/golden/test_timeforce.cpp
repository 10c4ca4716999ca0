// "Timeforce DCOG" exports translated end to end and compared with import and audit files worked
// out by hand from the format's page. The fixture's records are described in
// tests/fixtures/timeforce-dcog/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("Timeforce DCOG", "timeforce-dcog", "timeforce.csv", sets, records, lines,
                     expected);
}

TEST(TimeforceDCOGTranslator, ElevenPayCodesWithoutTheRate) {
  // Covers: all eleven columns under their boxes, Abs, AdjH and AdjD included; the rate left
  // out while "Pay Rate" is not ticked; a quoted last name holding a comma; a record with no
  // hours counted with no line; the half record not translated.
  ExpectGolden({}, 3, 11, "expected_123");
}

TEST(TimeforceDCOGTranslator, PayRateTickedSendsTheRateAsWritten) {
  ExpectGolden({"chkPayRate=1"}, 3, 11, "expected_123_rate");
}

}  // namespace
}  // namespace corvane_test
