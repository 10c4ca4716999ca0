// `corvane run --summary` and `corvane check`: the summary's totals against sums worked out by
// hand from the "Access" fixture (tests/fixtures/access/README.md), its JSON against the
// fields docs/summary.md lists, and the exit statuses of the check.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

RunCall AccessCall(const WorkDir& dir) {
  RunCall call(dir);
  call.Add({"--format", "Access", "--company", "123", "--end-date", "11/20/2026", "--input",
            dir.CopyIn(Fixture("access/access.csv"), "access.csv").string(), "--output",
            dir.output().string()});
  return call;
}

json ReadJson(const fs::path& file) {
  return json::parse(ReadBytes(file));
}

void ExpectTotals(const json& t, const char* count_name, long count, double hours, double dollars) {
  EXPECT_EQ(t[count_name], count) << t;
  EXPECT_DOUBLE_EQ(t["hours"].get<double>(), hours) << t;
  EXPECT_DOUBLE_EQ(t["dollars"].get<double>(), dollars) << t;
}

json Code(const json& summary, const std::string& code) {
  for (const json& c : summary["codes"]) {
    if (c["code"] == code) return c;
  }
  ADD_FAILURE() << "no code " << code;
  return json::object();
}

TEST(RunSummary, AccessTotalsMatchTheFileAndTheDroppedRecords) {
  // Worked from access.csv with the factory codes: 101 writes regular 40 and overtime 2.50
  // hours, salary 500.00, holiday 8 hours, cell 25.00, mileage 12.34 and other 7.50 (on the
  // cell code); 0042 regular 8.50 and overtime 1.25 hours and salary 12.5; 103 CTO 4 hours and
  // bonus 1,234.50. Ann Fox's holiday of 0.004 hours rounds to nothing and is dropped.
  WorkDir dir;
  RunCall call = AccessCall(dir);
  call.Add({"--summary", (dir.root() / "summary.json").string()});
  CommandResult result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 4, 12);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("access/expected_123_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("access/expected_123_audit.txt")));

  const json s = ReadJson(dir.root() / "summary.json");
  EXPECT_EQ(s["format"], "Access");
  EXPECT_EQ(s["completed"], true);
  EXPECT_EQ(s["records_read"], 4);
  EXPECT_EQ(s["lines_written"], 12);
  ASSERT_EQ(s["files"].size(), 1u);
  EXPECT_EQ(s["files"][0]["path"], ImportFile123(dir).string());
  EXPECT_EQ(s["files"][0]["lines"], 12);
  ExpectTotals(s["written"], "lines", 12, 40 + 2.5 + 8 + 8.5 + 1.25 + 4,
               500 + 25 + 12.34 + 7.5 + 12.5 + 1234.5);
  ASSERT_EQ(s["codes"].size(), 8u);
  ExpectTotals(Code(s, "2"), "lines", 2, 48.5, 0);
  ExpectTotals(Code(s, "3"), "lines", 2, 3.75, 0);
  ExpectTotals(Code(s, "4"), "lines", 2, 0, 512.5);
  ExpectTotals(Code(s, "10"), "lines", 1, 8, 0);
  ExpectTotals(Code(s, "7"), "lines", 2, 0, 32.5);
  ExpectTotals(Code(s, "8"), "lines", 1, 0, 12.34);
  ExpectTotals(Code(s, "5"), "lines", 1, 4, 0);
  ExpectTotals(Code(s, "6"), "lines", 1, 0, 1234.5);
  ExpectTotals(s["dropped"]["code_x"], "records", 0, 0, 0);
  ExpectTotals(s["dropped"]["no_hours_or_dollars"], "records", 1, 0.004, 0);

  const json& e = s["employees"];
  EXPECT_EQ(e["count"], 3);
  EXPECT_EQ(e["fewest_lines"], 2);
  EXPECT_EQ(e["most_lines"], 7);
  ASSERT_EQ(e["each"].size(), 3u);
  EXPECT_EQ(e["each"][0]["employee"], "101");
  ExpectTotals(e["each"][0], "lines", 7, 50.5, 544.84);
  EXPECT_EQ(e["each"][1]["employee"], "0042");
  ExpectTotals(e["each"][1], "lines", 3, 9.75, 12.5);
  EXPECT_EQ(e["each"][2]["employee"], "103");
  ExpectTotals(e["each"][2], "lines", 2, 4, 1234.5);
  EXPECT_EQ(e["largest_line"]["employee"], "101");
  EXPECT_EQ(e["largest_line"]["line"], 1);
  EXPECT_DOUBLE_EQ(e["largest_line"]["hours"].get<double>(), 40);
  EXPECT_EQ(e["largest_employee"]["employee"], "101");
  EXPECT_DOUBLE_EQ(e["largest_employee"]["hours"].get<double>(), 50.5);

  // The bonus "1,234.50" keeps its comma, which gives line 12 one field too many.
  const json& c = s["check"];
  EXPECT_EQ(c["lines_checked"], 12);
  EXPECT_EQ(c["lines_with_warnings"], 1);
  ASSERT_EQ(c["warnings"].size(), 1u);
  EXPECT_EQ(c["warnings"][0]["line"], 12);
  EXPECT_EQ(c["warnings"][0]["employee"], "103");
  EXPECT_EQ(c["warnings"][0]["rule"], "field-count");
}

