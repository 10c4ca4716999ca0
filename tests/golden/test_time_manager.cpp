// The Time Manager family and "Time Management Systems" end to end through `corvane run`. The
// Time Manager exports are built here, field by field at the offsets of each version's layout,
// with everything the translator must not read filled with "Z"; the expected lines were worked
// out by hand. tests/fixtures/time_manager/README.md says what each record tests.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// The offsets of the fields these tests fill, and each version's record.
struct Layout {
  std::string format;
  int empl, lname, badge, badge_width, dept, dept_worked, r, r_width, h1, h_width, length;
  std::string lead;  // bytes at offset 0 before "empl"
  std::string end;   // the line end closing the record
  bool heading;      // the first record is a heading
};

const Layout kV18{
    "Time Manager v1.8", 0, 10, 40, 10, 50, 726, 777, 8, 785, 8, 1187, "", "\r\n", true};
const Layout kV20{
    "Time Manager v2.0", 2, 12, 42, 11, 53, 749, 800, 10, 810, 10, 1310, "\r\n", "", false};
const Layout kV2x{
    "Time Manager v2.x", 0, 10, 40, 11, 51, 747, 798, 10, 808, 10, 1312, "", "  \r\n", true};

struct Employee {
  std::string empl, lname, badge, dept, dept_worked, r;
  std::map<int, std::string> hours;  // column j to its text, right-aligned in the column
};

void Put(std::string& rec, int offset, int width, const std::string& text, bool right = false) {
  std::string cell = text.substr(0, static_cast<size_t>(width));
  cell = right ? std::string(width - cell.size(), ' ') + cell
               : cell + std::string(width - cell.size(), ' ');
  rec.replace(static_cast<size_t>(offset), static_cast<size_t>(width), cell);
}

// One record of the version, its line end included.
std::string Record(const Layout& l, const Employee& e) {
  std::string rec(static_cast<size_t>(l.length), 'Z');
  rec.replace(0, l.lead.size(), l.lead);
  rec.replace(rec.size() - l.end.size(), l.end.size(), l.end);
  Put(rec, l.empl, 10, e.empl);
  Put(rec, l.lname, 30, e.lname);
  Put(rec, l.badge, l.badge_width, e.badge);
  Put(rec, l.dept, 15, e.dept);
  Put(rec, l.dept_worked, 15, e.dept_worked);
  Put(rec, l.r, l.r_width, e.r, true);
  for (int j = 1; j <= 50; ++j) {
    auto it = e.hours.find(j);
    Put(rec, l.h1 + (j - 1) * l.h_width, l.h_width, it == e.hours.end() ? "" : it->second, true);
  }
  return rec;
}

// The heading record: the field names stand where the values would, "h1" to "h50" included,
// so a heading taken for data would fail at the writer.
Employee Heading() {
  Employee h{"empl", "lname", "badge", "dept", "dept", "r", {}};
  for (int j = 1; j <= 50; ++j) h.hours[j] = "h" + std::to_string(j);
  return h;
}

// The import line's 29 fields from those these formats fill; Team goes to field 29.
std::string Line(const std::string& emp, const std::string& name, const std::string& dept,
                 const std::string& shift, const std::string& dore, const std::string& code,
                 const std::string& rate, const std::string& hours, const std::string& amount,
                 const std::string& div = "", const std::string& br = "",
                 const std::string& team = "") {
  std::vector<std::string> f(29);
  f[0] = "\"" + emp + "\"";
  f[1] = "\"" + name + "\"";
  f[2] = dept;
  f[4] = shift;
  f[5] = dore;
  f[6] = code;
  f[7] = rate;
  f[8] = hours;
  f[14] = amount;
  f[15] = "1";
  f[16] = div;
  f[17] = br;
  f[28] = team;
  std::string line;
  for (size_t i = 0; i < f.size(); ++i) line += (i ? "," : "") + f[i];
  return line + "\r\n";
}

std::string Audit(const std::string& emp, const std::string& name, const std::string& dept,
                  const std::string& shift, const std::string& code_line) {
  return "Emp_no: " + emp + ", Emp_Name: " + name + ", Dept: " + dept + ", Shift: " + shift +
         "\r\n " + code_line + "\r\n";
}

const char kCodes[] =
    "\"123\",\"Time Manager\",\"1\",\"E\",\"REG\",\"H\",1,\"N\"\r\n"
    "\"123\",\"Time Manager\",\"2\",\"E\",\"OT\",\"H\",2,\"N\"\r\n"
    "\"123\",\"Time Manager\",\"5\",\"D\",\"BON\",\"$\",1,\"N\"\r\n"
    "\"123\",\"Time Manager\",\"50\",\"E\",\"H50\",\"H\",1,\"N\"\r\n";

// Worked department, rate and employee column; all four segments sent, 2/2/4/3.
const char kAllSegments[] =
    "\"123\",\"True\",\"True\",\"True\",\"2\",\"T\",\"2\",\"T\",\"4\",\"T\",\"3\",\"T\"\r\n";

