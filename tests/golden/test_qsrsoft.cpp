// The QsrSoft exports translated end to end through `corvane run` and compared with import,
// management and audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/qsrsoft/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "pipeline/time_import.hpp"
#include "screen/catalogue.hpp"
#include "tests/cli/cli_harness.hpp"
#include "tests/unit/fake_operator.hpp"
#include "tests/unit/temp_folder.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// Each category box has a code of its own; the D-or-E boxes of OT and Misc $ say "D", which
// "QsrSoft" never reads and "QSRSoft v2" does.
const std::vector<std::pair<std::string, std::string>> kBoxes = {
    {"txtReg", "REG"},  {"txtOT", "OT"},     {"txtHol", "HOL"},  {"txtSales", "PREM"},
    {"txtMisc", "MSH"}, {"txtDisb", "MSD"},  {"txtRegDE", "E"},  {"txtOTDE", "D"},
    {"txtHolDE", "E"},  {"txtSalesDE", "E"}, {"txtMiscDE", "E"}, {"txtDisbDE", "D"},
};

RunCall QsrCall(const WorkDir& dir, const std::string& format, const fs::path& input,
                const std::string& company) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", company, "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const auto& [box, value] : kBoxes) call.Add({"--set", box + "=" + value});
  call.Add({"--set", "chkDept=0", "--set", "chkBr=0", "--set", "chkAll=0"});
  return call;
}

RunCall FixtureCall(const WorkDir& dir, const std::string& format, const std::string& name,
                    const std::string& company) {
  return QsrCall(dir, format, dir.CopyIn(Fixture("qsrsoft/" + name), name), company);
}

std::string Expected(const std::string& name) {
  return ReadBytes(Fixture("qsrsoft/" + name));
}

std::set<std::string> OutputNames(const WorkDir& dir) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(dir.output())) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

// The run completed, and its only message is the report naming these files.
void ExpectReport(const RunCall& call, const CommandResult& result, const std::string& chosen_tc,
                  long tc_count, long rec_count, const fs::path& out_file,
                  const fs::path& audit_file) {
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;
  const auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u) << result.err;
  EXPECT_TRUE(
      IsMessage(dialogue[0], "Corvane",
                Report(chosen_tc, tc_count, rec_count, out_file.string(), audit_file.string()),
                {"OK"}, "OK"));
}

TEST(QsrSoftTranslator, AllCompaniesGiveAnImportFilePerCompanyNamedFromTheFile) {
  // Covers: no company number needed; 1234, 0412 read as the number 412, and "ABC" each
  // start a file of their own; 1234 coming back starts its file again over the first; the
  // departments 645 and " 45" counted and not written; managers (647) to Management.txt,
  // which like the audit file starts afresh with each company; the last record read and not
  // translated; the report naming the last company's file and the run's one audit file.
  WorkDir dir;
  auto call = FixtureCall(dir, "QsrSoft", "qsrsoft.csv", "");
  call.Add({"--set", "chkAll=1", "--set", "chkBr=1", "--set", "chkDept=1"});
  auto result = call.Go();
  ExpectReport(call, result, "QsrSoft", 7, 10, dir.output() / "ABC_ta.txt",
               dir.output() / "Corvane_Audit_QsrSoft.txt");
  EXPECT_EQ(OutputNames(dir),
            (std::set<std::string>{"1234_ta.txt", "412_ta.txt", "ABC_ta.txt", "Management.txt",
                                   "Corvane_Audit_QsrSoft.txt"}));
  EXPECT_EQ(ReadBytes(dir.output() / "412_ta.txt"), Expected("all_412_ta.txt"));
  EXPECT_EQ(ReadBytes(dir.output() / "1234_ta.txt"), Expected("all_1234_ta.txt"));
  EXPECT_EQ(ReadBytes(dir.output() / "ABC_ta.txt"), "");
  EXPECT_EQ(ReadBytes(dir.output() / "Management.txt"), Expected("all_management.txt"));
  EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Audit_QsrSoft.txt"), Expected("all_audit.txt"));
}