TEST(RunSummary, CodeXDropsAreCountedWithTheirFigures) {
  // Overtime " x " drops 101's 2.50 and 0042's 1.25 hours; miscellaneous "X" drops 101's cell
  // 25.00 and other 7.50.
  WorkDir dir;
  RunCall call = AccessCall(dir);
  call.Add({"--set", "txtOT= x ", "--set", "txtMisc=X", "--summary",
            (dir.root() / "summary.json").string()});
  CommandResult result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 4, 8);
  const json s = ReadJson(dir.root() / "summary.json");
  ExpectTotals(s["dropped"]["code_x"], "records", 4, 3.75, 32.5);
  ExpectTotals(s["dropped"]["no_hours_or_dollars"], "records", 1, 0.004, 0);
  ExpectTotals(s["written"], "lines", 8, 40 + 8 + 8.5 + 4, 500 + 12.34 + 12.5 + 1234.5);
  EXPECT_EQ(s["codes"].size(), 6u);
}

// Every path of a JSON value: "a.b" for members, "a[].b" for the members of array elements.
void Paths(const json& j, const std::string& at, std::set<std::string>& out) {
  if (!at.empty() && !at.ends_with("[]")) out.insert(at);
  if (j.is_object()) {
    for (const auto& [key, value] : j.items()) Paths(value, at.empty() ? key : at + "." + key, out);
  } else if (j.is_array()) {
    for (const json& element : j) Paths(element, at + "[]", out);
  }
}

// The field column of docs/summary.md's tables: the first `path` of each table row.
std::set<std::string> DocumentedPaths() {
  std::ifstream doc(fs::path(CORVANE_EXAMPLES) / ".." / "docs" / "summary.md");
  EXPECT_TRUE(doc) << "docs/summary.md";
  std::set<std::string> paths;
  std::string line;
  bool in_fields = false;
  while (std::getline(doc, line)) {
    if (line.rfind("## ", 0) == 0) in_fields = line == "## Fields";
    if (!in_fields || line.rfind("| `", 0) != 0) continue;
    const std::size_t end = line.find('`', 3);
    paths.insert(line.substr(3, end - 3));
  }
  return paths;
}

TEST(RunSummary, TheJsonHasExactlyTheDocumentedFields) {
  // The Access run fills every part: codes, drops, employees, a largest line, a warning.
  WorkDir dir;
  RunCall call = AccessCall(dir);
  call.Add({"--summary", (dir.root() / "summary.json").string()});
  EXPECT_EQ(call.Go().status, 0);
  std::set<std::string> written;
  Paths(ReadJson(dir.root() / "summary.json"), "", written);
  const std::set<std::string> documented = DocumentedPaths();
  for (const std::string& p : written) EXPECT_TRUE(documented.count(p)) << "undocumented " << p;
  for (const std::string& p : documented) EXPECT_TRUE(written.count(p)) << "not written " << p;
}

