// "Drake-Williams" translated end to end through `corvane run` and compared with import and
// audit files written by hand. What each line of each fixture tests is in
// tests/fixtures/drake_williams/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

constexpr char kCR = '\r';

RunCall DrakeWilliamsCall(const WorkDir& dir, const std::string& name) {
  RunCall call(dir);
  call.Add({"--format", "Drake-Williams", "--company", "123", "--end-date", "11/20/2026", "--input",
            dir.CopyIn(Fixture("drake_williams/" + name), name).string(), "--output",
            dir.output().string()});
  for (const char* box : {"txtReg=REG", "txtOT=OT", "txtSales=SAL", "txtHol=HOL", "txtTips=TIP",
                          "txt15=15", "txt15DE=D"}) {
    call.Add({"--set", box});
  }
  return call;
}

std::string Unexpected(const std::string& code, const std::string& name) {
  return "Unexpected Earning Code: " + code + kCR + "Employee: " + name;
}

TEST(DrakeWilliamsTranslator, BlocksUpToTheRuleAndCancelAtAnUnknownCodeEndsTheReading) {
  WorkDir dir;
  auto call = DrakeWilliamsCall(dir, "register.txt");
  call.Add({"--answer", "OK", "--answer", "Cancel"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 3u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[0], "Corvane - Drake-Williams", Unexpected("ZZ", "ROE, RICH"),
                        {"OK", "Cancel"}, "OK"));
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane - Drake-Williams", Unexpected("QQ", "POE, ED"),
                        {"OK", "Cancel"}, "Cancel"));
  EXPECT_TRUE(IsMessage(
      dialogue[2], "Corvane",
      Report("Drake-Williams", 3, 5, ImportFile123(dir).string(), AuditFile123(dir).string()),
      {"OK"}, "OK"));
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("drake_williams/expected_register_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("drake_williams/expected_register_audit.txt")));
}

TEST(DrakeWilliamsTranslator, RegisterEndingInsideABlockKeepsWhatWasWritten) {
  WorkDir dir;
  auto call = DrakeWilliamsCall(dir, "register_cut.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Drake-Williams", 2, 2);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"00321\",\"CUT, CARL\",,5005,,E,OT,,2.00,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"00654\",\"SHORT, SAM\",,6006,,E,REG,,4.00,,,,,,,1,,,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
