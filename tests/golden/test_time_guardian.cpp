// "Time Guardian" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/time-guardian/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("Time Guardian", "time-guardian", "time-guardian.dat", sets, records, lines,
                     expected);
}

TEST(TimeGuardianTranslator, PayCodeColumnsWithTheDepartment) {
  // Covers: the four columns under their boxes; the department trimmed; the payroll number's
  // leading zeros kept in the import line and dropped in the audit; negative and zero hours
  // skipped; the half record not translated.
  ExpectGolden({}, 3, 5, "expected_123");
}

TEST(TimeGuardianTranslator, DepartmentUntickedLeavesItBlank) {
  ExpectGolden({"chkDept=0"}, 3, 5, "expected_123_no_dept");
}

}  // namespace
}  // namespace corvane_test
