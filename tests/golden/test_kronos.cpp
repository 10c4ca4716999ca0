// The Kronos family translated end to end through `corvane run` and compared with import and
// audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/kronos/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

constexpr char kCR = '\r';

// Every category box gets a code of its own, so each line tells which category wrote it.
std::vector<std::pair<std::string, std::string>> Codes() {
  std::vector<std::pair<std::string, std::string>> codes = {
      {"txtReg", "Reg"},     {"txtOT", "OT"},     {"txtDbl", "Dbl"},   {"txtTips", "Tips"},
      {"txtSales", "Sales"}, {"txtMisc", "Misc"}, {"txtDisb", "Disb"}, {"txtAbs", "Abs"},
      {"txtHol", "Hol"},     {"txtAdjH", "AdjH"}, {"txtAdjD", "AdjD"}, {"txtWaitReg", "WReg"},
      {"txtWaitOT", "WOT"},
  };
  for (int n = 15; n <= 40; ++n) codes.emplace_back("txt" + std::to_string(n), std::to_string(n));
  return codes;
}

RunCall KronosCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string(), "--set", "txtMinWage=7.25"});
  for (const auto& [box, code] : Codes()) call.Add({"--set", box + "=" + code});
  call.Add({"--set", "chkDept=0", "--set", "chkPayRate=0", "--set", "chkSSN=0"});
  return call;
}

RunCall FixtureCall(const WorkDir& dir, const std::string& format, const std::string& name) {
  return KronosCall(dir, format, dir.CopyIn(Fixture("kronos/" + name), name));
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("kronos/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("kronos/expected_" + expected + "_audit.txt")));
}

// Company 123's department breakout on the customisation form.
void WriteBreakout(const WorkDir& dir, const std::string& lengths) {
  WriteBytes(dir.settings() / "TimeImport_TMsettings.dat",
             "\"123\",\"True\",\"True\",\"False\"," + lengths + "\r\n");
}

// Company 123's earning codes by column position: 1 regular hours on shift 1, 2 overtime on
// shift 2, 3 a deduction in dollars, 4 skipped; every other position has none.
void WriteColumnCodes(const WorkDir& dir, const std::string& package) {
  const std::string p = "\"" + package + "\"";
  WriteBytes(dir.settings() / "TimeImport_EarnCodes.dat",
             "\"123\"," + p + ",\"1\",\"E\",\"r1\",\"H\",1,\"N\"\r\n" + "\"123\"," + p +
                 ",\"2\",\"E\",\"O2\",\"H\",2,\"N\"\r\n" + "\"123\"," + p +
                 ",\"3\",\"D\",\"D3\",\"$\",0,\"N\"\r\n" + "\"123\"," + p +
                 ",\"4\",\"E\",\"S4\",\"H\",1,\"Y\"\r\n");
}

TEST(KronosADPTranslator, TransactionChainsWithBreakoutTippedRatesAndUnknownCodes) {
  // Covers: the head record dropped; "008" through the breakout (branch 2, department 4); a
  // rate above and below the minimum wage; a record without a rate; a rate of .00 that is not
  // blank; hours and dollars letters; an unknown code writing the last hours again and going
  // on at the same step; an unknown hours letter keeping the category; a "z" first code; a
  // trailing partial record never translated.
  WorkDir dir;
  WriteBreakout(dir, "\"0\",\"F\",\"2\",\"T\",\"4\",\"T\",\"0\",\"F\"");
  auto call = FixtureCall(dir, "Kronos/ADP", "kronos_adp.m2t");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Kronos/ADP", 5, 11,
                           {{"Corvane", "unexpected transaction type found: 099"},
                            {"Corvane", "Unexpected Hours Code 018 : Q"}});
  ExpectFiles(dir, "kronos_adp");
}

TEST(KronosADPTranslator, ChainRunningOverTheRecordEndEndsTheProgram) {
  // A chain with no "z" code: the blanks behind the hours are read as unknown codes, each
  // writing the hours again, until the text left is too short to cut, which is a run-time
  // error (invalid procedure call) under a branch without a handler.
  WorkDir dir;
  std::string record = "D     1001    0120001000";
  record.resize(80, ' ');
  WriteBytes(dir.root() / "chain.m2t", std::string(80, 'H') + "\r\n" + record + "\r\n");
  auto call = KronosCall(dir, "Kronos/ADP", dir.root() / "chain.m2t");
  auto result = call.Go();
  ASSERT_FALSE(result.timed_out);
  EXPECT_EQ(result.status, 3) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 6u);
  for (size_t i = 0; i < 5; ++i) {
    EXPECT_TRUE(
        IsMessage(dialogue[i], "Corvane", "unexpected transaction type found:    ", {"OK"}, "OK"));
  }
  EXPECT_EQ(dialogue[5]["kind"], "runtime-error");
  EXPECT_EQ(dialogue[5]["number"], 5);
  std::string six;
  for (int i = 0; i < 6; ++i) six += "\"1001\",\"\",,,,E,Reg,,10.00,,,,,,,1,,,,,,,,,,,,,\r\n";
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), six);
}

