// The plain column maps: the one shape's tricky cases, with maps made for the test and the
// import lines worked out by hand.
#include <gtest/gtest.h>

#include "fake_operator.hpp"
#include "pipeline/column_map.hpp"
#include "pipeline/dispatch.hpp"
#include "pipeline/readers.hpp"
#include "pipeline/time_import.hpp"
#include "screen/catalogue.hpp"
#include "temp_folder.hpp"

namespace corvane {
namespace {

using testing::FakeOperator;
using testing::TempFolder;

// A comma export: number (text), last name, first name, department, rate, hours, dollars.
constexpr PayColumn kCommaPay[] = {
    {Field(6), Figure::Hours, Cat::Reg},
    {Field(7), Figure::Dollars, Cat::Tips},
};
constexpr ColumnMap kComma{
    .translator = "TestComma",
    .fields = 7,
    .text_fields = TextFields({1}),
    .employee = Field(1),
    .name = Field(2),
    .first_name = Field(3),
    .department = Field(4),
    .payrate = Field(5),
    .pay = kCommaPay,
};
constexpr Translator kCommaTranslator = MapTranslator<kComma>(MapInput::CommaFields);

// A report of whole lines: "EMP" lines carry a number, a pay code and hours split at commas;
// anything else is a heading or a total.
bool IsEmpLine(std::string_view line) {
  return line.starts_with("EMP");
}
constexpr PayCode kLineCodes[] = {
    {"R", Cat::Reg},
    {"O", Cat::OT},
    {"B", Cat::Sales, Figure::Dollars},
};
std::vector<std::string> unknown_codes;
void NoteUnknown(frmTimeImport&, const Value& code) {
  unknown_codes.push_back(code.str());
}
constexpr ColumnMap kLines{
    .translator = "TestLines",
    .fields = 5,
    .heading_lines = 1,
    .is_record = IsEmpLine,
    .translate_last_line = true,
    .employee = Field(2),
    .code_rule = CodeRule::Lookup,
    .code = Field(3),
    .code_hours = Field(4),
    .code_dollars = Field(5),
    .codes = kLineCodes,
    .unknown_code = NoteUnknown,
};
constexpr Translator kLinesTranslator = MapTranslator<kLines>(MapInput::Lines);

// A fixed record of the branch's 83 bytes: number (1-6), pay designation (7-8), hours in
// hundredths (9-14), SSN (15-22), filler, line end.
constexpr ColumnMap kFixed{
    .translator = "TestFixed",
    .employee = Slice(1, 6),
    .ssn = Slice(15, 8),
    .code_rule = CodeRule::Grid,
    .code = Slice(7, 2),
    .code_hours = Slice(9, 6, 2),
};
constexpr Translator kFixedTranslator = MapTranslator<kFixed>(MapInput::Lines);

// A record that names its own earning code and D-or-E.
constexpr ColumnMap kOwnCode{
    .translator = "TestOwnCode",
    .fields = 4,
    .employee = Field(1),
    .code_rule = CodeRule::FromRecord,
    .code = Field(2),
    .dore = Field(3),
    .code_hours = Field(4),
    .hours_picture = "0.00",
};
constexpr Translator kOwnCodeTranslator = MapTranslator<kOwnCode>(MapInput::CommaFields);

class ColumnMaps : public ::testing::Test {
 protected:
  ColumnMaps() : F(ui, Environment{tmp / "settings", Date{2026, 11, 22}}) {
    unknown_codes.clear();
    F.Form_Load();
    ui.messages.clear();
  }
  // Runs a translator over an input of these bytes, in the branch of a key of the shape
  // wanted, and returns the import file.
  std::string Run(std::string_view key, const Translator& t, const std::string& bytes) {
    F.SelectTimeClock(CatalogueIndex(key));
    F.S[txtReg].text = "1";
    F.S[txtOT].text = "2";
    F.S[txtTips].text = "7";
    F.S[txtSales].text = "9";
    for (Ctl de : {txtRegDE, txtOTDE, txtTipsDE, txtSalesDE}) F.S[de].text = "E";
    for (auto& [box, value] : checks) F.S[box].value = value;
    F.INFile = tmp.Write("input.dat", bytes);
    F.Output_Path = tmp / "out";
    F.OUTFile = tmp / "out/123_ta.txt";
    F.S[CoNum].text = "123";
    // the company's table, from an empty settings folder: one starter row with no code
    F.rsECodes = std::make_unique<ECodeData>(F.env.settings_dir, F.S, ui);
    RunBranch(F, *FindClock(key), t);
    F.OutputStream->Close();
    return TempFolder::Read(tmp / "out/123_ta.txt");
  }

