// "Access" exports translated end to end and compared with import and audit files written by
// hand. The fixture's records are described in tests/fixtures/access/README.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall AccessCall(const WorkDir& dir, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", "Access", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  return call;
}

void ExpectRun(const WorkDir& dir, const RunCall& call, const CommandResult& result, long tc_count,
               long rec_count, const std::string& expected_prefix) {
  ExpectOnlyReport(dir, call, result, "Access", tc_count, rec_count);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture(expected_prefix + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture(expected_prefix + "_audit.txt")));
}

TEST(AccessTranslator, EveryCategoryGoesOutInTheFormatsOrder) {
  // Covers: header dropped; blank employee skipped and not counted; "$" stripped from the
  // dollars fields; unquoted numbers printed as numbers (40, 2.5, 12.5) and quoted or
  // "$"-stripped text as it stands (8.50, 500.00); zero, negative and text fields skipped
  // while the record's other categories go out; the miscellaneous boxes serving two fields;
  // a value rounding to zero hours dropped; a thousands separator passed through unescaped;
  // the half record at the end not translated.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("access/access.csv"), "access.csv");
  auto call = AccessCall(dir, input);
  auto result = call.Go();
  ExpectRun(dir, call, result, 4, 12, "access/expected_123");
}

TEST(AccessTranslator, LinesEndedByLineFeedOrCarriageReturnAloneReadAlike) {
  for (const std::string& line_end : {std::string("\n"), std::string("\r")}) {
    SCOPED_TRACE(line_end == "\n" ? "LF" : "CR");
    WorkDir dir;
    std::string text = ReadBytes(Fixture("access/access.csv"));
    std::string converted;
    for (size_t i = 0; i < text.size(); ++i) {
      if (text.compare(i, 2, "\r\n") == 0) {
        converted += line_end;
        ++i;
      } else {
        converted.push_back(text[i]);
      }
    }
    WriteBytes(dir.root() / "access.csv", converted);
    auto call = AccessCall(dir, dir.root() / "access.csv");
    auto result = call.Go();
    ExpectRun(dir, call, result, 4, 12, "access/expected_123");
  }
}

TEST(AccessTranslator, CtrlZIsOrdinaryDataInTheExport) {
  // The export is read in byte mode, where a Ctrl-Z byte does not end the file: the record
  // after it is still translated.
  WorkDir dir;
  WriteBytes(dir.root() / "access.csv",
             "h1,h2,h3,h4,h5,h6,h7,h8,h9,h10,h11,h12,h13,h14,h15,h16,h17,h18,h19,h20,h21\r\n"
             "S1,A\x1a,201,,,7.5,,,,,,,,,,,,,,,\x1a\r\n"
             "S1,B,202,,,6,,,,,,,,,,,,,,,\r\n");
  auto call = AccessCall(dir, dir.root() / "access.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 2, 2);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"201\",\"\",,,,E,2,,7.5,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"202\",\"\",,,,E,2,,6,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(AccessTranslator, CodeXSwitchesACategoryOffInAnyCaseAndBlanks) {
  // " x " switches overtime off; "X" in the miscellaneous box switches off both of its fields.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("access/access.csv"), "access.csv");
  auto call = AccessCall(dir, input);
  call.Add({"--set", "txtOT= x ", "--set", "txtMisc=X"});
  auto result = call.Go();
  ExpectRun(dir, call, result, 4, 8, "access/expected_123_codes_off");
}

TEST(AccessTranslator, OldFormatLinesKeepTheirFieldCount) {
  // Access never fills Team, so the old and the new format give the same 29 fields.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("access/access.csv"), "access.csv");
  auto call = AccessCall(dir, input);
  call.Add({"--set", "optOldFormat=1"});
  auto result = call.Go();
  ExpectRun(dir, call, result, 4, 12, "access/expected_123");
  for (const auto& line : CrLfLines(ReadBytes(ImportFile123(dir)))) {
    // The one line whose dollars hold a thousands separator has one comma more.
    size_t extra = line.find("1,234.50") == std::string::npos ? 0 : 1;
    EXPECT_EQ(static_cast<size_t>(std::count(line.begin(), line.end(), ',')), 28 + extra) << line;
  }
}

TEST(AccessTranslator, HeaderOnlyAndEmptyFilesGiveZeroCounts) {
  for (const std::string& content :
       {std::string(),
        std::string("Store,Name,EmpNo,Salary,Dept,RegHrs,OTHrs,CTOHrs,HolHrs,"
                    "Bonus,Rate,Week,Cell,Mile,Other,F16,F17,F18,F19,F20,F21\r\n")}) {
    SCOPED_TRACE(content.empty() ? "empty" : "header only");
    WorkDir dir;
    WriteBytes(dir.root() / "access.csv", content);
    auto call = AccessCall(dir, dir.root() / "access.csv");
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "Access", 0, 0);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
    EXPECT_EQ(ReadBytes(AuditFile123(dir)), "");
  }
}

TEST(AccessTranslator, RecordCutShortWithoutLineEndIsNotTranslated) {
  // One whole record, then a record that stops in its third read at the end of the file.
  WorkDir dir;
  WriteBytes(dir.root() / "access.csv",
             "h1,h2,h3,h4,h5,h6,h7,h8,h9,h10,h11,h12,h13,h14,h15,h16,h17,h18,h19,h20,h21\r\n"
             "S1,A,201,,,7.5,,,,,,,,,,,,,,,\r\n"
             "S1,B,202,,,9,,,,,,,,13,");
  auto call = AccessCall(dir, dir.root() / "access.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 1, 1);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "\"201\",\"\",,,,E,2,,7.5,,,,,,,1,,,,,,,,,,,,,\r\n");
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            "Emp_no: 201, Emp_Name: , Dept: , Shift: \r\n E2 - 7.5 Hours\r\n");
}

TEST(AccessTranslator, ExampleExportGivesWhatItsReadmeStates) {
  WorkDir dir;
  auto input = dir.CopyIn(fs::path(CORVANE_EXAMPLES) / "access.csv", "access.csv");
  auto call = AccessCall(dir, input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 8, 25);
  auto audit = CrLfLines(ReadBytes(AuditFile123(dir)));
  ASSERT_EQ(audit.size(), 50u);
  EXPECT_EQ(audit[0], "Emp_no: 1001, Emp_Name: , Dept: , Shift: ");
  EXPECT_EQ(audit[1], " E2 - 40 Hours");
}

}  // namespace
}  // namespace corvane_test
