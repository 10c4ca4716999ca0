// The text-or-number value: printing, comparison, IsNumeric, fields, conversions.
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include "error_of.hpp"
#include "runtime/digits.hpp"
#include "runtime/errors.hpp"
#include "runtime/value.hpp"

namespace corvane {
namespace {

using testing::ErrorOf;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// ---- Printing -------------------------------------------------------------------------

TEST(ValuePrint, WholeNumbersHaveNoPoint) {
  EXPECT_EQ(PrintNumber(40), "40");
  EXPECT_EQ(PrintNumber(0), "0");
  EXPECT_EQ(PrintNumber(-3), "-3");
  EXPECT_EQ(PrintNumber(8.00), "8");
  EXPECT_EQ(PrintNumber(-0.0), "0");
  EXPECT_EQ(PrintNumber(999999999999999.0), "999999999999999");
  EXPECT_EQ(PrintNumber(123456789012.0), "123456789012");
}

TEST(ValuePrint, FractionsUpTo15SignificantDigitsNoTrailingZeros) {
  EXPECT_EQ(PrintNumber(8.5), "8.5");
  EXPECT_EQ(PrintNumber(12.25), "12.25");
  EXPECT_EQ(PrintNumber(-1234.5), "-1234.5");
  EXPECT_EQ(PrintNumber(1.0 / 3.0), "0.333333333333333");
  EXPECT_EQ(PrintNumber(2.0 / 3.0), "0.666666666666667");
  EXPECT_EQ(PrintNumber(0.1 + 0.2), "0.3");
  EXPECT_EQ(PrintNumber(3 * 1.115), "3.345");
  EXPECT_EQ(PrintNumber(123456789012.5), "123456789012.5");
  EXPECT_EQ(PrintNumber(100.0 / 7.0), "14.2857142857143");
}

TEST(ValuePrint, LeadingZeroBelowOne) {
  EXPECT_EQ(PrintNumber(0.5), "0.5");
  EXPECT_EQ(PrintNumber(-0.5), "-0.5");
  EXPECT_EQ(PrintNumber(0.0001), "0.0001");
  EXPECT_EQ(PrintNumber(0.00012345), "0.00012345");
  EXPECT_EQ(PrintNumber(-0.0025), "-0.0025");
}

TEST(ValuePrint, ExponentFormAtOrAbove1E15AndBelow1EMinus4) {
  EXPECT_EQ(PrintNumber(1e15), "1E+15");
  EXPECT_EQ(PrintNumber(1.5e15), "1.5E+15");
  EXPECT_EQ(PrintNumber(-2.5e20), "-2.5E+20");
  EXPECT_EQ(PrintNumber(999999999999999.9), "1E+15");  // rounds to 15 digits first
  EXPECT_EQ(PrintNumber(1e308), "1E+308");
  EXPECT_EQ(PrintNumber(std::numeric_limits<double>::max()), "1.79769313486232E+308");
  EXPECT_EQ(PrintNumber(0.00001), "1E-05");
  EXPECT_EQ(PrintNumber(1.5e-7), "1.5E-07");
  EXPECT_EQ(PrintNumber(-1.5e-7), "-1.5E-07");
  EXPECT_EQ(PrintNumber(1e-300), "1E-300");
}

TEST(ValuePrint, DenormalsAndNonFiniteNeverPrintGarbage) {
  EXPECT_EQ(PrintNumber(std::numeric_limits<double>::denorm_min()), "4.94065645841247E-324");
  EXPECT_EQ(PrintNumber(std::numeric_limits<double>::min()), "2.2250738585072E-308");
  EXPECT_EQ(PrintNumber(kInf), "1.#INF");
  EXPECT_EQ(PrintNumber(-kInf), "-1.#INF");
  EXPECT_EQ(PrintNumber(kNaN), "-1.#IND");
}

// The reference: a correctly rounded 15-digit conversion, trailing zeros dropped.
std::string Reference15(double x, int& exponent) {
  char buf[40];
  auto r = std::to_chars(buf, buf + sizeof buf, std::fabs(x), std::chars_format::scientific, 14);
  std::string digits;
  const char* p = buf;
  for (; p < r.ptr && *p != 'e'; ++p) {
    if (*p != '.') digits.push_back(*p);
  }
  std::from_chars(p[1] == '+' ? p + 2 : p + 1, r.ptr, exponent);
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  return digits;
}

void ExpectDigitsMatch(double x) {
  char digits[17];
  int exponent = 0;
  int n = detail::Digits15(x, digits, exponent);
  int want_exponent = 0;
  std::string want = Reference15(x, want_exponent);
  ASSERT_EQ(std::string(digits, static_cast<std::size_t>(n)), want) << x;
  ASSERT_EQ(exponent, want_exponent) << x;
}

TEST(ValuePrint, FastPathsAgreeWithFifteenDigitRounding) {
  // Payroll-like figures: cents, thousandths, products and quotients of them.
  for (int i = 1; i < 200000; ++i) {
    ExpectDigitsMatch(i / 100.0);
    ExpectDigitsMatch(i * 0.01);
    ExpectDigitsMatch(i / 1000.0);
    ExpectDigitsMatch(i * 0.37);
    ExpectDigitsMatch(i * 1.115);
    ExpectDigitsMatch(i / 7.0);
  }
  // Random bit patterns over every magnitude, subnormals included.
  std::mt19937_64 rng(12345);
  for (int i = 0; i < 200000; ++i) {
    std::uint64_t bits = rng() & 0x7FFFFFFFFFFFFFFFULL;
    double x;
    std::memcpy(&x, &bits, sizeof x);
    if (!std::isfinite(x) || x == 0) continue;
    ExpectDigitsMatch(x);
  }
  // Random values in the fast ranges.
  std::uniform_real_distribution<double> small(1e-4, 1e4);
  for (int i = 0; i < 200000; ++i) ExpectDigitsMatch(small(rng));
}

// The printed form a figure between 1e-4 and 1e15 must take: its 15-digit rounding written
// out with a point, no exponent.
std::string ReferencePrinted(double x) {
  int exponent = 0;
  const std::string digits = Reference15(x, exponent);
  std::string out = x < 0 ? "-" : "";
  if (exponent < 0) {
    out += "0.";
    out.append(static_cast<std::size_t>(-exponent - 1), '0');
    out += digits;
    return out;
  }
  const auto whole = static_cast<std::size_t>(exponent) + 1;
  out += digits.substr(0, whole);
  if (digits.size() < whole) out.append(whole - digits.size(), '0');
  if (digits.size() > whole) out += "." + digits.substr(whole);
  return out;
}

TEST(ValuePrint, FiguresWithPlacesPrintTheirFifteenDigitRounding) {
  // cents, mills and hours of either sign, small and large; sums that miss their decimal
  for (int i = 1; i < 300000; i += 7) {
    for (const double x : {i / 100.0, -i / 100.0, i / 1000.0, i * 0.01 + 0.1, i / 1e6,
                           i * 1234.5678, i / 64.0, 1e9 + i / 100.0, i / 7.0, i * 1e-8}) {
      if (std::fabs(x) < 1e-4 || std::fabs(x) >= 1e15) continue;
      ASSERT_EQ(PrintNumber(x), ReferencePrinted(x)) << x;
    }
  }
  EXPECT_EQ(PrintNumber(25.08), "25.08");
  EXPECT_EQ(PrintNumber(-0.0105), "-0.0105");
  EXPECT_EQ(PrintNumber(99999999999999.5), "99999999999999.5");
  EXPECT_EQ(PrintNumber(0.000123456), "0.000123456");
}

TEST(ValuePrint, StrAndAppendTo) {
  EXPECT_EQ(Value().str(), "");
  EXPECT_EQ(Value("abc").str(), "abc");
  EXPECT_EQ(Value("00123").str(), "00123");
  EXPECT_EQ(Value(40).str(), "40");
  EXPECT_EQ(Value(8.5).str(), "8.5");
  EXPECT_EQ(Value(1234567890123LL).str(), "1234567890123");
  EXPECT_EQ(Value(7L).str(), "7");
  std::string out = "x";
  Value(0.5).AppendTo(out);
  Value().AppendTo(out);
  Value("y").AppendTo(out);
  Value(40).AppendTo(out);
  EXPECT_EQ(out, "x0.5y40");
}

TEST(ValueKinds, Accessors) {
  EXPECT_TRUE(Value().IsBlank());
  EXPECT_TRUE(Value::Blank().IsBlank());
  EXPECT_TRUE(Value("").IsText());
  EXPECT_TRUE(Value(std::string("a")).IsText());
  EXPECT_TRUE(Value(std::string_view("a")).IsText());
  EXPECT_TRUE(Value(0).IsNumber());
  EXPECT_EQ(Value("5").number(), 0.0);
  EXPECT_EQ(Value(5.0).text(), "");
}

// ---- Comparison -----------------------------------------------------------------------

TEST(ValueCompare, NumbersAsNumbers) {
  EXPECT_TRUE(Value(8.0) == Value(8));
  EXPECT_FALSE(Value(9.0) > Value(10.0));
  EXPECT_TRUE(Value(-1.0) < Value(0.0));
  EXPECT_EQ(Compare(Value(2.0), Value(1.0)), 1);
  EXPECT_EQ(Compare(Value(1.0), Value(2.0)), -1);
  EXPECT_EQ(Compare(Value(0.0), Value(-0.0)), 0);
}

TEST(ValueCompare, NumberAndNumericTextAsNumbers) {
  EXPECT_TRUE(Value(8.0) == Value("8"));
  EXPECT_TRUE(Value(8.0) == Value("8.00"));
  EXPECT_TRUE(Value("8.00") == Value(8.0));
  EXPECT_TRUE(Value(10.0) > Value("9"));  // as texts "10" < "9"
  EXPECT_TRUE(Value("9") < Value(10.0));
  EXPECT_TRUE(Value(8.0) < Value(" 9 "));
  EXPECT_TRUE(Value(1234.5) == Value("$1,234.50"));
  EXPECT_TRUE(Value(255.0) == Value("&HFF"));
  EXPECT_TRUE(Value(0.0) == Value("0.00"));
}

TEST(ValueCompare, TwoTextsByteByByteEvenWhenNumeric) {
  EXPECT_TRUE(Value("0.00") != Value("0"));
  EXPECT_TRUE(Value("01") != Value("1"));
  EXPECT_TRUE(Value("10") < Value("9"));
  EXPECT_TRUE(Value("a") < Value("b"));
  EXPECT_TRUE(Value("B") < Value("a"));  // case included, bytes
  EXPECT_TRUE(Value("abc") > Value("ab"));
  EXPECT_TRUE(Value("abc") == Value("abc"));
  EXPECT_TRUE(Value("\xE9") > Value("z"));  // bytes compare unsigned
  EXPECT_TRUE(Value(std::string("a\0b", 3)) > Value("a"));
}

TEST(ValueCompare, NumberAndOtherTextAsTextsWithThePrintedNumber) {
  EXPECT_TRUE(Value(10.0) < Value("9x"));  // "10" < "9x"
  EXPECT_TRUE(Value("9x") > Value(10.0));
  EXPECT_TRUE(Value(5.0) < Value("abc"));
  EXPECT_TRUE(Value(0.5) < Value("0.5x"));   // "0.5" is a prefix of "0.5x"
  EXPECT_TRUE(Value(8.5) == Value("8.5"));   // numeric: as numbers anyway
  EXPECT_TRUE(Value(5.0) > Value("1e999"));  // overflowing text is not numeric: "5" > "1"
  EXPECT_TRUE(Value(1.0) != Value("1 2"));
}

TEST(ValueCompare, BlankIsZeroAgainstNumberAndEmptyAgainstText) {
  EXPECT_TRUE(Value() == Value(0.0));
  EXPECT_TRUE(Value() < Value(1.0));
  EXPECT_TRUE(Value() > Value(-1.0));
  EXPECT_TRUE(Value(0.0) == Value());
  EXPECT_TRUE(Value() == Value(""));
  EXPECT_TRUE(Value() < Value("a"));
  EXPECT_TRUE(Value("a") > Value());
  EXPECT_TRUE(Value() < Value("0"));  // text "0" is not blank: "" < "0"
  EXPECT_TRUE(Value() == Value());
}

TEST(ValueCompare, EmptyTextIsTextNotBlank) {
  EXPECT_TRUE(Value(8.0) > Value(""));     // "8" > ""
  EXPECT_TRUE(Value(0.0) > Value(""));     // "0" > ""
  EXPECT_TRUE(Value("0.00") > Value(""));  // two texts
  EXPECT_FALSE(Value() > Value(""));       // blank is "" against a text
  EXPECT_TRUE(Value("") < Value(-5.0));    // "" < "-5"
}

TEST(ValueCompare, NaNIsOrderedAndNeverUndefined) {
  EXPECT_EQ(Compare(Value(kNaN), Value(kNaN)), 0);
  EXPECT_EQ(Compare(Value(kNaN), Value(-kInf)), -1);
  EXPECT_EQ(Compare(Value(1.0), Value(kNaN)), 1);
  EXPECT_TRUE(Value(kInf) > Value(1e308));
}

// ---- IsNumeric ------------------------------------------------------------------------

TEST(ValueIsNumeric, PlainAndDecoratedNumbers) {
  for (const char* s : {"0", "123", "00123", " 12 ", "-5", "+5", "0.00", ".5", "5.", "-.5", "1e5",
                        "1E+05", "1.5e-3", "  -1.5E3  "}) {
    EXPECT_TRUE(IsNumeric(s)) << s;
  }
}

TEST(ValueIsNumeric, DollarCommasAndSignsAroundTheDollar) {
  for (const char* s : {"$5", "-$5", "$-5", "+$5", "$+5", "$1,234.50", "1,000", "1,2", "1,",
                        "1,000.5e2", "$.5", " $5 "}) {
    EXPECT_TRUE(IsNumeric(s)) << s;
  }
  // Nothing may stand between "$" and the digits but one sign; one sign in all.
  for (const char* s : {"$ 5", "- $5", "-$+5", "$--5", "5$", "$5$"}) {
    EXPECT_FALSE(IsNumeric(s)) << s;
  }
}

TEST(ValueIsNumeric, HexAndOctal) {
  for (const char* s : {"&HFF", "&hff", "&H0", "&O17", "&o7", " &H1F "}) {
    EXPECT_TRUE(IsNumeric(s)) << s;
  }
  for (const char* s : {"&H", "&HG", "&O8", "&O", "&", "&X1", "-&HFF", "&H FF", "&HFF.5"}) {
    EXPECT_FALSE(IsNumeric(s)) << s;
  }
}

TEST(ValueIsNumeric, BorderlineStringsThatAreNot) {
  for (const char* s : {"",     " ",    ".",     "-",   "+",        "$",   "-$",  "$.",    "$-",
                        "e5",   "1e",   "1e+",   "1 2", "12a",      "a12", ",5",  "1.2.3", "--5",
                        "-$-5", "$$5",  "5$",    "5-",  "1.5 e3",   "\t5", "5\t", "1e999", "-1e400",
                        "1.,5", "0x10", "1e5.5", "- 5", "Infinity", "NaN"}) {
    EXPECT_FALSE(IsNumeric(s)) << "[" << s << "]";
  }
}

TEST(ValueIsNumeric, NumericValue) {
  EXPECT_EQ(NumericValue("$1,234.50"), 1234.5);
  EXPECT_EQ(NumericValue("&HFF"), 255.0);
  EXPECT_EQ(NumericValue("&HFFFF"), 65535.0);
  EXPECT_EQ(NumericValue("&O17"), 15.0);
  EXPECT_EQ(NumericValue("-$5"), -5.0);
  EXPECT_EQ(NumericValue("$-5"), -5.0);
  EXPECT_EQ(NumericValue(" 12 "), 12.0);
  EXPECT_EQ(NumericValue("1,000.5e2"), 100050.0);
  EXPECT_EQ(NumericValue(".5"), 0.5);
  EXPECT_EQ(NumericValue("5."), 5.0);
  EXPECT_EQ(NumericValue("00123"), 123.0);
  EXPECT_EQ(NumericValue("1e-999"), 0.0);  // underflow is zero
  EXPECT_FALSE(NumericValue("1e999").has_value());
  EXPECT_FALSE(NumericValue("abc").has_value());
  EXPECT_FALSE(NumericValue("").has_value());
  // Long digit strings.
  EXPECT_EQ(NumericValue(std::string(400, '0') + "1"), 1.0);
  EXPECT_EQ(NumericValue("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_FALSE(NumericValue("1" + std::string(400, '0')).has_value());
  EXPECT_EQ(NumericValue("1" + std::string(400, '0') + "e-390"), 1e10);
  EXPECT_EQ(NumericValue("1e-99999999999999999999"), 0.0);
  EXPECT_FALSE(NumericValue("1e99999999999999999999").has_value());
}

TEST(ValueIsNumeric, ValueKinds) {
  EXPECT_FALSE(Value().IsNumeric());
  EXPECT_FALSE(Value("").IsNumeric());
  EXPECT_TRUE(Value(0.0).IsNumeric());
  EXPECT_TRUE(Value("8.5").IsNumeric());
  EXPECT_FALSE(Value("8.5x").IsNumeric());
}

// ---- Comma fields ---------------------------------------------------------------------

TEST(ValueField, PlainNumbersBecomeNumbers) {
  Value v = FieldValue("00123", false);
  ASSERT_TRUE(v.IsNumber());
  EXPECT_EQ(v.number(), 123.0);
  EXPECT_EQ(FieldValue("8.50", false).number(), 8.5);
  Value eight = FieldValue("8.00", false);
  EXPECT_TRUE(eight.IsNumber());
  EXPECT_EQ(eight.str(), "8");
  EXPECT_EQ(FieldValue("-3", false).number(), -3.0);
  EXPECT_EQ(FieldValue("+3", false).number(), 3.0);
  EXPECT_EQ(FieldValue("1e3", false).number(), 1000.0);
  EXPECT_EQ(FieldValue("1e+3", false).number(), 1000.0);
  EXPECT_EQ(FieldValue("1.5E-2", false).number(), 0.015);
  EXPECT_EQ(FieldValue(".5", false).number(), 0.5);
  EXPECT_EQ(FieldValue("5.", false).number(), 5.0);
  EXPECT_EQ(FieldValue("-.5", false).number(), -0.5);
}

TEST(ValueField, OtherTextStaysText) {
  for (const char* s : {"$12.50", "1 2", "1,000", "abc", ".", "-", "+", "1e", "&HFF", " 12", "12 ",
                        "1e999", "--1", "1.2.3", "12a"}) {
    Value v = FieldValue(s, false);
    EXPECT_TRUE(v.IsText()) << s;
    EXPECT_EQ(v.text(), s);
  }
}

TEST(ValueField, QuotedStaysTextAndEmptyIsBlankOnlyUnquoted) {
  Value q = FieldValue("00123", true);
  ASSERT_TRUE(q.IsText());
  EXPECT_EQ(q.text(), "00123");
  EXPECT_TRUE(FieldValue("", false).IsBlank());
  Value e = FieldValue("", true);
  EXPECT_TRUE(e.IsText());
  EXPECT_EQ(e.text(), "");
}

// ---- Conversions and amount tests -----------------------------------------------------

TEST(ValueToNumber, Kinds) {
  EXPECT_EQ(Value().ToNumber(), 0.0);
  EXPECT_EQ(Value("").ToNumber(), 0.0);  // an empty text counts as blank
  EXPECT_EQ(Value("12.5").ToNumber(), 12.5);
  EXPECT_EQ(Value(" $1,000 ").ToNumber(), 1000.0);
  EXPECT_EQ(Value(-4.25).ToNumber(), -4.25);
  EXPECT_EQ(ErrorOf([] { Value("abc").ToNumber(); }), 13);
  EXPECT_EQ(ErrorOf([] { Value(" ").ToNumber(); }), 13);
  EXPECT_EQ(ErrorOf([] { Value("1e999").ToNumber(); }), 6);
}

TEST(ValueAmountTests, NumericAbove0) {
  EXPECT_TRUE(NumericAbove0(Value(0.01)));
  EXPECT_TRUE(NumericAbove0(Value("0.01")));
  EXPECT_TRUE(NumericAbove0(Value("$5")));
  EXPECT_FALSE(NumericAbove0(Value(0.0)));
  EXPECT_FALSE(NumericAbove0(Value(-1)));
  EXPECT_FALSE(NumericAbove0(Value("-1")));
  EXPECT_FALSE(NumericAbove0(Value("abc")));
  EXPECT_FALSE(NumericAbove0(Value()));
  EXPECT_FALSE(NumericAbove0(Value("")));
  EXPECT_FALSE(NumericAbove0(Value(kNaN)));
}

TEST(ValueAmountTests, AtLeast1AndIsZero) {
  EXPECT_TRUE(AtLeast1(Value(1)));
  EXPECT_TRUE(AtLeast1(Value("1.00")));
  EXPECT_FALSE(AtLeast1(Value(0.99)));
  EXPECT_FALSE(AtLeast1(Value()));
  EXPECT_FALSE(AtLeast1(Value("x")));
  EXPECT_TRUE(IsZero(Value(0.0)));
  EXPECT_TRUE(IsZero(Value(-0.0)));
  EXPECT_TRUE(IsZero(Value("0.00")));
  EXPECT_TRUE(IsZero(Value(" 0 ")));
  EXPECT_FALSE(IsZero(Value("")));
  EXPECT_FALSE(IsZero(Value()));
  EXPECT_FALSE(IsZero(Value("abc")));
  EXPECT_FALSE(IsZero(Value(0.001)));
}

TEST(ValueAmountTests, BelowComparesNumbersWhenBothNumericElseTexts) {
  EXPECT_TRUE(Below(Value(4.0), Value("6.75")));
  EXPECT_TRUE(Below(Value("4.00"), Value("6.75")));
  EXPECT_FALSE(Below(Value("10.00"), Value("6.75")));  // as texts it would be below
  EXPECT_FALSE(Below(Value(6.75), Value("6.75")));
  EXPECT_FALSE(Below(Value("abc"), Value("6.75")));  // "abc" > "6.75"
  EXPECT_TRUE(Below(Value(), Value("6.75")));        // "" < "6.75"
  EXPECT_TRUE(Below(Value(""), Value("6.75")));
  EXPECT_TRUE(Below(Value(10.0), Value("x")));  // "10" < "x"
  EXPECT_FALSE(Below(Value(7.0), Value()));     // "7" < "" is false
  EXPECT_FALSE(Below(Value(7.0), Value("")));
}

TEST(ValueInteger, RoundHalfToEven) {
  EXPECT_EQ(ToInteger(Value(2.5)), 2);
  EXPECT_EQ(ToInteger(Value(3.5)), 4);
  EXPECT_EQ(ToInteger(Value(-2.5)), -2);
  EXPECT_EQ(ToInteger(Value(-3.5)), -4);
  EXPECT_EQ(ToInteger(Value(0.5)), 0);
  EXPECT_EQ(ToInteger(Value(-0.5)), 0);
  EXPECT_EQ(ToInteger(Value(1.4)), 1);
  EXPECT_EQ(ToInteger(Value(1.6)), 2);
  EXPECT_EQ(ToInteger(Value(-1.6)), -2);
  EXPECT_EQ(ToInteger(Value("2.5")), 2);
  EXPECT_EQ(ToInteger(Value(" 12 ")), 12);
  EXPECT_EQ(ToInteger(Value()), 0);
}

TEST(ValueInteger, SixteenBitRange) {
  EXPECT_EQ(ToInteger(Value(32767)), 32767);
  EXPECT_EQ(ToInteger(Value(-32768)), -32768);
  EXPECT_EQ(ToInteger(Value(-32768.5)), -32768);             // even
  EXPECT_EQ(ErrorOf([] { ToInteger(Value(32767.5)); }), 6);  // rounds to 32768
  EXPECT_EQ(ErrorOf([] { ToInteger(Value(32768)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value(-32769)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value(1e308)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value(kNaN)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value(kInf)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value("40000")); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value("1e999")); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value("abc")); }), 13);
  EXPECT_EQ(ErrorOf([] { ToInteger(Value("")); }), 13);
}

TEST(ValueInteger, ThirtyTwoBit) {
  EXPECT_EQ(ToLong(Value(70000)), 70000);
  EXPECT_EQ(ToLong(Value(2147483647.0)), 2147483647);
  EXPECT_EQ(ToLong(Value(-2147483648.0)), -2147483647 - 1);
  EXPECT_EQ(ToLong(Value(-2147483648.5)), -2147483647 - 1);
  EXPECT_EQ(ToLong(Value(4.5)), 4);
  EXPECT_EQ(ToLong(Value(5.5)), 6);
  EXPECT_EQ(ErrorOf([] { ToLong(Value(2147483647.5)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToLong(Value(3e9)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToLong(Value(kNaN)); }), 6);
  EXPECT_EQ(ErrorOf([] { ToLong(Value("x")); }), 13);
  EXPECT_EQ(ToLong(Value("&HFF")), 255);
}

TEST(NumericText, ShortDecimalsAreTheCorrectlyRoundedDouble) {
  // Figures of up to 15 digits take a short road; it must land on the very double that a
  // full decimal conversion gives, whatever the places, the sign and the leading zeros.
  std::mt19937_64 random(20261122);
  for (int n = 0; n < 200000; ++n) {
    const int digits = 1 + static_cast<int>(random() % 16);  // 16 takes the long road
    std::string text = random() % 4 == 0 ? "-" : "";
    const int point = static_cast<int>(random() % static_cast<unsigned>(digits + 1));
    for (int d = 0; d < digits; ++d) {
      if (d == point) text += '.';
      text += static_cast<char>('0' + random() % 10);
    }
    double expected = 0;
    std::from_chars(text.data(), text.data() + text.size(), expected);
    const std::optional<double> got = NumericValue(text);
    ASSERT_TRUE(got.has_value()) << text;
    ASSERT_EQ(std::memcmp(&*got, &expected, sizeof expected), 0) << text;
    const Value field = FieldValue(text, false);
    ASSERT_EQ(field.number(), expected) << text;
  }
}

// ---- The comma reader's own path ----------------------------------------------------------

// Same kind, same characters, and for numbers the same bits (so -0 stays -0).
void ExpectSameValue(const Value& fast, const Value& plain) {
  ASSERT_EQ(fast.kind(), plain.kind());
  EXPECT_EQ(fast.text(), plain.text());
  EXPECT_EQ(std::signbit(fast.number()), std::signbit(plain.number()));
  EXPECT_EQ(fast.number(), plain.number());
}

TEST(AssignFieldValue, AgreesWithFieldValueOnTrickyFields) {
  const std::string tricky[] = {"00123",
                                "-8.50",
                                "+.5",
                                "5.",
                                ".",
                                "-",
                                "+",
                                "-0",
                                "+0.000",
                                "1e3",
                                "1E-2",
                                "1e",
                                "e5",
                                "$12.50",
                                "1,000",
                                "1 2",
                                "12 ",
                                " 12",
                                "8.5.1",
                                "--5",
                                "+-5",
                                "0x1A",
                                "caf\xe9",
                                "\xff",
                                "123456789012345",
                                "1234567890123456",
                                "0.123456789012345",
                                "000000000000000000001",
                                "99999999999999999999",
                                "1e999",
                                "1e-999",
                                "\"5\"",
                                ""};
  Value reused;
  for (const std::string& text : tricky) {
    for (const bool quoted : {false, true}) {
      SCOPED_TRACE(text + (quoted ? " quoted" : ""));
      Value fresh;
      AssignFieldValue(fresh, text, quoted);
      ExpectSameValue(fresh, FieldValue(text, quoted));
      // a value filled record after record keeps nothing of the one before
      AssignFieldValue(reused, text, quoted);
      ExpectSameValue(reused, FieldValue(text, quoted));
    }
  }
}

// Plain figures of up to 18 digits, signed or not, with or without a point at any place:
// each converts to the correctly rounded double of its text, by every path.
TEST(AssignFieldValue, ShortFiguresConvertLikeAFullConversion) {
  std::mt19937 random(16);
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    const int sign = static_cast<int>(random() % 3);
    if (sign == 1) text += '-';
    if (sign == 2) text += '+';
    const int digits = 1 + static_cast<int>(random() % 18);
    const int point = static_cast<int>(random() % (digits + 2));  // digits + 1: no point
    for (int i = 0; i < digits; ++i) {
      if (i == point) text += '.';
      text += static_cast<char>('0' + random() % 10);
    }
    if (point == digits) text += '.';
    SCOPED_TRACE(text);
    double expected = 0.0;
    const char* first = text.data() + (text[0] == '+' ? 1 : 0);
    ASSERT_EQ(std::from_chars(first, text.data() + text.size(), expected).ec, std::errc());
    Value v;
    AssignFieldValue(v, text, false);
    ASSERT_TRUE(v.IsNumber());
    EXPECT_EQ(v.number(), expected);
    EXPECT_EQ(FieldValue(text, false).number(), expected);
    const std::optional<double> numeric = NumericValue(text);
    ASSERT_TRUE(numeric.has_value());
    EXPECT_EQ(*numeric, expected);
  }
}

TEST(ValueInPlace, SettersGiveWhatTheConstructorsGive) {
  Value v("some long text that does not fit a short string");
  v.SetNumber(8.5);
  ExpectSameValue(v, Value(8.5));
  EXPECT_EQ(v.str(), "8.5");
  v.SetText("00123");
  ExpectSameValue(v, Value("00123"));
  EXPECT_EQ(Compare(v, Value(123)), 0);  // numeric text against a number
  v.SetBlank();
  ExpectSameValue(v, Value());
  v.SetText("");
  EXPECT_TRUE(v.IsText());           // an empty text is text, not blank
  EXPECT_TRUE(Value(0) > v);         // "0" > "" as texts
  EXPECT_FALSE(Value(0) > Value());  // blank is 0 against a number
}

TEST(ValueInPlace, ATextSetFromItsOwnCharactersKeepsThem) {
  // a text set from part of itself, shorter, the same length, then longer than it held
  Value v("  abc  ");
  v.SetText(std::string_view(v.text()).substr(2, 3));
  ExpectSameValue(v, Value("abc"));
  v.SetText(v.text());
  ExpectSameValue(v, Value("abc"));
  v.SetText(std::string_view(v.text()).substr(1));
  ExpectSameValue(v, Value("bc"));
  v.SetText("a text longer than any held before, past a short string");
  v.SetText(std::string_view(v.text()).substr(7, 6));
  ExpectSameValue(v, Value("longer"));
  v.SetText("longer still");
  ExpectSameValue(v, Value("longer still"));
}

TEST(PrintedView, PrintsAsStrWithoutAllocating) {
  char room[kPrintedNumberRoom];
  for (const Value& v : {Value(), Value(""), Value(" 7 "), Value(40), Value(-0.0), Value(0.5),
                         Value(1.0 / 3.0), Value(-1.23456789012345e-308), Value(1e300)}) {
    EXPECT_EQ(PrintedView(v, room), v.str());
  }
}

}  // namespace
}  // namespace corvane