RunCall TMCall(const WorkDir& dir, const std::string& format, const std::string& export_bytes,
               const std::string& settings) {
  WriteBytes(dir.settings() / "TimeImport_EarnCodes.dat", kCodes);
  WriteBytes(dir.settings() / "TimeImport_TMsettings.dat", settings);
  const fs::path input = dir.root() / "export.dat";
  WriteBytes(input, export_bytes);
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  return call;
}

// Adams: employee 42, worked department 1234567890X, rate 12.5; regular, overtime on shift 2,
// a column of 0.00 without a code, and dollars.
const Employee kAdams{"0000000042",
                      "Adams, Ray",
                      "B-42",
                      "HOME0000000",
                      "1234567890X",
                      "12.5",
                      {{1, "8"}, {2, "1.25"}, {3, "0.00"}, {5, "30"}}};
// Baker: a worked department of two characters, a rate of 0, a column without a code.
const Employee kBaker{"0000000007", "Baker", "B-7", "HOME", "99", "0", {{49, "4.5"}}};

TEST(TimeManagerFixedRecords, ThreeVersionsOfOneExportGiveTheSameLines) {
  // Covers: each version's offsets; the heading record dropped by v1.8 and v2.x and absent
  // from v2.0; the employee column by "#######"; the rate by "###.#0", and 0 left blank; the
  // department broken 2/2/4/3 into Division 12, Branch 34, Department 5678, Team 90X; segments
  // past a short department blank; a column of 0.00 reaching the lookup, dropped by the writer
  // but reported; a trailing partial record never translated; v1.8 leaving DorE to the lookup.
  const std::string expected_import =
      Line("42", "Adams, Ray", "5678", "", "E", "REG", "12.50", "8.00", "", "12", "34", "90X") +
      Line("42", "Adams, Ray", "5678", "2", "E", "OT", "12.50", "1.25", "", "12", "34", "90X") +
      Line("42", "Adams, Ray", "5678", "", "D", "BON", "12.50", "", "30.00", "12", "34", "90X") +
      Line("7", "Baker", "", "", "E", "?", "", "4.50", "", "99");
  const std::string expected_audit = Audit("42", "Adams, Ray", "5678", "", "EREG - 8.00 Hours") +
                                     Audit("42", "Adams, Ray", "5678", "2", "EOT - 1.25 Hours") +
                                     Audit("42", "Adams, Ray", "5678", "", "DBON - 30.00 Dollars") +
                                     Audit("7", "Baker", "", "", "E? - 4.50 Hours");
  for (const Layout* l : {&kV18, &kV20, &kV2x}) {
    SCOPED_TRACE(l->format);
    WorkDir dir;
    std::string bytes = l->heading ? Record(*l, Heading()) : "";
    bytes += Record(*l, kAdams) + Record(*l, kBaker);
    bytes += Record(*l, kAdams).substr(0, 700);
    auto call = TMCall(dir, l->format, bytes, kAllSegments);
    auto result = call.Go();
    ExpectMessagesThenReport(dir, call, result, l->format, 2, 4,
                             {l->format + " column 3 needs an Earning Code assigned to it.",
                              l->format + " column 49 needs an Earning Code assigned to it."});
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), expected_import);
    EXPECT_EQ(ReadBytes(AuditFile123(dir)), expected_audit);
  }
}

TEST(TimeManagerFixedRecords, TextInAnHoursColumnEndsTheProgram) {
  // The fixed versions have no handler: the writer's type mismatch is a run-time error.
  WorkDir dir;
  Employee bad = kAdams;
  bad.hours = {{1, "8"}, {2, "n/a"}};
  auto call = TMCall(dir, "Time Manager v2.0", Record(kV20, bad), kAllSegments);
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 13);
}

// The v2.8 line: a v1.8 record without its line end, then CR LF.
std::string V28Line(const Employee& e) {
  return Record(kV18, e).substr(0, 1185) + "\r\n";
}

