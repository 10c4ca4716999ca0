// The Maitre'D export translated end to end through `corvane run` and compared with import
// and audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/maitred/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall MaitreCall(const WorkDir& dir, const fs::path& input, const std::string& answer) {
  RunCall call(dir);
  call.Add({"--format", "Maitre'D", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string(), "--answer", answer});
  for (const char* code : {"txtReg=Reg", "txtRegDE=E", "txtOT=OT", "txtOTDE=E", "txtWaitReg=WReg",
                           "txtWaitRegDE=E", "txtWaitOT=WOT", "txtWaitOTDE=E", "txtMinWage=7.25"}) {
    call.Add({"--set", code});
  }
  return call;
}

// The run asked for the rate file once, then completed with the report; the import file
// carries the end date in its name, with a blank before ".txt".
void ExpectQuestionThenReport(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                              const std::string& answer, long tc_count, long rec_count) {
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u);
  EXPECT_EQ(dialogue[0].value("kind", ""), "input");
  EXPECT_EQ(dialogue[0].value("title", ""), "Corvane - Maitre'D");
  EXPECT_EQ(dialogue[0].value("prompt", ""), "What is the name of your employee rate file?");
  EXPECT_EQ(dialogue[0].value("default", ""), "maitre d rate file.csv");
  EXPECT_EQ(dialogue[0].value("answer", ""), answer);
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane",
                        Report("Maitre'D", tc_count, rec_count,
                               (dir.output() / "Sorrelin Import 123 11202026 .txt").string(),
                               AuditFile123(dir).string()),
                        {"OK"}, "OK"));
}

TEST(MaitreDTranslator, RatesPlaceHoursInDepartmentsAndTeams) {
  // Covers: a rate found in the rate file, given back as the file wrote it (8.50 as 8.5); a
  // row without a rate falling back on the employee's row flagged "1"; a rate the file lacks
  // leaving department and team blank; an employee the file lacks; rates at and a cent below
  // the minimum wage; a row of zero hours counted and not written.
  WorkDir dir;
  dir.CopyIn(Fixture("maitred/maitre d rate file.csv"), "maitre d rate file.csv");
  auto call = MaitreCall(dir, dir.CopyIn(Fixture("maitred/maitred.csv"), "maitred.csv"),
                         "maitre d rate file.csv");
  auto result = call.Go();
  ExpectQuestionThenReport(dir, call, result, "maitre d rate file.csv", 7, 8);
  EXPECT_EQ(ReadBytes(dir.output() / "Sorrelin Import 123 11202026 .txt"),
            ReadBytes(Fixture("maitred/expected_maitred_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("maitred/expected_maitred_audit.txt")));
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
  auto call = MaitreCall(dir, dir.root() / "export.csv", "rates.csv");
  auto result = call.Go();
  ExpectQuestionThenReport(dir, call, result, "rates.csv", 2, 2);
  EXPECT_EQ(ReadBytes(dir.output() / "Sorrelin Import 123 11202026 .txt"),
            "\"1001\",\"\",,,,E,Reg,9.00,8.00,,,,,,,1,,123,,,,,,,,,,,\r\n"
            "\"1003\",\"\",,,,E,WReg,,4.00,,,,,,,1,,123,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
