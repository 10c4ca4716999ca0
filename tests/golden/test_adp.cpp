// The ADP family translated end to end through `corvane run` and compared with import, audit
// and exception files written by hand. What each record of each fixture tests is in
// tests/fixtures/adp/README.md.
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
    {"txtSales", "Sales"}, {"txtMisc", "Misc"}, {"txtDisb", "Disb"}, {"txtAbs", "Abs"},
    {"txtHol", "Hol"},     {"txtAdjH", "AdjH"}, {"txt15", "15"},     {"txt16", "16"},
    {"txt17", "17"},       {"txt18", "18"},     {"txt19", "19"},     {"txt20", "20"},
    {"txt21", "21"},       {"txt22", "22"},     {"txt23", "23"},     {"txt24", "24"},
};

RunCall AdpCall(const WorkDir& dir, const std::string& format, const fs::path& input) {
  RunCall call(dir);
  call.Add({"--format", format, "--company", "123", "--end-date", "11/20/2026", "--input",
            input.string(), "--output", dir.output().string()});
  for (const auto& [box, code] : kCodes) call.Add({"--set", box + "=" + code});
  // A fresh work folder has chkDept and chkPayRate checked; each test checks what it needs.
  call.Add({"--set", "chkDept=0", "--set", "chkPayRate=0", "--set", "chkBr=0"});
  return call;
}

RunCall FixtureCall(const WorkDir& dir, const std::string& format, const std::string& name) {
  return AdpCall(dir, format, dir.CopyIn(Fixture("adp/" + name), name));
}

void ExpectFiles(const WorkDir& dir, const std::string& expected) {
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), ReadBytes(Fixture("adp/" + expected + "_ta.txt")));
  EXPECT_EQ(ReadBytes(AuditFile123(dir)), ReadBytes(Fixture("adp/" + expected + "_audit.txt")));
}