TEST(QsrSoftTranslator, ABlankCompanyNumberNeedsTheAllCompaniesBox) {
  WorkDir dir;
  auto call = FixtureCall(dir, "QsrSoft", "qsrsoft.csv", " ");
  auto result = call.Go();
  EXPECT_EQ(result.status, 1) << result.err;
  const auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u);
  EXPECT_TRUE(
      IsMessage(dialogue[0], "Corvane", "Please provide a valid Company Number", {"OK"}, "OK"));
  EXPECT_TRUE(!fs::exists(dir.output()) || OutputNames(dir).empty());
}

TEST(QsrSoftTranslator, OneCompanyTakesItsOwnRecordsAndSendsManagersApart) {
  // Covers: the other companies' records passed over uncounted; a 645 record counted; the
  // manager's regular, holiday and miscellaneous dollars lines in Management.txt, counted
  // and audited with the others; the social security number padded to nine digits; no
  // department without the box; the D-or-E boxes not read.
  WorkDir dir;
  auto call = FixtureCall(dir, "QsrSoft", "qsrsoft.csv", "1234");
  call.Add({"--set", "chkBr=1"});
  auto result = call.Go();
  ExpectReport(call, result, "QsrSoft", 4, 6, dir.output() / "1234_ta.txt",
               dir.output() / "Corvane_Audit_1234.txt");
  EXPECT_EQ(ReadBytes(dir.output() / "1234_ta.txt"), Expected("one_1234_ta.txt"));
  EXPECT_EQ(ReadBytes(dir.output() / "Management.txt"), Expected("one_1234_management.txt"));
  EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Audit_1234.txt"), Expected("one_1234_audit.txt"));
}

TEST(QsrSoftTranslator, OneCompanyWithoutTheManagementBoxTranslatesItsLastRecordToo) {
  // Covers: a manager's line in the import file when the box is clear, and no
  // Management.txt; a regular figure of 0.004 dropped by the writer; a text social security
  // number kept as it stands; the file's last record translated, unlike in the
  // all-companies run.
  WorkDir dir;
  auto call = FixtureCall(dir, "QsrSoft", "qsrsoft.csv", "ABC");
  call.Add({"--set", "chkDept=1"});
  auto result = call.Go();
  ExpectReport(call, result, "QsrSoft", 3, 2, dir.output() / "ABC_ta.txt",
               dir.output() / "Corvane_Audit_ABC.txt");
  EXPECT_EQ(ReadBytes(dir.output() / "ABC_ta.txt"), Expected("one_abc_ta.txt"));
  EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Audit_ABC.txt"), Expected("one_abc_audit.txt"));
  EXPECT_FALSE(fs::exists(dir.output() / "Management.txt"));
}

TEST(QsrSoftTranslator, CompanyNumbersCompareAsTextAgainstTheFigureRead) {
  // The file's 0412 is read as the number 412, so the company number "0412" finds none of
  // its records. With a location, the first call of the run creates the location's import
  // file before the branch names the company's own, and the report names the latter.
  WorkDir dir;
  auto call = FixtureCall(dir, "QsrSoft", "qsrsoft.csv", "0412");
  call.Add({"--location", "7"});
  auto result = call.Go();
  ExpectReport(call, result, "QsrSoft", 0, 0, dir.output() / "0412_ta.txt",
               dir.output() / "Corvane_Audit_0412_7.txt");
  EXPECT_EQ(OutputNames(dir),
            (std::set<std::string>{"0412_7_ta.txt", "0412_ta.txt", "Corvane_Audit_0412_7.txt"}));
  EXPECT_EQ(ReadBytes(dir.output() / "0412_ta.txt"), "");

  WorkDir by_number;
  auto found = FixtureCall(by_number, "QsrSoft", "qsrsoft.csv", "412");
  auto found_result = found.Go();
  ExpectReport(found, found_result, "QsrSoft", 1, 3, by_number.output() / "412_ta.txt",
               by_number.output() / "Corvane_Audit_412.txt");
}

