// The AE exports translated end to end through `corvane run` and compared with import and
// audit files written by hand. What each record of each fixture tests is in
// tests/fixtures/ae/README.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

RunCall AECall(const WorkDir& dir, const std::string& format, const std::string& name) {
  RunCall call(dir);
  const fs::path input = dir.CopyIn(Fixture("ae/" + name), name);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  return call;
}

// The company's earning codes by pay designation, in the settings folder.
RunCall AE616Call(const WorkDir& dir) {
  fs::copy_file(Fixture("ae/TimeImport_EarnCodes.dat"), dir.settings() / "TimeImport_EarnCodes.dat",
                fs::copy_options::overwrite_existing);
  return AECall(dir, "AE v1.0.28.616", "ae616.csv");
}

TEST(AEv10276Translator, TheCodePicksTheCategoryAndAnUnknownCodeKeepsTheOneInHand) {
  // Covers: the fixed columns, the branch's blanks kept; "Employee_num" in the audit for every
  // record, written or not; hours by "0.0#"; the record's own D-or-E replaced by the box's;
  // an unknown code shown and written with the code of the record before and the record's
  // D-or-E; 0.00 hours and text hours writing nothing; the partial record at the end.
  WorkDir dir;
  auto call = AECall(dir, "AE v1.0.27.6", "ae27.txt");
  call.Add({"--set", "txtReg=Reg", "--set", "txtOT=OT", "--set", "txtTips=Tips", "--set",
            "txtHol=Hol", "--set", "txtSales=Sales"});
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "AE v1.0.27.6", 6, 4,
                           {"Unexpected Earning Code: X for EE# 001003 - 8.5 hours"});
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("ae/expected_ae27_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("ae/expected_ae27_audit.txt")));
}

TEST(AEv1028616Translator, PayDesignationsThroughTheEarningCodesWithWorkGroupsByTheCombos) {
  // Covers: work groups by cmboWG1 to cmboWG3 under their check boxes; "DEFAULT" in any case
  // replaced by the worked group; the social security number and an all-zero one blanked; the
  // effective rate only when its 16-bit integer is above 0; shift, dollars and skip from the
  // earning codes; another company's row not seen; designations without a code written with
  // "?" and reported at the end, also when the writer drops the line; text in Pay Des ending
  // the reading.
  WorkDir dir;
  auto call = AE616Call(dir);
  call.Add({"--set", "cmboWG1=Department", "--set", "cmboWG2=Team", "--set", "cmboWG3=Division",
            "--set", "chkDept=1", "--set", "chkDiv=0", "--set", "chkSSN=1", "--set",
            "chkPayRate=1"});
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "AE v1.0.28.616", 6, 4,
                           {"Pay Designation 3 needs an Earning Code assigned to it.",
                            "Pay Designation 9 needs an Earning Code assigned to it."});
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("ae/expected_ae616_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("ae/expected_ae616_audit.txt")));
}

TEST(AEv1028616Translator, ATeamComboSendsItsGroupToTheTeamWithNoBoxChecked) {
  // The other groups need their boxes: the division's is clear, the branch's checked. The old
  // format puts the team in field 23.
  WorkDir dir;
  auto call = AE616Call(dir);
  WriteBytes(dir.root() / "ae616.csv",
             "heading\r\n"
             "Smith John,1001,123456789,H1,H2,H3,10,H,1,40,0,12.5,W1,W2,W3,11/1/2026,"
             "11/14/2026,C1,C2,C3,D100,T7,V9\r\n");
  call.Add({"--set", "cmboWG1=Team", "--set", "cmboWG2=Division", "--set", "cmboWG3=Branch",
            "--set", "chkDept=0", "--set", "chkDiv=0", "--set", "chkBr=1", "--set", "chkSSN=0",
            "--set", "chkPayRate=0", "--set", "optOldFormat=1"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "AE v1.0.28.616", 1, 1);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"1001\",\"Smith John\",,,,E,REG,,40,,,,,,,1,,V9,,,,,D100,,,,,,\r\n");
}

}  // namespace
}  // namespace corvane_test
