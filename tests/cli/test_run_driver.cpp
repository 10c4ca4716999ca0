// The run driver seen from outside: the checks made before a run in their order, the names
// of the output files, the output folder, the report, and the command line itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/cli/cli_harness.hpp"

namespace corvane_test {
namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kOk = {"OK"};
const std::vector<std::string> kYesNo = {"Yes", "No"};
const std::string kOldQuestion =
    "Period Ending Date is more than 60 days old.\rDo you want to continue?";

// An "Access" run of the shared fixture that passes every check; tests change what they test.
// `format` names the time clock chosen in the list.
RunCall AccessRun(const WorkDir& dir, const std::string& format = "Access") {
  dir.CopyIn(Fixture("access/access.csv"), "exports/access.csv");
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            "exports/access.csv", "--output", dir.output().string()});
  return call;
}

std::string OutFile(const WorkDir& dir) {
  return (dir.output() / "123_ta.txt").string();
}
std::string AuditFile(const WorkDir& dir) {
  return (dir.output() / "Corvane_Audit_123.txt").string();
}

// The fixture's counts: four records reach the translator and give twelve lines.
std::string AccessReport(const WorkDir& dir) {
  return Report("Access", 4, 12, OutFile(dir), AuditFile(dir));
}

// A refused run shows exactly one message, ends with status 1 and leaves no import file.
void ExpectRefused(const WorkDir& dir, const RunCall& call, const CommandResult& result,
                   const std::string& text) {
  EXPECT_EQ(result.status, 1) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[0], "Corvane", text, kOk, "OK"));
  EXPECT_FALSE(fs::exists(OutFile(dir)));
  EXPECT_FALSE(fs::exists(AuditFile(dir)));
}

// A completed run ends with status 0, and its last message is the report.
void ExpectReport(const RunCall& call, const CommandResult& result, const std::string& report) {
  EXPECT_EQ(result.status, 0) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_FALSE(dialogue.empty()) << result.err;
  EXPECT_TRUE(IsMessage(dialogue.back(), "Corvane", report, kOk, "OK"));
}

// --- the checks in their order -------------------------------------------------------------

TEST(RunDriverChecks, MissingInputFileIsReportedBeforeEverythingElse) {
  WorkDir dir;
  RunCall call(dir);
  // Company and date are wrong as well: the input file is checked first.
  call.Add({"--format", "Access", "--company", "  ", "--end-date", "not a date", "--output",
            dir.output().string()});
  auto result = call.Go();
  ExpectRefused(dir, call, result, "You must enter an input filename");
}

TEST(RunDriverChecks, BlankCompanyIsReportedBeforeTheDate) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--company", "   ", "--end-date", "13/45/2026"});
  auto result = call.Go();
  ExpectRefused(dir, call, result, "Please provide a valid Company Number");
}

TEST(RunDriverChecks, DateThatIsNoRealDayIsRefused) {
  WorkDir dir;
  auto call = AccessRun(dir);
  // February 2026 has no 30th.
  call.Add({"--end-date", "2/30/2026"});
  auto result = call.Go();
  ExpectRefused(dir, call, result, "Period Ending Date is not formatted properly.");
}

TEST(RunDriverChecks, TomorrowIsInTheFuture) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--end-date", "11/23/2026"});
  auto result = call.Go();
  ExpectRefused(dir, call, result, "Period Ending Date cannot be in the future.");
}

TEST(RunDriverChecks, TodayPassesInEitherDateForm) {
  for (const std::string date : {"11/22/2026", "2026-11-22", "11-22-26"}) {
    SCOPED_TRACE(date);
    WorkDir dir;
    auto call = AccessRun(dir);
    call.Add({"--end-date", date});
    auto result = call.Go();
    ExpectReport(call, result, AccessReport(dir));
    EXPECT_EQ(Dialogue(call.Transcript()).size(), 1u);
  }
}

TEST(RunDriverChecks, TodayIsTheDateGivenOnTheCommandLine) {
  {
    // Later than the machine's clock could be when these tests were written.
    WorkDir dir;
    auto call = AccessRun(dir);
    call.Add({"--today", "2031-03-01", "--end-date", "3/1/2031"});
    auto result = call.Go();
    ExpectReport(call, result, AccessReport(dir));
  }
  {
    WorkDir dir;
    auto call = AccessRun(dir);
    call.Add({"--today", "2026-06-01", "--end-date", "6/2/2026"});
    auto result = call.Go();
    ExpectRefused(dir, call, result, "Period Ending Date cannot be in the future.");
  }
}

