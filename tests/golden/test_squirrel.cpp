// The Squirrel, Micros 3700 and Maitre'D exports translated end to end through `corvane run`
// and compared with import and audit files written by hand. What each record of each fixture
// tests is in the README.md of tests/fixtures/squirrel, micros and maitred.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// Every category box the three families use gets a code of its own, so each line tells which
// category wrote it.
RunCall Call(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const char* code : {"txtReg=Reg", "txtRegDE=E", "txtOT=OT", "txtOTDE=E", "txtTips=Tips",
                           "txtTipsDE=E", "txt15=15", "txt15DE=E", "txt16=16", "txt16DE=E",
                           "txt18=18", "txt18DE=D", "txtWaitReg=WReg", "txtWaitRegDE=E",
                           "txtWaitOT=WOT", "txtWaitOTDE=E", "txtCCtip=CC", "txtCCtipDE=E"}) {
    call.Add({"--set", code});
  }
  return call;
}

RunCall FixtureCall(const WorkDir& dir, const std::string& format, const std::string& fixture) {
  const fs::path from = Fixture(fixture);
  return Call(dir, format, dir.CopyIn(from, from.filename().string()));
}

void ExpectFiles(const fs::path& import, const fs::path& audit, const std::string& expected) {
  EXPECT_EQ(ReadBytes(import), ReadBytes(Fixture(expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(audit), ReadBytes(Fixture(expected + "_audit.txt")));
}

// The run asked one question for its side file, under the program's own title, then
// completed with the report.
void ExpectQuestionThenReport(const RunCall& call, const CommandResult& result,
                              const std::string& format, const std::string& prompt,
                              const std::string& offered, const std::string& answer, long tc_count,
                              long rec_count, const fs::path& import, const fs::path& audit) {
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u);
  EXPECT_EQ(dialogue[0].value("kind", ""), "input");
  EXPECT_EQ(TranscriptBytes(dialogue[0].value("title", "")), "Corvane");
  EXPECT_EQ(dialogue[0].value("prompt", ""), prompt);
  EXPECT_EQ(dialogue[0].value("default", ""), offered);
  EXPECT_EQ(dialogue[0].value("answer", ""), answer);
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane",
                        Report(format, tc_count, rec_count, import.string(), audit.string()),
                        {"OK"}, "OK"));
}

TEST(Squirrel32Translator, DepartmentsPlacedByLocationAndWaitStaff) {
  // Covers, at "SW" and at "RH": a department of the wait group everywhere ("1") and one that
  // waits only at "SW" ("22"); a department neither table names keeping the file's branch; a
  // total line skipped uncounted; figures as the columns hold them; tips under the code of the
  // category written last, by this line or the one before; a line without an employee number
  // counted and ending the reading, the line after it never read.
  for (const std::string loc : {"SW", "RH"}) {
    SCOPED_TRACE(loc);
    WorkDir dir;
    auto call = FixtureCall(dir, "Squirrel v3.2", "squirrel/squirrel32.ccc");
    call.Add({"--location", loc});
    auto result = call.Go();
    ASSERT_FALSE(result.timed_out);
    ASSERT_EQ(result.status, 0) << result.err;
    const fs::path import = dir.output() / ("123_" + loc + "_ta.txt");
    const fs::path audit = dir.output() / ("Corvane_Audit_123_" + loc + ".txt");
    auto dialogue = Dialogue(call.Transcript());
    ASSERT_EQ(dialogue.size(), 1u);
    EXPECT_TRUE(IsMessage(dialogue[0], "Corvane",
                          Report("Squirrel v3.2", 5, 9, import.string(), audit.string()), {"OK"},
                          "OK"));
    ExpectFiles(
        import, audit,
        loc == "SW" ? "squirrel/expected_squirrel32_sw" : "squirrel/expected_squirrel32_rh");
  }
}

