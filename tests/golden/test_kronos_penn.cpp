// "Kronos Penn" run end to end: the export workbook and the mapping workbook beside it, with
// the import and audit files and the progress lines worked out by hand. What each row of each
// workbook tests is in tests/fixtures/kronos_penn/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

const char kMapping[] = "Kronos Penn Mapping.xls";

// Every category the mapped values select holds a code of its own, and the bonus pair says D,
// so that each line shows which pair it took.
RunCall PennCall(const WorkDir& dir, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", "Kronos Penn", "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const char* box :
       {"txtReg=RG",  "txtRegDE=E",  "txtOT=OV",    "txtOTDE=E",    "txtHol=HL",  "txtHolDE=E",
        "txt15=R2",   "txt15DE=E",   "txt16=OS",    "txt16DE=E",    "txtDbl=BV",  "txtDblDE=E",
        "txtTips=BN", "txtTipsDE=D", "txtSales=JY", "txtSalesDE=E", "txtMisc=TT", "txtMiscDE=E",
        "txtDisb=TN", "txtDisbDE=E", "txtAbs=WS",   "txtAbsDE=E",   "txtAdjH=WO", "txtAdjHde=E"}) {
    call.Add({"--set", box});
  }
  return call;
}

std::string Expected(const std::string& name) {
  return ReadBytes(Fixture("kronos_penn/" + name));
}

// Copies an export and, from `mapping_folder` when given, the mapping workbook beside it.
fs::path CopyExport(const WorkDir& dir, const std::string& export_fixture, const std::string& name,
                    const std::string& mapping_folder) {
  if (!mapping_folder.empty()) {
    dir.CopyIn(Fixture("kronos_penn/" + mapping_folder + "/" + kMapping), kMapping);
  }
  return dir.CopyIn(Fixture("kronos_penn/" + export_fixture), name);
}

std::vector<std::string> ProgressTexts(const RunCall& call) {
  std::vector<std::string> texts;
  for (const auto& line : call.Transcript()) {
    if (line.value("kind", "") == "progress") texts.push_back(line.value("text", ""));
  }
  return texts;
}

// A run whose phase failed: the one message, then the report of what was counted, with the
// import and audit files left empty.
void ExpectFailedPhase(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                       const std::string& message, long tc_count) {
  ExpectMessagesThenReport(dir, call, result, "Kronos Penn", tc_count, 0, {Shown(message)});
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), "");
  const auto progress = ProgressTexts(call);
  ASSERT_FALSE(progress.empty());
  EXPECT_EQ(progress.back(), "Finished");
}

