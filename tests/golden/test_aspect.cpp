// "Aspect" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/aspect/README.md.
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
  auto input = dir.CopyIn(Fixture("aspect/aspect.csv"), "aspect.csv");
  RunCall call(dir);
  call.Add({"--format", "Aspect", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aspect", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("aspect/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("aspect/" + expected + "_audit.txt")));
}

TEST(ASPTranslator, HoursAndTipsDollars) {
  // Covers: "$" dropped from tips; tips with two decimals whether written "$112.40" or 20;
  // "$0.00" and blank skipped; the half record not translated.
  ExpectGolden({}, 3, 6, "expected_123");
}

}  // namespace
}  // namespace corvane_test
