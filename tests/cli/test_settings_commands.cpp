// The stored settings through the command: restored codes reaching the import file, the
// exit's save, the location lookup, and the subcommands that edit the settings files. Every
// file is compared with bytes worked out by hand.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

// The factory control file with some lines replaced (lines counted from 1).
std::string ControlWith(const std::vector<std::pair<int, std::string>>& lines) {
  std::string bytes = FactoryControlFile();
  for (const auto& [n, value] : lines) {
    bytes.replace(static_cast<std::size_t>(n - 1) * 62, 60,
                  value + std::string(60 - value.size(), ' '));
  }
  return bytes;
}

std::string ControlLine(const WorkDir& dir, int n) {
  std::string bytes = ReadBytes(dir.settings() / "Corvane_Control.dat");
  return bytes.substr(static_cast<std::size_t>(n - 1) * 62, 62);
}

std::string Padded(const std::string& value) {
  return value + std::string(60 - value.size(), ' ') + "\r\n";
}

// One employee with 40 regular and 2 overtime hours.
fs::path AccessExport(const WorkDir& dir) {
  WriteBytes(dir.root() / "access.csv",
             "h1,h2,h3,h4,h5,h6,h7,h8,h9,h10,h11,h12,h13,h14,h15,h16,h17,h18,h19,h20,h21\r\n"
             "S1,A,201,,,40,2,,,,,,,,,,,,,,\r\n");
  return dir.root() / "access.csv";
}

RunCall AccessRun(const WorkDir& dir) {
  RunCall call(dir);
  call.Add({"--company", "123", "--end-date", "11/20/2026", "--input", AccessExport(dir).string(),
            "--output", dir.output().string()});
  return call;
}

TEST(StoredScreen, CodesRestoredAtStartReachTheImportFile) {
  WorkDir dir;
  // Access chosen; Reg as a deduction "R9", OT "O7".
  WriteBytes(dir.settings() / "Corvane_Control.dat",
             ControlWith({{1, "1"}, {7, "D"}, {8, "R9"}, {10, "O7"}}));
  auto call = AccessRun(dir);
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 1, 2);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"201\",\"\",,,,D,R9,,40,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"201\",\"\",,,,E,O7,,2,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(StoredScreen, SaveScreenStoresWhatTheNextRunStartsFrom) {
  WorkDir dir;
  auto first = AccessRun(dir);
  first.Add({"--format", "Access", "--set", "txtRegDE=d", "--set", "txtReg=R5", "--set",
             "chkSupEE=1", "--save-screen"});
  auto result = first.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ControlLine(dir, 1), Padded("1"));
  EXPECT_EQ(ControlLine(dir, 3), Padded(dir.output().string()));
  EXPECT_EQ(ControlLine(dir, 7), Padded("D"));
  EXPECT_EQ(ControlLine(dir, 8), Padded("R5"));
  EXPECT_EQ(ControlLine(dir, 96), Padded("1"));
  EXPECT_EQ(ReadBytes(dir.settings() / "Corvane_Control.dat").size(), 102u * 62u);

  fs::remove(ImportFile123(dir));
  auto second = AccessRun(dir);  // no --format: the stored choice
  result = second.Go();
  ExpectOnlyReport(dir, second, result, "Access", 1, 2);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"201\",\"\",,,,D,R5,,40,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"201\",\"\",,,,E,3,,2,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(StoredScreen, ARefusedRunStillSavesTheScreen) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--format", "Access", "--company", "", "--save-screen"});
  auto result = call.Go();
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(ControlLine(dir, 4), Padded(""));
}

TEST(StoredScreen, AFirstStartIsToldAndTheRunGoesOn) {
  WorkDir dir;
  fs::remove(dir.settings() / "Corvane_Control.dat");
  auto call = AccessRun(dir);
  call.Add({"--format", "Access"});
  auto result = call.Go();
  EXPECT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u);
  EXPECT_TRUE(IsMessage(dialogue[0], "Corvane",
                        "Unable to locate a file to store your default settings.\r\rFile not "
                        "found\r\rA new one will be created in " +
                            dir.settings().string() + " called: Corvane_Control.dat",
                        {"OK"}, "OK"));
  EXPECT_FALSE(fs::exists(dir.settings() / "Corvane_Control.dat"));
}

