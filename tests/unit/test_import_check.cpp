// The pre-import check on lines built by hand: each rule on a line made to break it, and a
// clean line of either layout that passes them all.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "pipeline/import_check.hpp"

namespace corvane {
namespace {

// A clean line of the new layout: team in field 29; each change replaces one field, given
// as it stands in the file (quotes included for fields 1 and 2).
std::string Line(const std::map<int, std::string>& changes = {}) {
  std::vector<std::string> f(29);
  f[0] = "\"101\"";
  f[1] = "\"Pat Lee\"";
  f[2] = "10";
  f[3] = "COOK";
  f[5] = "E";
  f[6] = "2";
  f[7] = "15.00";
  f[8] = "40";
  f[15] = "1";
  f[28] = "T1";
  for (const auto& [field, text] : changes) f[static_cast<std::size_t>(field - 1)] = text;
  std::string line = f[0];
  for (std::size_t k = 1; k < f.size(); ++k) line += "," + f[k];
  return line;
}

struct Found {
  CheckRule rule;
  int field;
};

std::vector<Found> Check(const std::string& line, CheckOptions options = {}) {
  ImportCheck check(options);
  const int file = check.BeginFile("123_ta.txt");
  check.CheckLine(file, 7, line);
  check.Finish();
  std::vector<Found> found;
  for (const CheckWarning& w : check.warnings()) {
    EXPECT_EQ(w.line, 7);
    found.push_back({w.rule, w.field});
  }
  return found;
}

::testing::AssertionResult Only(const std::vector<Found>& found, CheckRule rule, int field) {
  if (found.size() == 1 && found[0].rule == rule && found[0].field == field) {
    return ::testing::AssertionSuccess();
  }
  auto failure = ::testing::AssertionFailure()
                 << "expected only " << RuleName(rule) << " on " << field << ", got";
  for (const Found& f : found) failure << " " << RuleName(f.rule) << " on " << f.field;
  return failure;
}

TEST(ImportCheck, CleanLinesOfBothLayoutsPass) {
  EXPECT_TRUE(Check(Line()).empty());
  // old layout: the team in field 23, field 29 blank
  EXPECT_TRUE(Check(Line({{23, "T1"}, {29, ""}})).empty());
  // a dollars line, a deduction, a name with a comma inside its quotes, and a quote inside a
  // name, which the file does not escape
  EXPECT_TRUE(Check(Line({{9, ""}, {15, "125.50"}})).empty());
  EXPECT_TRUE(Check(Line({{6, "D"}, {7, "D1"}})).empty());
  EXPECT_TRUE(Check(Line({{2, "\"Lee, Pat\""}})).empty());
  EXPECT_TRUE(Check(Line({{2, "\"Pat \"Red\" Lee\""}})).empty());
  // figures exactly at the thresholds, and zero hours beside dollars
  EXPECT_TRUE(Check(Line({{8, "1000"}, {9, "100.00"}})).empty());
  EXPECT_TRUE(Check(Line({{9, "0.00"}, {15, "12.50"}})).empty());
  // widths are counted without the blanks around a field
  EXPECT_TRUE(Check(Line({{3, " 123456 "}})).empty());
}

TEST(ImportCheck, EachRuleFiresOnALineMadeToBreakIt) {
  EXPECT_TRUE(Only(Check(Line({{1, "\"\""}})), CheckRule::EmployeeBlank, 1));
  EXPECT_TRUE(Only(Check(Line({{1, "\"   \""}})), CheckRule::EmployeeBlank, 1));
  EXPECT_TRUE(Only(Check(Line({{7, "?"}})), CheckRule::CodeUnassigned, 7));
  EXPECT_TRUE(Only(Check(Line({{7, ""}})), CheckRule::CodeBlank, 7));
  EXPECT_TRUE(Only(Check(Line({{6, "H"}})), CheckRule::DorE, 6));
  EXPECT_TRUE(Only(Check(Line({{6, "e"}})), CheckRule::DorE, 6));
  EXPECT_TRUE(Only(Check(Line({{6, ""}})), CheckRule::DorE, 6));
  EXPECT_TRUE(Only(Check(Line({{9, "abc"}})), CheckRule::NotANumber, 9));
  EXPECT_TRUE(Only(Check(Line({{8, "$15.00"}})), CheckRule::NotANumber, 8));
  EXPECT_TRUE(Only(Check(Line({{9, ""}, {15, "1e3"}})), CheckRule::NotANumber, 15));
  EXPECT_TRUE(Only(Check(Line({{9, "-3"}})), CheckRule::Negative, 9));
  EXPECT_TRUE(Only(Check(Line({{9, ""}, {15, "-12.50"}})), CheckRule::Negative, 15));
  EXPECT_TRUE(Only(Check(Line({{9, "100.01"}})), CheckRule::HoursOver, 9));
  EXPECT_TRUE(Only(Check(Line({{8, "1000.5"}})), CheckRule::RateOver, 8));
  EXPECT_TRUE(Only(Check(Line({{15, "12.50"}})), CheckRule::HoursAndDollars, 0));
  EXPECT_TRUE(Only(Check(Line({{1, "\"A101\""}}), {100, 1000, NumericEmployees::Yes}),
                   CheckRule::EmployeeNotNumeric, 1));
}

TEST(ImportCheck, EveryFieldWiderThanEvolutionsLayoutIsNamed) {
  const std::map<int, std::size_t> widths = {
      {1, 6},  {2, 25}, {3, 6},  {4, 12}, {5, 1},  {7, 2},  {8, 9},  {9, 8},  {10, 2}, {11, 2},
      {12, 2}, {15, 9}, {16, 1}, {17, 6}, {18, 6}, {19, 2}, {23, 6}, {24, 9}, {25, 6}, {29, 6}};
  for (const auto& [field, width] : widths) {
    SCOPED_TRACE(field);
    // digits keep the figures numbers and the code neither blank nor "?"
    std::string fits(width, '1');
    std::string wide(width + 1, '1');
    if (field <= 2) {
      fits = "\"" + fits + "\"";
      wide = "\"" + wide + "\"";
    }
    std::map<int, std::string> change{{field, wide}};
    // a figure this wide is also over the thresholds; a rate of one digit keeps it quiet
    if (field == 15) change[9] = "";
    std::vector<Found> found = Check(Line(change));
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found[0].rule, CheckRule::FieldTooLong);
    EXPECT_EQ(found[0].field, field);
    change[field] = fits;
    for (const Found& f : Check(Line(change))) EXPECT_NE(f.rule, CheckRule::FieldTooLong);
  }
}

TEST(ImportCheck, AShiftedLineIsToldByItsFieldCountAlone) {
  // A comma inside an unquoted department: every later field moves one place, and nothing
  // after it is tested, but the quoted employee number still is.
  std::vector<Found> found = Check(Line({{3, "10,20"}}));
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found[0].rule, CheckRule::FieldCount);
  found = Check(Line({{1, "\"\""}, {4, "A,B"}}));
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].rule, CheckRule::FieldCount);
  EXPECT_EQ(found[1].rule, CheckRule::EmployeeBlank);
  // too few fields, an empty line, and a name whose closing quote is missing
  EXPECT_TRUE(Only(Check("\"101\",\"Pat\",10"), CheckRule::FieldCount, 0));
  EXPECT_TRUE(Only(Check("\"101\""), CheckRule::FieldCount, 0));
  EXPECT_EQ(Check("").size(), 2u);  // no fields to speak of, and no employee
  EXPECT_TRUE(Only(Check(Line({{2, "\"Pat Lee"}})), CheckRule::FieldCount, 0));
}

