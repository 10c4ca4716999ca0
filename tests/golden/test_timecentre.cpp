// "TimeCentre" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/timecentre/README.md.
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
  auto input = dir.CopyIn(Fixture("timecentre/timecentre.dat"), "timecentre.dat");
  RunCall call(dir);
  call.Add({"--format", "TimeCentre", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "TimeCentre", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("timecentre/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("timecentre/" + expected + "_audit.txt")));
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
