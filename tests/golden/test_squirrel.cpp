// The Squirrel exports translated end to end through `corvane run` and compared with import
// and audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/squirrel/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall SquirrelCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const char* code :
       {"txtReg=Reg", "txtRegDE=E", "txtOT=OT", "txtOTDE=E", "txtTips=Tips", "txtTipsDE=E",
        "txt15=15", "txt15DE=E", "txt16=16", "txt16DE=E", "txt18=18", "txt18DE=D"}) {
    call.Add({"--set", code});
  }
  return call;
}

void ExpectFiles(const fs::path& import, const fs::path& audit, const std::string& expected) {
  EXPECT_EQ(ReadBytes(import), ReadBytes(Fixture("squirrel/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(audit), ReadBytes(Fixture("squirrel/expected_" + expected + "_audit.txt")));
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
    auto call = SquirrelCall(dir, "Squirrel v3.2",
                             dir.CopyIn(Fixture("squirrel/squirrel32.ccc"), "squirrel32.ccc"));
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
    std::string lower = loc == "SW" ? "sw" : "rh";
    ExpectFiles(import, audit, "squirrel32_" + lower);
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
  auto call = SquirrelCall(dir, "Squirrel v3.2", dir.root() / "tips.ccc");
  call.Add({"--location", "XX"});
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 13);
  EXPECT_EQ(ReadBytes(dir.output() / "123_XX_ta.txt"),
            "\"2001\",\"\",,,,E,,,,,,,,,10.00,1,,,,,,,,,,,,,\r\n");
}

TEST(Squirrel145Translator, JobsThroughTheCrossReference) {
  // Covers: codes of the cross-reference's first matching row; a job it lacks written with a
  // blank kind and code; the overtime code of "OT"; a location neither "Bellevue" nor "West";
  // the dollars of a tips line riding on the next row's overtime line; the total row passed
  // over uncounted.
  WorkDir dir;
  dir.CopyIn(Fixture("squirrel/Squirrel Cross Ref.txt"), "Squirrel Cross Ref.txt");
  auto call = SquirrelCall(dir, "Squirrel POS 1.45",
                           dir.CopyIn(Fixture("squirrel/squirrel145.csv"), "squirrel145.csv"));
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Squirrel POS 1.45", 4, 7);
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), "squirrel145");
}

TEST(Squirrel145Translator, MissingCrossReferenceLeavesHoursUncoded) {
  WorkDir dir;
  auto call = SquirrelCall(dir, "Squirrel POS 1.45",
                           dir.CopyIn(Fixture("squirrel/squirrel145.csv"), "squirrel145.csv"));
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Squirrel POS 1.45", 4, 7);
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), "squirrel145_noxref");
}

TEST(Squirrel145Translator, ARowCutShortByTheFileEndEndsTheProgram) {
  // The total row is missing and the last row lacks its tips: the read runs past the end.
  WorkDir dir;
  WriteBytes(dir.root() / "short.csv",
             "heading\r\n11/15/2026,West,1001,A,Cook,8,0,0\r\n11/15/2026,West,1002,B,Cook,4,0\r\n");
  auto call = SquirrelCall(dir, "Squirrel POS 1.45", dir.root() / "short.csv");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "\"1001\",\"A\",,,,,,,8,,,,,,,1,2,2,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
