// The Micros 3700 exports translated end to end through `corvane run` and compared with
// import and audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/micros/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

const std::string kPrompt = "What is the name of your cross reference file?";

RunCall MicrosCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const char* code :
       {"txtReg=Reg", "txtRegDE=E", "txtOT=OT", "txtOTDE=E", "txtWaitOT=WOT", "txtWaitOTDE=E",
        "txtTips=Tips", "txtTipsDE=E", "txtCCtip=CC", "txtCCtipDE=E"}) {
    call.Add({"--set", code});
  }
  return call;
}

RunCall FixtureCall(const WorkDir& dir, const std::string& format) {
  return MicrosCall(dir, format, dir.CopyIn(Fixture("micros/micros.csv"), "micros.csv"));
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("micros/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("micros/expected_" + expected + "_audit.txt")));
}

// The run asked for the cross-reference once, then completed with the report.
void ExpectQuestionThenReport(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                              const std::string& format, const std::string& offered,
                              const std::string& answer) {
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u);
  EXPECT_EQ(dialogue[0].value("kind", ""), "input");
  EXPECT_EQ(dialogue[0].value("title", ""), "Corvane - " + format);
  EXPECT_EQ(dialogue[0].value("prompt", ""), kPrompt);
  EXPECT_EQ(dialogue[0].value("default", ""), offered);
  EXPECT_EQ(dialogue[0].value("answer", ""), answer);
  EXPECT_TRUE(
      IsMessage(dialogue[1], "Corvane",
                Report(format, 4, 10, ImportFile123(dir).string(), AuditFile123(dir).string()),
                {"OK"}, "OK"));
}

TEST(Micros3700v41Translator, BrCrossReferenceGivesDivisionAndBranch) {
  // Covers: codes found in the cross-reference (12 stays, 3 becomes "03"); a code it lacks
  // keeping the file's code as "09" and the branch of the record before; a blank code finding
  // the table's empty first row, which blanks the branch; overtime at a rate a cent below the
  // minimum wage and at it; tips and card tips keeping the rate.
  WorkDir dir;
  dir.CopyIn(Fixture("micros/Micros v4.1Br XRef.txt"), "Micros v4.1Br XRef.txt");
  auto call = FixtureCall(dir, "Micros 3700 v4.1Br");
  call.Add({"--set", "chkXref=1", "--answer", "Micros v4.1Br XRef.txt"});
  auto result = call.Go();
  ExpectQuestionThenReport(dir, call, result, "Micros 3700 v4.1Br", "Micros v4.1Br XRef.txt",
                           "Micros v4.1Br XRef.txt");
  ExpectFiles(dir, "micros_br_xref");
}

TEST(Micros3700v41Translator, WithoutACrossReferenceTheFileCodeIsTheDivision) {
  // The plain form with chkXref clear asks nothing; the Br form with a cross-reference that is
  // not there gives the same file: the codes of the file, one digit padded to two, no branch.
  {
    WorkDir dir;
    auto call = FixtureCall(dir, "Micros 3700 v4.1");
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Micros 3700 v4.1", 4, 10);
    ExpectFiles(dir, "micros_plain");
  }
  {
    WorkDir dir;
    auto call = FixtureCall(dir, "Micros 3700 v4.1Br");
    call.Add({"--set", "chkXref=1", "--answer", "no such file.txt"});
    auto result = call.Go();
    ExpectQuestionThenReport(dir, call, result, "Micros 3700 v4.1Br", "Micros v4.1Br XRef.txt",
                             "no such file.txt");
    ExpectFiles(dir, "micros_plain");
  }
}

TEST(Micros3700v41Translator, ARecordCutShortEndsOnlyThePlainForm) {
  // The Br form's handler ends the reading quietly and keeps what was written; the plain form
  // has none, and the read past the end is a run-time error.
  const std::string file =
      "heading,2,3,4,5,6,7,8,9,10,11,12,13\r\n"
      "'1','A','B','12','X',8.00,0,'d',9.00,0,0,0,0\r\n"
      "'2','C','D','12','X',4.00,0\r\n";
  const std::string line = "\"\",\"A, B\",,,,E,Reg,9,8,,,,,,,1,12,,,,,,,1,,,,,\r\n";
  {
    WorkDir dir;
    WriteBytes(dir.root() / "short.csv", file);
    auto call = MicrosCall(dir, "Micros 3700 v4.1Br", dir.root() / "short.csv");
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Micros 3700 v4.1Br", 1, 1);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), line);
  }
  {
    WorkDir dir;
    WriteBytes(dir.root() / "short.csv", file);
    auto call = MicrosCall(dir, "Micros 3700 v4.1", dir.root() / "short.csv");
    auto result = call.Go();
    ExpectRuntimeErrorOnly(call, result, 62);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), line);
  }
}

}  // namespace
}  // namespace corvane_test
