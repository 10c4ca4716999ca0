// The ADI, BGS, Gradience, Homewatch and Lathem exports translated end to end through
// `corvane run` and compared with import and audit files worked out by hand from each
// format's page. What each record of each fixture tests is in
// tests/fixtures/line_timeclock/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall LineCall(const WorkDir& dir, const std::string& format, const std::string& name,
                 std::initializer_list<std::string> sets = {}) {
  RunCall call(dir);
  const fs::path input = dir.CopyIn(Fixture("line_timeclock/" + name), name);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  return call;
}

// The company's earning codes by pay designation: 1 REG, 2 OT (shift 2), 3 BON as dollars,
// 4 skipped; 5 and 6 belong to another company only.
void CopyEarnCodes(const WorkDir& dir) {
  fs::copy_file(Fixture("line_timeclock/TimeImport_EarnCodes.dat"),
                dir.settings() / "TimeImport_EarnCodes.dat", fs::copy_options::overwrite_existing);
}

void ExpectFiles(const WorkDir& dir, const std::string& stem) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("line_timeclock/expected_" + stem + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("line_timeclock/expected_" + stem + "_audit.txt")));
}

TEST(ADITranslator, DesignationsGoThroughTheCompanysCodesAndTheLastLineIsRead) {
  // Covers: heading and blank lines passed over uncounted; shift, dollars and skip from the
  // table; zero, negative and text hours; another company's code not seen, so "?" and the
  // message; the last line translated.
  WorkDir dir;
  CopyEarnCodes(dir);
  auto call = LineCall(dir, "ADI", "adi.txt");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "ADI", 3, 5,
                           {"ADI column 5 needs an Earning Code assigned to it."});
  ExpectFiles(dir, "adi");
}