TEST(ImportCheck, EmployeeNumbersAreHeldNumericWhenMostAreAndTheOptionsSay) {
  auto run = [](NumericEmployees rule, const std::vector<std::string>& numbers) {
    ImportCheck check({100, 1000, rule});
    const int file = check.BeginFile("f");
    long n = 0;
    for (const std::string& number : numbers) {
      check.CheckLine(file, ++n, Line({{1, "\"" + number + "\""}}));
    }
    check.Finish();
    return check;
  };
  const std::vector<std::string> mostly_digits = {"101", "A7", "0042", "103"};
  ImportCheck a = run(NumericEmployees::Auto, mostly_digits);
  EXPECT_TRUE(a.numeric_employees());
  ASSERT_EQ(a.warnings().size(), 1u);
  EXPECT_EQ(a.warnings()[0].line, 2);
  EXPECT_EQ(a.warnings()[0].employee, "A7");
  EXPECT_EQ(a.lines_with_warnings(), 1);
  // a format of letter codes: most numbers are not digits, and none is flagged
  ImportCheck letters = run(NumericEmployees::Auto, {"A1", "B2", "301"});
  EXPECT_FALSE(letters.numeric_employees());
  EXPECT_EQ(letters.total_warnings(), 0);
  EXPECT_EQ(run(NumericEmployees::No, mostly_digits).total_warnings(), 0);
  EXPECT_EQ(run(NumericEmployees::Yes, {"A1", "B2", "301"}).total_warnings(), 2);
}

