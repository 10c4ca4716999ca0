// The Deltek exports run end to end: the workbook with its employee and department files,
// the v6.15 report with its map, and the v8.3 rows as comma text and fixed records. The
// expected files were written by hand; tests/fixtures/deltek/README.md says what each row
// and record tests.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// Every box the family uses holds a code of its own, and one D-or-E box says D, so that each
// line shows which box it took.
RunCall DeltekCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const char* box :
       {"txtReg=RG",  "txtRegDE=E",  "txtOT=OT",   "txtOTDE=E",   "txtDbl=BV",   "txtDblDE=E",
        "txtTips=JD", "txtTipsDE=D", "txtHol=HL",  "txtHolDE=E",  "txtSales=PT", "txtSalesDE=E",
        "txtMisc=SK", "txtMiscDE=E", "txtDisb=VC", "txtDisbDE=E", "txt15=LV",    "txt15DE=E",
        "txt16=UN",   "txt16DE=E",   "txt17=BE",   "txt17DE=E",   "txt18=BT",    "txt18DE=D"}) {
    call.Add({"--set", box});
  }
  return call;
}

fs::path CopyFixture(const WorkDir& dir, const std::string& name) {
  return dir.CopyIn(Fixture("deltek/" + name), name);
}

void ExpectGolden(const WorkDir& dir, const std::string& prefix) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("deltek/" + prefix + "_expected_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("deltek/" + prefix + "_expected_audit.txt")));
}

::testing::AssertionResult IsInput(const nlohmann::json& line, const std::string& title,
                                   const std::string& prompt, const std::string& offered) {
  if (line.value("kind", "") != "input" || line.value("title", "") != title ||
      line.value("prompt", "") != prompt || line.value("default", "") != offered) {
    return ::testing::AssertionFailure() << "expected the question \"" << prompt << "\" offering \""
                                         << offered << "\", got " << line.dump();
  }
  return ::testing::AssertionSuccess();
}

const char kEmpAsk[] = "Where is the Employee File?";
const char kEmpTitle[] = "Corvane - Deltek - Employees";
const char kDeptAsk[] = "Where is the Department File?";
const char kDeptTitle[] = "Corvane - Deltek - Departments";
const char kRetryTitle[] = "Corvane - Deltek - Please Try Again";

// Covers: a blank first row; department headings looked up (first match) and unknown; a
// padded name looked up trimmed and written as it stands; a text number in B; H added to B;
// negated leave turning -5 into 5 and 3 into -3; "0" skipped and "-0" dropped by the writer;
// a numeric name passed over; a name absent from the employee file ("???"), and one stored
// only below a blank line; a row with one separator not stored; rows after "Totals:" unread.
TEST(DeltekWorkbook, NamesTurnedIntoNumbersByTheSideFiles) {
  for (const std::string book : {"deltek.xlsx", "deltek.xls"}) {
    SCOPED_TRACE(book);
    WorkDir dir;
    CopyFixture(dir, "Employee File.txt");
    CopyFixture(dir, "Department File.txt");
    auto input = CopyFixture(dir, book);
    auto call = DeltekCall(dir, "Deltek", input);
    call.Add({"--accept-defaults"});
    auto result = call.Go();
    ASSERT_EQ(result.status, 0) << result.err;
    auto dialogue = Dialogue(call.Transcript());
    ASSERT_EQ(dialogue.size(), 3u) << result.err;
    EXPECT_TRUE(IsInput(dialogue[0], kEmpTitle, kEmpAsk,
                        (input.parent_path() / "Employee File.txt").string()));
    EXPECT_TRUE(IsInput(dialogue[1], kDeptTitle, kDeptAsk,
                        (input.parent_path() / "Department File.txt").string()));
    EXPECT_TRUE(
        IsMessage(dialogue[2], "Corvane",
                  Report("Deltek", 9, 8, ImportFile123(dir).string(), AuditFile123(dir).string()),
                  {"OK"}, "OK"));
    ExpectGolden(dir, "deltek");
  }
}

TEST(DeltekWorkbook, MissingSideFilesAreAskedForAgainUntilOneExists) {
  // The employee file is first answered with an empty (cancelled) box, the department file
  // with a name that does not exist: each brings its message, then the same question
  // offering the answer given; the second answers name the files under other names.
  WorkDir dir;
  auto staff = dir.CopyIn(Fixture("deltek/Employee File.txt"), "staff.txt");
  auto depts = dir.CopyIn(Fixture("deltek/Department File.txt"), "sub/depts.txt");
  auto input = CopyFixture(dir, "deltek.xlsx");
  auto call = DeltekCall(dir, "Deltek", input);
  call.Add({"--answer", "", "--answer", staff.string(), "--answer", "nowhere.txt", "--answer",
            depts.string()});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 7u) << result.err;
  EXPECT_TRUE(IsInput(dialogue[0], kEmpTitle, kEmpAsk,
                      (input.parent_path() / "Employee File.txt").string()));
  EXPECT_TRUE(IsMessage(dialogue[1], kRetryTitle, "Employee File Not Found", {"OK"}, "OK"));
  EXPECT_TRUE(IsInput(dialogue[2], kEmpTitle, kEmpAsk, ""));
  EXPECT_TRUE(IsInput(dialogue[3], kDeptTitle, kDeptAsk,
                      (input.parent_path() / "Department File.txt").string()));
  EXPECT_TRUE(IsMessage(dialogue[4], kRetryTitle, "Department File Not Found", {"OK"}, "OK"));
  EXPECT_TRUE(IsInput(dialogue[5], kDeptTitle, kDeptAsk, "nowhere.txt"));
  ExpectGolden(dir, "deltek");
}

