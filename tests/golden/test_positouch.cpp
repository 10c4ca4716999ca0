// The POSiTouch exports translated end to end through `corvane run` and compared with import
// and audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/positouch/README.md.
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
std::vector<std::pair<std::string, std::string>> Codes() {
  std::vector<std::pair<std::string, std::string>> codes = {
      {"txtReg", "Reg"},     {"txtOT", "OT"},       {"txtDbl", "Dbl"},   {"txtTips", "Tips"},
      {"txtSales", "Sales"}, {"txtMisc", "Misc"},   {"txtDisb", "Disb"}, {"txtAbs", "Abs"},
      {"txtHol", "Hol"},     {"txtAdjH", "AdjH"},   {"txtAdjD", "AdjD"}, {"txtWaitReg", "WReg"},
      {"txtWaitOT", "WOT"},  {"txtCCtip", "CCtip"},
  };
  for (int n = 15; n <= 24; ++n) codes.emplace_back("txt" + std::to_string(n), std::to_string(n));
  return codes;
}

RunCall PosiCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string(), "--set", "txtMinWage=5.15"});
  for (const auto& [box, code] : Codes()) call.Add({"--set", box + "=" + code});
  // A fresh work folder has chkDept checked; each test checks what it needs.
  call.Add({"--set", "chkDept=0", "--set", "chkPayRate=0", "--set", "chkDiv=0", "--set", "chkBr=0",
            "--set", "chkTeam=0"});
  return call;
}

RunCall FixtureCall(const WorkDir& dir, const std::string& format, const std::string& name) {
  return PosiCall(dir, format, dir.CopyIn(Fixture("positouch/" + name), name));
}

void CopySideFile(const WorkDir& dir, const std::string& name) {
  dir.CopyIn(Fixture("positouch/" + name), name);
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("positouch/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("positouch/expected_" + expected + "_audit.txt")));
}

std::string Lines(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

TEST(POSiTouchPRNTranslator, EmployeesWithTheirJobRowsTotalsAndABadWageType) {
  // Covers: the headings passed over to the first employee row; tipped and regular job rows by
  // rate, a rate of exactly the minimum wage regular and one cent below tipped; tips lines
  // keeping the job's rate; totals under the last job's department, whole part at least 1
  // (0.75 skipped); a blank wage type shown, two lines dropped and the employee before's
  // figures paid again; rate 0 blank and regular; an employee row read ahead as a job row and
  // lost; the file ending inside the job rows.
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch (.prn)", "prn.prn");
  call.Add({"--set", "chkPayRate=1"});
  auto result = call.Go();
  ExpectMessagesThenReport(
      dir, call, result, "POSiTouch (.prn)", 4, 15,
      {Shown("Corvane - POSiTouch (.prn)", "Problem with SMITH, JOHN.  Bad Wage Type")});
  ExpectFiles(dir, "prn");
}

TEST(POSiTouchPRNTranslator, LongFormWageCodesPackedRowsAndTheBranchQuestion) {
  // Covers: the branch asked with "01" offered; an employee row packed on the line after its
  // number; hours rows writing "0" as their amount; wait categories of codes 1 and 2, none
  // for a rate below 1; an amount without hours under code 4; an unknown code 9 dropped; a
  // row cut short starting the next employee at once, so the employee before never gets his
  // totals; text figures of a packed row printed as they stand, read figures as numbers.
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch (long .prn)", "long.prn");
  call.Add({"--set", "chkPayRate=1", "--set", "chkDept=1", "--set", "chkDiv=1", "--set", "chkBr=1",
            "--answer", "07"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u) << result.err;
  EXPECT_EQ(dialogue[0].value("kind", ""), "input");
  EXPECT_EQ(dialogue[0].value("title", ""), "Which Branch?");
  EXPECT_EQ(dialogue[0].value("prompt", ""),
            "Please enter the Branch value you want imported into Evolution:");
  EXPECT_EQ(dialogue[0].value("default", ""), "01");
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane",
                        Report("POSiTouch (long .prn)", 2, 16, ImportFile123(dir).string(),
                               AuditFile123(dir).string()),
                        {"OK"}, "OK"));
  ExpectFiles(dir, "long");
}

TEST(POSiTouchPRNTranslator, LongFormWithoutTheBoxesAsksNothingAndTakesNoRate) {
  // Without the pay rate box no rate reaches a wage code's test, so code 1 stays under box 15;
  // department, division and branch stay blank.
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch (long .prn)", "long.prn");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "POSiTouch (long .prn)", 2, 16);
  auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  ASSERT_EQ(lines.size(), 16u);
  EXPECT_EQ(lines[0], "\"01001\",\"DOE, JANE\",,,,E,15,,24.00,,,,,,0,1,,,,,,,,999000001,,,,,");
  EXPECT_EQ(lines[2], "\"01001\",\"DOE, JANE\",,,,E,16,,2.50,,,,,,0.00,1,,,,,,,,999000001,,,,,");
}

TEST(POSiTouchCSVTranslator, RatesDepartmentsAndJobsFromTheRateFile) {
  // Covers: the rate file's two heading rows; the job row found by employee and hours, the
  // first of two; its rate deciding the wait categories (5.14 tipped, 5.15 not); fixed widths
  // cutting "0300" and "HOSTESS"; "57" written "0057" and so not found, whose hours stay
  // regular with no rate; regular hours below 1 skipped while the overtime goes out.
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch (.csv)", "csv.csv");
  CopySideFile(dir, "PAYRJOBD.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "POSiTouch (.csv)", 5, 11);
  ExpectFiles(dir, "csv");
}

TEST(POSiTouchCSVTranslator, AMissingRateFileEndsTheProgram) {
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch (.csv)", "csv.csv");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 53);
  EXPECT_FALSE(fs::exists(ImportFile123(dir)));
}

TEST(POSiTouchCSVTranslator, TheRateTableEndsAtItsTwoThousandthRow) {
  // Row 2000 is loaded and found; row 2001 ends the loading, so its employee has no rate.
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch (.csv)", "csv.csv");
  std::string rates = "Title,,,,,,,,,\r\nCode,Emp,Dept,Job,Extra,Hours,Rate,Pay,Tips,Sales\r\n";
  for (int row = 1; row <= 1999; ++row) rates += "P1,9999,001,X,,1.00,9.00,9.00,0,0\r\n";
  rates += "P1,1001,010,SRV,,30.00,2.13,63.90,0,0\r\n";
  rates += "P1,0057,020,CK,,40.00,3.00,120.00,0,0\r\n";
  WriteBytes(dir.root() / "PAYRJOBD.csv", rates);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "POSiTouch (.csv)", 5, 11);
  auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  ASSERT_EQ(lines.size(), 11u);
  EXPECT_EQ(lines[0],
            "\"1001\",\"DOE, JANE\",010,SRV,,E,WReg,2.13,30.00,,,,,,,1,,,,,,,,999-00-0001,,,,,");
  EXPECT_EQ(lines[3], "\"0057\",\"SMITH, JOHN\",,,,E,Reg,,40.00,,,,,,,1,,,,,,,,999-00-0002,,,,,");
}

TEST(POSiTouchTranslator, FixedRecordsDumpedToTheAuditWithTheirImpliedDecimals) {
  // Covers: the eight dump lines per record; hours through "####.##" ("30." and ".5", the
  // latter from 000050, whose whole value 50 passes the test); rates through "###.00#";
  // dollars of 50 cents passing the test; a zero figure skipped; the partial last record.
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch (.flt)", "flt.flt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "POSiTouch (.flt)", 2, 7);
  ExpectFiles(dir, "flt");
}

