// The Aloha export translators run end to end and compared with import and audit files
// written by hand. What each fixture record tests is in tests/fixtures/aloha_exports/README.md.
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
RunCall AlohaCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const char* box :
       {"txtReg=RG", "txtOT=OV", "txtWaitReg=WR", "txtWaitOT=WO", "txtDbl=TH", "txt15=C15",
        "txt16=C16", "txt17=C17", "txtTips=TP", "txtTipsDE=D", "txtCCtip=CC", "txtMinWage=2.13"}) {
    call.Add({"--set", box});
  }
  return call;
}

std::string Expected(const std::string& name) {
  return ReadBytes(Fixture("aloha_exports/" + name));
}

// The first `count` lines of an expected file, each with its CR LF.
std::string FirstLines(const std::string& name, size_t count) {
  std::string bytes;
  const std::vector<std::string> lines = CrLfLines(Expected(name));
  for (size_t i = 0; i < count && i < lines.size(); ++i) bytes += lines[i] + "\r\n";
  return bytes;
}

void ExpectGolden(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                  const std::string& format, long tc_count, long rec_count,
                  const std::string& prefix) {
  ExpectOnlyReport(dir, call, result, format, tc_count, rec_count);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected(prefix + "_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected(prefix + "_expected_audit.txt"));
}

// The fixture's text up to, not including, the first line that begins with `marker`.
std::string CutBefore(const std::string& fixture, const std::string& marker) {
  const std::string text = Expected(fixture);
  const size_t at = text.find("\r\n" + marker);
  return at == std::string::npos ? text : text.substr(0, at + 2);
}

TEST(AlohaV5313Translator, EmployeeRowsWithSubtotalsUpToTheTotalsRow) {
  // Covers: seven title lines dropped; further rows of an employee with a blank number; a
  // rate equal to the minimum wage (regular) and rates below it (wait categories); a rate of
  // "0.00" that is below it but keeps the plain category and a blank rate; the rate number by
  // job in any case; subtotal rows with the two lines under them; the row after "TOTALS:"
  // never translated.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_exports/v5313.csv"), "v5313.csv");
  auto call = AlohaCall(dir, "Aloha v5.3.13", input);
  auto result = call.Go();
  ExpectGolden(dir, call, result, "Aloha v5.3.13", 6, 10, "v5313");
}

TEST(AlohaV5313Translator, EighthLineWithoutEmployeeNumberStopsTheReading) {
  // Two more title lines push the column heading onto the eighth line.
  WorkDir dir;
  WriteBytes(dir.root() / "v5313.csv",
             "Aloha Labor Report\r\nReprinted\r\n" + Expected("v5313.csv"));
  auto call = AlohaCall(dir, "Aloha v5.3.13", dir.root() / "v5313.csv");
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[0], "Corvane - Aloha v5.3.13 - Error Message",
                        "Expected Employee Number in the 1st column of the 8th line.\r\r"
                        "found: Number",
                        {"OK"}, "OK"));
  EXPECT_TRUE(IsMessage(
      dialogue[1], "Corvane",
      Report("Aloha v5.3.13", 0, 0, ImportFile123(dir).string(), AuditFile123(dir).string()),
      {"OK"}, "OK"));
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), "");
}

TEST(AlohaV5313Translator, FileEndingInsideARowKeepsEveryWholeRowAbove) {
  // No "TOTALS:" row: the last whole row is translated, the half row after it is not.
  WorkDir dir;
  WriteBytes(dir.root() / "v5313.csv",
             CutBefore("v5313.csv", ",,,,Subtotal") + "1003,Patel Anil,555-12-3456");
  auto call = AlohaCall(dir, "Aloha v5.3.13", dir.root() / "v5313.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha v5.3.13", 2, 4);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), FirstLines("v5313_expected_ta.txt", 4));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), FirstLines("v5313_expected_audit.txt", 8));
}

TEST(Alohav6542Translator, ReportWalkedByLineStartsUpToTotals) {
  // Covers: one title line dropped; a rate below the minimum wage sends hours to the extra
  // 15 and 16 boxes; card and declared tips; a tips figure that is text is skipped; the
  // average-overtime line written at the next marker for the employee it closes, with the
  // department and dollars his last job left; none for regular hours only; none for the
  // last employee; nothing after "TOTALS:".
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_exports/v6542.csv"), "v6542.csv");
  auto call = AlohaCall(dir, "Aloha v6.5.42", input);
  auto result = call.Go();
  ExpectGolden(dir, call, result, "Aloha v6.5.42", 6, 15, "v6542");
}