  std::vector<std::pair<Ctl, int>> checks;
  TempFolder tmp;
  FakeOperator ui;
  frmTimeImport F;
};

TEST_F(ColumnMaps, CommaRecordsKeepTextNumbersJoinNamesAndHonourTheBoxes) {
  checks = {{chkDept, 1}, {chkPayRate, 0}};
  // "Access" is a comma-fields branch under a handler: the heading record goes first, and
  // the half record at the end is not translated.
  const std::string out = Run("Access", kCommaTranslator,
                              "No,Last,First,Dept,Rate,Hours,Tips\r\n"
                              "0012,\"Lee, Ann\",,D1,9.25,8.50,$12.50\r\n"
                              " ,Nobody,,D2,9,40,0\r\n"
                              "0340,Diaz,Raul,D2,10,0,$0.00\r\n"
                              "0341,Kim,Jo,D3,11,-2,3\r\n"
                              "0777,Half,Rec");
  EXPECT_EQ(out,
            "\"0012\",\"Lee, Ann\",D1,,,E,1,,8.5,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"0012\",\"Lee, Ann\",D1,,,E,7,,,,,,,,12.50,1,,,,,,,,,,,,,\r\n"
            "\"0341\",\"Kim, Jo\",D3,,,E,7,,,,,,,,3,1,,,,,,,,,,,,,\r\n");
  // the blank number is passed over uncounted; a record with nothing to pay still counts
  EXPECT_EQ(F.TCcount, 3);

  checks = {{chkDept, 0}, {chkPayRate, 1}};
  EXPECT_EQ(Run("Access", kCommaTranslator, "h,h,h,h,h,h,h\r\n0012,Lee,Ann,D1,9.25,8,0\r\n"),
            "\"0012\",\"Lee, Ann\",,,,E,1,9.25,8,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST_F(ColumnMaps, ReportLinesAreToldApartAndOnlyEmployeeLinesCount) {
  // "Archaic Beef" is a whole-line branch under a handler.
  const std::string out = Run("Archaic Beef", kLinesTranslator,
                              "PAYROLL REPORT\r\n"
                              "Page 1\r\n"
                              "EMP,101,R,40.00,\r\n"
                              "EMP,101,\"O\",2.5,\r\n"
                              "EMP,101,B,,$25.00\r\n"
                              "EMP,102,Q,8,\r\n"
                              "TOTAL,,,50.5,25\r\n"
                              "EMP,103,R,7.25");
  EXPECT_EQ(out,
            "\"101\",\"\",,,,E,1,,40,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"101\",\"\",,,,E,2,,2.5,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"101\",\"\",,,,E,9,,,,,,,,25.00,1,,,,,,,,,,,,,\r\n"
            "\"103\",\"\",,,,E,1,,7.25,,,,,,,1,,,,,,,,,,,,,\r\n");
  EXPECT_EQ(unknown_codes, std::vector<std::string>{"Q"});
  // the heading and "Page 1" are not employee lines, nor is the total; the last line counts
  EXPECT_EQ(F.TCcount, 5);
}

TEST_F(ColumnMaps, FixedSlicesTakeImpliedPlacesAndGridCodesMarkTheUnknown) {
  checks = {{chkSSN, 1}};
  auto record = [](std::string head) { return head + std::string(81 - head.size(), ' ') + "\r\n"; };
  // "PaySuite" is a fixed-record branch of 83 bytes
  const std::string out = Run("PaySuite", kFixedTranslator,
                              record("E00001010008501234567 ") +     // SSN "1234567 "
                                  record("E00002030000000000000") +  // no hours
                                  "E00003");                         // cut short: not translated
  // the company has no codes: designation 1 goes out as "?" and is named at the end
  EXPECT_EQ(out, "\"E00001\",\"\",,,,E,?,,8.50,,,,,,,1,,,,,,,,001234567,,,,,\r\n");
  EXPECT_EQ(F.ColumnValues[1], Value("X"));
  EXPECT_EQ(F.ColumnValues[3], Value());
}

TEST_F(ColumnMaps, OwnCodesGoOutAsTheyStandAndABlankCodeIsPassedOver) {
  const std::string out = Run("Access", kOwnCodeTranslator,
                              "emp,code,de,hours\r\n"
                              "5,REG,,8\r\n"
                              "5,,E,4\r\n"
                              "6,401K,D,1.5\r\n");
  EXPECT_EQ(out,
            "\"5\",\"\",,,,E,REG,,8.00,,,,,,,1,,,,,,,,,,,,,\r\n"
            "\"6\",\"\",,,,D,401K,,1.50,,,,,,,1,,,,,,,,,,,,,\r\n");
}

TEST(ColumnMapSplit, QuotesAndMissingFieldsOfASplitLine) {
  Value f[6];
  column_map::SplitLine(kLines, "EMP, 0042 ,\"a,b\"", f);
  // a quoted field holding the separator is cut at it: split lines carry no such fields
  EXPECT_EQ(f[1], Value("EMP"));
  EXPECT_TRUE(f[2].IsNumber());
  EXPECT_EQ(f[2], Value(42));
  EXPECT_EQ(f[3].str(), "\"a");
  EXPECT_EQ(f[4].str(), "b\"");
  EXPECT_TRUE(f[5].IsBlank() || f[5].str().empty());
}

}  // namespace
}  // namespace corvane