TEST(QsrSoftTranslator, ABadFigureOrAShortRecordEndsTheReadingWithWhatWasWritten) {
  const std::string heading =
      "Company,Date,Badge,Dept,SSN,Name,Reg,OT,Hol,Prem,MiscH,MiscD,Gross,Days,S1,S2,S3,S4,"
      "S5,S6\r\n";
  const std::string first = "1234,d,1,640,1,\"ONE, A\",8.00,0,0,0,0,0,,1,,,,,,\r\n";
  const std::string line1 = "\"\",\"ONE, A\",,,,E,REG,,8,,,,,,,1,,,,,,,,000000001,,,,,\r\n";
  {
    // Text in the overtime figure: the regular hours before it are written, the record is
    // counted, and the reading ends there.
    WorkDir dir;
    const fs::path input = dir.root() / "bad.csv";
    WriteBytes(input, heading + first + "1234,d,2,640,2,\"TWO, B\",7,abc,0,0,0,0,,1,,,,,,\r\n" +
                          "1234,d,3,640,3,\"THREE, C\",6,0,0,0,0,0,,1,,,,,,\r\n");
    auto call = QsrCall(dir, "QsrSoft", input, "1234");
    auto result = call.Go();
    ExpectReport(call, result, "QsrSoft", 2, 2, dir.output() / "1234_ta.txt",
                 dir.output() / "Corvane_Audit_1234.txt");
    EXPECT_EQ(ReadBytes(dir.output() / "1234_ta.txt"),
              line1 + "\"\",\"TWO, B\",,,,E,REG,,7,,,,,,,1,,,,,,,,000000002,,,,,\r\n");
  }
  {
    // A record cut short by the end of the file is never translated.
    WorkDir dir;
    const fs::path input = dir.root() / "short.csv";
    WriteBytes(input, heading + first + "1234,d,2,640,2,\"TWO, B\",7,1\r\n");
    auto call = QsrCall(dir, "QsrSoft", input, "1234");
    auto result = call.Go();
    ExpectReport(call, result, "QsrSoft", 1, 1, dir.output() / "1234_ta.txt",
                 dir.output() / "Corvane_Audit_1234.txt");
    EXPECT_EQ(ReadBytes(dir.output() / "1234_ta.txt"), line1);
  }
  {
    // All companies, one data record: it names the file, and as the last record it is not
    // translated.
    WorkDir dir;
    const fs::path input = dir.root() / "one.csv";
    WriteBytes(input, heading + first);
    auto call = QsrCall(dir, "QsrSoft", input, "");
    call.Add({"--set", "chkAll=1"});
    auto result = call.Go();
    ExpectReport(call, result, "QsrSoft", 0, 0, dir.output() / "1234_ta.txt",
                 dir.output() / "Corvane_Audit_QsrSoft.txt");
    EXPECT_EQ(ReadBytes(dir.output() / "1234_ta.txt"), "");
  }
}

