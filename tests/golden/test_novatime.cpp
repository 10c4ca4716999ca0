// "NovaTime" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/novatime/README.md.
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
  auto input = dir.CopyIn(Fixture("novatime/novatime.csv"), "novatime.csv");
  RunCall call(dir);
  call.Add({"--format", "NovaTime", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "NovaTime", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("novatime/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("novatime/" + expected + "_audit.txt")));
}

TEST(NovaTimeTranslator, PayCodePicksTheCategory) {
  // Covers: each known code under its box; the salary code paid from the amount column with
  // "$" dropped; a code in the wrong case and an unknown code passed over but counted; a zero
  // figure passed over; the half record at the end not translated.
  ExpectGolden({}, 9, 6, "expected_123");
}

}  // namespace
}  // namespace corvane_test