TEST(RunDriverChecks, ExactlySixtyDaysBackAsksNothing) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--end-date", "9/23/2026"});
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
  EXPECT_EQ(Dialogue(call.Transcript()).size(), 1u);
}

TEST(RunDriverChecks, SixtyOneDaysBackAnsweredNoStopsTheRun) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--end-date", "9/22/2026", "--answer", "No"});
  auto result = call.Go();
  EXPECT_EQ(result.status, 1) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u);
  EXPECT_TRUE(IsMessage(dialogue[0], "OK to Proceed?", kOldQuestion, kYesNo, "No"));
  EXPECT_FALSE(fs::exists(OutFile(dir)));
  EXPECT_FALSE(fs::exists(AuditFile(dir)));
}

TEST(RunDriverChecks, SixtyOneDaysBackAnsweredYesRunsToTheReport) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--end-date", "9/22/2026", "--answer", "Yes"});
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u);
  EXPECT_TRUE(IsMessage(dialogue[0], "OK to Proceed?", kOldQuestion, kYesNo, "Yes"));
  EXPECT_TRUE(fs::exists(OutFile(dir)));
}

TEST(RunDriverChecks, UnansweredQuestionWithoutTerminalEndsWithStatusFour) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--end-date", "9/22/2026"});
  auto result = call.Go();
  EXPECT_EQ(result.status, 4) << result.err;
  EXPECT_FALSE(fs::exists(OutFile(dir)));
}

TEST(RunDriverChecks, AcceptDefaultsTakesTheFirstButton) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--end-date", "9/22/2026", "--accept-defaults"});
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u);
  EXPECT_TRUE(IsMessage(dialogue[0], "OK to Proceed?", kOldQuestion, kYesNo, "Yes"));
}

TEST(RunDriverChecks, PrevailPayFilesCarryTheirOwnDatesSoTheRangeIsNotChecked) {
  // Neither key has its translator yet, so each run ends at the dispatch; reaching it with a
  // future or a very old date, and with no question, shows that the range check was skipped.
  for (const std::string key : {"Prevail Pay", "Prevail Pay 2"}) {
    for (const std::string date : {"12/31/2027", "1/1/2020"}) {
      SCOPED_TRACE(key + " " + date);
      WorkDir dir;
      auto call = AccessRun(dir, key);
      call.Add({"--end-date", date});
      auto result = call.Go();
      ExpectRefused(dir, call, result, "Time clock " + key + " is not available yet.");
    }
  }
  // The format check still applies to them.
  WorkDir dir;
  auto call = AccessRun(dir, "Prevail Pay");
  call.Add({"--end-date", "2/30/2026"});
  auto result = call.Go();
  ExpectRefused(dir, call, result, "Period Ending Date is not formatted properly.");
}

TEST(RunDriverChecks, OtherKeysWithoutTranslatorStillHaveTheirDateChecked) {
  WorkDir dir;
  auto call = AccessRun(dir, "Yellow Dog");
  call.Add({"--end-date", "11/23/2026"});
  auto result = call.Go();
  ExpectRefused(dir, call, result, "Period Ending Date cannot be in the future.");
}

TEST(RunDriverChecks, SquirrelLocationIsCheckedAfterTheDate) {
  {
    WorkDir dir;
    auto call = AccessRun(dir, "Squirrel v3.2");
    call.Add({"--location", "", "--end-date", "11/31/2026"});
    auto result = call.Go();
    ExpectRefused(dir, call, result, "Period Ending Date is not formatted properly.");
  }
  {
    WorkDir dir;
    auto call = AccessRun(dir, "Squirrel v3.2");
    call.Add({"--location", "  "});
    auto result = call.Go();
    ExpectRefused(dir, call, result, "Please enter a location (e.g. 'RH' or 'SW').");
  }
}

TEST(RunDriverChecks, NoTimeClockChosenIsRefusedOnlyAfterTheOtherChecks) {
  {
    WorkDir dir;
    auto call = AccessRun(dir);
    call.Add({"--set", "PickTC=-1"});
    auto result = call.Go();
    ExpectRefused(dir, call, result, "Must Choose a Time Clock system from the list");
  }
  {
    // "Nothing" is not a key that skips the date range, so the future date speaks first.
    WorkDir dir;
    auto call = AccessRun(dir);
    call.Add({"--set", "PickTC=-1", "--end-date", "11/23/2026"});
    auto result = call.Go();
    ExpectRefused(dir, call, result, "Period Ending Date cannot be in the future.");
  }
}