TEST(KronosReportTranslators, TimeKeeper3PairsUnknownLabelsAndDepartments) {
  // Covers: header lines passed over; a department cut at its first blank, and one without a
  // blank left out; a line without a point read past; an unknown label shown with the
  // employee's name and its hours written under the category in hand, as are hours under a
  // blank label; a label with blank hours setting the category and writing nothing; nothing
  // read after "Summary".
  WorkDir dir;
  auto call = FixtureCall(dir, "Kronos TimeKeeper 3", "timekeeper3.txt");
  auto result = call.Go();
  ExpectMessagesThenReport(
      dir, call, result, "Kronos TimeKeeper 3", 2, 5,
      {{"Corvane - Kronos TimeKeeper 3",
        std::string("Unexpected Pay Category: BONUS") + kCR + kCR + "SMITH, JOHN"}});
  ExpectFiles(dir, "timekeeper3");
}

TEST(KronosReportTranslators, TimeKeeper3aHoursAndMinutesAndUnpaidCodes) {
  // Covers: four blocks a line; 12:30, 7:00, 8:15, 1:05, 0:45 and 10:00 to hundredths; 7:xx
  // as 7.00; a lower-case label; unpaid codes writing nothing, and an unknown label after one
  // staying unpaid; "LEAD SHIP" read eight wide as "LEAD SHI", unknown, written under the
  // category in hand; the department taken under chkDept; a block of blank hours skipped.
  WorkDir dir;
  auto call = FixtureCall(dir, "Kronos TimeKeeper 3a", "timekeeper3a.txt");
  call.Add({"--set", "chkDept=1"});
  auto result = call.Go();
  const std::string title = "Corvane - Kronos TimeKeeper 3a";
  ExpectMessagesThenReport(
      dir, call, result, "Kronos TimeKeeper 3a", 2, 8,
      {{title, std::string("Unexpected Pay Category: BONUS") + kCR + kCR + "BROWN, AMY"},
       {title, std::string("Unexpected Pay Category: LEAD SHI") + kCR + kCR + "BROWN, AMY"}});
  ExpectFiles(dir, "timekeeper3a");
}

TEST(KronosReportTranslators, HoursSummaryBlocksAcrossAPageBreak) {
  // Covers: three blocks a line, the third nine wide; labels upper-cased; hours without a point
  // ignored with no message; an unknown label shown and not written; page header lines between
  // employees; a line of blanks ending the employee; nothing read after "Summary".
  WorkDir dir;
  auto call = FixtureCall(dir, "Kronos Hours Summary", "hours_summary.txt");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Kronos Hours Summary", 2, 6,
                           {{"Corvane - Kronos Hours Summary", "Unexpected Type of Hours: BONUS"}});
  ExpectFiles(dir, "hours_summary");
}

TEST(KronosReportTranslators, SummaryCarriesEmployeeAndShiftFromLineToLine) {
  // Covers: every line counted up to "Summary"; heading, totals, dashes and blank lines; an
  // employee line; a shift line whose shift stays for the next employee too; three pairs a line
  // with unknown labels and text hours passed over; an account line yielding nothing.
  WorkDir dir;
  auto call = FixtureCall(dir, "Kronos Summary", "summary.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos Summary", 12, 5);
  ExpectFiles(dir, "summary");
}