TEST(RunSummary, TheTableGoesToStandardOutputAndTheRunStaysAsItWas) {
  WorkDir dir;
  RunCall call = AccessCall(dir);
  call.Add({"--summary", "-"});
  CommandResult result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 4, 12);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("access/expected_123_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("access/expected_123_audit.txt")));
  EXPECT_EQ(result.out.rfind("Run summary: Access\n", 0), 0u) << result.out;
  for (const char* expected :
       {"records read 4, lines written 12", "  E    2          2      48.50         0.00\n",
        "  all            12      64.25      1791.84\n", "dropped, code X: 0 ",
        "dropped, no hours or dollars: 1 (0.004 hours", "employees 3, lines each 2 to 7",
        "Pre-import check: 12 lines, 1 with warnings",
        "line 12, employee 103: field-count: the line has 30 fields, not 29"}) {
    EXPECT_NE(result.out.find(expected), std::string::npos) << expected << "\n" << result.out;
  }
}

TEST(RunSummary, ARefusedRunStillLeavesASummaryAndAnUnwritableOneStopsTheCommand) {
  WorkDir dir;
  RunCall refused = AccessCall(dir);
  refused.Add({"--company", "", "--summary", (dir.root() / "summary.json").string()});
  EXPECT_EQ(refused.Go().status, 1);
  const json s = ReadJson(dir.root() / "summary.json");
  EXPECT_EQ(s["completed"], false);
  EXPECT_EQ(s["lines_written"], 0);
  EXPECT_EQ(s["files"].size(), 0u);
  EXPECT_EQ(s["employees"]["largest_line"], nullptr);

  WorkDir other;
  RunCall unwritable = AccessCall(other);
  unwritable.Add({"--summary", (other.root() / "no" / "such" / "folder.json").string()});
  CommandResult result = unwritable.Go();
  EXPECT_EQ(result.status, 2);
  EXPECT_FALSE(fs::exists(ImportFile123(other)));
}

CommandResult Check(const WorkDir& dir, std::vector<std::string> args) {
  args.insert(args.begin(), "check");
  return RunCommand(args, dir.root(), dir.home());
}

TEST(ImportCheckCommand, ExitStatusSaysCleanWarnedOrWrong) {
  WorkDir dir;
  const fs::path clean = dir.root() / "clean.txt";
  WriteBytes(clean,
             "\"101\",\"Pat Lee\",10,,,E,2,15.00,40,,,,,,,1,,,,,,,,,,,,,\r\n"
             "\"102\",\"Kim Ray\",10,,,E,4,,,,,,,,500.00,1,,,,,,,T1,,,,,,\r\n");
  CommandResult r = Check(dir, {clean.string()});
  EXPECT_EQ(r.status, 0) << r.out << r.err;
  EXPECT_EQ(r.out, "2 lines checked, 0 with warnings\n");

  // the thresholds are options: 40 hours are over 30
  r = Check(dir, {clean.string(), "--max-hours", "30"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out,
            "line 1, employee 101: hours-over: hours 40 are over 30\n"
            "2 lines checked, 1 with warnings\n");

  // the Access fixture's expected file: the bonus with a thousands separator
  r = Check(dir, {Fixture("access/expected_123_ta.txt").string(), "--json"});
  EXPECT_EQ(r.status, 1);
  const json j = json::parse(r.out);
  EXPECT_EQ(j["by_rule"]["field-count"], 1);
  EXPECT_EQ(j["warnings"][0]["line"], 12);

  // numbers that are not digits: flagged only when asked
  const fs::path letters = dir.root() / "letters.txt";
  WriteBytes(letters, "\"A1\",\"Pat\",,,,E,2,,8,,,,,,,1,,,,,,,,,,,,,\r\n");
  EXPECT_EQ(Check(dir, {letters.string()}).status, 0);
  r = Check(dir, {letters.string(), "--numeric-employees", "yes"});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.out.find("employee-not-numeric"), std::string::npos) << r.out;

  EXPECT_EQ(Check(dir, {(dir.root() / "missing.txt").string()}).status, 2);
  EXPECT_EQ(Check(dir, {clean.string(), "--numeric-employees", "maybe"}).status, 2);
  EXPECT_EQ(Check(dir, {}).status, 2);
}

}  // namespace
}  // namespace corvane_test
