// Number pictures: every picture the system uses at zero, below one, negative, at the
// rounding half and large; numeric and other text; date pictures.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "runtime/dates.hpp"
#include "runtime/errors.hpp"
#include "runtime/picture.hpp"
#include "runtime/text.hpp"

namespace corvane {
namespace {

struct Case {
  double x;
  const char* want;
};

void Check(const char* picture, const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(Format(Value(c.x), picture), c.want) << c.x << " through \"" << picture << "\"";
  }
}

// ---- Pictures with no digit required before the point --------------------------------

TEST(PictureNoWholeDigit, PointZeroZero) {
  Check(".00", {{0, ".00"},
                {0.5, ".50"},
                {8, "8.00"},
                {40, "40.00"},
                {-3.456, "-3.46"},
                {-0.5, "-.50"},
                {2.675, "2.68"},  // binary 2.675 is below the half; decimal rounding
                {1.005, "1.01"},
                {3 * 1.115, "3.35"},  // prints 3.345
                {0.004, ".00"},
                {0.005, ".01"},
                {-0.001, ".00"},  // rounds to zero: no sign
                {-0.005, "-.01"},
                {0.995, "1.00"},
                {1234567, "1234567.00"},
                {std::numeric_limits<double>::denorm_min(), ".00"}});
}

TEST(PictureNoWholeDigit, HashPoint) {
  Check("#.00", {{0, ".00"}, {0.5, ".50"}, {40, "40.00"}, {-3.456, "-3.46"}, {12.345, "12.35"}});
  Check("#.000", {{0, ".000"},
                  {0.5, ".500"},
                  {1.2345, "1.235"},  // binary 1.2345 is below the half
                  {-0.0004, ".000"},
                  {-0.0005, "-.001"},
                  {123.4567, "123.457"}});
}

TEST(PictureNoWholeDigit, HashThenZeroInTheFraction) {
  for (const char* pic : {"###.#0", "####.#0"}) {
    Check(pic, {{0, ".00"},
                {0.5, ".50"},
                {40, "40.00"},
                {7.25, "7.25"},
                {-3.456, "-3.46"},
                {1234.5, "1234.50"},
                {99999.999, "100000.00"}});
  }
  Check(".#0", {{0, ".00"}, {0.5, ".50"}, {1.25, "1.25"}, {-0.05, "-.05"}});
}

TEST(PictureNoWholeDigit, OptionalFractionDigits) {
  Check("####.##", {{0, "."},
                    {0.5, ".5"},
                    {40, "40."},
                    {40.25, "40.25"},
                    {40.255, "40.26"},
                    {0.1, ".1"},
                    {-3.456, "-3.46"},
                    {0.004, "."},
                    {-0.004, "."},
                    {12345.6, "12345.6"}});
}

TEST(PictureNoWholeDigit, FixedFraction) {
  Check("####.00", {{0, ".00"}, {40, "40.00"}, {0.5, ".50"}, {12345.678, "12345.68"}});
  Check("###.00", {{0.5, ".50"}, {-0.5, "-.50"}, {999.995, "1000.00"}, {0, ".00"}});
  Check("###.000", {{1.5, "1.500"}, {0, ".000"}, {2.0005, "2.001"}, {-1.0, "-1.000"}});
  Check("######.00", {{0, ".00"}, {1234567.891, "1234567.89"}, {0.75, ".75"}});
}

TEST(PictureNoWholeDigit, OptionalTrailingDecimals) {
  Check("###.00#", {{1.5, "1.50"},
                    {1.505, "1.505"},
                    {1.5054, "1.505"},
                    {1.5055, "1.506"},
                    {0, ".00"},
                    {40, "40.00"},
                    {1.0001, "1.00"},
                    {0.0005, ".001"}});
  Check("###.00##", {{1.5, "1.50"},
                     {1.23456, "1.2346"},
                     {1.234, "1.234"},
                     {1.2, "1.20"},
                     {1.00001, "1.00"},
                     {0.5, ".50"},
                     {-0.12345, "-.1235"}});
}

// ---- Pictures with a whole digit required --------------------------------------------

TEST(PictureWholeDigit, ZeroPoint) {
  for (const char* pic : {"0.00", "#0.00", "#####0.00"}) {
    Check(pic, {{0, "0.00"},
                {0.5, "0.50"},
                {-0.5, "-0.50"},
                {40, "40.00"},
                {-3.456, "-3.46"},
                {2.675, "2.68"},
                {-0.001, "0.00"},
                {12.345, "12.35"},
                {1234567, "1234567.00"}});
  }
  Check("0.0#", {{2, "2.0"},
                 {2.05, "2.05"},
                 {2.5, "2.5"},
                 {0, "0.0"},
                 {0.004, "0.0"},
                 {0.005, "0.01"},
                 {-2.345, "-2.35"}});
}

TEST(PictureWholeDigit, WholeNumbersOnly) {
  Check("#####0", {{0, "0"},
                   {12345, "12345"},
                   {0.4, "0"},
                   {0.5, "1"},  // half away from zero
                   {2.5, "3"},
                   {-0.5, "-1"},
                   {-0.4, "0"},
                   {-3.456, "-3"},
                   {1234567, "1234567"}});
  Check("##0", {{1234567, "1234567"}, {0, "0"}, {5, "5"}});
}

TEST(PictureWholeDigit, ZeroFilled) {
  Check("00", {{7, "07"}, {0, "00"}, {123, "123"}, {7.5, "08"}, {-7, "-07"}, {0.4, "00"}});
  Check("0000", {{42, "0042"}, {12345, "12345"}, {0, "0000"}});
  Check("00000", {{123, "00123"}, {99999.5, "100000"}});
  Check("000000", {{1, "000001"}, {-1, "-000001"}});
  Check("000000000", {{123, "000000123"},
                      {0, "000000000"},
                      {123456789012.0, "123456789012"},
                      {0.5, "000000001"},
                      {-0.4, "000000000"}});
}

TEST(PictureWholeDigit, HashesOnly) {
  Check("#", {{0, ""}, {5, "5"}, {0.5, "1"}, {0.4, ""}, {-0.4, ""}, {-5, "-5"}, {12, "12"}});
  Check("######", {{0, ""}, {123, "123"}, {1234567, "1234567"}, {-42, "-42"}});
  Check("#######", {{1234567, "1234567"}, {0.25, ""}});
  Check("#########", {{123456789, "123456789"}, {100, "100"}});
}

// ---- Large and non-finite numbers ----------------------------------------------------

TEST(PictureLarge, EveryWholeDigitPrints) {
  EXPECT_EQ(Format(Value(1e308), "000000000"), "1" + std::string(308, '0'));
  EXPECT_EQ(Format(Value(-1e308), "000000000"), "-1" + std::string(308, '0'));
  EXPECT_EQ(Format(Value(std::numeric_limits<double>::max()), "#"),
            "179769313486232" + std::string(294, '0'));
  EXPECT_EQ(Format(Value(1e20), ".00"), "100000000000000000000.00");
  EXPECT_EQ(Format(Value(1e15 + 0.3), "0.00"), "1000000000000000.00");  // 15 digits
}

TEST(PictureLarge, FastEnough) {
  auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 10000; ++i) {
    ASSERT_EQ(Format(Value(1e308), "000000000").size(), 309u);
  }
  auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                  start)
                .count();
  EXPECT_LT(ms, 2000);
}