TEST(DeltekWorkbook, WithoutTotalsTheRowsStopBelowRowOneThousand) {
  // Rows 998 and 999 are read; row 1000 is not. The count is the row the loop stopped at.
  WorkDir dir;
  CopyFixture(dir, "Employee File.txt");
  CopyFixture(dir, "Department File.txt");
  auto input = CopyFixture(dir, "deltek_no_totals.xlsx");
  auto call = DeltekCall(dir, "Deltek", input);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  const std::string expected =
      "\"???\",\"WORKER 998\",SHOP,,,E,RG,,1,,,,,,,1,,,,,,,,,,,,,\r\n"
      "\"???\",\"WORKER 999\",SHOP,,,E,RG,,1,,,,,,,1,,,,,,,,,,,,,\r\n";
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), expected);
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_FALSE(dialogue.empty());
  EXPECT_TRUE(
      IsMessage(dialogue.back(), "Corvane",
                Report("Deltek", 1000, 2, ImportFile123(dir).string(), AuditFile123(dir).string()),
                {"OK"}, "OK"));
}

TEST(DeltekWorkbook, EmptyLeaveCellEndsTheProgramAfterTheRegularLine) {
  // An empty cell negated is "-", which the writer cannot take for a number; the workbook
  // reader has no handler, so the program ends with what was written.
  WorkDir dir;
  CopyFixture(dir, "Employee File.txt");
  CopyFixture(dir, "Department File.txt");
  auto input = CopyFixture(dir, "deltek_blank_leave.xlsx");
  auto call = DeltekCall(dir, "Deltek", input);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ASSERT_FALSE(result.timed_out);
  EXPECT_EQ(result.status, 3) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_FALSE(dialogue.empty());
  EXPECT_EQ(dialogue.back().value("kind", ""), "runtime-error");
  EXPECT_EQ(dialogue.back().value("number", 0), 13);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"1001\",\"JANE DOE\",SHOP,,,E,RG,,40,,,,,,,1,,,,,,,,,,,,,\r\n");
}

// Covers: the map's number code 01 written "1" and quoted "07" kept; a column named twice
// giving two lines; "detail_Dir" cleared of quotes, and empty once cleared; an unmapped
// column; "0" dropped by the writer and a negative value written; a total line and a line
// whose name has no comma (its columns shift) writing nothing; a group without "-".
TEST(Deltek615Report, ColumnsMappedToEarningCodes) {
  WorkDir dir;
  CopyFixture(dir, "3483 map.txt");
  auto input = CopyFixture(dir, "d615.txt");
  auto call = DeltekCall(dir, "Deltek v6.15", input);
  call.Add({"--accept-defaults"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u) << result.err;
  EXPECT_TRUE(IsInput(dialogue[0], "Corvane", "Please enter the name of cross reference file.",
                      (input.parent_path() / "3483 map.txt").string()));
  ExpectGolden(dir, "d615");
  EXPECT_TRUE(IsMessage(
      dialogue[1], "Corvane",
      Report("Deltek v6.15", 5, 7, ImportFile123(dir).string(), AuditFile123(dir).string()), {"OK"},
      "OK"));
}

TEST(Deltek615Report, MissingMapFailsTheRunBeforeAnyFileIsMade) {
  WorkDir dir;
  auto input = CopyFixture(dir, "d615.txt");
  auto call = DeltekCall(dir, "Deltek v6.15", input);
  call.Add({"--answer", "gone.txt"});
  auto result = call.Go();
  ASSERT_FALSE(result.timed_out);
  EXPECT_EQ(result.status, 1) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[1], "Corvane",
                        "Cross-reference File not found.\rFile: gone.txt\rPlease make sure "
                        "cross-reference file is in the same location as the Input file.",
                        {"OK"}, "OK"));
  EXPECT_FALSE(fs::exists(ImportFile123(dir)));
}

// Covers: every labor code of regular hours, "R" with blanks, a labor code shorter than nine
// characters and one longer; overtime; other pay types, zero and text hours skipped; numbers
// read as numbers (00123 -> 123, 40.00 -> 40, -4.00 -> -4); names trimmed.
TEST(Deltek83Rows, PayTypesAndLaborCodesToCategories) {
  WorkDir dir;
  auto input = CopyFixture(dir, "d83.csv");
  auto call = DeltekCall(dir, "Deltek v8.3", input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Deltek v8.3", 15, 12);
  ExpectGolden(dir, "d83");
}

TEST(Deltek83Rows, RowCutShortAtTheEndEndsTheProgram) {
  // The comma read of the last row runs past the end: no handler, so run-time error 62.
  WorkDir dir;
  std::string text = ReadBytes(Fixture("deltek/d83.csv"));
  text += "11/15/2026,1016,VAL CUT,01.02.0200,R";
  auto input = dir.root() / "cut.csv";
  WriteBytes(input, text);
  auto call = DeltekCall(dir, "Deltek v8.3", input);
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("deltek/d83_expected_ta.txt")));
}

// Covers: the heading record dropped; the employee number keeping its zeros; hours as text
// ("40.00", "8"); "0" skipped and "0.00" dropped by the writer; an unknown pay type; a labor
// code of two characters going to regular hours; the record cut short at the end unread.
TEST(Deltek83FixRecords, FixedRecordsOfSixHundredThirtyBytes) {
  WorkDir dir;
  auto input = CopyFixture(dir, "d83fix.ets");
  auto call = DeltekCall(dir, "Deltek v8.3 Fixed", input);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Deltek v8.3 Fixed", 8, 5);
  ExpectGolden(dir, "d83fix");
}

}  // namespace
}  // namespace corvane_test