TEST(ImportCheck, AutoWarningsOfLaterLinesComeInLineOrder) {
  // The deferred employee rule is merged with the warnings found at once, by line.
  ImportCheck check;
  const int file = check.BeginFile("f");
  check.CheckLine(file, 1, Line({{1, "\"X9\""}}));
  check.CheckLine(file, 2, Line({{7, "?"}}));
  check.CheckLine(file, 3, Line());
  check.CheckLine(file, 4, Line({{1, "\"X8\""}, {6, "M"}}));
  check.CheckLine(file, 5, Line());
  check.CheckLine(file, 6, Line());
  check.Finish();
  std::vector<long> lines;
  for (const CheckWarning& w : check.warnings()) lines.push_back(w.line);
  EXPECT_EQ(lines, (std::vector<long>{1, 2, 4, 4}));
  EXPECT_EQ(check.lines_with_warnings(), 3);
  EXPECT_EQ(check.total_warnings(), 4);
}

TEST(ImportCheck, ThresholdsAreOptions) {
  CheckOptions strict{40, 20, NumericEmployees::Auto};
  std::vector<Found> found = Check(Line({{8, "25"}, {9, "40.5"}}), strict);
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].rule, CheckRule::HoursOver);
  EXPECT_EQ(found[1].rule, CheckRule::RateOver);
  EXPECT_TRUE(Check(Line({{9, "150"}}), {200, 1000, NumericEmployees::Auto}).empty());
}

TEST(ImportCheck, AFilesTextIsCheckedLineByLineWhateverItsLineEnds) {
  const std::string good = Line();
  const std::string bad = Line({{7, "?"}});
  for (const std::string& end : {std::string("\r\n"), std::string("\n")}) {
    ImportCheck check;
    // the last line has no line end and is still a line
    CheckImportText(check, check.BeginFile("f"), good + end + bad + end + good + end + bad);
    check.Finish();
    EXPECT_EQ(check.lines_checked(), 4);
    ASSERT_EQ(check.warnings().size(), 2u);
    EXPECT_EQ(check.warnings()[0].line, 2);
    EXPECT_EQ(check.warnings()[1].line, 4);
  }
  ImportCheck empty;
  CheckImportText(empty, empty.BeginFile("f"), "");
  empty.Finish();
  EXPECT_EQ(empty.lines_checked(), 0);
}

TEST(ImportCheck, HostileTextIsCheckedWithoutHarmAndWarningsBeyondTheLimitAreCounted) {
  std::string bytes;
  for (int c = 0; c < 256; ++c) bytes.push_back(static_cast<char>(c));
  const std::string text =
      bytes + "\r\n\"\n\"\"\n\",\"\n\",,\"\n" + std::string(1 << 20, ',') + "\n\r\r\n";
  ImportCheck odd;
  CheckImportText(odd, odd.BeginFile("f"), text);
  odd.Finish();
  EXPECT_EQ(odd.lines_checked(), 8);
  EXPECT_EQ(odd.lines_with_warnings(), 8);

  // Past the kept warnings only the counts go on, the deferred employee rule included.
  ImportCheck many;
  const int file = many.BeginFile("f");
  const long lines = static_cast<long>(ImportCheck::kKeptWarnings) + 5;
  for (long n = 1; n <= lines; ++n) many.CheckLine(file, n, Line({{7, "?"}}));
  many.CheckLine(file, lines + 1, Line({{1, "\"A1\""}}));
  many.Finish();
  EXPECT_EQ(many.warnings().size(), ImportCheck::kKeptWarnings);
  EXPECT_EQ(many.counts()[static_cast<std::size_t>(CheckRule::CodeUnassigned)], lines);
  EXPECT_EQ(many.counts()[static_cast<std::size_t>(CheckRule::EmployeeNotNumeric)], 1);
  EXPECT_EQ(many.left_off(), 6);
  EXPECT_EQ(many.total_warnings(), lines + 1);
  EXPECT_EQ(many.lines_with_warnings(), lines + 1);
}

}  // namespace
}  // namespace corvane
