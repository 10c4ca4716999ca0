// The whole-line and fixed-record exports of IHOP8, Shoneys, Wheatfields, Archaic Beef,
// SAILOR Poll, PXP-Golden Corral, TMX, TimeTrax, Lake Austin, Maddock and SEI, translated end
// to end and compared with import and audit files worked out by hand from their pages. What
// each line of each fixture tests is in tests/fixtures/line_exports/README.md.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall LineCall(const WorkDir& dir, const std::string& format, const std::string& name) {
  RunCall call(dir);
  const fs::path input = dir.CopyIn(Fixture("line_exports/" + name), name);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  return call;
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("line_exports/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("line_exports/expected_" + expected + "_audit.txt")));
}

struct Case {
  const char* format;
  const char* input;
  const char* expected;
  long records;
  long lines;
  std::vector<std::string> sets;
};

class LineExports : public ::testing::TestWithParam<Case> {};

TEST_P(LineExports, TranslateAsTheirPagesSay) {
  const Case& c = GetParam();
  WorkDir dir;
  auto call = LineCall(dir, c.format, c.input);
  for (const std::string& set : c.sets) call.Add({"--set", set});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, c.format, c.records, c.lines);
  ExpectFiles(dir, c.expected);
}

// Codes from the file (Archaic Beef, Maddock): D or E and the code as written, hours before
// dollars, a blank code passed over. Reports (SEI, Lake Austin): headings, page breaks and
// totals told from pay lines by their contents. Tipped staff by the rate (IHOP8, Wheatfields,
// TMX). The last line: never translated where the page puts a trailer or totals there,
// translated where it does not (Maddock, TimeTrax, Shoneys). Fixed records: the record cut
// short at the end is not translated.
INSTANTIATE_TEST_SUITE_P(
    Formats, LineExports,
    ::testing::Values(
        Case{"Archaic Beef", "archaic_beef.txt", "archaic_beef", 8, 5, {}},
        Case{"Maddock", "maddock.txt", "maddock", 6, 4, {}},
        Case{"SEI", "sei.txt", "sei", 4, 4, {}},
        Case{"Lake Austin", "lake_austin.txt", "lake_austin", 6, 3, {}},
        Case{"TimeTrax", "timetrax.txt", "timetrax", 5, 6, {}},
        Case{"Shoneys", "shoneys.csv", "shoneys", 5, 5, {}},
        Case{"IHOP8", "ihop8.csv", "ihop8", 5, 11, {}},
        Case{"Wheatfields", "wheatfields.txt", "wheatfields", 4, 5, {}},
        Case{"SAILOR Poll", "sailor_poll.txt", "sailor_poll", 3, 5, {}},
        Case{"SAILOR Poll", "sailor_poll.txt", "sailor_poll_nojob", 3, 5, {"chkJob=0"}},
        Case{"PXP-Golden Corral", "pxp.txt", "pxp", 3, 8, {"txtDisbDE=D"}},
        Case{"TMX", "tmx.txt", "tmx", 3, 7, {"txt15=W1", "txt16=W2", "txt18=WT"}}),
    [](const ::testing::TestParamInfo<Case>& info) {
      std::string name = info.param.expected;
      for (char& ch : name) {
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
      }
      return name;
    });

TEST(LineExportsMinWage, TheThresholdDecidesWhoIsTipped) {
  // With the minimum wage at 2.00, no rate of the fixture lies below it: Olga Ruiz's overtime
  // goes out under OT (3) like everybody else's.
  WorkDir dir;
  auto call = LineCall(dir, "IHOP8", "ihop8.csv");
  call.Add({"--set", "txtMinWage=2.00"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "IHOP8", 5, 11);
  const auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  ASSERT_EQ(lines.size(), 11U);
  EXPECT_EQ(lines[1], "\"3001\",\"Olga Ruiz\",,,,E,3,,4,,,,,,,1,,,,,,,,,,,,,");
}

TEST(LineExportsLastLine, AnExportWithoutItsTrailerLosesItsLastLine) {
  // The reader translates a line once it has read the next: Archaic Beef's last line is
  // never translated, so an export cut before its trailer loses its last pay line.
  WorkDir dir;
  WriteBytes(dir.root() / "ab.txt",
             "EMPNO,NAME,DE,CODE,HOURS,DOLLARS\r\n"
             "00412,Ann Baker,E,02,40.00,\r\n"
             "00415,Carl Diaz,E,02,8.5,\r\n");
  auto call = LineCall(dir, "Archaic Beef", "archaic_beef.txt");
  call.Add({"--input", (dir.root() / "ab.txt").string()});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Archaic Beef", 1, 1);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"00412\",\"Ann Baker\",,,,E,02,,40,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(LineExportsEmpty, EmptyFilesGiveZeroCounts) {
  for (const char* format : {"Maddock", "TimeTrax", "IHOP8", "Wheatfields", "TMX", "SEI"}) {
    SCOPED_TRACE(format);
    WorkDir dir;
    WriteBytes(dir.root() / "empty.txt", "");
    auto call = LineCall(dir, format, "maddock.txt");
    call.Add({"--input", (dir.root() / "empty.txt").string()});
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, format, 0, 0);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  }
}

}  // namespace
}  // namespace corvane_test
