// "ABRA" workbooks translated end to end. The workbooks are made from the CSV files beside
// them (tests/fixtures/abra/README.md); the expected files were written by hand.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall AbraCall(const WorkDir& dir, const fs::path& input, bool choose_format = true) {
  RunCall call(dir);
  if (choose_format) call.Add({"--format", "ABRA"});
  call.Add({"--company", "123", "--end-date", "11/20/2026", "--input", input.string(), "--output",
            dir.output().string()});
  return call;
}

void ExpectHandWrittenFiles(const WorkDir& dir) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("abra/expected_123_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("abra/expected_123_audit.txt")));
}

TEST(AbraWorkbook, RowsTranslateUntilTheFirstBlankRow) {
  // Covers: the code cell split into kind and code ("EREG", "D401", "E" alone); name and
  // number trimmed, a text number keeping its leading zero in the line and losing it in the
  // audit; hours as read; dollars through ".00" (12.5 -> "12.50", 0.5 -> ".50"); the division
  // cell, text or number; a row with zero hours and dollars counted but not written; the row
  // below the blank row never read.
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("abra/abra.xls"), "abra.xls");
  auto call = AbraCall(dir, input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ABRA", 6, 5);
  ExpectHandWrittenFiles(dir);
}

TEST(AbraWorkbook, XlsxOfTheSameRowsGivesTheSameFilesAndIsTheFirstStartChoice) {
  // No --format: a first start selects the first entry of the list, "ABRA".
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("abra/abra.xlsx"), "abra.xlsx");
  auto call = AbraCall(dir, input, false);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ABRA", 6, 5);
  ExpectHandWrittenFiles(dir);
}

TEST(AbraWorkbook, WorkbookIsRecognisedByItsContentNotItsName) {
  WorkDir dir;
  auto input = dir.CopyIn(Fixture("abra/abra.xlsx"), "abra_book.xls");
  auto call = AbraCall(dir, input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ABRA", 6, 5);
  ExpectHandWrittenFiles(dir);
}

TEST(AbraWorkbook, BlankFirstCellReadsNothingButCreatesTheFiles) {
  for (const std::string name : {"abra_empty.xls", "abra_empty.xlsx"}) {
    SCOPED_TRACE(name);
    WorkDir dir;
    auto input = dir.CopyIn(Fixture("abra/" + name), name);
    auto call = AbraCall(dir, input);
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "ABRA", 0, 0);
    ASSERT_TRUE(fs::exists(ImportFile123(dir)));
    ASSERT_TRUE(fs::exists(AuditFile123(dir)));
    EXPECT_EQ(fs::file_size(ImportFile123(dir)), 0u);
    EXPECT_EQ(fs::file_size(AuditFile123(dir)), 0u);
  }
}

TEST(AbraWorkbook, TextInTheHoursCellEndsTheProgramWithTypeMismatch) {
  // The workbook reader has no handler: the writer's zero test on text hours is fatal.
  for (const std::string name : {"abra_bad_hours.xls", "abra_bad_hours.xlsx"}) {
    SCOPED_TRACE(name);
    WorkDir dir;
    auto input = dir.CopyIn(Fixture("abra/" + name), name);
    auto call = AbraCall(dir, input);
    auto result = call.Go();
    ASSERT_FALSE(result.timed_out);
    EXPECT_EQ(result.status, 3) << result.err;
    auto dialogue = Dialogue(call.Transcript());
    ASSERT_FALSE(dialogue.empty()) << result.err;
    const auto& last = dialogue.back();
    EXPECT_EQ(last.value("kind", ""), "runtime-error") << last.dump();
    EXPECT_EQ(last.value("number", 0), 13) << last.dump();
    EXPECT_EQ(last.value("description", ""), "Type mismatch") << last.dump();
    for (const auto& line : dialogue) {
      EXPECT_EQ(TranscriptBytes(line.value("text", "")).find("Import from"), std::string::npos)
          << "no report after a run-time error: " << line.dump();
    }
  }
}

}  // namespace
}  // namespace corvane_test