TEST(Squirrel32Translator, TipsBeforeAnyCategoryThenBlankTipsEndTheProgram) {
  // The first line writes only its tips: no category has given a code yet, so the line goes
  // out with the blank code of the start. The second line's tips columns are blanks, which
  // are no number for the writer: the run-time error ends the program.
  WorkDir dir;
  std::string first(144, ' '), second(144, ' ');
  first.replace(0, 12, "0012    2001");
  first.replace(136, 8, "   10.00");
  second.replace(0, 12, "0012    2002");
  WriteBytes(dir.root() / "tips.ccc", first + "\r\n" + second + "\r\n");
  auto call = Call(dir, "Squirrel v3.2", dir.root() / "tips.ccc");
  call.Add({"--location", "XX"});
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 13);
  EXPECT_EQ(ReadBytes(dir.output() / "123_XX_ta.txt"),
            "\"2001\",\"\",,,,E,,,,,,,,,10.00,1,,,,,,,,,,,,,\r\n");
}

TEST(Squirrel145Translator, JobsThroughTheCrossReferenceOrWithout) {
  // Covers: codes of the cross-reference's first matching row; a job it lacks written with a
  // blank kind and code; the overtime code of "OT"; a location neither "Bellevue" nor "West";
  // the dollars of a tips line riding on the next row's overtime line; the total row passed
  // over uncounted. Without the cross-reference no hours line has a code.
  for (const bool xref : {true, false}) {
    SCOPED_TRACE(xref);
    WorkDir dir;
    if (xref) dir.CopyIn(Fixture("squirrel/Squirrel Cross Ref.txt"), "Squirrel Cross Ref.txt");
    auto call = FixtureCall(dir, "Squirrel POS 1.45", "squirrel/squirrel145.csv");
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Squirrel POS 1.45", 4, 7);
    ExpectFiles(ImportFile123(dir), AuditFile123(dir),
                xref ? "squirrel/expected_squirrel145" : "squirrel/expected_squirrel145_noxref");
  }
}

TEST(Squirrel145Translator, ARowCutShortByTheFileEndEndsTheProgram) {
  // The total row is missing and the last row lacks its tips: the read runs past the end.
  WorkDir dir;
  WriteBytes(dir.root() / "short.csv",
             "heading\r\n11/15/2026,West,1001,A,Cook,8,0,0\r\n11/15/2026,West,1002,B,Cook,4,0\r\n");
  auto call = Call(dir, "Squirrel POS 1.45", dir.root() / "short.csv");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "\"1001\",\"A\",,,,,,,8,,,,,,,1,2,2,,,,,,,,,,,\r\n");
}

const std::string kXrefPrompt = "What is the name of your cross reference file?";

TEST(Micros3700v41Translator, BrCrossReferenceGivesDivisionAndBranch) {
  // Covers: codes found in the cross-reference (12 stays, 3 becomes "03"); a code it lacks
  // keeping the file's code as "09" and the branch of the record before; a blank code finding
  // the table's empty first row, which blanks the branch; overtime at a rate a cent below the
  // minimum wage and at it; tips and card tips keeping the rate.
  WorkDir dir;
  dir.CopyIn(Fixture("micros/Micros v4.1Br XRef.txt"), "Micros v4.1Br XRef.txt");
  auto call = FixtureCall(dir, "Micros 3700 v4.1Br", "micros/micros.csv");
  call.Add({"--set", "chkXref=1", "--answer", "Micros v4.1Br XRef.txt"});
  auto result = call.Go();
  ExpectQuestionThenReport(call, result, "Micros 3700 v4.1Br", kXrefPrompt,
                           "Micros v4.1Br XRef.txt", "Micros v4.1Br XRef.txt", 4, 10,
                           ImportFile123(dir), AuditFile123(dir));
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), "micros/expected_micros_br_xref");
}

TEST(Micros3700v41Translator, WithoutACrossReferenceTheFileCodeIsTheDivision) {
  // The plain form with chkXref clear asks nothing; the Br form with a cross-reference that is
  // not there gives the same file: the codes of the file, one digit padded to two, no branch.
  {
    WorkDir dir;
    auto call = FixtureCall(dir, "Micros 3700 v4.1", "micros/micros.csv");
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Micros 3700 v4.1", 4, 10);
    ExpectFiles(ImportFile123(dir), AuditFile123(dir), "micros/expected_micros_plain");
  }
  {
    WorkDir dir;
    auto call = FixtureCall(dir, "Micros 3700 v4.1Br", "micros/micros.csv");
    call.Add({"--set", "chkXref=1", "--answer", "no such file.txt"});
    auto result = call.Go();
    ExpectQuestionThenReport(call, result, "Micros 3700 v4.1Br", kXrefPrompt,
                             "Micros v4.1Br XRef.txt", "no such file.txt", 4, 10,
                             ImportFile123(dir), AuditFile123(dir));
    ExpectFiles(ImportFile123(dir), AuditFile123(dir), "micros/expected_micros_plain");
  }
}

