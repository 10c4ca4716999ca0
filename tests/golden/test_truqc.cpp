// "TruQC" exports translated end to end and compared with import and audit files worked out
// by hand from the format's page. The fixture's records are described in
// tests/fixtures/truqc/README.md.
#include <gtest/gtest.h>

#include <string>

#include "tests/cli/cli_harness.hpp"
#include "tests/golden/export_golden.hpp"

namespace corvane_test {
namespace {

// The fixture export with the given --set options against the files worked out by hand.
void ExpectGolden(std::initializer_list<std::string> sets, long records, long lines,
                  const std::string& expected) {
  ExpectGoldenExport("TruQC", "truqc", "truqc.csv", sets, records, lines, expected);
}

TEST(TruQCTranslator, RegularAndOvertimeHours) {
  // Covers: unquoted hours printed as numbers (6.50 as 6.5), quoted ones as written; a record
  // with nothing to pay counted with no line; the half record not translated.
  ExpectGolden({}, 3, 3, "expected_123");
}

TEST(TruQCTranslator, HeadingOnlyAndEmptyExportsGiveZeroCounts) {
  for (const std::string& content :
       {std::string(), std::string("Employee ID,Employee Name,Regular Hours,Overtime Hours\r\n")}) {
    SCOPED_TRACE(content.empty() ? "empty" : "heading only");
    WorkDir dir;
    WriteBytes(dir.root() / "truqc.csv", content);
    RunCall call(dir);
    call.Add({"--format", "TruQC", "--company", "123", "--end-date", "11/20/2026", "--input",
              (dir.root() / "truqc.csv").string(), "--output", dir.output().string()});
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "TruQC", 0, 0);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
    EXPECT_EQ(ReadBytes(AuditFile123(dir)), "");
  }
}

}  // namespace
}  // namespace corvane_test
