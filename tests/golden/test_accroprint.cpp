// "AccroPrint v2.0" exports translated end to end and compared with import and audit files worked
// out by hand from the format's page. The fixture's records are described in
// tests/fixtures/accroprint-v2-0/README.md.
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
  auto input = dir.CopyIn(Fixture("accroprint-v2-0/accroprint.txt"), "accroprint.txt");
  RunCall call(dir);
  call.Add({"--format", "AccroPrint v2.0", "--company", "123", "--end-date", "11/20/2026",
            "--input", input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "AccroPrint v2.0", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("accroprint-v2-0/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("accroprint-v2-0/" + expected + "_audit.txt")));
}

TEST(AccroPrintV20Translator, HoursColumnsGoOutInTheRowsOrder) {
  // Covers: heading dropped; seven columns under their boxes; a quoted name holding a comma
  // joined to the first name; a blank first name adding nothing; blank employee passed over
  // uncounted; zero, negative and text hours skipped; quoted hours kept as written; leading
  // zeros of the employee id kept in the import line; the half record not translated.
  ExpectGolden({}, 3, 8, "expected_123");
}

}  // namespace
}  // namespace corvane_test
