// "ChronoTek" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/chronotek/README.md.
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
  auto input = dir.CopyIn(Fixture("chronotek/chronotek.csv"), "chronotek.csv");
  RunCall call(dir);
  call.Add({"--format", "ChronoTek", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ChronoTek", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("chronotek/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("chronotek/" + expected + "_audit.txt")));
}

TEST(ChronoTekTranslator, RegularAndOvertimeFromTheSummaryLine) {
  // Covers: the heading line dropped; name as "Last, First" with a comma inside the quoted last
  // name; a quoted department holding a comma not shifting the hours; a blank first name; the
  // total not sent; the half line not translated.
  ExpectGolden({}, 3, 3, "expected_123");
}

}  // namespace
}  // namespace corvane_test