TEST(KronosReportTranslators, SummaryWithoutItsClosingLineTranslatesTheLastLine) {
  // Every line goes through the translator: with no "Summary" line the reading runs to the end,
  // and the last line, which has no line end, is counted and written like the others.
  WorkDir dir;
  WriteBytes(dir.root() / "open.txt", std::string("KIM, AL") + std::string(28, ' ') + "5001\r\n" +
                                          std::string(23, ' ') + "REG:" + std::string(6, ' ') +
                                          "7.50");
  auto call = KronosCall(dir, "Kronos Summary", dir.root() / "open.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos Summary", 2, 1);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"5001\",\"KIM, AL\",,,,E,Reg,,7.50,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(KronosV3Translator, LongAndShortRowsToldByTheFieldAfterOvertime) {
  // Covers: a quoted name holding a comma; fields read as numbers (0200 -> 200, 40.00 -> 40);
  // a zero Union Hrs dropped by the writer; a short row whose next File # 001003 is kept as
  // text; Reg Earnings 1234 taken for a File #, the rest of its row read as a record that
  // writes nothing, and the end of the file ending the translator quietly.
  WorkDir dir;
  auto call = FixtureCall(dir, "Kronos v3", "kronos_v3.csv");
  call.Add({"--set", "chkDept=1", "--set", "chkPayRate=1"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos v3", 4, 8);
  ExpectFiles(dir, "kronos_v3");
}

TEST(KronosV3Translator, AnotherHeadingStopsTheRunWithAnEmptyReport) {
  WorkDir dir;
  WriteBytes(dir.root() / "v3.csv", "Employee,Name\r\n1001,SMITH,1,W,0200,10.50,40.00,2.00\r\n");
  auto call = KronosCall(dir, "Kronos v3", dir.root() / "v3.csv");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Kronos v3", 0, 0,
                           {{"Corvane - Kronos v3 - Unknown Input File",
                             "Expecting First record to begin with \"File #\""}});
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
}

TEST(KronosCommaTranslators, V2cShortImpliedDecimalsAndA16BitOverflow) {
  // Covers: 00000004000 as 40.00, 625 as 6.25, 40 as .40, 32767 as 327.67; zero, text and
  // negative hours skipped; 40000 beyond a 16-bit integer ending the reading, so the fourth
  // row is never read.
  WorkDir dir;
  auto call = FixtureCall(dir, "Kronos v2C (Short)", "v2c_short.dat");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos v2C (Short)", 3, 7);
  ExpectFiles(dir, "v2c_short");
}

TEST(KronosCommaTranslators, V6csvBreakoutAndCodes) {
  // Covers: the heading line dropped; division, branch and department cut from the job cost
  // text, the division untrimmed from a quoted text with a leading blank; text regular hours
  // skipped and zero overtime dropped by the writer; the code pairs, an unknown code going out
  // as "?"; a cut last row ending the reading.
  WorkDir dir;
  WriteBreakout(dir, "\"2\",\"T\",\"2\",\"T\",\"3\",\"T\",\"0\",\"F\"");
  auto call = FixtureCall(dir, "Kronos v6 csv", "v6csv.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos v6 csv", 2, 6);
  ExpectFiles(dir, "v6csv");
}

TEST(KronosCommaTranslators, FourteenColumnsRepeatTheFirstRowsEarningsAndDropTheLastRow) {
  // Covers: the first row cut by hand, its values kept as text (001001, 40.00); later rows read
  // as numbers; Batch ID by "00"; negative Hours 4 written, zero Hours 3 skipped; the first
  // row's earnings and adjustment repeated on the second; the last row never translated; the
  // short form without adjustment columns.
  for (const std::string name : {"kronos14", "kronos14_short"}) {
    SCOPED_TRACE(name);
    WorkDir dir;
    auto call = FixtureCall(dir, "Kronos (14 Columns)", name + ".csv");
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Kronos (14 Columns)", 4, name == "kronos14" ? 10 : 4);
    ExpectFiles(dir, name);
  }
}

TEST(KronosCommaTranslators, FourteenColumnsWithOneDataRowWritesNothing) {
  WorkDir dir;
  WriteBytes(dir.root() / "one.csv",
             "Co Code,Batch ID,File #,Reg Hours\r\n123,7,1001,40.00,0,,,,,,,0200,,\r\n");
  auto call = KronosCall(dir, "Kronos (14 Columns)", dir.root() / "one.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos (14 Columns)", 2, 0);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
}

std::string ColumnMessage(const std::string& format, int n) {
  return format + " column " + std::to_string(n) + " needs an Earning Code assigned to it.";
}

TEST(KronosNumberedColumns, V2cColumnsThroughTheEarningCodes) {
  // Covers: codes upper-cased from the table; shift 2 sent, shifts 0 and 1 not; a dollars
  // column; a skipped column; a column without a code written as "?" and reported one below
  // its position (21 as 20, 5 as 4); a negative column; an empty column taken as 0; the
  // department, rate and SSN under their boxes, an SSN of zeros left out; a cut last row.
  WorkDir dir;
  WriteColumnCodes(dir, "Kronos v2c");
  auto call = FixtureCall(dir, "Kronos v2c", "v2c.dat");
  call.Add({"--set", "chkDept=1", "--set", "chkPayRate=1", "--set", "chkSSN=1"});
  auto result = call.Go();
  ExpectMessagesThenReport(
      dir, call, result, "Kronos v2c", 2, 6,
      {{"Corvane", ColumnMessage("Kronos v2c", 4)}, {"Corvane", ColumnMessage("Kronos v2c", 20)}});
  ExpectFiles(dir, "v2c");
}

TEST(KronosNumberedColumns, V6AndColumnMReadOneFieldStream) {
  // Covers: four heading lines and a hundred unused fields per employee; the department from
  // the detail row (0200 -> 200); a lower-case name starting the next employee; the values
  // through the earning codes without division; column 99 reported as 98. Column M: the head's
  // hours written under regular and overtime with the home department and the head's shift.
  for (const std::string format : {"Kronos v6", "Kronos v6 Column M"}) {
    SCOPED_TRACE(format);
    const bool column_m = format == "Kronos v6 Column M";
    WorkDir dir;
    WriteColumnCodes(dir, format);
    auto call = FixtureCall(dir, format, "v6.dat");
    auto result = call.Go();
    ExpectMessagesThenReport(
        dir, call, result, format, 3, column_m ? 9 : 7,
        {{"Corvane", ColumnMessage(format, 4)}, {"Corvane", ColumnMessage(format, 98)}});
    ExpectFiles(dir, column_m ? "v6m" : "v6");
  }
}

TEST(KronosNumberedColumns, V5aHasOneLeadingFieldAndNoDepartment) {
  WorkDir dir;
  WriteColumnCodes(dir, "Kronos v5a");
  auto call = FixtureCall(dir, "Kronos v5a", "v5a.dat");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos v5a", 2, 3);
  ExpectFiles(dir, "v5a");
}

}  // namespace
}  // namespace corvane_test