TEST(StoredScreen, LookupOfAStoreFillsItsCodesAndNamesTheFiles) {
  WorkDir dir;
  WriteBytes(dir.settings() / "LocFile.dat",
             "7,D55,E66,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n");
  auto call = AccessRun(dir);
  call.Add({"--format", "Access", "--location", "7", "--press", "cmdLookup", "--save-screen"});
  auto result = call.Go();
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ReadBytes(dir.output() / "123_7_ta.txt"),
            "\"201\",\"\",,,,D,55,,40,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"201\",\"\",,,,E,66,,2,,,,,,,1,,,,,,,,,,,,,\r\n");
  EXPECT_TRUE(fs::exists(dir.output() / "Corvane_Audit_123_7.txt"));
  EXPECT_EQ(ReadBytes(dir.settings() / "LocFile.dat"),
            "7,D55,E66,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n");
}

TEST(StoredScreen, ACompanyThatBreaksTheCodeFilterEndsTheRun) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--format", "Access", "--company", "O'Neil"});
  auto result = call.Go();
  EXPECT_EQ(result.status, 3);
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u);
  EXPECT_TRUE(IsMessage(dialogue[0], "Corvane", "Filters are an issue.", {"OK"}, "OK"));
  EXPECT_EQ(dialogue[1]["kind"], "runtime-error");
  EXPECT_EQ(dialogue[1]["number"], 3001);
}

TEST(StoredScreen, TheSideFormButtonsCanBePressedBeforeARun) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add(
      {"--format", "Access", "--press", "cmdAssEcodes", "--press", "cmdKv8", "--press", "cmdTM"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 1, 2);
}

// The settings subcommands.
CommandResult Settings(const WorkDir& dir, std::vector<std::string> args) {
  args.push_back("--settings-dir");
  args.push_back(dir.settings().string());
  return RunCommand(args, dir.root(), dir.home());
}

TEST(CodesCommand, SetMendsAsTheGridDoesAndKeepsOtherCompanies) {
  WorkDir dir;
  WriteBytes(dir.settings() / "TimeImport_EarnCodes.dat",
             "\"9\",\"Kronos v6\",\"2\",\"x\",\"15\",\"h\",9,\"n\"\r\n"
             "\"123\",\"Kronos v6\",\"4\",\"E\",\"12\",\"H\",1,\"N\"\r\n");
  auto result = Settings(dir, {"codes", "set", "--company", "123", "--category", "4", "--de", "d",
                               "--code", "D4", "--hours-or-amount", "$", "--shift", "5"});
  EXPECT_EQ(result.status, 0) << result.err;
  // The other company's row is mended too: every row is written by the save.
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_EarnCodes.dat"),
            "\"9\",\"Kronos v6\",\"2\",\"E\",\"15\",\"H\",1,\"N\"\r\n"
            "\"123\",\"Kronos v6\",\"4\",\"D\",\"D4\",\"$\",1,\"N\"\r\n");

  result = Settings(dir, {"codes", "set", "--company", "123", "--category", "6", "--code", "7",
                          "--format", "Kronos v6"});
  EXPECT_EQ(result.status, 0) << result.err;
  result = Settings(dir, {"codes", "list", "--company", "123"});
  EXPECT_EQ(result.out,
            "\"123\",\"Kronos v6\",\"4\",\"D\",\"D4\",\"$\",1,\"N\"\n"
            "\"123\",\"Kronos v6\",\"6\",\"E\",\"7\",\"H\",1,\"N\"\n");

  result = Settings(dir, {"codes", "delete", "--company", "123", "--category", "4"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_EarnCodes.dat"),
            "\"9\",\"Kronos v6\",\"2\",\"E\",\"15\",\"H\",1,\"N\"\r\n"
            "\"123\",\"Kronos v6\",\"6\",\"E\",\"7\",\"H\",1,\"N\"\r\n");
}

