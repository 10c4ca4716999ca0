// The payroll services' exports ("PayChoice", "PaySuite", "RapidPay", "Ceridian Web",
// "Shelby", "Ave OT") translated end to end and compared with import and audit files written
// by hand from their pages. The records are described in
// tests/fixtures/payroll_services/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

struct Case {
  const char* format;
  const char* input;     // under tests/fixtures/payroll_services
  const char* expected;  // prefix of the expected files there
  std::vector<std::string> sets;
  long records;
  long lines;
};

void RunCase(const Case& c) {
  SCOPED_TRACE(c.format);
  WorkDir dir;
  const fs::path input = dir.CopyIn(Fixture(std::string("payroll_services/") + c.input), c.input);
  RunCall call(dir);
  call.Add({"--format", c.format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : c.sets) call.Add({"--set", set});
  const CommandResult result = call.Go();
  ExpectOnlyReport(dir, call, result, c.format, c.records, c.lines);
  const std::string prefix = std::string("payroll_services/") + c.expected;
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture(prefix + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture(prefix + "_audit.txt")));
}

TEST(PayChoiceTranslator, EachLineSendsItsOwnCodeWithTheBoxesAsReset) {
  // Heading dropped; the line without an employee number neither sent nor counted; quotes
  // and "$" removed; an all-zero line, a blank code and text hours with dollars; the last
  // line, which has no line end, translated. Department and Job (to SSN) ticked.
  RunCase({"PayChoice", "paychoice.txt", "expected_paychoice", {}, 7, 5});
}

TEST(PayChoiceTranslator, OptionBoxesTurnedOverMoveRateInAndDepartmentAndJobOut) {
  RunCase({"PayChoice",
           "paychoice.txt",
           "expected_paychoice_boxes",
           {"chkDept=0", "chkPayRate=1", "chkSSN=0"},
           7,
           5});
}

TEST(PayChoiceTranslator, AnExportWithNothingAfterItsHeadingStopsTheProgram) {
  // Whole lines are read one ahead with no handler: the first read past the end is the
  // platform's "Input past end of file".
  for (const std::string& content : {std::string(), std::string("EMPNO,NAME\r\n")}) {
    SCOPED_TRACE(content.empty() ? "empty" : "heading only");
    WorkDir dir;
    WriteBytes(dir.root() / "pc.txt", content);
    RunCall call(dir);
    call.Add({"--format", "PayChoice", "--company", "123", "--end-date", "11/20/2026", "--input",
              (dir.root() / "pc.txt").string(), "--output", dir.output().string()});
    const CommandResult result = call.Go();
    ExpectRuntimeErrorOnly(call, result, 62);
  }
}

TEST(FixedPayItemTranslators, EachRecordNamesItsOwnCode) {
  // One pay item a record: hours, else dollars, with the record's own D-or-E and code.
  RunCase({"PaySuite", "paysuite.asc", "expected_paysuite", {}, 4, 3});
  // Heading and trailer records passed over and not counted.
  RunCase({"RapidPay", "rapidpay.txt", "expected_rapidpay", {}, 4, 3});
}

TEST(FixedPayItemTranslators, AveOTSendsEveryUsedItemOfARecord) {
  // A blank item between used ones, a deduction in dollars, an item with no figure, and a
  // blank D-or-E giving "E".
  RunCase({"Ave OT", "ave-ot.dat", "expected_aveot", {}, 2, 4});
}

TEST(CeridianWebTranslator, PayCodesPickTheirLabelledBoxes) {
  // "45" goes to the box labelled "45" (txt27); "27" is no code of the service; zero hours.
  RunCase({"Ceridian Web", "ceridian-web.dat", "expected_ceridian", {"txt27=45X"}, 6, 4});
}

TEST(ShelbyTranslator, RegularThenOvertimeAndNoPartialLastRecord) {
  RunCase({"Shelby", "shelby.txt", "expected_shelby", {}, 3, 4});
}

TEST(FixedPayItemTranslators, EmptyExportsGiveZeroCounts) {
  for (const char* format : {"PaySuite", "RapidPay", "Ceridian Web", "Shelby", "Ave OT"}) {
    SCOPED_TRACE(format);
    WorkDir dir;
    WriteBytes(dir.root() / "empty.dat", "");
    RunCall call(dir);
    call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
              (dir.root() / "empty.dat").string(), "--output", dir.output().string()});
    const CommandResult result = call.Go();
    ExpectOnlyReport(dir, call, result, format, 0, 0);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  }
}

}  // namespace
}  // namespace corvane_test
