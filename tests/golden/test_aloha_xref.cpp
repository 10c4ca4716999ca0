// The Aloha versions with a side file beside the export, run end to end and compared with
// import and audit files written by hand. What each fixture record tests is in
// tests/fixtures/aloha_xref/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// Every category the family uses holds a code of its own, and the tips pair says D, so that
// each line shows which pair it took. The minimum wage is the rate of the fixtures' tipped
// staff, so that a rate equal to it is seen not to be below it.
RunCall XRefCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const char* box :
       {"txtReg=RG",      "txtRegDE=E",   "txtOT=OV",      "txtOTDE=E",    "txtWaitReg=WR",
        "txtWaitRegDE=E", "txtWaitOT=WO", "txtWaitOTDE=E", "txtTips=TP",   "txtTipsDE=D",
        "txtCCtip=CC",    "txtCCtipDE=E", "txtSales=SL",   "txtSalesDE=E", "txtHol=HL",
        "txtHolDE=E",     "txt15=C15",    "txt15DE=E",     "txt16=C16",    "txt16DE=E",
        "txtMinWage=2.13"}) {
    call.Add({"--set", box});
  }
  return call;
}

std::string Expected(const std::string& name) {
  return ReadBytes(Fixture("aloha_xref/" + name));
}

// Copies the export and, when given, its side file into the work folder.
fs::path CopyPair(const WorkDir& dir, const std::string& input, const std::string& side) {
  if (!side.empty()) dir.CopyIn(Fixture("aloha_xref/" + side), side);
  return dir.CopyIn(Fixture("aloha_xref/" + input), input);
}

// The run asked for its side file once, offering `offered`, then completed after showing
// `messages`, with the report of `format` and the files written by hand under `prefix`.
void ExpectAskedThenGolden(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                           const std::string& title, const std::string& prompt,
                           const std::string& offered, const std::string& format, long tc_count,
                           long rec_count, const std::string& prefix,
                           const std::vector<std::string>& messages = {}) {
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), messages.size() + 2) << result.err;
  EXPECT_EQ(dialogue[0].value("kind", ""), "input");
  EXPECT_EQ(dialogue[0].value("title", ""), title);
  EXPECT_EQ(dialogue[0].value("prompt", ""), prompt);
  EXPECT_EQ(dialogue[0].value("default", ""), offered);
  for (size_t i = 0; i < messages.size(); ++i) {
    EXPECT_TRUE(IsMessage(dialogue[i + 1], "Corvane", messages[i], {"OK"}, "OK"));
  }
  EXPECT_TRUE(IsMessage(
      dialogue.back(), "Corvane",
      Report(format, tc_count, rec_count, ImportFile123(dir).string(), AuditFile123(dir).string()),
      {"OK"}, "OK"));
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected(prefix + "_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected(prefix + "_expected_audit.txt"));
}

const char kAsk[] = "What is the name of the cross reference file you will use?";

TEST(Alohav62Translator, JobsTurnedIntoDivisionsByTheCrossReference) {
  // Covers: blank and comma-only lines; the marker's name cleared of commas; jobs found with
  // blanks around "="; a second total line passed over; a job not in the file gives a blank
  // division; only overtime looks at the minimum wage; tips holding the rest of the line.
  WorkDir dir;
  auto input = CopyPair(dir, "v62.csv", "Alohav62_XRef.txt");
  auto call = XRefCall(dir, "Aloha v6.2", input);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ExpectAskedThenGolden(dir, call, result, "Aloha v6.2", kAsk, "Alohav62_XRef.txt", "Aloha v6.2",
                        10, 7, "v62");
}

