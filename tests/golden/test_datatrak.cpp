// "DataTrak" translated end to end through `corvane run` and compared with import and audit
// files written by hand. What each line of each fixture tests is in
// tests/fixtures/datatrak/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall DataTrakCall(const WorkDir& dir, const std::string& name) {
  RunCall call(dir);
  call.Add({"--format", "DataTrak", "--company", "123", "--end-date", "11/20/2026", "--input",
            dir.CopyIn(Fixture("datatrak/" + name), name).string(), "--output",
            dir.output().string()});
  // ITC's box holds a lower-case "x": the column is switched off
  for (const char* box : {"txtReg=REG", "txtOT=x", "txtDbl=OT1", "txtTips=OT2", "txtSales=P1",
                          "txtHol=P2", "txtMisc=P3", "txtDisb=P4"}) {
    call.Add({"--set", box});
  }
  return call;
}

TEST(DataTrakTranslator, DepartmentHeadsHoldAcrossPagesAndEachEmployeeTakesTwoLines) {
  WorkDir dir;
  auto call = DataTrakCall(dir, "datatrak.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "DataTrak", 5, 8);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("datatrak/expected_datatrak_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("datatrak/expected_datatrak_audit.txt")));
}

TEST(DataTrakTranslator, ReportEndingOnADollarsLineReadsPastTheEnd) {
  // The last employee is written from its two lines; the branch's next read then finds the
  // end of the file, and its frame has no handler.
  WorkDir dir;
  auto call = DataTrakCall(dir, "datatrak_cut.txt");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"2001\",\"GRAY, GIL\",0300,,,E,REG,,7.00,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"2002\",\"WHITE, WES\",0300,,,E,REG,,6.00,,,,,,,1,,,,,,,,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