TEST(RunDriverChecks, InputNameWithoutExtensionPassesWhenAFileWasPicked) {
  // The full-path test fails for a name without ".", but the picked file name lets it pass.
  WorkDir dir;
  dir.CopyIn(Fixture("access/access.csv"), "exports/accessexport");
  RunCall call(dir);
  call.Add({"--format", "Access", "--company", "123", "--end-date", "11/20/2026", "--input",
            "exports/accessexport", "--output", dir.output().string()});
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
}

TEST(RunDriverChecks, InputFileGoneBeforeThePressIsARunTimeError) {
  // The name passes the checks; opening the file is not guarded, so the run ends with the
  // run-time error report and no output file is made.
  WorkDir dir;
  RunCall call(dir);
  call.Add({"--format", "Access", "--company", "123", "--end-date", "11/20/2026", "--input",
            (dir.root() / "gone.csv").string(), "--output", dir.output().string()});
  auto result = call.Go();
  EXPECT_EQ(result.status, 3) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_FALSE(dialogue.empty()) << result.err;
  EXPECT_EQ(dialogue.back().value("kind", ""), "runtime-error") << dialogue.back().dump();
  EXPECT_EQ(dialogue.back().value("number", 0), 53) << dialogue.back().dump();
  EXPECT_EQ(dialogue.back().value("description", ""), "File not found");
  EXPECT_FALSE(fs::exists(OutFile(dir)));
}

// --- output files and the report ------------------------------------------------------------

TEST(RunDriverOutput, ReportNamesBothFilesAndCountsRecordsAndLines) {
  WorkDir dir;
  auto call = AccessRun(dir);
  auto result = call.Go();
  // Written out in full once, so that a fault in the shared builder cannot hide one here.
  std::string expected =
      "Import from Access Complete.\r\r4 Access records processed.\r12 Evolution records "
      "created.\r\r\rThe file is now ready for import into Evolution.\r\r" +
      OutFile(dir) + "\r\rAn audit trail of the input transactions has also been prepared:\r\r" +
      AuditFile(dir) + "\r\r";
  ASSERT_EQ(expected, AccessReport(dir));
  ExpectReport(call, result, expected);
  EXPECT_TRUE(fs::exists(OutFile(dir)));
  EXPECT_TRUE(fs::exists(AuditFile(dir)));
}

TEST(RunDriverOutput, MissingFolderWithExistingParentIsCreated) {
  WorkDir dir;
  auto call = AccessRun(dir);
  fs::path folder = dir.root() / "new_folder";
  call.Add({"--output", folder.string()});
  auto result = call.Go();
  ExpectReport(call, result,
               Report("Access", 4, 12, (folder / "123_ta.txt").string(),
                      (folder / "Corvane_Audit_123.txt").string()));
  EXPECT_TRUE(fs::is_regular_file(folder / "123_ta.txt"));
  EXPECT_TRUE(fs::is_regular_file(folder / "Corvane_Audit_123.txt"));
}

TEST(RunDriverOutput, FolderWhoseParentIsMissingEndsTheRunAfterOneMessage) {
  WorkDir dir;
  auto call = AccessRun(dir);
  fs::path folder = dir.root() / "no_parent" / "child";
  call.Add({"--output", folder.string()});
  auto result = call.Go();
  EXPECT_EQ(result.status, 1) << result.err;
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 1u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[0], "Check your Output Path",
                        "Trouble creating output path to store your Evolution Import "
                        "file.\r\rPath not found\r\r" +
                            (folder / "123_ta.txt").string(),
                        kOk, "OK"));
  EXPECT_FALSE(fs::exists(dir.root() / "no_parent"));
}

