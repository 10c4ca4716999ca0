// "Monolith" runs end to end with its job cross-reference and its question about overtime.
// The expected files were written by hand; tests/fixtures/monolith/README.md says what each
// line tests.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall MonolithCall(const WorkDir& dir, const fs::path& input, bool xref, bool rate) {
  RunCall call(dir);
  call.Add({"--format", "Monolith", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string(), "--set",
            std::string("chkXref=") + (xref ? "1" : "0"), "--set",
            std::string("chkTeam=") + (rate ? "1" : "0")});
  return call;
}

fs::path CopyFixture(const WorkDir& dir, const std::string& name) {
  return dir.CopyIn(Fixture("monolith/" + name), name);
}

void ExpectGolden(const WorkDir& dir, const std::string& prefix) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("monolith/" + prefix + "_expected_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("monolith/" + prefix + "_expected_audit.txt")));
}

const char kXrefAsk[] = "Where is the Job > Department Cross Reference File?";
const char kXrefTitle[] = "Corvane - Monolith - xRef file";
const char kOTAsk[] = "Should we subtract OT from Regular? (Y/N)";

void ExpectInput(const nlohmann::json& line, const std::string& title, const std::string& prompt,
                 const std::string& offered, const std::string& answer) {
  EXPECT_EQ(line.value("kind", ""), "input") << line.dump();
  EXPECT_EQ(line.value("title", ""), title) << line.dump();
  EXPECT_EQ(line.value("prompt", ""), prompt) << line.dump();
  EXPECT_EQ(line.value("default", ""), offered) << line.dump();
  EXPECT_EQ(line.value("answer", ""), answer) << line.dump();
}

// Covers: "02" and "62" taken back out as "01" and "61" with the value negated, for hours
// and for dollars with a "-" sign; a zero value writing nothing, even for "02"; ".5" through
// ".00"; jobs to departments (trimmed keys, first match, a job known only below a blank
// line); the rate number from the file; the last line read but never translated.
TEST(MonolithLines, OvertimeTakenOutOfRegularAndJobsToDepartments) {
  WorkDir dir;
  CopyFixture(dir, "xRef.txt");
  auto input = CopyFixture(dir, "monolith.txt");
  auto call = MonolithCall(dir, input, true, false);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 3u) << result.err;
  ExpectInput(dialogue[0], kXrefTitle, kXrefAsk, (input.parent_path() / "xRef.txt").string(),
              (input.parent_path() / "xRef.txt").string());
  ExpectInput(dialogue[1], "Corvane - Monolith", kOTAsk, "Y", "Y");
  EXPECT_TRUE(
      IsMessage(dialogue[2], "Corvane",
                Report("Monolith", 6, 6, ImportFile123(dir).string(), AuditFile123(dir).string()),
                {"OK"}, "OK"));
  ExpectGolden(dir, "monolith");
}

TEST(MonolithLines, MissingCrossReferenceAskedAgainAfterACancelledAsk) {
  WorkDir dir;
  auto jobs = dir.CopyIn(Fixture("monolith/xRef.txt"), "jobs.txt");
  auto input = CopyFixture(dir, "monolith.txt");
  auto call = MonolithCall(dir, input, true, false);
  call.Add({"--answer", "", "--answer", jobs.string(), "--answer", " y "});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 5u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane - Monolith - Please Try Again",
                        "Cross Reference File Not Found", {"OK"}, "OK"));
  ExpectInput(dialogue[2], kXrefTitle, kXrefAsk, "", jobs.string());
  ExpectGolden(dir, "monolith");
}

// Covers: the ticked "Use Rate Number?" box sending the pay rate through "#0.00" (" 7.5" ->
// "7.50") and leaving the rate number blank; a line of 61 characters without a rate; the
// cross-reference loaded but not used; "n" keeping overtime as it stands; a blank line at the
// end, so that the last pay line is translated.
TEST(MonolithLines, RateBoxSendsThePayRateAndNoMeansNoTakeBack) {
  WorkDir dir;
  CopyFixture(dir, "xRef.txt");
  auto input = CopyFixture(dir, "monolith_blank_end.txt");
  auto call = MonolithCall(dir, input, false, true);
  call.Add({"--answer", (input.parent_path() / "xRef.txt").string(), "--answer", "n"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 3u) << result.err;
  EXPECT_TRUE(
      IsMessage(dialogue[2], "Corvane",
                Report("Monolith", 7, 5, ImportFile123(dir).string(), AuditFile123(dir).string()),
                {"OK"}, "OK"));
  ExpectGolden(dir, "rate");
}

}  // namespace
}  // namespace corvane_test