TEST(Micros3700v41Translator, ARecordCutShortEndsOnlyThePlainForm) {
  // The Br form's handler ends the reading quietly and keeps what was written; the plain form
  // has none, and the read past the end is a run-time error.
  for (const std::string format : {"Micros 3700 v4.1Br", "Micros 3700 v4.1"}) {
    SCOPED_TRACE(format);
    WorkDir dir;
    WriteBytes(dir.root() / "short.csv",
               "heading,2,3,4,5,6,7,8,9,10,11,12,13\r\n"
               "'1','A','B','12','X',8.00,0,'d',9.00,0,0,0,0\r\n"
               "'2','C','D','12','X',4.00,0\r\n");
    auto call = Call(dir, format, dir.root() / "short.csv");
    auto result = call.Go();
    if (format == "Micros 3700 v4.1Br") {
      ExpectOnlyReport(dir, call, result, format, 1, 1);
    } else {
      ExpectRuntimeErrorOnly(call, result, 62);
    }
    EXPECT_EQ(ReadBytes(ImportFile123(dir)),
              "\"\",\"A, B\",,,,E,Reg,9,8,,,,,,,1,12,,,,,,,1,,,,,\r\n");
  }
}

const std::string kRatePrompt = "What is the name of your employee rate file?";

fs::path MaitreImport(const WorkDir& dir) {
  return dir.output() / "Sorrelin Import 123 11202026 .txt";
}

TEST(MaitreDTranslator, RatesPlaceHoursInDepartmentsAndTeams) {
  // Covers: a rate found in the rate file, given back as the file wrote it (8.50 as 8.5); a
  // row without a rate falling back on the employee's row flagged "1"; a rate the file lacks
  // leaving department and team blank; an employee the file lacks; rates at and a cent below
  // the minimum wage; a row of zero hours counted and not written; the dated file name.
  WorkDir dir;
  dir.CopyIn(Fixture("maitred/maitre d rate file.csv"), "maitre d rate file.csv");
  auto call = FixtureCall(dir, "Maitre'D", "maitred/maitred.csv");
  call.Add({"--set", "txtMinWage=7.25", "--answer", "maitre d rate file.csv"});
  auto result = call.Go();
  ExpectQuestionThenReport(call, result, "Maitre'D", kRatePrompt, "maitre d rate file.csv",
                           "maitre d rate file.csv", 7, 8, MaitreImport(dir), AuditFile123(dir));
  ExpectFiles(MaitreImport(dir), AuditFile123(dir), "maitred/expected_maitred");
}

TEST(MaitreDTranslator, MissingRateFileAndTextHours) {
  // No rate file: department and team stay blank and a row without a rate counts as tipped.
  // Overtime hours of text reach the writer, which fails; the handler ends the reading with
  // what was written.
  WorkDir dir;
  WriteBytes(dir.root() / "export.csv",
             "Co Code,Batch ID,File #,Reg Hours,O/T Hours,Hours 3 Code,Hours 3 Amount,Temp "
             "Rate,Temp Dept,Shift\r\n"
             "XYZ,1,1001,8.00,0,,,9,,1\r\n"
             "XYZ,1,1003,4.00,abc,,,,,1\r\n"
             "XYZ,1,1004,5.00,0,,,9,,1\r\n");
  auto call = Call(dir, "Maitre'D", dir.root() / "export.csv");
  call.Add({"--set", "txtMinWage=7.25", "--answer", "rates.csv"});
  auto result = call.Go();
  ExpectQuestionThenReport(call, result, "Maitre'D", kRatePrompt, "maitre d rate file.csv",
                           "rates.csv", 2, 2, MaitreImport(dir), AuditFile123(dir));
  EXPECT_EQ(ReadBytes(MaitreImport(dir)),
            "\"1001\",\"\",,,,E,Reg,9.00,8.00,,,,,,,1,,123,,,,,,,,,,,\r\n"
            "\"1003\",\"\",,,,E,WReg,,4.00,,,,,,,1,,123,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
