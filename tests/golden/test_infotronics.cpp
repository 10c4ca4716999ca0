// The Infotronics exports translated end to end through `corvane run` and compared with import
// and audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/infotronics/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// Every category box gets a code of its own, so each line tells which category wrote it.
const std::vector<std::pair<std::string, std::string>> kCodes = {
    {"txtReg", "Reg"},     {"txtOT", "OT"},     {"txtDbl", "Dbl"},   {"txtTips", "Tips"},
    {"txtSales", "Sales"}, {"txtMisc", "Misc"}, {"txtDisb", "Disb"}, {"txtHol", "Hol"},
};

RunCall ITronCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const auto& [box, code] : kCodes) call.Add({"--set", box + "=" + code});
  return call;
}

RunCall FixtureCall(const WorkDir& dir, const std::string& format, const std::string& name) {
  return ITronCall(dir, format, dir.CopyIn(Fixture("infotronics/" + name), name));
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            ReadBytes(Fixture("infotronics/expected_" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)),
            ReadBytes(Fixture("infotronics/expected_" + expected + "_audit.txt")));
}

TEST(InfotronicsTranslator, ColumnsThatAreNotZeroGoOutSalesBeforeMisc) {
  // Covers: the heading row dropped; sales (field 9) written before misc (field 8); 0 and
  // blank columns left out, -4 written; the disability dollars as read ("125.5", "$20.00");
  // an empty line passed over and not counted.
  WorkDir dir;
  auto call = FixtureCall(dir, "Infotronics", "infotronics.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Infotronics", 3, 8);
  ExpectFiles(dir, "infotronics");
}

TEST(InfotronicsTranslator, TextHoursEndTheProgramWithItsRunTimeErrorReport) {
  // Text is not 0, so it reaches the writer, whose test of the hours cannot read it; the
  // branch has no handler. The row's regular hours were written before.
  WorkDir dir;
  std::string row = "Smith John,1001,x,8,abc";
  row.append(28, ',');
  WriteBytes(dir.root() / "bad.csv", std::string(32, ',') + "\r\n" + row + "\r\n");
  auto call = ITronCall(dir, "Infotronics", dir.root() / "bad.csv");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 13);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"1001\",\"Smith John\",,,,E,Reg,,8,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(InfotronicsAEv103Translator, EmployeesAreKnownByTheirSocialSecurityNumber) {
  // Covers: dashes removed (000-00-0000 stays 000000000); a number with a leading zero kept;
  // no employee number; "0" is not blank and reaches the writer, which drops it; holiday
  // after sales; a quoted name with its comma.
  WorkDir dir;
  auto call = FixtureCall(dir, "Infotronics AE 1.0.3", "ae103.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Infotronics AE 1.0.3", 3, 8);
  ExpectFiles(dir, "ae103");
}

TEST(Infotronics2Translator, CodesLookedUpInTheCodeFileTheLaterRowWinning) {
  // Covers: a key twice in the code file taking the later row; a zero rate blanked; a key
  // not in the file shown and written with "?"; zero hours passed over; a line too short for
  // its columns passed over silently; the last line, without a line end, translated.
  WorkDir dir;
  dir.CopyIn(Fixture("infotronics/ECodes.txt"), "ECodes.txt");
  auto call = FixtureCall(dir, "Infotronics 2", "itron2.1T2");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Infotronics 2", 6, 4,
                           {"Unknown type of Earning Code: SICK for EE# 1003"});
  ExpectFiles(dir, "itron2");
}

TEST(Infotronics2Translator, WithoutTheCodeFileTheRunStopsBeforeAnyOutput) {
  WorkDir dir;
  auto call = FixtureCall(dir, "Infotronics 2", "itron2.1T2");
  auto result = call.Go();
  EXPECT_EQ(result.status, 1);
  const auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u);
  EXPECT_TRUE(IsMessage(dialogue[0], "Corvane",
                        "Unable to open " + (dir.root() / "ECodes.txt").string(), {"OK"}, "OK"));
  EXPECT_FALSE(fs::exists(ImportFile123(dir)));
}

}  // namespace
}  // namespace corvane_test