TEST(QsrSoftTranslator, TheNextCompanyOfTheSameFileLeavesTheFileBeforeAlone) {
  // The bureau runs the companies of one export in turn, in one session of the program. The
  // one-company run's first call of InitFiles comes before the company's file is named: it
  // must not create the file that the press before named, which holds that company's lines.
  corvane::testing::TempFolder tmp;
  corvane::testing::FakeOperator ui;
  corvane::frmTimeImport F(ui, corvane::Environment{tmp / "settings", corvane::Date{2026, 11, 22}});
  F.Form_Load();
  F.SelectTimeClock(corvane::CatalogueIndex("QsrSoft"));
  ASSERT_EQ(F.ChosenTC, "QsrSoft");
  const std::string input = tmp.Write("qsrsoft.csv", ReadBytes(Fixture("qsrsoft/qsrsoft.csv")));
  F.S[corvane::CorvaneInputFile].text = input;
  F.S[corvane::CorvaneOutputPath].text = tmp / "out";
  F.S[corvane::pdEndDate].text = "11/20/2026";
  F.S[corvane::LocNum].text = "";
  F.S[corvane::chkAll].value = F.S[corvane::chkBr].value = F.S[corvane::chkDept].value = 0;
  F.S[corvane::txtReg].text = "REG";
  F.S[corvane::txtOT].text = "OT";
  F.S[corvane::txtHol].text = "HOL";
  F.S[corvane::txtSales].text = "PREM";
  F.S[corvane::txtMisc].text = "MSH";
  F.S[corvane::txtDisb].text = "MSD";

  F.S[corvane::CoNum].text = "1234";
  F.Corvane();
  ASSERT_TRUE(F.Reported());
  const std::string first =
      "\"\",\"DOE, JANE\",,,,E,REG,,30,,,,,,,1,,,,,,,,999000001,,,,,\r\n"
      "\"\",\"DOE, JANE\",,,,E,OT,,2.5,,,,,,,1,,,,,,,,999000001,,,,,\r\n"
      "\"\",\"SMITH, JOHN\",,,,E,REG,,40,,,,,,,1,,,,,,,,012345678,,,,,\r\n"
      "\"\",\"SMITH, JOHN\",,,,E,HOL,,8,,,,,,,1,,,,,,,,012345678,,,,,\r\n"
      "\"\",\"SMITH, JOHN\",,,,E,MSD,,50,,,,,,,1,,,,,,,,012345678,,,,,\r\n"
      "\"\",\"LEE, ANN\",,,,E,OT,,1,,,,,,,1,,,,,,,,999000005,,,,,\r\n";
  ASSERT_EQ(corvane::testing::TempFolder::Read(tmp / "out/1234_ta.txt"), first);

  F.S[corvane::CoNum].text = "412";
  F.Corvane();
  ASSERT_TRUE(F.Reported());
  EXPECT_EQ(corvane::testing::TempFolder::Read(tmp / "out/1234_ta.txt"), first);
  EXPECT_EQ(corvane::testing::TempFolder::Read(tmp / "out/412_ta.txt"),
            "\"\",\"ROE, JANE\",,,,E,REG,,-3.5,,,,,,,1,,,,,,,,999000004,,,,,\r\n"
            "\"\",\"ROE, JANE\",,,,E,PREM,,4,,,,,,,1,,,,,,,,999000004,,,,,\r\n"
            "\"\",\"ROE, JANE\",,,,E,MSH,,2.25,,,,,,,1,,,,,,,,999000004,,,,,\r\n");
}

TEST(QSRSoftv2Translator, FieldsWalkedByNumberUntilABlankLine) {
  // Covers: quotes removed everywhere; fields trimmed and kept as text (30.00, 00123);
  // "0" and "0.00" skipped, "0.000" passed to the writer and dropped there; categories in
  // field order with their D-or-E boxes; the rate and department on every line; a row of
  // zeros and a short row counted and not written; a blank line ending the reading.
  WorkDir dir;
  auto call = FixtureCall(dir, "QSRSoft v2", "qsrsoft_v2.csv", "123");
  call.Add({"--set", "chkDept=1"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "QSRSoft v2", 4, 6);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("v2_123_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected("v2_123_audit.txt"));
}

TEST(QSRSoftv2Translator, AnEmptyFileIsReportedAndTextHoursEndTheProgram) {
  {
    WorkDir dir;
    const fs::path input = dir.root() / "empty.csv";
    WriteBytes(input, "");
    auto call = QsrCall(dir, "QSRSoft v2", input, "123");
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "QSRSoft v2", 0, 0);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  }
  {
    // Only a read is caught: a figure the writer cannot take as a number is a run-time
    // error.
    WorkDir dir;
    const fs::path input = dir.root() / "text.csv";
    std::string row(56, ',');
    WriteBytes(input, "heading\r\n1,,,X,,,Y" + row + "abc\r\n");
    auto call = QsrCall(dir, "QSRSoft v2", input, "123");
    auto result = call.Go();
    ExpectRuntimeErrorOnly(call, result, 13);
  }
}

}  // namespace
}  // namespace corvane_test