TEST(PictureLarge, NonFinitePrintsAsPrintNumber) {
  EXPECT_EQ(Format(Value(std::numeric_limits<double>::infinity()), ".00"), "1.#INF");
  EXPECT_EQ(Format(Value(-std::numeric_limits<double>::infinity()), "0"), "-1.#INF");
  EXPECT_EQ(Format(Value(std::numeric_limits<double>::quiet_NaN()), "###.00"), "-1.#IND");
}

// ---- Blank and text ------------------------------------------------------------------

TEST(PictureText, BlankGivesEmpty) {
  for (const char* pic : {".00", "0.00", "######", "000000000", "mmddyyyy", "#", ""}) {
    EXPECT_EQ(Format(Value(), pic), "") << pic;
  }
}

TEST(PictureText, NumericTextIsFormattedAsItsNumber) {
  EXPECT_EQ(Format(Value("00123"), "######"), "123");
  EXPECT_EQ(Format(Value("  12.5 "), ".00"), "12.50");
  EXPECT_EQ(Format(Value("$1,234.5"), "0.00"), "1234.50");
  EXPECT_EQ(Format(Value("8.00"), "####.##"), "8.");
  EXPECT_EQ(Format(Value("-0.001"), ".00"), ".00");
  EXPECT_EQ(Format(Value("&HFF"), "0000"), "0255");
  EXPECT_EQ(Format(Value("2.675"), ".00"), "2.68");
}

TEST(PictureText, OtherTextComesBackUnchanged) {
  EXPECT_EQ(Format(Value("abc"), "######"), "abc");
  EXPECT_EQ(Format(Value(""), ".00"), "");
  EXPECT_EQ(Format(Value(" "), ".00"), " ");
  EXPECT_EQ(Format(Value("12a"), "00"), "12a");
  EXPECT_EQ(Format(Value("1e999"), ".00"), "1e999");
}

// ---- Other picture characters --------------------------------------------------------

TEST(PictureOther, GroupingLiteralsSectionsAndEmpty) {
  Check("#,##0.00", {{1234567.891, "1,234,567.89"},
                     {0, "0.00"},
                     {123, "123.00"},
                     {-1234, "-1,234.00"},
                     {999.999, "1,000.00"}});
  Check("$0.00", {{5, "$5.00"}, {-5, "-$5.00"}});
  Check("\\#0", {{5, "#5"}});
  Check("0\" hrs\"", {{5, "5 hrs"}});
  Check("0.00;(0.00)", {{5, "5.00"}, {-5, "-5.00"}});
  Check("", {{8.5, "8.5"}, {40, "40"}});
}

// ---- Date pictures -------------------------------------------------------------------