TEST(KronPennTranslator, ExportMappedThroughTheMappingWorkbook) {
  // Covers: an unknown pay code on the first row written under "?"; a mapped value
  // upper-cased; the earlier of two equal keys winning; a number cell as key; keys and values
  // trimmed; a mapped value outside the list, and a pay code the mapping lost with its last
  // row, keeping the category of the row before, even of a row not written; division, branch
  // and department keys unknown to the mapping keeping the employee before's; a blank key
  // matching the first unused entry; quotes taken out of the cells; hours of 0 or text not
  // written; a rate of text, 0 or below it blank; shift "1" dropped and "01" kept; the
  // export's first worksheet read although another is active; the rows after a blank column
  // A never read; the count one past the last row.
  WorkDir dir;
  auto input = CopyExport(dir, "main/penn.xls", "penn.xls", "main");
  auto call = PennCall(dir, input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos Penn", 10, 7);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("main_expected_ta.txt"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Expected("main_expected_audit.txt"));

  // The empty first row of "Pay Codes" is read as a blank entry, and its last row not at all.
  const std::vector<std::string> shown{
      "Reading in paycode mappings...",
      "Reading in Pay Code mappings... <-> ",
      "Reading in Pay Code mappings...Regular <-> REG",
      "Reading in Pay Code mappings...Overtime <-> ot",
      "Reading in Pay Code mappings...Holiday <-> HOL",
      "Reading in Pay Code mappings...Bereavement <-> BRV",
      "Reading in Pay Code mappings...Regular <-> OT",
      "Reading in Pay Code mappings...Vacation <-> VAC",
      "Reading in Pay Code mappings...100 <-> JURY",
      "Reading in Division mappings...North <-> 10",
      "Reading in Division mappings...South <-> 20",
      "Reading in Division mappings...North <-> 99",
      "Reading in Branch mappings...Plant 1 <-> B1",
      "Reading in Branch mappings...Plant 2 <-> B2",
      "Reading in Department mappings...Assembly <-> D100",
      "Reading in Department mappings...Shipping <-> D200",
      "Reading in Department mappings...Office <-> D300",
      "Reading in employee data...",
      "Reading in employee data...1001",
      "Reading in employee data...1001",
      "Reading in employee data...1001",
      "Reading in employee data...1002",
      "Reading in employee data...1002",
      "Reading in employee data...1002",
      "Reading in employee data...01003",
      "Reading in employee data...01003",
      "Reading in employee data...01003",
      "Writing data...",
      "Writing data...1",
      "Writing data...2",
      "Writing data...3",
      "Writing data...4",
      "Writing data...5",
      "Writing data...6",
      "Writing data...7",
      "Writing data...8",
      "Writing data...9",
      "Finished",
  };
  EXPECT_EQ(ProgressTexts(call), shown);
}

TEST(KronPennTranslator, EveryMappedValueSelectsItsCategory) {
  // Each value of the list once, in mixed case, one row of hours each.
  WorkDir dir;
  auto input = CopyExport(dir, "codes/codes.xls", "codes.xls", "codes");
  auto call = PennCall(dir, input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos Penn", 13, 12);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Expected("codes_expected_ta.txt"));
}

TEST(KronPennTranslator, MissingMappingWorkbookEndsTheRunBeforeTheExport) {
  WorkDir dir;
  auto input = CopyExport(dir, "main/penn.xls", "penn.xls", "");
  auto call = PennCall(dir, input);
  auto result = call.Go();
  ExpectFailedPhase(dir, call, result,
                    "An employee mapping file was not found.  Please make sure it is in the same "
                    "directory as your input file and try again.",
                    0);
  EXPECT_EQ(ProgressTexts(call),
            (std::vector<std::string>{"Reading in paycode mappings...", "Finished"}));
}

TEST(KronPennTranslator, MappingReadFailuresNameTheRowReached) {
  const std::string kText =
      "There was an error reading the mapping data in your mapping file on the ";
  {
    // 501 pay codes: the table holds 500.
    WorkDir dir;
    auto input = CopyExport(dir, "main/penn.xls", "penn.xls", "long_mapping");
    auto call = PennCall(dir, input);
    auto result = call.Go();
    ExpectFailedPhase(dir, call, result, kText + "501 record.", 0);
  }
  {
    // No "Branch" sheet: the row counter stands one past the three rows of "Division".
    WorkDir dir;
    auto input = CopyExport(dir, "main/penn.xls", "penn.xls", "no_branch");
    auto call = PennCall(dir, input);
    auto result = call.Go();
    ExpectFailedPhase(dir, call, result, kText + "4 record.", 0);
  }
}

TEST(KronPennTranslator, ExportReadFailures) {
  {
    // A text export under a workbook's name cannot be opened as one.
    WorkDir dir;
    dir.CopyIn(Fixture(std::string("kronos_penn/main/") + kMapping), kMapping);
    const fs::path input = dir.root() / "penn.xls";
    WriteBytes(input, "JANE DOE,1001,11/15/2026,40.00,Regular,12.50\r\n");
    auto call = PennCall(dir, input);
    auto result = call.Go();
    ExpectFailedPhase(dir, call, result,
                      "Your input file was not found.  Please verify your input file location "
                      "and try again.",
                      0);
  }
  {
    // 5001 rows: the table holds 5000, and nothing at all is written.
    WorkDir dir;
    auto input = CopyExport(dir, "long_export.xlsx", "long.xlsx", "main");
    auto call = PennCall(dir, input);
    auto result = call.Go();
    ExpectFailedPhase(dir, call, result,
                      "There was an error reading the data in your input file on the 5001 record.",
                      5001);
    const auto progress = ProgressTexts(call);
    ASSERT_GE(progress.size(), 2u);
    EXPECT_EQ(progress[progress.size() - 2], "Reading in employee data...7000");
  }
}

TEST(KronPennTranslator, WritingWithoutOutputFilesFailsAtTheFirstLine) {
  // The output folder's parent does not exist: the files are never made, the first row with
  // hours fails its writing, and the run ends with nothing to report.
  WorkDir dir;
  auto input = CopyExport(dir, "main/penn.xls", "penn.xls", "main");
  auto call = PennCall(dir, input);
  const fs::path output = dir.root() / "missing" / "out";
  call.Add({"--output", output.string()});
  auto result = call.Go();
  ASSERT_FALSE(result.timed_out);
  EXPECT_EQ(result.status, 1) << result.err;
  const auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u) << result.err;
  EXPECT_EQ(dialogue[0].value("title", ""), "Check your Output Path");
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane",
                        "There was an error writing row number 1 of output data.", {"OK"}, "OK"));
  EXPECT_FALSE(fs::exists(output));
}

TEST(KronPennTranslator, BlankFirstCellReadsNoRows) {
  // Rows 2 and 3 hold hours, but column A of row 1 is blank.
  WorkDir dir;
  auto input = CopyExport(dir, "blank_first.xls", "blank_first.xls", "main");
  auto call = PennCall(dir, input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Kronos Penn", 1, 0);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), "");
}

}  // namespace
}  // namespace corvane_test
