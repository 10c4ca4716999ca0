// "Angel Fire" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/angel-fire/README.md.
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
  auto input = dir.CopyIn(Fixture("angel-fire/angel-fire.csv"), "angel-fire.csv");
  RunCall call(dir);
  call.Add({"--format", "Angel Fire", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Angel Fire", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("angel-fire/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("angel-fire/" + expected + "_audit.txt")));
}

TEST(AngelFireTranslator, OnlyTheRegularPayTypeIsPaid) {
  // Covers: the heading line dropped; "REG" under the Reg box; another pay type and zero hours
  // passed over but counted; a total line without an employee passed over uncounted; quoted
  // hours kept as written; the half line not translated.
  ExpectGolden({}, 4, 2, "expected_123");
}

}  // namespace
}  // namespace corvane_test