TEST(ADPas400Translator, LinesSplitByTheTranslatorUntilAnEmptyLine) {
  // Covers: quotes removed and fields trimmed; File # by "000000"; the hours 3, memo and
  // earnings 3 codes through the table, earnings as dollars; a seven-field line reusing the
  // last line's memo and earnings; an unknown code "X" repeating the previous category's code
  // and D-or-E; columns past the eleventh ignored; a line of quotes alone ending the reading.
  WorkDir dir;
  auto call = FixtureCall(dir, "ADP-AS400", "as400.csv");
  call.Add({"--set", "txt23DE=D"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ADP-AS400", 4, 13);
  ExpectFiles(dir, "expected_as400");
}

TEST(ADPAspectTranslator, UnknownCodesAreReportedAndTheSecondEndsTheReading) {
  // Covers: File #, Temp Dept and the hours read as numbers (001001 -> 1001, 0200 -> 200,
  // 40.00 -> 40); Temp Rate and Temp Dept under their boxes; code "T" as dollars; a blank
  // code passed over; an unknown code shown and written to the exception file with the row's
  // File # and dollars; the second unknown code shown, then the exception file cannot be
  // created again while open, which ends the reading after the row's hours were written.
  WorkDir dir;
  auto call = FixtureCall(dir, "ADP/Aspect", "aspect.txt");
  call.Add({"--set", "chkDept=1", "--set", "chkPayRate=1"});
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "ADP/Aspect", 5, 9,
                           {"Unrecognized Earnings 3 Code 'B' from ADP/Aspect",
                            "Unrecognized Earnings 3 Code 't' from ADP/Aspect"});
  ExpectFiles(dir, "expected_aspect");
  EXPECT_EQ(ReadBytes(dir.output() / "Corvane_Exception_123.txt"),
            ReadBytes(Fixture("adp/expected_aspect_exception.txt")));
}

TEST(ADPcsvTranslator, SecondAndThirdShiftHoursGetTheirPremiumWithOrWithoutTheShiftBox) {
  // Covers: shift 2 and 3 premiums for regular, overtime and "V" hours, none for "D"; shift
  // 02 read as the number 2; a lower-case code passed over; shift 1 not sent; text in Reg
  // Hours ending the reading with the row counted. Without the boxes the department and
  // shift stay blank but the premium lines are the same.
  for (bool boxes : {true, false}) {
    SCOPED_TRACE(boxes ? "chkBr and chkDept checked" : "boxes clear");
    WorkDir dir;
    auto call = FixtureCall(dir, "ADP.csv", "adpcsv.csv");
    if (boxes) call.Add({"--set", "chkBr=1", "--set", "chkDept=1"});
    auto result = call.Go();
    ExpectOnlyReport(dir, call, result, "ADP.csv", 5, 13);
    ExpectFiles(dir, boxes ? "expected_adpcsv_boxes" : "expected_adpcsv");
  }
}

TEST(ADPBSTTranslator, RowsWithoutPairsArriveAsTheNextLine) {
  // Covers: a numeric company code kept as text to recognise the next row; a row without
  // pairs followed by one with three pairs, whose fields then come from the split line and
  // print as they stand (40.00); "u" taken as "U", " U" passed over, "#.00" on the dollars;
  // two rows without pairs at the end of the file.
  WorkDir dir;
  auto call = FixtureCall(dir, "ADP (BST)", "bst.csv");
  call.Add({"--set", "txtTipsDE=D"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ADP (BST)", 6, 12);
  ExpectFiles(dir, "expected_bst");
}

TEST(ADPBSTTranslator, LastRowWithoutPairsAfterAPairedRowReadsPastTheEnd) {
  // The pairs of a row are read as the rest of its line; the last row has none, so that read
  // finds the end of the file, and the self-reading translator has no handler.
  WorkDir dir;
  WriteBytes(dir.root() / "bst.csv",
             "Co Code,Batch ID,File #,Temp Rate,Reg Hours,O/T Hours,Hours 3 Code,Hours 3 "
             "Amount\r\n"
             "XYZ,5,001001,10.50,40.00,0.00,U,8.00\r\n"
             "XYZ,5,001002,9.25,38.00,0.00\r\n");
  auto call = AdpCall(dir, "ADP (BST)", dir.root() / "bst.csv");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 62);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"001001\",\"\",,,,E,Reg,,40,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"001001\",\"\",,,,E,Tips,,,,,,,,8.00,1,,,,,,,,,,,,,\r\n");
}

TEST(ADPTranslator, ExtpaydtRecordsWithSalesSplitAcrossTwoRecords) {
  // Covers: the head record dropped (it would leave an "Employee_num" audit line); the
  // "Employee_num" audit line per record; hours and rate by their pictures ("40.", ".5",
  // "9.50"); tips at least 1 cent; sales of 0012 and 345 making 12345.00; a continuation
  // read in the translator and not counted, also when its sales come to 0; the hours lines
  // carrying the dollars of the record before; the partial record at the end.
  WorkDir dir;
  auto call = FixtureCall(dir, "ADP (extpaydt)", "extpaydt.lpm");
  call.Add({"--set", "chkDept=1", "--set", "chkPayRate=1"});
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ADP (extpaydt)", 4, 10);
  ExpectFiles(dir, "expected_extpaydt");
}

TEST(ADPEZLaborTranslator, PairsByTheirCodesWithTheRestOfTheLineReadAway) {
  // Covers: Pay # to Seq, Shift and Temp Dept from the file; codes trimmed (" S "); an
  // unknown code shown with its hours and its pair left out; "0" and " 0 " failing the value
  // test while 0.00 passes and is dropped by the writer; a row with no columns past the third
  // pair, whose rest-of-line read takes the next row away; a half row at the end.
  WorkDir dir;
  auto call = FixtureCall(dir, "ADP/EZ Labor", "ezlabor.csv");
  call.Add({"--set", "chkDept=1", "--set", "txtHolDE=D"});
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "ADP/EZ Labor", 4, 11,
                           {"Unexpected Earning Code: Q for EE# 1002 - 3.00 hours"});
  ExpectFiles(dir, "expected_ezlabor");
}

