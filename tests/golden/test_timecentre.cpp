// "TimeCentre" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/timecentre/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("TimeCentre", "timecentre", "timecentre.dat", sets, records, lines, expected);
}

TEST(TimeCentreTranslator, EarningCodeFromTheRecordWithDepartmentAndJob) {
  // The boxes as the format leaves them: department and job ticked, team not. Covers: the
  // file's code trimmed and written as it stands; dollars used when hours are blank; hours
  // preferred over dollars; a record with nothing to pay and one with a blank code counted
  // with no line; the half record not translated.
  ExpectGolden({}, 5, 3, "expected_123");
}

TEST(TimeCentreTranslator, EachOptionBoxTakesItsFieldOnlyWhenTicked) {
  // Department and job switched off, team on: the team goes in the last field.
  ExpectGolden({"chkDept=0", "chkJob=0", "chkTeam=1"}, 5, 3, "expected_123_team_only");
}

}  // namespace
}  // namespace corvane_test