TEST(ADITranslator, AnEmptyExportEndsWithTheRunTimeErrorReport) {
  // The reading has no handler: the first read past the end is fatal.
  WorkDir dir;
  RunCall call(dir);
  const fs::path input = dir.root() / "empty.txt";
  WriteBytes(input, "");
  call.Add({"--format", "ADI", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
}

TEST(BGSTranslator, NamedColumnsAreNumberedDesignationsAndTheNameIsLastFirst) {
  // Covers: "Last, First" and a blank first name; quotes around a field removed; a record
  // with no hours counted and silent; a last line with no line end translated.
  WorkDir dir;
  CopyEarnCodes(dir);
  auto call = LineCall(dir, "BGS", "bgs.csv");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "BGS", 3, 4,
                           {"BGS column 6 needs an Earning Code assigned to it."});
  ExpectFiles(dir, "bgs");
}

TEST(GradienceTranslator, TheLineNamesItsOwnCodeAndItsEOrD) {
  // Covers: blank E or D as "E"; dollars with "$"; a blank code and zero figures silent; the
  // writer's "X" drop; hours before dollars; the last line translated.
  WorkDir dir;
  auto call = LineCall(dir, "Gradience", "gradience.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Gradience", 7, 4);
  ExpectFiles(dir, "gradience");
}

TEST(LathernTranslator, TabSeparatedLinesWithTheirOwnCodes) {
  // Covers: the tab heading passed over; dollars when the hours are blank; text hours; a
  // short last line translated.
  WorkDir dir;
  auto call = LineCall(dir, "Lathern", "lathern.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Lathern", 5, 4);
  ExpectFiles(dir, "lathern");
}

const std::initializer_list<std::string> kLathemCodes = {
    "txtReg=REG", "txtOT=OT", "txtDbl=SCK", "txtHol=HOL", "txtTips=VAC", "txtSales=BRV"};

TEST(LathemTranslator, PayTypeColumnsInTheRowsOrderAndTheTotalsLineUnread) {
  // Covers: the boxes in the order Reg, OT, Sick, Hol, Vac; zero and text hours; an employee
  // with nothing counted; the heading and totals lines not records.
  WorkDir dir;
  auto call = LineCall(dir, "Lathem", "lathem.txt", kLathemCodes);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Lathem", 4, 6);
  ExpectFiles(dir, "lathem");
}

TEST(LathemTranslator, AReportCutBeforeItsTotalsLosesItsLastEmployee) {
  // The reading goes one line ahead and never translates the last line.
  WorkDir dir;
  RunCall call(dir);
  const fs::path input = dir.root() / "cut.txt";
  WriteBytes(input, "Employee ID,Employee Name,Regular\r\n101,ANN LEE,40\r\n102,BOB RAY,8\r\n");
  call.Add({"--format", "Lathem", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string(), "--set", "txtReg=REG"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Lathem", 1, 1);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"101\",\"ANN LEE\",,,,E,REG,,40.00,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(Lathem6Translator, TheBereavementColumnAndTheNameInTwoFields) {
  WorkDir dir;
  auto call = LineCall(dir, "Lathem v6", "lathem6.txt", kLathemCodes);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Lathem v6", 2, 4);
  ExpectFiles(dir, "lathem6");
}

TEST(LathemPayClockProTranslator, PayTypeNumbersPickTheBoxesAndReportLinesAreSkipped) {
  // Covers: title, headings, rule, form feed, employee totals and the grand total passed over
  // uncounted; types 1, 2 and 6; an unknown type 7 and zero hours silent.
  WorkDir dir;
  auto call =
      LineCall(dir, "Lathem Payclock Pro", "lathem_pro.txt",
               {"txtReg=REG", "txtOT=OT", "txtDbl=OT2", "txtTips=P4", "txtSales=P5", "txtHol=HOL"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Lathem Payclock Pro", 5, 3);
  ExpectFiles(dir, "lathem_pro");
}

const std::initializer_list<std::string> kHomewatchCodes = {"txtReg=REG", "txtOT=OT",  "txtHol=HOL",
                                                            "txt15=MILE", "txt16=EXP", "txt17=TRV",
                                                            "txt15DE=E",  "txt16DE=E", "txt17DE=E"};

TEST(HomewatchTranslator, TheDepartmentBoxSendsTheCaregiversDepartment) {
  // Covers: hours and dollars columns in the row's order; "$" dropped; the total line unread;
  // the number's leading zero kept in the import and dropped in the audit.
  for (const bool dept : {true, false}) {
    WorkDir dir;
    auto call = LineCall(dir, "Homewatch", "homewatch.txt", kHomewatchCodes);
    call.Add({"--set", dept ? "chkDept=1" : "chkDept=0"});
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Homewatch", 2, 7);
    ExpectFiles(dir, dept ? "homewatch" : "homewatch_nodept");
  }
}

TEST(Homewatch2Translator, PayCodesByLookupAndTravelAtTheMinimumWage) {
  // Covers: implied decimals; the travel line's rate from MinWage, none on the others; an
  // unknown code and zero hours silent; the partial last record not read.
  WorkDir dir;
  auto call = LineCall(dir, "Homewatch 2", "homewatch2.txt",
                       {"txtReg=REG", "txtHol=HOL", "txt15=MILE", "txt16=TRV", "txt15DE=E",
                        "txt16DE=E", "txtMinWage=7.25"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Homewatch 2", 6, 4);
  ExpectFiles(dir, "homewatch2");
}

TEST(Homewatch3Translator, TheRecordsOwnCodeAndEOrD) {
  // Covers: D for a deduction in dollars; a blank E or D as "E"; a blank code; text hours
  // falling to zero dollars; the partial last record not read.
  WorkDir dir;
  auto call = LineCall(dir, "Homewatch 3", "homewatch3.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Homewatch 3", 5, 3);
  ExpectFiles(dir, "homewatch3");
}

TEST(ADI941Translator, TheRecordsOwnCodeWithFiguresWrittenWithTheirPoint) {
  // Covers: "0040.00" as 40.00; a deduction in dollars; an "X" code dropped by the writer;
  // hours padded with blanks; the department not sent; the partial last record not read.
  WorkDir dir;
  auto call = LineCall(dir, "ADI v9.4.1", "adi941.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ADI v9.4.1", 5, 4);
  ExpectFiles(dir, "adi941");
}

}  // namespace
}  // namespace corvane_test