TEST(CodesCommand, ANewCompanyKeepsTheStarterRowAsTheGridWould) {
  WorkDir dir;
  auto result = Settings(dir, {"codes", "list", "--company", "55"});
  EXPECT_EQ(result.out, "\"55\",\"\",\"1\",\"E\",\"?\",\"H\",1,\"N\"\n");
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_EarnCodes.dat"), "") << "made empty";
  result = Settings(dir, {"codes", "set", "--company", "55", "--category", "3", "--code", "9"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_EarnCodes.dat"),
            "\"55\",\"\",\"1\",\"E\",\"?\",\"H\",1,\"N\"\r\n"
            "\"55\",\"\",\"3\",\"E\",\"9\",\"H\",1,\"N\"\r\n");
}

TEST(CodesCommand, RefusedEditsSaveNothing) {
  WorkDir dir;
  const std::string before = "\"1'2\",\"\",\"4\",\"E\",\"12\",\"H\",1,\"N\"\r\n";
  WriteBytes(dir.settings() / "TimeImport_EarnCodes.dat", before);
  auto result = Settings(dir, {"codes", "set", "--company", "1'2", "--category", "4"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("Filters are an issue."), std::string::npos);
  result = Settings(dir, {"codes", "set", "--company", "7", "--category", "4", "--shift", "two"});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_EarnCodes.dat"), before);
}

TEST(CodesCommand, ASavedCodeCountsInTheNextRun) {
  WorkDir dir;
  auto result = Settings(dir, {"codes", "set", "--company", "123", "--category", "2", "--code",
                               "77", "--hours-or-amount", "$"});
  ASSERT_EQ(result.status, 0) << result.err;
  // The run reads the table afresh; Access does not use it, but the table must not disturb it.
  auto call = AccessRun(dir);
  call.Add({"--format", "Access"});
  result = call.Go();
  ExpectOnlyReport(dir, call, result, "Access", 1, 2);
}

TEST(CustomisationCommands, KronosEightSettingsSaveAndShow) {
  WorkDir dir;
  WriteBytes(dir.settings() / "TimeImport_K8settings.dat",
             "\"9\",\"True\",\"True\",\"True\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n");
  auto result = Settings(dir, {"kronos8", "set", "--company", "123", "--employee-number", "badge",
                               "--pay-rate", "no", "--custom1", "branch", "--custom3", "job"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_K8settings.dat"),
            "\"9\",\"True\",\"True\",\"True\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\",\"-1\"\r\n"
            "\"123\",\"False\",\"False\",\"True\",\"2\",\"-1\",\"0\",\"-1\",\"-1\",\"-1\"\r\n");
  result = Settings(dir, {"kronos8", "show", "--company", "123"});
  EXPECT_EQ(result.out,
            "company=123\nemployee-number=badge\npay-rate=no\ndepartment=yes\n"
            "custom1=branch\ncustom2=none\ncustom3=job\ncustom4=none\ncustom5=none\n"
            "custom6=none\n");
}

TEST(CustomisationCommands, TimeManagerLengthsValidateAsTheBoxesDo) {
  WorkDir dir;
  auto result = Settings(dir, {"timemanager", "set", "--company", "123", "--div-len", "2",
                               "--br-len", "3", "--br-inc", "f", "--dept-len", "4"});
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string saved =
      "\"123\",\"True\",\"True\",\"True\",\"2\",\"T\",\"3\",\"F\",\"4\",\"T\",\"0\",\"F\"\r\n";
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_TMsettings.dat"), saved);

  result = Settings(dir, {"timemanager", "set", "--company", "123", "--team-len", "7"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("Total of all segments can not be greater than 15."),
            std::string::npos);
  result = Settings(dir, {"timemanager", "set", "--company", "123", "--team-len", "x"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("Length of Team segment must be a number"), std::string::npos);
  EXPECT_EQ(ReadBytes(dir.settings() / "TimeImport_TMsettings.dat"), saved);
}

TEST(LocationsCommand, ListsTheTableAsTheLookupReadsIt) {
  WorkDir dir;
  WriteBytes(dir.settings() / "LocFile.dat",
             "\"7\",E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\r\n"
             "12,D1,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E\r\n");
  auto result = Settings(dir, {"locations", "list"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out,
            "7,E2,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E69\n"
            "12,D1,E3,E4,E5,E6,E7,E8,E9,E10,E11,E12,E61,E62,E\n");
}

}  // namespace
}  // namespace corvane_test