TEST(Alohav6542Translator, ReportWithoutTotalsLineEndsInARunTimeError) {
  WorkDir dir;
  WriteBytes(dir.root() / "v6542.csv", CutBefore("v6542.csv", "TOTALS:"));
  auto call = AlohaCall(dir, "Aloha v6.5.42", dir.root() / "v6542.csv");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("v6542_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected("v6542_expected_audit.txt"));
}

TEST(Alohav6544Translator, RowsByColumnWithTheHeadingCounted) {
  // Covers: numbers and departments of digits printed as numbers; a blank overtime column
  // and a blank tips column; rates equal to and below the minimum wage; a row with tips
  // only; a blank rate, which is below any minimum wage; the rate kept on the tips line.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_exports/v6544.csv"), "v6544.csv");
  auto call = AlohaCall(dir, "Aloha v6.5.44", input);
  auto result = call.Go();
  ExpectGolden(dir, call, result, "Aloha v6.5.44", 6, 8, "v6544");
}

TEST(Alohav6544Translator, HalfRowAtTheEndIsARunTimeError) {
  WorkDir dir;
  WriteBytes(dir.root() / "v6544.csv",
             CutBefore("v6544.csv", "ABC,1120,124") + "ABC,1120,128,0100");
  auto call = AlohaCall(dir, "Aloha v6.5.44", dir.root() / "v6544.csv");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), FirstLines("v6544_expected_ta.txt", 3));
}

TEST(Alohav6722Translator, FixedRecordsWrittenByLineCode) {
  // Covers: number and job text as they stand in their columns; figures with two decimals
  // and a leading zero; a blank amount left blank; a zero amount written as 0.00; a line of
  // code "S" counted but not written; zero hours dropped; a short last record ignored.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_exports/v6722.txt"), "v6722.txt");
  auto call = AlohaCall(dir, "Aloha v6.7.22", input);
  auto result = call.Go();
  ExpectGolden(dir, call, result, "Aloha v6.7.22", 6, 4, "v6722");
}

TEST(Alohav5326Translator, SummaryBlockUpToTotals) {
  // Covers: the detail part passed over; three heading lines dropped; hours and dollars in
  // their order; the line under a paying row dropped and none under a row with nothing;
  // a row with only other-wage dollars; the row after "TOTALS" never read.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_exports/v5326.csv"), "v5326.csv");
  auto call = AlohaCall(dir, "Aloha v5.3.26", input);
  auto result = call.Go();
  ExpectGolden(dir, call, result, "Aloha v5.3.26", 5, 8, "v5326");
}

TEST(Alohav6738Translator, JobsGatheredAndWrittenAtTheClosingLine) {
  // Covers: heading and blank lines skipped; the marker's name and its number cut at four
  // characters; quoted figures; wait and plain categories; a job with rate "0" taking the
  // category of the line before it; the branch box; a closing line at the very end of the
  // file without a line end.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("aloha_exports/v6738.csv"), "v6738.csv");
  auto call = AlohaCall(dir, "Aloha v6.7.38", input);
  call.Add({"--set", "chkBr=1"});
  auto result = call.Go();
  ExpectGolden(dir, call, result, "Aloha v6.7.38", 5, 9, "v6738");
}

TEST(Alohav6738Translator, JobsPastTheTwentyFifthAreNeitherStoredNorWritten) {
  std::string report = "*** Emp Big Crew  #5 ***\r\n";
  std::string expected;
  for (int job = 1; job <= 27; ++job) {
    const std::string n = std::to_string(job);
    report += "Total Job" + n + ":,,,\r\n,,,,9.00," + n + ".00,,9.00,0.00,,,,0.00,0.00,0.00\r\n";
    if (job <= 25) {
      expected +=
          "\"5\",\"Big Crew\",Job" + n + ",,,E,RG,9.00," + n + ".00,,,,,,,1,,,,,,,,,,,,,\r\n";
    }
  }
  report += "TTL Emp,,,\r\nDeclared Tips,,,\r\nBig Crew,,,\r\n";
  // the next employee starts the table again at its first row
  report +=
      "*** Emp Sol Ruiz  #6 ***\r\nTotal Host:,,,\r\n,,,,9.00,2.50,,9.00,0.00,,,,0,0,0\r\n"
      "TTL Emp,,,\r\nDeclared Tips,,,\r\nSol Ruiz,,,\r\n";
  expected += "\"6\",\"Sol Ruiz\",Host,,,E,RG,9.00,2.50,,,,,,,1,,,,,,,,,,,,,\r\n";

  WorkDir dir;
  WriteBytes(dir.root() / "v6738.csv", report);
  auto call = AlohaCall(dir, "Aloha v6.7.38", dir.root() / "v6738.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Aloha v6.7.38", 28, 26);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), expected);
}

}  // namespace
}  // namespace corvane_test
