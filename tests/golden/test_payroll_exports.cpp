// The comma exports of payroll, accounting and staffing systems translated end to end and
// compared with import, audit and exception files worked out by hand from their pages. What
// each fixture's records test is told in tests/fixtures/payroll_exports/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

fs::path Fx(const std::string& name) {
  return Fixture("payroll_exports/" + name);
}

RunCall Call(const WorkDir& dir, const std::string& format, const std::string& fixture) {
  RunCall call(dir);
  auto input = dir.CopyIn(Fx(fixture), fixture);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  return call;
}

void ExpectFiles(const fs::path& import_file, const fs::path& audit_file,
                 const std::string& expected) {
  EXPECT_EQ(ReadBytes(import_file), ReadBytes(Fx(expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(audit_file), ReadBytes(Fx(expected + "_audit.txt")));
}

// Plain column maps and code columns: ordinary records, the heading, zero, negative, text and
// blank figures, quoted fields holding commas, a record without an employee number and the
// half record at the end, each format with the factory codes.
struct Plain {
  const char* format;
  const char* fixture;
  long records;
  long lines;
  const char* expected;
};

class PayrollExports : public ::testing::TestWithParam<Plain> {};

TEST_P(PayrollExports, TranslatesAsItsPageSays) {
  const Plain& p = GetParam();
  WorkDir dir;
  auto call = Call(dir, p.format, p.fixture);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, p.format, p.records, p.lines);
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), p.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Formats, PayrollExports,
    ::testing::Values(
        // the code and its D-or-E from the record; a blank code and zero figures pass over
        Plain{"PRC", "prc.txt", 6, 4, "prc_expected"},
        // codes compared as exact text: "REG" and "Sick" are not Darwin's; Misc pays dollars
        Plain{"Darwin", "darwin.txt", 11, 7, "darwin_expected"},
        // "Last, First" from two fields, a last name holding a comma, a blank first name
        Plain{"dataSIGN", "datasign.csv", 3, 7, "datasign_expected"},
        // every one of the eighteen pay-code columns in its order, dollars and hours
        Plain{"eWorks", "eworks.csv", 2, 19, "eworks_expected"},
        Plain{"Generations (xRef)", "generations_xref.csv", 5, 4, "generations_xref_expected"},
        // a figure of text ("x") passes over while the record's other figure goes out
        Plain{"OmniChrome", "omnichrome.txt", 3, 3, "omnichrome_expected"},
        // the name leads; a duration written "4:15" is text and passes over
        Plain{"QuickBooks", "quickbooks.csv", 2, 3, "quickbooks_expected"},
        // one employee at two customers, one quoted with a comma; the memo boxes are blank
        Plain{"Temp Wizard", "temp_wizard.csv", 3, 9, "temp_wizard_expected"}),
    [](const auto& info) {
      std::string name;
      for (char c : std::string(info.param.format)) name += std::isalnum(c) ? c : '_';
      return name;
    });

// ---------------------------------------------------------------------------------------------
// Ampay: the client code of the first data record names both files.

const std::vector<std::string> kAmpayCodes = {
    "--set",    "txt15=V",   "--set",    "txt16=D",  "--set",     "txt17=B",  "--set",
    "txt18=H",  "--set",     "txt19=J",  "--set",    "txt20=L",   "--set",    "txt21=M",
    "--set",    "txt22=R",   "--set",    "txt23=11", "--set",     "txt24=12", "--set",
    "txt25=AD", "--set",     "txt29=DE", "--set",    "txt29DE=D", "--set",    "txt30=DM",
    "--set",    "txt30DE=D", "--set",    "txt31=DB", "--set",     "txt31DE=D"};

void AddAll(RunCall& call, const std::vector<std::string>& options) {
  call.args.insert(call.args.end(), options.begin(), options.end());
}

void ExpectAmpayReport(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                       long records, long lines) {
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u);
  EXPECT_TRUE(IsMessage(dialogue[0], "Corvane",
                        Report("Ampay", records, lines, (dir.output() / "45_ta.txt").string(),
                               (dir.output() / "Corvane_Audit_45.txt").string()),
                        {"OK"}, "OK"));
}

TEST(Ampay, DeptDivBrTickedCarriesAllThreeAndTheClientCodeNamesTheFiles) {
  WorkDir dir;
  auto call = Call(dir, "Ampay", "ampay.csv");
  AddAll(call, kAmpayCodes);
  auto result = call.Go();
  ExpectAmpayReport(dir, call, result, 3, 19);
  ExpectFiles(dir.output() / "45_ta.txt", dir.output() / "Corvane_Audit_45.txt", "ampay_expected");
  EXPECT_FALSE(fs::exists(ImportFile123(dir)));
}

TEST(Ampay, DeptDivBrClearLeavesAllThreeBlank) {
  WorkDir dir;
  auto call = Call(dir, "Ampay", "ampay.csv");
  AddAll(call, kAmpayCodes);
  call.Add({"--set", "chkDept=0"});
  auto result = call.Go();
  ExpectAmpayReport(dir, call, result, 3, 19);
  ExpectFiles(dir.output() / "45_ta.txt", dir.output() / "Corvane_Audit_45.txt",
              "ampay_expected_nodept");
}

