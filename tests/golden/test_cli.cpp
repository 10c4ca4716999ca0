// "CLI" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/cli/README.md.
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
  auto input = dir.CopyIn(Fixture("cli/cli.txt"), "cli.txt");
  RunCall call(dir);
  call.Add({"--format", "CLI", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "CLI", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("cli/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("cli/" + expected + "_audit.txt")));
}

TEST(CLITranslator, SixColumnsWithTheBonusInDollars) {
  // Covers: every column under its box in the row's order; the bonus as dollars from "$150.00"
  // and from 150; a record with text, blank and negative figures counted with no line.
  ExpectGolden({}, 3, 8, "expected_123");
}

}  // namespace
}  // namespace corvane_test