TEST(PictureDate, DateText) {
  EXPECT_EQ(Format(Value("11/20/2026"), "mmddyyyy"), "11202026");
  EXPECT_EQ(Format(Value("1/5/26"), "mmddyyyy"), "01052026");
  EXPECT_EQ(Format(Value("2026-11-20"), "mmddyyyy"), "11202026");
  EXPECT_EQ(Format(Value("3-7-99"), "mmddyyyy"), "03071999");
  EXPECT_EQ(Format(Value(" 12/31/2029 "), "mmddyyyy"), "12312029");
}

TEST(PictureDate, TextThatIsNotADateComesBackUnchanged) {
  EXPECT_EQ(Format(Value("abc"), "mmddyyyy"), "abc");
  EXPECT_EQ(Format(Value("2/30/2026"), "mmddyyyy"), "2/30/2026");
  EXPECT_EQ(Format(Value("45000"), "mmddyyyy"), "45000");
  EXPECT_EQ(Format(Value(""), "mmddyyyy"), "");
}

TEST(PictureDate, DateSerials) {
  double serial = static_cast<double>(DaySerial(Date{2026, 11, 20}));
  EXPECT_EQ(Format(Value(serial), "mmddyyyy"), "11202026");
  EXPECT_EQ(Format(Value(2), "mmddyyyy"), "01011900");
  EXPECT_EQ(Format(Value(2.75), "mmddyyyy"), "01011900");
  EXPECT_EQ(Format(Value(-1.5), "mmddyyyy"), "12291899");
  EXPECT_EQ(Format(Value(-657434), "mmddyyyy"), "01010100");
  EXPECT_EQ(Format(Value(2958465), "mmddyyyy"), "12319999");
  EXPECT_EQ(Format(Value(1e9), "mmddyyyy"), "1000000000");  // beyond year 9999
  EXPECT_EQ(Format(Value(std::numeric_limits<double>::quiet_NaN()), "mmddyyyy"), "-1.#IND");
}

TEST(PictureDate, OtherDateTokens) {
  EXPECT_EQ(Format(Value("1/5/2026"), "m/d/yy"), "1/5/26");
  EXPECT_EQ(Format(Value("1/5/2026"), "yyyy-mm-dd"), "2026-01-05");
  EXPECT_EQ(Format(Value("1/5/2026"), "MMDDYY"), "010526");
}

// ---- Properties over many inputs -----------------------------------------------------

constexpr const char* kSystemPictures[] = {
    ".00",       "0.00",    "#0.00",   "#.00",      "#.000",   "###.#0",   "####.#0",
    "####.##",   "####.00", "###.00",  "###.000",   "###.00#", "###.00##", "######.00",
    "#####0.00", "#####0",  "00",      "0000",      "00000",   "000000",   "000000000",
    "#",         "######",  "#######", "#########", "0.0#",    ".#0"};

TEST(PictureProperties, ResultReadsBackWithinHalfTheLastPlace) {
  std::mt19937_64 rng(7);
  std::uniform_real_distribution<double> wide(-1e6, 1e6);
  std::uniform_real_distribution<double> narrow(-2, 2);
  for (const char* pic : kSystemPictures) {
    std::string_view p(pic);
    std::size_t point = p.find('.');
    int places = point == std::string_view::npos ? 0 : static_cast<int>(p.size() - point - 1);
    double half = 0.5 * std::pow(10.0, -places);
    for (int i = 0; i < 20000; ++i) {
      double x = (i % 2 ? wide : narrow)(rng);
      std::string out = Format(Value(x), pic);
      double back = out.empty() || out == "." ? 0.0 : NumericValue(out).value_or(1e300);
      ASSERT_LE(std::fabs(back - x), half * (1 + 1e-9) + std::fabs(x) * 1e-14)
          << x << " through \"" << pic << "\" gave \"" << out << "\"";
      ASSERT_EQ(out.find('-') != std::string::npos, back < 0) << x << " " << pic << " " << out;
    }
  }
}

TEST(PictureProperties, RandomTextNeverCrashes) {
  const std::string alphabet = "0123456789.,$+-eEdD &HhOo/\t#x\"";
  std::mt19937_64 rng(11);
  std::uniform_int_distribution<std::size_t> len(0, 24), pick(0, alphabet.size() - 1);
  for (int i = 0; i < 50000; ++i) {
    std::string s;
    for (std::size_t n = len(rng); n > 0; --n) s.push_back(alphabet[pick(rng)]);
    Value v(s);
    for (const char* pic : kSystemPictures) {
      std::string out = Format(v, pic);
      if (!IsNumeric(s)) {
        ASSERT_EQ(out, s);
      }
    }
    (void)Format(v, "mmddyyyy");
    (void)Format(Value(1.0), s);  // random text as a picture
    (void)FieldValue(s, false);
    (void)ParseDate(s);
    try {
      (void)Val(s);
      (void)v.ToNumber();
      (void)ToLong(v);
    } catch (const RuntimeError& e) {
      ASSERT_TRUE(e.number() == 6 || e.number() == 13) << s;
    }
  }
}

}  // namespace
}  // namespace corvane
