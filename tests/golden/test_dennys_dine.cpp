// "Denny's DINE" and "Denny's DINE - Relco" translated end to end: the frame that passes
// errors over step by step, the day carried into fields 10 to 12, and the rate under its
// option box. What each record of the fixtures tests is told in
// tests/fixtures/dennys_dine/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall DennysCall(const WorkDir& dir, const char* format, const std::string& file) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            dir.CopyIn(Fixture("dennys_dine/" + file), file).string(), "--output",
            dir.output().string()});
  return call;
}

void ExpectFiles(const WorkDir& dir, const std::string& stem) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("dennys_dine/" + stem + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("dennys_dine/" + stem + "_audit.txt")));
}

TEST(DennysDINETranslator, ACutOffRecordTakesTheRestOfTheRecordBefore) {
  // A blank employee is counted and writes nothing; the last record, cut after its regular
  // hours, pays the overtime and tips of the record before.
  WorkDir dir;
  auto call = DennysCall(dir, "Denny's DINE", "denny-s-dine.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Denny's DINE", 4, 12);
  ExpectFiles(dir, "denny-s-dine_expected");
}

TEST(DennysDINETranslator, RelcoCarriesTheDayAndTheRateWhenTicked) {
  for (const bool rate : {true, false}) {
    SCOPED_TRACE(rate ? "chkPayRate ticked" : "chkPayRate clear");
    WorkDir dir;
    auto call = DennysCall(dir, "Denny's DINE - Relco", "denny-s-dine-relco.csv");
    call.Add({"--set", rate ? "chkPayRate=1" : "chkPayRate=0"});
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Denny's DINE - Relco", 3, 7);
    ExpectFiles(dir,
                rate ? "denny-s-dine-relco_expected_rate" : "denny-s-dine-relco_expected_norate");
  }
}

TEST(DennysDINETranslator, HeadingOnlyAndEmptyFilesGiveZeroCounts) {
  for (const char* format : {"Denny's DINE", "Denny's DINE - Relco"}) {
    for (const std::string& content : {std::string(), std::string("Emp No,Name,Reg\r\n")}) {
      SCOPED_TRACE(std::string(format) + (content.empty() ? " empty" : " heading only"));
      WorkDir dir;
      WriteBytes(dir.root() / "export.csv", content);
      RunCall call(dir);
      call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
                (dir.root() / "export.csv").string(), "--output", dir.output().string()});
      auto result = call.Go();
      ExpectOnlyReport(dir, call, result, format, 0, 0);
      EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
    }
  }
}

}  // namespace
}  // namespace corvane_test