TEST(ADPEZLaborTranslator, WithoutTheDepartmentBoxTheRowHasNoTempDept) {
  WorkDir dir;
  WriteBytes(dir.root() / "ez.csv",
             "Co Code,Batch Id,File #,Pay #,Shift,Rate Code,Tax Frequency,Special Action,Reg "
             "Hours,O/T Hours,Hours 3 Code,Hours 3 Amount,Hours 3 Code,Hours 3 Amount,Hours 3 "
             "Code,Hours 3 Amount\r\n"
             "XYZ,7,1001,1,2,,W,,40.00,2.00,V,8.00,,,,,\r\n");
  auto call = AdpCall(dir, "ADP/EZ Labor", dir.root() / "ez.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ADP/EZ Labor", 1, 3);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)),
            "\"1001\",\"\",,,2,E,Reg,,40.00,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"\",,,2,E,OT,,2.00,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"1001\",\"\",,,2,E,Sales,,8.00,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(CostaViewEZLaborTranslator, NumericCodesCompareAsNumbersAndFileNumbersLoseTheirBlanks) {
  // Covers: blanks removed inside File #; every code of the table; 01 and 1.0 equal to "1";
  // a quoted " 2" not equal to "2"; 07 shown as 7 in the message.
  WorkDir dir;
  auto call = FixtureCall(dir, "Costa View EZLabor", "costaview.csv");
  auto result = call.Go();
  ExpectMessagesThenReport(dir, call, result, "Costa View EZLabor", 4, 13,
                           {"Unexpected Earning Code:  2 for EE# 1002 - 4.00 hours",
                            "Unexpected Earning Code: 7 for EE# 1003 - 2.00 hours"});
  ExpectFiles(dir, "expected_costaview");
}

TEST(ADPv1123Translator, PairsGoByPositionPastTheSkippedColumns) {
  // Covers: the 16 skipped columns; the pair codes ignored ("X", "Q", blank); the first pair
  // as hours, the two earnings pairs as dollars; "0" and a quoted " 0 " writing nothing, 0.00
  // passing the test and then dropped by the writer.
  WorkDir dir;
  auto call = FixtureCall(dir, "ADP v11.2.3", "v1123.csv");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ADP v11.2.3", 3, 11);
  ExpectFiles(dir, "expected_v1123");
}

TEST(ADSCustomTranslator, SixDigitHoursWithTwoImpliedDecimals) {
  // Covers: 004025 -> 40.25 and 000050 -> 0.50; "000000" writing nothing; the "V" flag
  // sending the first hours to the vacation box; every hours field in order; an employee
  // number with leading blanks by "######"; the partial record at the end.
  WorkDir dir;
  auto call = FixtureCall(dir, "ADS Custom", "ads.txt");
  auto result = call.Go();
  ExpectOnlyReport(dir, call, result, "ADS Custom", 4, 8);
  ExpectFiles(dir, "expected_ads");
}

TEST(ADSCustomTranslator, BlankHoursFieldIsATypeMismatchThatEndsTheProgram) {
  // Only "000000" means no hours: a blank field becomes "    .  ", which the writer cannot
  // take as a number, and the fixed-record branch has no handler.
  WorkDir dir;
  std::string record(104, ' ');
  record.replace(6, 6, "001001");
  record.replace(24, 6, "000000");
  record.replace(70, 6, "000000");
  record.replace(91, 6, "000000");
  record.replace(98, 6, "000000");
  WriteBytes(dir.root() / "ads.txt", record + "\r\n");
  auto call = AdpCall(dir, "ADS Custom", dir.root() / "ads.txt");
  auto result = call.Go();
  ExpectRuntimeErrorOnly(call, result, 13);
  EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
}

TEST(ADPCommaFormats, EmptyOrHeadingOnlyFilesEndQuietlyWithZeroCounts) {
  // The handler covers the heading reads, so an empty file is a normal, empty run.
  for (const char* format :
       {"ADP/Aspect", "ADP.csv", "ADP/EZ Labor", "Costa View EZLabor", "ADP v11.2.3"}) {
    for (const std::string& content : {std::string(), std::string("Co Code,Batch Id\r\n")}) {
      SCOPED_TRACE(std::string(format) + (content.empty() ? ", empty" : ", heading only"));
      WorkDir dir;
      WriteBytes(dir.root() / "adp.csv", content);
      auto call = AdpCall(dir, format, dir.root() / "adp.csv");
      auto result = call.Go();
      ExpectOnlyReport(dir, call, result, format, 0, 0);
      EXPECT_EQ(ReadBytes(ImportFile123(dir)), "");
    }
  }
}

}  // namespace
}  // namespace corvane_test
