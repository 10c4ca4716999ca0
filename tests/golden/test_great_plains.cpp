// "Great Plains" translated end to end through `corvane run` and compared with import and
// audit files written by hand. What each line of each fixture tests is in
// tests/fixtures/great_plains/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMaps[] = {"EE Map.txt", "File Code Map.txt", "Dept Map.txt"};

RunCall GreatPlainsCall(const WorkDir& dir) {
  RunCall call(dir);
  call.Add({"--format", "Great Plains", "--company", "123", "--end-date", "11/20/2026", "--input",
            dir.CopyIn(Fixture("great_plains/gp.csv"), "gp.csv").string(), "--output",
            dir.output().string()});
  return call;
}

void CopyMaps(const WorkDir& dir) {
  for (const char* map : kMaps) dir.CopyIn(Fixture(std::string("great_plains/") + map), map);
}

TEST(GreatPlainsTranslator, FoldsByNumberAndCodeThenMapsThroughTheThreeSideFiles) {
  WorkDir dir;
  CopyMaps(dir);
  auto call = GreatPlainsCall(dir);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 4u) << result.err;
  const std::string folder = dir.root().string() + "/";
  const char* prompts[] = {"Please enter the name of the Employee Number Mapping file.",
                           "Please enter the name of the Earning Code Mapping file.",
                           "Please enter the name of the Department Code Mapping file."};
  for (int k = 0; k < 3; ++k) {
    EXPECT_EQ(dialogue[k].value("kind", ""), "input");
    EXPECT_EQ(dialogue[k].value("title", ""), "Corvane");
    EXPECT_EQ(dialogue[k].value("prompt", ""), prompts[k]);
    EXPECT_EQ(dialogue[k].value("default", ""), folder + kMaps[k]);
  }
  EXPECT_TRUE(IsMessage(
      dialogue[3], "Corvane",
      Report("Great Plains", 9, 5, ImportFile123(dir).string(), AuditFile123(dir).string()), {"OK"},
      "OK"));
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("great_plains/expected_gp_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("great_plains/expected_gp_audit.txt")));
}

TEST(GreatPlainsTranslator, SideFileThatCannotBeOpenedEndsTheProgram) {
  // A map named but missing, and a cancelled question (an empty name): neither is caught.
  for (const auto& [answer, number] : {std::pair<std::string, int>{"missing.txt", 53}, {"", 52}}) {
    SCOPED_TRACE(answer);
    WorkDir dir;
    CopyMaps(dir);
    auto call = GreatPlainsCall(dir);
    const std::string ee = (dir.root() / "EE Map.txt").string();
    const std::string code = answer.empty() ? "" : (dir.root() / answer).string();
    call.Add({"--answer", ee, "--answer", code, "--answer", ee});
    auto result = call.Go();
    EXPECT_EQ(result.status, 3) << result.err;
    auto dialogue = Dialogue(call.Transcript());
    ASSERT_EQ(dialogue.size(), 4u) << result.err;
    EXPECT_EQ(dialogue[3].value("kind", ""), "runtime-error");
    EXPECT_EQ(dialogue[3].value("number", 0), number);
    // the output files were created before the questions, and nothing was written to them
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  }
}

}  // namespace
}  // namespace corvane_test