TEST(RunDriverOutput, ExistingImportAndAuditFilesAreReplaced) {
  WorkDir dir;
  std::string junk(5000, 'J');
  WriteBytes(OutFile(dir), junk);
  WriteBytes(AuditFile(dir), junk);
  auto call = AccessRun(dir);
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
  EXPECT_EQ(ReadBytes(OutFile(dir)), ReadBytes(Fixture("access/expected_123_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile(dir)), ReadBytes(Fixture("access/expected_123_audit.txt")));
}

TEST(RunDriverOutput, LocationJoinsTheNamesWithCompanyAndLocationTrimmed) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--company", " 123 ", "--location", " 07 "});
  auto result = call.Go();
  fs::path out = dir.output() / "123_07_ta.txt";
  fs::path audit = dir.output() / "Corvane_Audit_123_07.txt";
  ExpectReport(call, result, Report("Access", 4, 12, out.string(), audit.string()));
  EXPECT_EQ(ReadBytes(out), ReadBytes(Fixture("access/expected_123_ta.txt")));
  EXPECT_EQ(ReadBytes(audit), ReadBytes(Fixture("access/expected_123_audit.txt")));
  EXPECT_FALSE(fs::exists(OutFile(dir)));
}

TEST(RunDriverOutput, OutputPathIsJoinedWithAPlainSeparatorAsTyped) {
  // A relative folder typed with a trailing separator: the report names it as typed, with the
  // separator doubled, and the files land in that folder.
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--output", "out/"});
  auto result = call.Go();
  ExpectReport(call, result,
               Report("Access", 4, 12, "out//123_ta.txt", "out//Corvane_Audit_123.txt"));
  EXPECT_EQ(ReadBytes(OutFile(dir)), ReadBytes(Fixture("access/expected_123_ta.txt")));
}

TEST(RunDriverOutput, EmptyInputGivesZeroCountsAndEmptyFiles) {
  WorkDir dir;
  WriteBytes(dir.root() / "empty.csv", "");
  RunCall call(dir);
  call.Add({"--format", "Access", "--company", "123", "--end-date", "11/20/2026", "--input",
            (dir.root() / "empty.csv").string(), "--output", dir.output().string()});
  auto result = call.Go();
  ExpectReport(call, result, Report("Access", 0, 0, OutFile(dir), AuditFile(dir)));
  ASSERT_TRUE(fs::exists(OutFile(dir)));
  ASSERT_TRUE(fs::exists(AuditFile(dir)));
  EXPECT_EQ(fs::file_size(OutFile(dir)), 0u);
  EXPECT_EQ(fs::file_size(AuditFile(dir)), 0u);
}

// --- the D-or-E boxes -----------------------------------------------------------------------

// Field 6 (D-or-E) of every import line whose field 7 holds `code`.
std::vector<std::string> KindsOfCode(const WorkDir& dir, const std::string& code) {
  std::vector<std::string> kinds;
  for (const auto& line : CrLfLines(ReadBytes(OutFile(dir)))) {
    auto fields = Fields(line);
    if (fields.size() > 6 && fields[6] == code) kinds.push_back(fields[5]);
  }
  return kinds;
}

const std::string kDorEMessage = "Please enter E for Earnings, D for Deductions, H, M or S.";

TEST(RunDriverDorE, WrongLetterIsReportedAndTheBoxBecomesE) {
  WorkDir dir;
  auto call = AccessRun(dir);
  // "D" first, so that the reset to "E" is visible in the file.
  call.Add({"--set", "txtRegDE=D", "--set", "txtRegDE=x"});
  auto result = call.Go();
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[0], "", kDorEMessage, kOk, "OK"));
  ExpectReport(call, result, AccessReport(dir));
  EXPECT_EQ(KindsOfCode(dir, "2"), (std::vector<std::string>{"E", "E"}));
}

TEST(RunDriverDorE, EmptyBoxCountsAsWrong) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--set", "txtOTDE=D", "--set", "txtOTDE="});
  auto result = call.Go();
  auto dialogue = Dialogue(call.Transcript());
  ASSERT_EQ(dialogue.size(), 2u) << result.err;
  EXPECT_TRUE(IsMessage(dialogue[0], "", kDorEMessage, kOk, "OK"));
  EXPECT_EQ(KindsOfCode(dir, "3"), (std::vector<std::string>{"E", "E"}));
}