TEST(Alohav62Translator, MissingCrossReferenceLeavesEveryDivisionBlank) {
  WorkDir dir;
  auto input = CopyPair(dir, "v62.csv", "");
  auto call = XRefCall(dir, "Aloha v6.2", input);
  call.Add({"--answer", "nowhere.txt"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  const auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  ASSERT_EQ(lines.size(), 7u);
  for (const std::string& line : lines) EXPECT_EQ(Fields(line).at(16), "") << line;
}

TEST(Alohav6227Translator, EmployeesKnownBySocialSecurityNumberWithDivisionsByJobRow) {
  // Covers: the employee number blank and the SSN from the closing line without "-"; regular
  // hours at a rate below the minimum wage stay Regular; card tips written before declared
  // tips; a rate of "0" written blank; a job the file does not know keeps the division its
  // row held, for the next employee too.
  WorkDir dir;
  auto input = CopyPair(dir, "v6227.csv", "Alohav6227_XRef.txt");
  auto call = XRefCall(dir, "Aloha v6.2.27", input);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ExpectAskedThenGolden(dir, call, result, "Aloha v6.2.27", kAsk, "Alohav6227_XRef.txt",
                        "Aloha v6.2.27", 3, 7, "v6227");
}

TEST(Alohav5320Translator, WordsOfTheFiguresLineAndTheLastLineNeverLookedAt) {
  // Covers: the fixed side file name, asked of nobody; codes through "00"; a name keeping
  // its comma; an empty line passed over; a line of blanks under a "Total" line taken as its
  // figures line, so the figures under it pay nothing; "0.00" not written; the last line
  // unread.
  WorkDir dir;
  auto input = CopyPair(dir, "v5320.txt", "Farmhouse_XRef.txt");
  auto call = XRefCall(dir, "Aloha v5.3.20", input);
  call.Add({"--set", "txtReg=5", "--set", "txtOT=6"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha v5.3.20", 10, 4);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("v5320_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected("v5320_expected_audit.txt"));
}

TEST(Alohav5346Translator, TotalsRowAfterTheMarkerAndJobsInAnyCase) {
  // Covers: the question asked again after a blank answer; jobs found whatever their case;
  // a job not found, or none on the totals row, keeps the department before, even from the
  // employee before; job rows with a rate before the marker are not paid; the totals row
  // brings its own employee number back over the marker's; a zero figure not written; a
  // lead field other than "0" ends the reading.
  WorkDir dir;
  auto input = CopyPair(dir, "v5346.csv", "Aloha v5.3.46 XRef.txt");
  auto call = XRefCall(dir, "Aloha v5.3.46", input);
  call.Add({"--answer", "  ", "--answer", "Aloha v5.3.46 XRef.txt"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 3u);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(dialogue[i].value("prompt", ""), "Enter the name of your cross reference file.");
    EXPECT_EQ(dialogue[i].value("default", ""), "Aloha v5.3.46 XRef.txt");
  }
  EXPECT_TRUE(IsMessage(
      dialogue[2], "Corvane",
      Report("Aloha v5.3.46", 7, 7, ImportFile123(dir).string(), AuditFile123(dir).string()),
      {"OK"}, "OK"));
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("v5346_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected("v5346_expected_audit.txt"));
}

TEST(AlohaTranslator, TransactionChainsWithBreakoutAndCrossReference) {
  // Covers: the heading line dropped; the breakout cutting branch and department; a rate
  // equal to the minimum wage; a line of exactly 82 characters; "-" in the overtime sign place;
  // tips written twice when a shift code follows them; code 018 through the cross-reference, and a
  // code it lacks keeping the earning code before; an unknown dollars letter; lines other than "B"
  // unread; a rate token that writes nothing, its rate standing for the hours token after it.
  // the screen shows the cross-reference box as chkBr ("Use 018 xRef?"); chkXref serves alike
  for (const char* box : {"chkXref=1", "chkBr=1"}) {
    SCOPED_TRACE(box);
    WorkDir dir;
    WriteBytes(
        dir.settings() / "TimeImport_TMsettings.dat",
        "\"123\",\"True\",\"True\",\"True\",\"0\",\"F\",\"2\",\"T\",\"3\",\"T\",\"0\",\"F\"\r\n");
    auto input = CopyPair(dir, "v6.txt", "018 Aloha xref.txt");
    auto call = XRefCall(dir, "Aloha v6", input);
    call.Add({"--set", box, "--accept-defaults"});
    auto result = call.Go();
    ExpectAskedThenGolden(dir, call, result, "Corvane",
                          "What is the name of your cross reference file?", "018 Aloha xref.txt",
                          "Aloha v6", 3, 7, "v6",
                          {"Code: QQ not found in xRef file.", "Unexpected Dollars Code 022 : Z"});
  }
}

TEST(Alohav6212Translator, CardTipsZeroRateAndBranch) {
  // Covers: every "Emp" of the marker removed, inside the name too; the branch sent when
  // chkBr is ticked; a rate at the minimum wage not below it, and one below it sending only
  // overtime to the wait pair; a rate of "0" written blank with plain overtime; card tips
  // before tips; tips holding the rest of the line, written with their comma; figures that
  // are zero or text write nothing.
  WorkDir dir;
  auto input = CopyPair(dir, "v6212.csv", "Alohav6212_XRef.txt");
  auto call = XRefCall(dir, "Aloha v6.2.12", input);
  call.Add({"--set", "chkBr=1", "--accept-defaults"});
  auto result = call.Go();
  ExpectAskedThenGolden(dir, call, result, "Aloha v6.2.12", kAsk, "Alohav6212_XRef.txt",
                        "Aloha v6.2.12", 11, 9, "v6212");
}

TEST(Alohav5317Translator, JobsBeyondTheTableAndTheCrossReferenceEnd) {
  // Covers: an employee with 27 jobs, of which the first 25 are written and all 27 counted;
  // only the first 25 rows of the side file kept, and the first of two rows of a job used;
  // the figures at this version's places, unquoted, declared tips without what follows them;
  // a job the file does not know keeping the division of the employee before; the branch.
  WorkDir dir;
  auto input = CopyPair(dir, "v5317.csv", "Alohav5317_XRef.txt");
  auto call = XRefCall(dir, "Aloha v5.3.17", input);
  call.Add({"--set", "chkBr=1", "--accept-defaults"});
  auto result = call.Go();
  ExpectAskedThenGolden(dir, call, result, "Aloha v5.3.17", kAsk, "Alohav5317_XRef.txt",
                        "Aloha v5.3.17", 29, 31, "v5317");
}

TEST(AlohaTranslator, HoursCode018ByItsLetterWhenTheCrossReferenceIsNotTicked) {
  // With chkXref clear, "018" names its category by its second character like "016" and
  // "017", although a side file that knows both codes was read: "V" the third hours, "S"
  // absence, and an unknown letter keeps the category before, with its message.
  WorkDir dir;
  auto input = CopyPair(dir, "v6_letters.txt", "v6_letters_xref.txt");
  auto call = XRefCall(dir, "Aloha v6", input);
  call.Add({"--set", "txtDbl=DB", "--set", "txtDblDE=E", "--set", "txtAbs=AB", "--set",
            "txtAbsDE=E", "--answer", "v6_letters_xref.txt"});
  auto result = call.Go();
  ExpectAskedThenGolden(dir, call, result, "Corvane",
                        "What is the name of your cross reference file?", "018 Aloha xref.txt",
                        "Aloha v6", 1, 3, "v6_letters", {"Unexpected Hours Code 018: Q"});
}

TEST(AlohaWGLTranslator, FixedColumnsAndTheMinimumWage) {
  // Covers: the number cut at six characters from position 9, leading zeros kept in the file
  // and dropped in the audit; a rate at the minimum wage taking Regular and Overtime, one just
  // below it and one with no whole part (written blank) taking the wait pair; figures beside
  // the read columns ignored; a text figure skipped; "End of Report" not stopping the reading.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_xref/wgl.txt"), "wgl.txt");
  auto call = XRefCall(dir, "Aloha WGL", input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha WGL", 3, 8);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("wgl_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected("wgl_expected_audit.txt"));
}

TEST(AlohaWGLTranslator, MinimumWageOfZeroSendsEveryRateToTheRegularPair) {
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_xref/wgl.txt"), "wgl.txt");
  auto call = XRefCall(dir, "Aloha WGL", input);
  call.Add({"--set", "txtMinWage=0"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha WGL", 3, 8);
  const auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  const std::vector<std::string> codes{"RG", "OV", "TP", "RG", "OV", "RG", "TP", "OV"};
  ASSERT_EQ(lines.size(), codes.size());
  for (size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(Fields(lines[i]).at(6), codes[i]) << i;
  // the rate with no whole part still goes out blank
  EXPECT_EQ(Fields(lines[5]).at(7), "");
}

TEST(AlohaWGLTranslator, ARateTooLongForAWholeNumberStillGoesOut) {
  // The rate's whole part is far beyond any integer: it is not 0, so the rate goes out, and
  // it is not below the minimum wage, so the hours take Regular.
  WorkDir dir;
  std::string figures(240, ' ');
  auto right_aligned = [&](long column, const std::string& text) {
    figures.replace(static_cast<size_t>(column - 1 + 12) - text.size(), text.size(), text);
  };
  right_aligned(115, "1E+300");
  right_aligned(134, "5.00");
  const fs::path input = dir.root() / "wgl_long_rate.txt";
  WriteBytes(input, "*** Emp 42     Far, Out\r\nTotal Host\r\n" + figures + "\r\n");
  auto call = XRefCall(dir, "Aloha WGL", input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha WGL", 1, 1);
  const auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(Fields(lines[0]).at(0), "\"42\"");
  EXPECT_EQ(Fields(lines[0]).at(6), "RG");
  EXPECT_NE(Fields(lines[0]).at(7), "");
  EXPECT_EQ(Fields(lines[0]).at(8), "5.00");
}

// The progress texts the run showed, in order.
std::vector<std::string> ProgressTexts(const RunCall& call) {
  std::vector<std::string> texts;
  for (const auto& line : call.Transcript()) {
    if (line.value("kind", "") == "progress") texts.push_back(line.value("text", ""));
  }
  return texts;
}

TEST(Alohav6113Translator, EarningCodesFromTheFirstSheetOfTheWorkbook) {
  // Covers: the workbook's first sheet read, not its active one; cells trimmed; a job with a
  // regular and an overtime row getting both codes, a job with only a regular row keeping the
  // overtime code of the job before, a job past the first blank code cell keeping both; card
  // and declared tips under the tips code; tippable sales with quotes and commas removed; the
  // rate never read; the code's first character the D-or-E, its last two the earning code.
  WorkDir dir;
  dir.CopyIn(Fixture("aloha_xref/workbooks/v6113 codes.xlsx"), "v6113 codes.xlsx");
  auto input = dir.CopyIn(Fixture("aloha_xref/v6113.csv"), "v6113.csv");
  auto call = XRefCall(dir, "Aloha v6.1.1.3", input);
  call.Add({"--answer", "v6113 codes.xlsx"});
  auto result = call.Go();
  ExpectAskedThenGolden(dir, call, result, "Aloha v6.1.1.3", kAsk, "*.xls", "Aloha v6.1.1.3", 11,
                        10, "v6113");
  const auto progress = ProgressTexts(call);
  const std::vector<std::string> shown{"Reading Excel Workbook...", "Processing Input File"};
  ASSERT_GE(progress.size(), shown.size());
  EXPECT_EQ(std::vector<std::string>(progress.begin(), progress.begin() + 2), shown);
}

TEST(AlohaEnterpriseTranslator, EmployeeRowsToldByTheirSocialSecurityNumber) {
  // Covers: heading, subtotal and a row whose number has dashes passed over; the rate on
  // every line, dollars included, with chkPayRate ticked; a zero or blank column skipped and
  // a negative one written; the columns between the read ones ignored; the "Grand" row
  // counted and ending the reading before the row under it; a text employee number keeping
  // its zeros in the file but not in the audit.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_xref/workbooks/enterprise.xls"), "enterprise.xls");
  auto call = XRefCall(dir, "Aloha Enterprise", input);
  call.Add({"--set", "txtDbl=DB", "--set", "txtDblDE=E", "--set", "txt17=C17", "--set", "txt17DE=E",
            "--set", "chkPayRate=1"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha Enterprise", 7, 9);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("enterprise_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected("enterprise_expected_audit.txt"));
}

TEST(AlohaEnterpriseTranslator, NoRateWithoutThePayRateBox) {
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_xref/workbooks/enterprise.xls"), "enterprise.xls");
  auto call = XRefCall(dir, "Aloha Enterprise", input);
  call.Add({"--set", "chkPayRate=0"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha Enterprise", 7, 9);
  const auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  ASSERT_EQ(lines.size(), 9u);
  // the name holds a comma, so the rate stands one place further on
  for (const std::string& line : lines) EXPECT_EQ(Fields(line).at(8), "") << line;
}

TEST(Alohav6113Translator, NoWorkbookLeavesTheCodesBlank) {
  // The answer left at "*.xls": no workbook is read, and the figures go out without codes.
  WorkDir dir;
  auto input = CopyPair(dir, "v62.csv", "");
  auto call = XRefCall(dir, "Aloha v6.1.1.3", input);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  const auto lines = CrLfLines(ReadBytes(ImportFile123(dir)));
  // figures 7 and 8 are the hours here, 12 and the rest of the line the tippable sales, and
  // the rate is never read: overtime of three jobs and the first job's sales
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "\"1001\",\"Maria Lopez\",,,,,,,2.50,,,,,,,1,,,,,,,,,,,,,");
  EXPECT_EQ(lines[1], "\"1001\",\"Maria Lopez\",,,,,,,,,,,,,85.50,1,,,,,,,,,,,,,");
}

}  // namespace
}  // namespace corvane_test

namespace corvane_test {
namespace {

TEST(AlohaLaborSchedTranslator, OnlyTheSummaryPartIsPaid) {
  // A detail row before "SUMMARY" is not paid; "TOTALS:" ends the summary part, and a row
  // whose lead field is not "0" ends the reading.
  WorkDir dir;
  WriteBytes(dir.root() / "sched.csv",
             "Labor Scheduler\r\n1\r\n2\r\n3\r\n4\r\n5\r\n"
             "0,1000,Detail,,,,,9.00,8,0,,0,,\r\n0,SUMMARY,,,,,,,,,,,,\r\na\r\nb\r\nc\r\n"
             "0,1001,Maria,,,,,2.13,30,2.5,,12,,\r\n0,1002,Chen,,,,,9.00,0,0,,0,,\r\n"
             "0,TOTALS:,,,,,,,,,,,,\r\n0,1003,After,,,,,9.00,5,0,,0,,\r\n9,end,,,,,,,,,,,,\r\n");
  auto call = XRefCall(dir, "Aloha Labor Scheduler (5.3.19)", dir.root() / "sched.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha Labor Scheduler (5.3.19)", 6, 3);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"1001\",\"Maria\",,,,E,RG,2.13,30,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"Maria\",,,,E,OV,2.13,2.5,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"Maria\",,,,D,TP,2.13,,,,,,,12,1,,,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
