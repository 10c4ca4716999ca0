// The punch clocks' exports ("TruTime", "Q-quest ETC 200", "TimeTrak", "TLH",
// "Konetix v4.1") translated end to end and compared with import and audit files written by
// hand from their pages. The records are described in tests/fixtures/punch_clocks/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall ClockCall(const WorkDir& dir, const char* format, const fs::path& input,
                  const std::vector<std::string>& sets) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const std::string& set : sets) call.Add({"--set", set});
  return call;
}

void RunCase(const char* format, const char* input, const std::string& expected_ta,
             const std::string& expected_audit, const std::vector<std::string>& sets, long records,
             long lines) {
  SCOPED_TRACE(format);
  WorkDir dir;
  const fs::path copy = dir.CopyIn(Fixture(std::string("punch_clocks/") + input), input);
  RunCall call = ClockCall(dir, format, copy, sets);
  const CommandResult result = call.Go();
  ExpectOnlyReport(dir, call, result, format, records, lines);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("punch_clocks/" + expected_ta)));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("punch_clocks/" + expected_audit)));
}

TEST(TruTimeTranslator, EmployeeLinesAmongHeadingsPageBreaksAndTotals) {
  // Three heading lines, a blank line, a page break and the totals line passed over and not
  // counted; "Rate3" and "rate1" are no rates of the clock; zero hours; the last line, after
  // the totals and without a line end, translated.
  RunCase("TruTime", "trutime.dat", "expected_trutime_ta.txt", "expected_trutime_audit.txt", {}, 7,
          4);
}

TEST(TruTimeTranslator, ALocationNamesTheOutputFiles) {
  WorkDir dir;
  const fs::path copy = dir.CopyIn(Fixture("punch_clocks/trutime.dat"), "trutime.dat");
  RunCall call = ClockCall(dir, "TruTime", copy, {});
  call.Add({"--location", "7"});
  const CommandResult result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ReadBytes(dir.output() / "123_7_ta.txt"),
            ReadBytes(Fixture("punch_clocks/expected_trutime_ta.txt")));
  EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Audit_123_7.txt"),
            ReadBytes(Fixture("punch_clocks/expected_trutime_audit.txt")));
}

TEST(QquestTranslator, ColumnsGoOutInOrderWithSSNAsReset) {
  // Blank, zero, negative and text figures skipped while the others go out; "$" dropped from
  // the tips paid out; an all-zero SSN blanked, a leading zero kept.
  RunCase("Q-quest ETC 200", "qquest.dat", "expected_qquest_ta.txt", "expected_qquest_audit.txt",
          {}, 3, 8);
}

TEST(QquestTranslator, PayRateTickedAndSSNClearTurnTheOverrides) {
  RunCase("Q-quest ETC 200", "qquest.dat", "expected_qquest_boxes_ta.txt",
          "expected_qquest_audit.txt", {"chkSSN=0", "chkPayRate=1"}, 3, 8);
}

TEST(CodedClockTranslators, CodesPickTheirBoxesAndUnknownCodesSendNothing) {
  // TimeTrak: dollars codes read only the dollars; "XYZ" and lower-case "reg" unknown; the
  // partial last record not read.
  RunCase("TimeTrak", "timetrak.txt", "expected_timetrak_ta.txt", "expected_timetrak_audit.txt",
          {"txt16=R2"}, 8, 5);
  // TLH: the clock's mixed-case words; "HOL" is not "Hol"; zero hours.
  RunCase("TLH", "tlh.txt", "expected_tlh_ta.txt", "expected_tlh_audit.txt", {}, 6, 4);
}

TEST(KonetixTranslator, EachRecordNamesItsOwnCode) {
  RunCase("Konetix v4.1", "konetix.rap", "expected_konetix_ta.txt", "expected_konetix_audit.txt",
          {}, 4, 3);
}

TEST(CodedClockTranslators, AnEmptySummaryStopsTruTimeAndEmptyRecordsFilesReportZero) {
  {
    WorkDir dir;
    WriteBytes(dir.root() / "empty.dat", "");
    RunCall call = ClockCall(dir, "TruTime", dir.root() / "empty.dat", {});
    const CommandResult result = call.Go();
    ExpectRuntimeErrorOnly(call, result, 62);
  }
  for (const char* format : {"Q-quest ETC 200", "TimeTrak", "TLH", "Konetix v4.1"}) {
    SCOPED_TRACE(format);
    WorkDir dir;
    // a single short record: not a whole one, so nothing is read
    WriteBytes(dir.root() / "short.dat", "000000999 SHORT RECORD\r\n");
    RunCall call = ClockCall(dir, format, dir.root() / "short.dat", {});
    const CommandResult result = call.Go();
    ExpectOnlyReport(dir, call, result, format, 0, 0);
    EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
  }
}

}  // namespace
}  // namespace corvane_test
