// The Hill family translated end to end through `corvane run` and compared with import and
// audit files written by hand. What each row of each fixture tests is in
// tests/fixtures/hill/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

RunCall HillCall(const WorkDir& dir, const std::string& format, const std::string& name) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            dir.CopyIn(Fixture("hill/" + name), name).string(), "--output", dir.output().string()});
  // "7" in the regular box shows the two-digit picture of "Hill csv"
  for (const char* box : {"txtReg=7", "txtOT=OT", "txtDbl=DBL", "txt15=GRS", "txt16=RMB",
                          "txt17=ADV", "txt18=DED", "txt18DE=D"}) {
    call.Add({"--set", box});
  }
  return call;
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("hill/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("hill/expected_" + expected + "_audit.txt")));
}

TEST(HillTranslator, AsciiRunsOfEmployeeLinesUntilAClosingLineIsLookedAt) {
  WorkDir dir;
  auto call = HillCall(dir, "Hill Ascii", "hill_ascii.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Hill Ascii", 5, 8);
  ExpectFiles(dir, "ascii");
}

TEST(HillTranslator, AsciiEmployeesOnTheLastLinesReadPastTheEnd) {
  WorkDir dir;
  auto call = HillCall(dir, "Hill Ascii", "hill_ascii_cut.txt");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"E006\",\"BLACK, BEA\",,,,E,GRS,,,,,,,,11.00,1,,,,,,,,678901234,,,,,\r\n"
            "\"E007\",\"WHITE, WIN\",,,,E,GRS,,,,,,,,12.00,1,,,,,,,,789012345,,,,,\r\n");
}

TEST(HillTranslator, AsciiLoneEmployeeOnTheLastLineIsNeverLookedAt) {
  // The heading is looked at with the employee's line already read, which leaves the file
  // at its end before the employee's line is looked at.
  WorkDir dir;
  WriteBytes(dir.root() / "hill.txt",
             " HILL PAYROLL SUMMARY\r\n"
             " 678-90-1234 E006   BLACK               BEA                    11.00\r\n");
  RunCall call(dir);
  call.Add({"--format", "Hill Ascii", "--company", "123", "--end-date", "11/20/2026", "--input",
            (dir.root() / "hill.txt").string(), "--output", dir.output().string(), "--set",
            "txt15=GRS"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Hill Ascii", 0, 0);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
}

TEST(HillTranslator, WorkbookRowsPastBlankRowsUpToTheFinalMark) {
  WorkDir dir;
  auto call = HillCall(dir, "Hill", "hill.xlsx");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Hill", 6, 6);
  ExpectFiles(dir, "workbook");
}

TEST(HillTranslator, WorkbookWithoutTheFinalMarkEndsAtItsLastRow) {
  WorkDir dir;
  auto call = HillCall(dir, "Hill", "hill_nofinal.xlsx");
  auto result = call.Go(10);
  ExpectOnlyReport(dir, call, result, "Hill", 1, 1);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"E007\",\"LONE, LOU\",,,,E,GRS,,,,,,,,3.00,1,,,,,,,,444556666,,,,,\r\n");
}

TEST(HillCsvTranslator, ThreeDollarColumnsWithTwoDigitCodesAndARowCutShort) {
  WorkDir dir;
  auto call = HillCall(dir, "Hill csv", "hill.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Hill csv", 3, 5);
  ExpectFiles(dir, "csv");
}

TEST(HillTMWTranslator, EmployeeCodeAndDollarsOfEachRow) {
  WorkDir dir;
  auto call = HillCall(dir, "Hill-TMW", "tmw.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Hill-TMW", 3, 5);
  ExpectFiles(dir, "tmw");
}

TEST(HillTMWTranslator, RowCutShortAtTheEndReadsPastTheEnd) {
  WorkDir dir;
  WriteBytes(dir.root() / "tmw.csv",
             "555,00888,Ed,Eel,1,7.25,0,0,0,0,0\r\n"
             "444,00777,Di,Dee,1,2\r\n");
  RunCall call(dir);
  call.Add({"--format", "Hill-TMW", "--company", "123", "--end-date", "11/20/2026", "--input",
            (dir.root() / "tmw.csv").string(), "--output", dir.output().string(), "--set",
            "txt15=GRS"});
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "\"888\",\"\",,,,E,GRS,,,,,,,,7.25,1,,,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
