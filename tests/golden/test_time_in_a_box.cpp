// "Time-in-a-Box" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/time-in-a-box/README.md.
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
  auto input = dir.CopyIn(Fixture("time-in-a-box/time-in-a-box.txt"), "time-in-a-box.txt");
  RunCall call(dir);
  call.Add({"--format", "Time-in-a-Box", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Time-in-a-Box", records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("time-in-a-box/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("time-in-a-box/" + expected + "_audit.txt")));
}

TEST(TimeInABoxTranslator, HoursTypePicksTheCategory) {
  // Covers: the six hours types under their boxes; an unknown type and a type in the wrong
  // case passed over but counted; zero hours passed over; a record cut short after its first
  // field not translated.
  ExpectGolden({}, 9, 6, "expected_123");
}

}  // namespace
}  // namespace corvane_test