TEST(RunDriverDorE, LowerCaseLetterIsRaisedWithoutMessage) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--set", "txtRegDE=h", "--set", "txtDblDE=d"});
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
  EXPECT_EQ(Dialogue(call.Transcript()).size(), 1u);
  EXPECT_EQ(KindsOfCode(dir, "2"), (std::vector<std::string>{"H", "H"}));
  EXPECT_EQ(KindsOfCode(dir, "4"), (std::vector<std::string>{"D", "D"}));
  // The audit line carries the kind before the code.
  std::string audit = ReadBytes(AuditFile(dir));
  EXPECT_NE(audit.find(" H2 - 40 Hours\r\n"), std::string::npos);
  EXPECT_NE(audit.find(" D4 - 500.00 Dollars\r\n"), std::string::npos);
}

TEST(RunDriverDorE, HolidayBoxIsNotValidatedAndKeepsAnyText) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--set", "txtHolDE=x"});
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
  EXPECT_EQ(Dialogue(call.Transcript()).size(), 1u);
  EXPECT_EQ(KindsOfCode(dir, "10"), (std::vector<std::string>{"x"}));
  EXPECT_NE(ReadBytes(AuditFile(dir)).find(" x10 - 8 Hours\r\n"), std::string::npos);
}

// --- the command line -----------------------------------------------------------------------

const char* const kCatalogue =
    "ABRA, Access, AccroPrint v2.0, ADI, ADI v9.4.1, ADP-AS400, ADP/Aspect, ADP.csv, ADP (BST), "
    "ADP (extpaydt), ADP/EZ Labor, ADP v11.2.3, ADS Custom, AE v1.0.27.6, AE v1.0.28.616, Aloha "
    "v5.3.13, Aloha v5.3.17, Aloha v5.3.20, Aloha v5.3.26, Aloha v5.3.46, Aloha v6, Aloha "
    "v6.1.1.3, Aloha v6.2, Aloha v6.2.12, Aloha v6.2.27, Aloha v6.5.42, Aloha v6.5.44, Aloha "
    "v6.7.22, Aloha v6.7.38, Aloha Enterprise, Aloha Labor Scheduler (5.3.19), Aloha WGL, Ampay, "
    "Angel Fire, Archaic Beef, Aspect, Ave OT, BGS, Brioso, Ceridian Web, ChronoTek, Cleaning "
    "Authority, CLI, Costa View EZLabor, CTuit Radar, Dairy Queen, Darwin, dataSIGN, DataTrak, "
    "DDMGR, Deltek, Deltek (Galloway), Deltek v6.15, Deltek v8.3, Deltek v8.3 Fixed, Denny's "
    "DINE, Denny's DINE - Relco, Digital Dining, Dinnerware, Dos Coyote, Drake-Williams, ESI, "
    "eWorks, Five Guys, FWA, Generations, Generations (xRef), Gradience, Great Plains, Hill, Hill "
    "Ascii, Hill csv, Hill-TMW, HomePro, HomeTrak, Homewatch, Homewatch 2, Homewatch 3, Hooters, "
    "IHOP8, Infotronics AE 1.0.3, Infotronics, Infotronics 2, Insperity, Jantek v9.0, Job "
    "Source, KanTime, Karmak, Konetix v4.1, Kronos/ADP, Kronos Hours Summary, Kronos TimeKeeper "
    "3, Kronos TimeKeeper 3a, Kronos Summary, Kronos (14 Columns), Kronos v2c, Kronos v2C "
    "(Short), Kronos v3, Kronos v5a, Kronos v6, Kronos v6 Column M, Kronos v6 csv, Kronos v8, "
    "Kronos v8D, Kronos Penn, Lake Austin, Lathem, Lathem v6, Lathem Payclock Pro, Lathern, "
    "Maddock, Maitre'D, Micros 3700 v4.1, Micros 3700 v4.1Br, Millennium, Millennium Soneto, "
    "Millennium v2, Monolith, NetSuite, NovaTime, OmniChrome, OnePOS, PayChoice, Sorrelin 2868, "
    "PaySuite, PCI Paper, POSiTouch (.csv), POSiTouch (.flt), POSiTouch (.prn), POSiTouch OTB, "
    "POSiTouch (long .prn), PRC, Prevail Pay, Prevail Pay 2, Procede, PXP-Golden Corral, Q-quest "
    "ETC 200, QsrSoft, QSRSoft v2, QuickBooks, Qwest, RapidPay, RBI, Resource, Restaurant Magic, "
    "ROM, Sage (Mas90), Sage vX, SAILOR Poll, SEI, Shelby, Shepard ES, Shoneys, Shoney's Sales, "
    "Sicom (.csv), Sonic, Soule, Squirrel POS 1.45, Squirrel v3.2, Student Study, Taste Bistro, "
    "Temp Wizard, TimeCentre, Timeclock Plus, Timeclock Plus (Bezion), Timeclock Plus Pro v5.0, "
    "Timeclock Plus Pro v5.0.2.189, Timeforce DCOG, Time Guardian, Time-in-a-Box, Time Manager "
    "v2.8 csv, Time Manager v2.8, Time Manager v2.x, Time Manager v2.0, Time Manager v1.8, Time "
    "Management Systems, TimeTrak, TimeTrax, TLH, TMX, Toast, TruQC, TruTime, TSVC, VBP, VFN, "
    "Wheatfields, Yellow Dog";

