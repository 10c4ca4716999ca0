// The Timeclock Plus exports translated end to end through `corvane run` and compared with
// import and audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/timeclock_plus/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// Every category box gets a code of its own, so each line tells which category wrote it.
const std::vector<std::pair<std::string, std::string>> kCodes = {
    {"txtReg", "Reg"},     {"txtOT", "OT"},     {"txtDbl", "Dbl"},   {"txtTips", "Tips"},
    {"txtSales", "Sales"}, {"txtMisc", "Misc"}, {"txtDisb", "Disb"}, {"txtAbs", "Abs"},
    {"txtHol", "Hol"},     {"txtAdjH", "AdjH"},
};

RunCall TcpCall(const WorkDir& dir, const std::string& format, const std::string& name) {
  RunCall call(dir);
  const fs::path input = dir.CopyIn(Fixture("timeclock_plus/" + name), name);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const auto& [box, code] : kCodes) call.Add({"--set", box + "=" + code});
  return call;
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("timeclock_plus/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("timeclock_plus/expected_" + expected + "_audit.txt")));
}

TEST(TimeClockPlusTranslator, EveryRowIsDataAndUnknownCodesStillGoOut) {
  // Covers: the first row translated; hours of two implied decimals by "###.00" (.50); the
  // division taken only when numeric; shift 1 not sent; an unknown code written with "?";
  // text hours shown and the row dropped at ".00"; a row cut short at the end not counted.
  WorkDir dir;
  auto call = TcpCall(dir, "Timeclock Plus", "tcp.txt");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Timeclock Plus", 5, 4,
                           {{"Corvane: Timeclock Plus", "Unknown Earning Code: ZZZ"},
                            {"Corvane: Timeclock Plus", "Emp# 1004, Hours = abc"}});
  ExpectFiles(dir, "tcp");
}

TEST(TimeClockPlus5Translator, ThePayCodeRoutesTheThreeHoursColumns) {
  // Covers: each code's routing, columns a code does not use left out; "0" and 0.00 (which
  // reads as 0) not written; text and blank hours passed over; the job on every line; an
  // unknown code shown and nothing written for its row.
  WorkDir dir;
  auto call = TcpCall(dir, "Timeclock Plus Pro v5.0", "tcp5.txt");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Timeclock Plus Pro v5.0", 7, 10,
                           {{"Corvane: Timeclock Plus Pro v5.0", "Unknown Earning Code: PTO"}});
  ExpectFiles(dir, "tcp5");
}

TEST(TimeClockPlus502189Translator, CodesSplitIntoDorEAndEarningCodeAndBrokenRowsAreJoined) {
  // Covers: the heading dropped; "D15" as D and 15; the second column as E 03; "0" not
  // written; an empty line before a row; text hours passed over; a number quoted across a line
  // end losing it; a row cut short at the end not translated.
  WorkDir dir;
  auto call = TcpCall(dir, "Timeclock Plus Pro v5.0.2.189", "tcp189.dat");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Timeclock Plus Pro v5.0.2.189", 4, 5);
  ExpectFiles(dir, "tcp189");
}

TEST(TimeclockPlusVieDelTranslator, LaterRowsOfAnEmployeeKeepTheFirstRowsNameAndNumber) {
  // Covers: the name and number carried to rows that leave them blank; numeric job codes as
  // worked time in three categories; time-off codes in upper case ("wc" as WC), the lower-case
  // entries never matching ("jd"); hours not above 0 left out; the codes by "00" (text codes
  // unchanged); the D-or-E of the box; a half row at the end ending the reading.
  WorkDir dir;
  auto call = TcpCall(dir, "Timeclock Plus (Bezion)", "bezion.txt");
  call.Add({"--set", "txtReg=1", "--set", "txtOT=2", "--set", "txt16=16", "--set", "txtSales=5",
            "--set", "txtMisc=8", "--set", "txtHol=H1", "--set", "txtDisb=9", "--set",
            "txtDisbDE=D", "--set", "txt19=19"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Timeclock Plus (Bezion)", 8, 8);
  ExpectFiles(dir, "bezion");
}

TEST(TimeclockPlusVieDelTranslator, AnEmptyExportEndsSilently) {
  WorkDir dir;
  WriteBytes(dir.root() / "empty.txt", "");
  RunCall call(dir);
  call.Add({"--format", "Timeclock Plus (Bezion)", "--company", "123", "--end-date", "11/20/2026",
            "--input", (dir.root() / "empty.txt").string(), "--output", dir.output().string()});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Timeclock Plus (Bezion)", 0, 0);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
}

}  // namespace
}  // namespace corvane_test