TEST(Ampay, ALocationStillGivesTheClientCodesNamesAndLeavesItsOwnFilesEmpty) {
  WorkDir dir;
  auto call = Call(dir, "Ampay", "ampay.csv");
  AddAll(call, kAmpayCodes);
  call.Add({"--location", "7"});
  auto result = call.Go();
  ExpectAmpayReport(dir, call, result, 3, 19);
  ExpectFiles(dir.output() / "45_ta.txt", dir.output() / "Corvane_Audit_45.txt", "ampay_expected");
  EXPECT_EQ(ReadBytes(dir.output() / "123_7_ta.txt"), "");
  EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Audit_123_7.txt"), "");
}

TEST(Ampay, AFileWithItsHeadingAloneNamesNoFilesAndReportsNothing) {
  WorkDir dir;
  WriteBytes(dir.root() / "ampay.csv",
             "EmpNo,Client,Name,Dept,Div,Br,Reg,OT,V,D,B,H,J,L,M,R,11,12,AD,Ded-E,Ded-M,Ded-B\r\n");
  RunCall call(dir);
  call.Add({"--format", "Ampay", "--company", "123", "--end-date", "11/20/2026", "--input",
            (dir.root() / "ampay.csv").string(), "--output", dir.output().string()});
  auto result = call.Go();
  ASSERT_FALSE(result.timed_out);
  EXPECT_EQ(result.status, 1);
  EXPECT_TRUE(Dialogue(call.Transcript()).empty());
  EXPECT_FALSE(fs::exists(dir.output() / "_ta.txt"));
}

// ---------------------------------------------------------------------------------------------
// Sage (Mas90): box codes, a numbered designation through the company's table, the exception
// file, and the second unknown code ending the reading.

const Shown kSageColumn7("Sage (Mas90) column 7 needs an Earning Code assigned to it.");

TEST(SageMas90, PayRateClearKnownCodesGridAndTheFirstExceptionThenTheSecondEndsTheReading) {
  WorkDir dir;
  auto call = Call(dir, "Sage (Mas90)", "sage.csv");
  call.Add({"--set", "txt30=FM", "--set", "txt27=TX"});
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Sage (Mas90)", 7, 5, {kSageColumn7});
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), "sage_expected");
  EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Exception_123.txt"),
            ReadBytes(Fx("sage_expected_exception.txt")));
}

TEST(SageMas90, PayRateTickedCarriesTheFilesRate) {
  WorkDir dir;
  auto call = Call(dir, "Sage (Mas90)", "sage.csv");
  call.Add({"--set", "txt30=FM", "--set", "txt27=TX", "--set", "chkPayRate=1"});
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Sage (Mas90)", 7, 5, {kSageColumn7});
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), "sage_expected_rate");
}

TEST(SageMas90, ADesignationTheTableDoesNotKnowGoesOutAsHours) {
  WorkDir dir;
  WriteBytes(dir.root() / "sage.csv",
             "Employee No,Employee Name,Earnings Code,Hours,Rate,Amount\r\n"
             "303,Moss Ned,7,,,12.5\r\n");
  RunCall call(dir);
  call.Add({"--format", "Sage (Mas90)", "--company", "123", "--end-date", "11/20/2026", "--input",
            (dir.root() / "sage.csv").string(), "--output", dir.output().string()});
  auto result = call.Go();
  // the table knows no designation 7: the dollars go out as "?" hours, by the hours picture
  ExpectMessagesThenReport(dir, call, result, "Sage (Mas90)", 1, 1, {kSageColumn7});
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"303\",\"Moss Ned\",,,,E,?,,12.50,,,,,,,1,,,,,,,,,,,,,\r\n");
}

// ---------------------------------------------------------------------------------------------
// eWorks passes a code of "X" through; Generations (xRef) is read in text mode.

TEST(EWorks, CodeXGoesToTheFileAsTyped) {
  WorkDir dir;
  auto call = Call(dir, "eWorks", "eworks.csv");
  call.Add({"--set", "txtOT=X", "--set", "txtDbl= x "});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "eWorks", 2, 19);
  auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  ASSERT_EQ(lines.size(), 19u);
  EXPECT_EQ(lines[1], "\"601\",\"Young, Zoe\",,,,E,X,,2,,,,,,,1,,,,,,,,,,,,,");
  EXPECT_EQ(lines[2], "\"601\",\"Young, Zoe\",,,,E, x ,,1,,,,,,,1,,,,,,,,,,,,,");
}

TEST(GenerationsXref, CtrlZEndsTheExport) {
  WorkDir dir;
  WriteBytes(dir.root() / "genx.csv",
             "Employee No,Employee Name,Payroll Item,D/E,Code,Hours,Amount\r\n"
             "701,Abel Bo,Hourly Regular,E,01,40,\r\n"
             "\x1a"
             "702,Cruz Di,Hourly Regular,E,01,30,\r\n");
  RunCall call(dir);
  call.Add({"--format", "Generations (xRef)", "--company", "123", "--end-date", "11/20/2026",
            "--input", (dir.root() / "genx.csv").string(), "--output", dir.output().string()});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Generations (xRef)", 1, 1);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"701\",\"Abel Bo\",,,,E,01,,40,,,,,,,1,,,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