std::vector<std::string> SplitOn(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (start <= text.size()) {
    size_t end = text.find(separator, start);
    if (end == std::string::npos) end = text.size();
    parts.push_back(text.substr(start, end - start));
    start = end + separator.size();
  }
  return parts;
}

std::vector<std::string> StdoutLines(const std::string& out) {
  auto lines = SplitOn(out, "\n");
  if (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

TEST(RunDriverCommand, FormatsListsTheWholeCatalogueInListOrder) {
  WorkDir dir;
  auto result = RunCommand({"formats"}, dir.root(), dir.home());
  EXPECT_EQ(result.status, 0) << result.err;
  auto lines = StdoutLines(result.out);
  auto expected = SplitOn(kCatalogue, ", ");
  ASSERT_EQ(expected.size(), 188u);
  EXPECT_EQ(lines, expected);
}

TEST(RunDriverCommand, FormatsMissingNamesOnlyKeysWithoutTranslator) {
  WorkDir dir;
  auto result = RunCommand({"formats", "--missing"}, dir.root(), dir.home());
  EXPECT_EQ(result.status, 0) << result.err;
  auto lines = StdoutLines(result.out);
  auto has = [&](const std::string& name) {
    return std::find(lines.begin(), lines.end(), name) != lines.end();
  };
  EXPECT_TRUE(has("Yellow Dog"));
  EXPECT_FALSE(has("Access"));
  EXPECT_FALSE(has("ABRA"));
  EXPECT_FALSE(has("Aloha v6.5.42"));
}

TEST(RunDriverCommand, VersionIsPrinted) {
  WorkDir dir;
  auto result = RunCommand({"--version"}, dir.root(), dir.home());
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "corvane 0.1.0\n");
}

TEST(RunDriverCommand, WrongCommandLinesEndWithStatusTwoAndWriteNothing) {
  // A key differing from a list entry in case alone is no key.
  const std::vector<std::pair<std::string, std::vector<std::string>>> wrong = {
      {"access", {}}, {"Access", {"--set", "txtNoSuchBox=1"}}, {"Access", {"--no-such-option"}}};
  for (const auto& [format, extra] : wrong) {
    SCOPED_TRACE(format + (extra.empty() ? "" : " " + extra[0] + " " + extra.back()));
    WorkDir dir;
    auto call = AccessRun(dir, format);
    for (const auto& a : extra) call.args.push_back(a);
    auto result = call.Go();
    EXPECT_EQ(result.status, 2) << result.err;
    EXPECT_FALSE(fs::exists(OutFile(dir)));
  }
}

TEST(RunDriverCommand, ListEntryCanBeChosenByIndex) {
  // Index 1 is the second entry of the list, "Access".
  WorkDir dir;
  auto call = AccessRun(dir, "ABRA");
  call.Add({"--set", "PickTC=1"});
  auto result = call.Go();
  ExpectReport(call, result, AccessReport(dir));
}

TEST(RunDriverCommand, KeyWithoutTranslatorIsRefusedWithItsName) {
  WorkDir dir;
  auto call = AccessRun(dir, "Yellow Dog");
  auto result = call.Go();
  ExpectRefused(dir, call, result, "Time clock Yellow Dog is not available yet.");
}

TEST(RunDriverCommand, EveryMessageIsAlsoPrintedOnStandardError) {
  WorkDir dir;
  auto call = AccessRun(dir);
  call.Add({"--end-date", "11/23/2026"});
  auto result = call.Go();
  EXPECT_NE(result.err.find("Period Ending Date cannot be in the future."), std::string::npos);
}

}  // namespace
}  // namespace corvane_test
