// "Kronos v8" and "Kronos v8D" end to end through `corvane run`, against import and audit files
// written by hand. What each row of each fixture tests is in tests/fixtures/kronos_v8/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

const std::string kPrompt =
    "Enter the number of columns containing Hours or Dollars to be processed.\r\r"
    "          (between 1 and 99)";

RunCall KronosCall(const WorkDir& dir, const std::string& format, const std::string& company,
                   const std::string& fixture) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", company, "--end-date", "11/20/2026", "--input",
            dir.CopyIn(Fixture("kronos_v8/" + fixture), fixture).string(), "--output",
            dir.output().string()});
  return call;
}

void ExpectFiles(const fs::path& import, const fs::path& audit, const std::string& expected) {
  EXPECT_EQ(ReadBytes(import), ReadBytes(Fixture("kronos_v8/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(audit), ReadBytes(Fixture("kronos_v8/expected_" + expected + "_audit.txt")));
}

// One "How many columns?" question of the transcript, offering `offered`, answered `answer`.
void ExpectColumnQuestion(const nlohmann::json& line, const std::string& offered,
                          const std::string& answer) {
  EXPECT_EQ(line.value("kind", ""), "input");
  EXPECT_EQ(line.value("title", ""), "How many columns?");
  EXPECT_EQ(TranscriptBytes(line.value("prompt", "")), kPrompt);
  EXPECT_EQ(line.value("default", ""), offered);
  EXPECT_EQ(line.value("answer", ""), answer);
}

TEST(Kronosv8Translator, ColumnsByPositionWithTheCompanysCustomisation) {
  // Covers: the question repeated for 0, 100, a text, a cancelled box and 99.5 (which rounds to
  // 100), then answered 3; the badge column as employee number; List1 and List2 both on
  // Division, the later field staying; custom field 3 to Job, 4 to Branch; the department kept
  // as text (0200); a rate of 0 blanked; dollars with the code row's shift; a negative figure
  // written; a row short of its columns running onto the next line; a column without an
  // earning code written with "?" and reported once; text in a column ending the reading, so
  // the row behind it is never read; another company's code for column 3 not used.
  WorkDir dir;
  WriteBytes(dir.settings() / "TimeImport_K8settings.dat",
             "\"555\",\"True\",\"False\",\"False\",\"0\",\"0\",\"0\",\"0\",\"0\",\"0\"\r\n"
             "\"123\",\"False\",\"True\",\"True\",\"1\",\"1\",\"0\",\"2\",\"-1\",\"-1\"\r\n");
  WriteBytes(dir.settings() / "TimeImport_EarnCodes.dat",
             "\"123\",\"Kronos v8\",\"1\",\"e\",\"reg\",\"H\",1,\"N\"\r\n"
             "\"555\",\"Kronos v8\",\"3\",\"E\",\"XXX\",\"H\",1,\"N\"\r\n"
             "\"123\",\"Kronos v8\",\"2\",\"D\",\"TIP\",\"$\",3,\"N\"\r\n");
  auto call = KronosCall(dir, "Kronos v8", "123", "k8_columns.csv");
  const std::vector<std::string> answers = {"0", "100", "abc", "", "99.5", "3"};
  for (const std::string& a : answers) call.Add({"--answer", a});
  auto result = call.Go();
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;

  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), answers.size() + 2) << result.err;
  for (size_t i = 0; i < answers.size(); ++i) ExpectColumnQuestion(dialogue[i], "6", answers[i]);
  EXPECT_TRUE(IsMessage(dialogue[answers.size()], "Corvane",
                        "Kronos v8 column 3 needs an Earning Code assigned to it.", {"OK"}, "OK"));
  EXPECT_TRUE(
      IsMessage(dialogue.back(), "Corvane",
                Report("Kronos v8", 3, 6, ImportFile123(dir).string(), AuditFile123(dir).string()),
                {"OK"}, "OK"));
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), "columns");
}

TEST(Kronosv8Translator, ACompanyWithoutSettingsTakesTheDefaultsAndTheLastCountIsOffered) {
  // Covers: a company never customised reads the employee number from the first column and
  // takes the rate and department, and sends no custom field; no earning codes at all, so
  // both columns are reported, the second though its 0.004 rounds to nothing and is dropped.
  // The count answered is kept on exit and offered by the next run's question.
  WorkDir dir;
  auto call = KronosCall(dir, "Kronos v8", "321", "k8_defaults.csv");
  call.Add({"--answer", "2", "--save-screen"});
  auto result = call.Go();
  ASSERT_FALSE(result.timed_out);
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 4u) << result.err;
  ExpectColumnQuestion(dialogue[0], "6", "2");
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane",
                        "Kronos v8 column 1 needs an Earning Code assigned to it.", {"OK"}, "OK"));
  EXPECT_TRUE(IsMessage(dialogue[2], "Corvane",
                        "Kronos v8 column 2 needs an Earning Code assigned to it.", {"OK"}, "OK"));
  const fs::path import = dir.output() / "321_ta.txt";
  const fs::path audit = dir.output() / "Corvane_Audit_321.txt";
  EXPECT_TRUE(IsMessage(dialogue[3], "Corvane",
                        Report("Kronos v8", 1, 1, import.string(), audit.string()), {"OK"}, "OK"));
  ExpectFiles(import, audit, "defaults");

  // The next start offers the count kept from this run.
  fs::remove(dir.transcript());
  auto again = KronosCall(dir, "Kronos v8", "321", "k8_defaults.csv");
  again.Add({"--accept-defaults"});
  result = again.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  dialogue = Dialogue(again.Transcript());
  ASSERT_FALSE(dialogue.empty());
  ExpectColumnQuestion(dialogue[0], "2", "2");
  ExpectFiles(import, audit, "defaults");
}

TEST(KronosV8DTranslator, FourHoursColumnsUntilABlankEmployeeNumber) {
  // Covers: the first row is data; the four department segments trimmed and joined, the
  // second also the branch; hours written as read (8, 7.5); zero and blank hours skipped;
  // shift 2 sent, shift 1 not; a row with a blank first field ends the run and the row after
  // it is never read.
  WorkDir dir;
  auto call = KronosCall(dir, "Kronos v8D", "123", "k8d.csv");
  call.Add({"--set", "txtReg=REG", "--set", "txtOT=OT", "--set", "txtDbl=DBL", "--set",
            "txtHol=HOL", "--set", "txtHolDE=E"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos v8D", 2, 5);
  ExpectFiles(ImportFile123(dir), AuditFile123(dir), "v8d");
}

}  // namespace
}  // namespace corvane_test
