// "Timeforce DCOG" exports translated end to end and compared with import and audit files worked
// out by hand from the format's page. The fixture's records are described in
// tests/fixtures/timeforce-dcog/README.md.
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
  auto input = dir.CopyIn(Fixture("timeforce-dcog/timeforce.csv"), "timeforce.csv");
  RunCall call(dir);
  call.Add({"--format", "Timeforce DCOG", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Timeforce DCOG", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("timeforce-dcog/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("timeforce-dcog/" + expected + "_audit.txt")));
}

TEST(TimeforceDCOGTranslator, ElevenPayCodesWithoutTheRate) {
  // Covers: all eleven columns under their boxes, Abs, AdjH and AdjD included; the rate left
  // out while "Pay Rate" is not ticked; a quoted last name holding a comma; a record with no
  // hours counted with no line; the half record not translated.
  ExpectGolden({}, 3, 11, "expected_123");
}

TEST(TimeforceDCOGTranslator, PayRateTickedSendsTheRateAsWritten) {
  ExpectGolden({"chkPayRate=1"}, 3, 11, "expected_123_rate");
}

}  // namespace
}  // namespace corvane_test