TEST(TimeManagerV28, BrokenLinesAreJoinedAndTheLastLineIsTranslated) {
  // Covers: the heading line dropped; the badge as employee number; no rate; the home
  // department; Division not sent though its length still counts, so Branch starts at 3;
  // Department not sent; a record broken after 1184 characters completed by the next line
  // less its first character (the 5 of column 50's 2.5 arrives that way); text in column 2
  // passed over while the record's other columns go out; the file's last line translated.
  WorkDir dir;
  Employee carter{"0000000001", "Carter", "0000000555", "AB12CCCC", "WORKED", "9", {{1, "8"}}};
  Employee dunn{"0000000002", "Dunn", "0000000556", "XY34", "", "", {{2, "abc"}, {50, "2.5"}}};
  Employee evans{"0000000003", "Evans", "0000000557", "  QR56  ", "", "", {{1, "1"}}};
  const std::string whole = Record(kV18, dunn).substr(0, 1185);
  std::string bytes = V28Line(Heading()) + V28Line(carter);
  bytes += whole.substr(0, 1184) + "\r\n" + "#" + whole.substr(1184) + "\r\n";
  bytes += V28Line(evans).substr(0, 1185);  // no line end after the last line
  auto call = TMCall(
      dir, "Time Manager v2.8", bytes,
      "\"123\",\"False\",\"False\",\"False\",\"2\",\"F\",\"2\",\"T\",\"4\",\"F\",\"0\",\"F\"\r\n");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Time Manager v2.8", 3, 3, {});
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            Line("555", "Carter", "", "", "E", "REG", "", "8.00", "", "", "12") +
                Line("556", "Dunn", "", "", "E", "H50", "", "2.50", "", "", "34") +
                Line("557", "Evans", "", "", "E", "REG", "", "1.00", "", "", "56"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Audit("555", "Carter", "", "", "EREG - 8.00 Hours") +
                                              Audit("556", "Dunn", "", "", "EH50 - 2.50 Hours") +
                                              Audit("557", "Evans", "", "", "EREG - 1.00 Hours"));
}

TEST(TimeManagerV28, ABrokenRecordAtTheEndIsHandledAgainAfterTheLoop) {
  // The reader handles the line in hand once more after the loop. When the last record was
  // broken, the read at the end of the loop finds nothing and leaves the broken half in hand,
  // which then goes out again as it stands.
  WorkDir dir;
  Employee fox{"0000000004", "Fox", "0000000558", "HOME", "D", "", {{1, "6"}, {50, "7.5"}}};
  const std::string whole = Record(kV18, fox).substr(0, 1185);
  std::string bytes = V28Line(Heading()) + whole.substr(0, 1184) + "\r\n#" + whole.substr(1184);
  auto call = TMCall(dir, "Time Manager v2.8", bytes, kAllSegments);
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Time Manager v2.8", 2, 4, {});
  // Column 50 of the half record is "     7." (its 5 stayed on the second line).
  const std::string once = Line("4", "Fox", "", "", "E", "REG", "", "6.00", "", "D");
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            once + Line("4", "Fox", "", "", "E", "H50", "", "7.50", "", "D") + once +
                Line("4", "Fox", "", "", "E", "H50", "", "7.00", "", "D"));
}

TEST(TimeManagerV28Csv, FieldsCutToTheirWidthsAndTheHomeDepartmentHeldApart) {
  // Covers: the heading line; 95 comma fields in the record's order; "empl" cut to 10
  // characters (0000000012); the worked department cut to 15 and broken 2/2/4/3; the home
  // department read first but not used; a record cut short at the end of the file ending the
  // reading without being counted.
  WorkDir dir;
  auto fields = [](const std::string& empl, const std::string& worked, const std::string& h1) {
    std::vector<std::string> f(95, "z");
    f[0] = empl;
    f[1] = "\"Grant, Lee\"";
    f[2] = "B9";
    f[3] = "HOMEDEPT";
    f[40] = worked;
    f[44] = "11.257";
    for (int j = 0; j < 50; ++j) f[45 + j] = "";
    f[45] = h1;
    std::string row;
    for (size_t i = 0; i < f.size(); ++i) row += (i ? "," : "") + f[i];
    return row + "\r\n";
  };
  std::string bytes = "empl,lname,badge,dept,...\r\n";
  bytes += fields("00000000123456789", "1234567890XYZWQ+more", "7.5");
  const std::string second = fields("0000000013", "1234", "3");
  bytes += second.substr(0, second.size() / 2);
  auto call = TMCall(dir, "Time Manager v2.8 csv", bytes, kAllSegments);
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Time Manager v2.8 csv", 1, 1, {});
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), Line("12", "Grant, Lee", "5678", "", "E", "REG", "11.26",
                                                "7.50", "", "12", "34", "90X"));
}

TEST(TimeManagementSystemsTranslator, PayCodesCarryTheirOwnEarningCodes) {
  // tms.dat: hours and dollars codes of the clock's table, an unknown code dropped, a zero
  // value skipped, a trailing partial record not read. See the fixtures' README.
  WorkDir dir;
  RunCall call(dir);
  call.Add({"--format", "Time Management Systems", "--company", "123", "--end-date", "11/20/2026",
            "--input", dir.CopyIn(Fixture("time_manager/tms.dat"), "tms.dat").string(), "--output",
            dir.output().string()});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Time Management Systems", 5, 3);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            Line("1234", "", "", "", "E", "02", "", "8.50", "") +
                Line("77", "", "", "", "D", "36", "", "", "25.00") +
                Line("1234", "", "", "", "D", "132", "", "", "100.50"));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), Audit("1234", "", "", "", "E02 - 8.50 Hours") +
                                              Audit("77", "", "", "", "D36 - 25.00 Dollars") +
                                              Audit("1234", "", "", "", "D132 - 100.50 Dollars"));
}

}  // namespace
}  // namespace corvane_test