TEST(POSiTouchTranslator, BlankHoursAreATypeMismatch) {
  WorkDir dir;
  std::string record =
      "01000000100111022611152600010      ,002130,000250,003195,00018000,"
      "00125000,00000000,";
  record += std::string(120 - record.size(), ' ') + "\r\n";
  WriteBytes(dir.root() / "bad.flt", record);
  auto call = PosiCall(dir, "POSiTouch (.flt)", dir.root() / "bad.flt");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 13);
}

TEST(POSiTouchOTBTranslator, DivisionsThroughTheCrossReferenceAndAmountsOfTheEmployeeRow) {
  // Covers: every line counted, headings and totals too; "007" cut to "07" and found, the
  // first of two rows; "15" found as written, "012" cut to "12" and not found, "7" not found
  // since the table holds "07"; codes 1 and 3 as 01 and 02; the overtime rate brought back
  // to the base rate only after a rate above the minimum wage; the employee row's amounts
  // (field 15 with the box) under code 15 on his first detail row only; the wait overtime's
  // D-or-E staying on the lines after it.
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch OTB", "otb.prn");
  CopySideFile(dir, "POSiTouch OTB_CrossRef.txt");
  call.Add({"--set", "chkTeam=1", "--set", "txtWaitOTDE=M"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "POSiTouch OTB", 9, 7);
  ExpectFiles(dir, "otb");
}

TEST(POSiTouchOTBTranslator, WithoutCrossReferenceOrTipsBoxDivisionsStayAsCut) {
  WorkDir dir;
  auto call = FixtureCall(dir, "POSiTouch OTB", "otb.prn");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "POSiTouch OTB", 9, 6);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            Lines({
                "\"1001\",\"DOE, JANE\",,,,E,01,2.130,30.00,,,,,,,1,07,,,,,,,,,,,,",
                "\"1001\",\"DOE, JANE\",,,,E,15,2.130,,,,,,,25.00,1,07,,,,,,,,,,,,",
                "\"1001\",\"DOE, JANE\",,,,E,WOT,2.130,2.50,,,,,,,1,07,,,,,,,,,,,,",
                "\"1002\",\"SMITH, JOHN\",,,,E,01,12.000,40.00,,,,,,,1,12,,,,,,,,,,,,",
                "\"1002\",\"SMITH, JOHN\",,,,E,02,12.000,1.50,,,,,,,1,15,,,,,,,,,,,,",
                "\"1002\",\"SMITH, JOHN\",,,,E,5,12.000,2.00,,,,,,,1,7,,,,,,,,,,,,",
            }));
}

}  // namespace
}  // namespace corvane_test
