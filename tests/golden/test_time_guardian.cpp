// "Time Guardian" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/time-guardian/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// Runs the fixture export with the given --set options and compares both files.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("time-guardian/time-guardian.dat"), "time-guardian.dat");
  RunCall call(dir);
  call.Add({"--format", "Time Guardian", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Time Guardian", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("time-guardian/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("time-guardian/" + expected + "_audit.txt")));
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
