// Text helpers: positions from 1, bounds, Trim of spaces only, InStr, Split, Val.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "error_of.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"

namespace corvane {
namespace {

using testing::ErrorOf;

using Parts = std::vector<std::string>;

TEST(TextLeftRight, Bounds) {
  EXPECT_EQ(Left("abc", 2), "ab");
  EXPECT_EQ(Left("abc", 0), "");
  EXPECT_EQ(Left("abc", 3), "abc");
  EXPECT_EQ(Left("abc", 5), "abc");
  EXPECT_EQ(Left("", 1), "");
  EXPECT_EQ(Right("abc", 2), "bc");
  EXPECT_EQ(Right("abc", 0), "");
  EXPECT_EQ(Right("abc", 9), "abc");
  EXPECT_EQ(ErrorOf([] { Left("abc", -1); }), 5);
  EXPECT_EQ(ErrorOf([] { Right("abc", -1); }), 5);
}

TEST(TextMid, PositionsFromOneAndPastTheEnd) {
  EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
  EXPECT_EQ(Mid("abcdef", 1, 1), "a");
  EXPECT_EQ(Mid("abc", 3), "c");
  EXPECT_EQ(Mid("abc", 1), "abc");
  EXPECT_EQ(Mid("abc", 4), "");
  EXPECT_EQ(Mid("abc", 10, 2), "");
  EXPECT_EQ(Mid("abc", 2, 10), "bc");
  EXPECT_EQ(Mid("abc", 1, 0), "");
  EXPECT_EQ(Mid("", 1), "");
  EXPECT_EQ(Mid("", 1, 5), "");
}

TEST(TextMid, BadArgumentsRaise5) {
  EXPECT_EQ(ErrorOf([] { Mid("abc", 0); }), 5);
  EXPECT_EQ(ErrorOf([] { Mid("abc", -1, 2); }), 5);
  EXPECT_EQ(ErrorOf([] { Mid("abc", 1, -1); }), 5);
  EXPECT_EQ(ErrorOf([] { Mid("abc", 0, 0); }), 5);
}

TEST(TextTrim, SpacesOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
  EXPECT_EQ(Trim(" \t a \t "), "\t a \t");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(LTrim("  a  "), "a  ");
  EXPECT_EQ(RTrim("  a  "), "  a");
  EXPECT_EQ(RTrim("a\r\n"), "a\r\n");
}

TEST(TextCase, AsciiOnly) {
  EXPECT_EQ(UCase("abc XyZ 1-"), "ABC XYZ 1-");
  EXPECT_EQ(LCase("ABC xYz"), "abc xyz");
  EXPECT_EQ(UCase("\xE9"), "\xE9");
  EXPECT_EQ(Len("abc"), 3);
  EXPECT_EQ(Len(""), 0);
}

TEST(TextInStr, Positions) {
  EXPECT_EQ(InStr("abcabc", "bc"), 2);
  EXPECT_EQ(InStr(2, "abcabc", "bc"), 2);
  EXPECT_EQ(InStr(3, "abcabc", "bc"), 5);
  EXPECT_EQ(InStr(6, "abcabc", "bc"), 0);
  EXPECT_EQ(InStr(10, "abc", "a"), 0);
  EXPECT_EQ(InStr("abc", "x"), 0);
  EXPECT_EQ(InStr("ABC", "b"), 0);  // case counts
  EXPECT_EQ(InStr("", "a"), 0);
  EXPECT_EQ(InStr("abc", "abcd"), 0);
  EXPECT_EQ(InStr("TOTALS: 12", "TOTALS:"), 1);
}

TEST(TextInStr, EmptyNeedleGivesStartUpToOnePastTheEnd) {
  EXPECT_EQ(InStr("abc", ""), 1);
  EXPECT_EQ(InStr(3, "abc", ""), 3);
  EXPECT_EQ(InStr(4, "abc", ""), 4);
  EXPECT_EQ(InStr(5, "abc", ""), 0);
  EXPECT_EQ(InStr("", ""), 1);
  EXPECT_EQ(InStr(2, "", ""), 0);
}

TEST(TextInStr, StartBelowOneRaises5) {
  EXPECT_EQ(ErrorOf([] { InStr(0, "abc", "a"); }), 5);
  EXPECT_EQ(ErrorOf([] { InStr(-3, "abc", ""); }), 5);
}

TEST(TextInStrRev, LastPosition) {
  EXPECT_EQ(InStrRev("abcabc", "bc"), 5);
  EXPECT_EQ(InStrRev("a/b/c", "/"), 4);
  EXPECT_EQ(InStrRev("abc", "x"), 0);
  EXPECT_EQ(InStrRev("abc", ""), 3);
  EXPECT_EQ(InStrRev("", ""), 0);
  EXPECT_EQ(InStrRev("", "a"), 0);
}

TEST(TextReplace, EveryOccurrence) {
  EXPECT_EQ(Replace("a,b,,c", ",", ";"), "a;b;;c");
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Replace("abc", "b", ""), "ac");
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("", "a", "b"), "");
  EXPECT_EQ(Replace("\"x\"", "\"", ""), "x");
}

TEST(TextSplit, SplitsAtEveryDelimiter) {
  EXPECT_EQ(Split("", ","), Parts{""});
  EXPECT_EQ(Split("a", ","), Parts{"a"});
  EXPECT_EQ(Split("a,,b", ","), (Parts{"a", "", "b"}));
  EXPECT_EQ(Split(",", ","), (Parts{"", ""}));
  EXPECT_EQ(Split("a,b,", ","), (Parts{"a", "b", ""}));
  EXPECT_EQ(Split("a||b", "||"), (Parts{"a", "b"}));
  EXPECT_EQ(Split("abc", ""), Parts{"abc"});
}

TEST(TextVal, NumberAtTheStart) {
  EXPECT_EQ(Val("  12abc"), 12.0);
  EXPECT_EQ(Val("1 2 3"), 123.0);  // blanks skipped anywhere
  EXPECT_EQ(Val("\t7\n8"), 78.0);
  EXPECT_EQ(Val("-1.5e3x"), -1500.0);
  EXPECT_EQ(Val("1d2"), 100.0);
  EXPECT_EQ(Val("1e"), 1.0);
  EXPECT_EQ(Val("1e+"), 1.0);
  EXPECT_EQ(Val(".5"), 0.5);
  EXPECT_EQ(Val("-.5"), -0.5);
  EXPECT_EQ(Val("5."), 5.0);
  EXPECT_EQ(Val("1.2.3"), 1.2);
  EXPECT_EQ(Val("1,000"), 1.0);
  EXPECT_EQ(Val("&HFF"), 255.0);
  EXPECT_EQ(Val("&O17"), 15.0);
  EXPECT_EQ(Val("1e-999"), 0.0);
}

TEST(TextVal, NoNumberGivesZero) {
  EXPECT_EQ(Val(""), 0.0);
  EXPECT_EQ(Val("abc"), 0.0);
  EXPECT_EQ(Val("$5"), 0.0);
  EXPECT_EQ(Val("--5"), 0.0);
  EXPECT_EQ(Val("."), 0.0);
  EXPECT_EQ(Val("-"), 0.0);
  EXPECT_EQ(Val("&"), 0.0);
  EXPECT_EQ(Val("&Z1"), 0.0);
}

TEST(TextVal, OverflowRaises6) {
  EXPECT_EQ(ErrorOf([] { Val("1e999"); }), 6);
}

TEST(TextArgs, ValuesInTheirPrintedForm) {
  EXPECT_EQ(Left(Value(12.5), 2), "12");
  EXPECT_EQ(Len(Value(8.5)), 3);
  EXPECT_EQ(Len(Value(0.5)), 3);  // "0.5"
  EXPECT_EQ(Len(Value()), 0);
  EXPECT_EQ(Mid(Value("hello"), 2, 3), "ell");
  EXPECT_EQ(InStr(Value(1234.0), "3"), 3);
  EXPECT_EQ(Trim(Value("  x  ")), "x");
  EXPECT_EQ(UCase(Value("ab")), "AB");
  std::string s = "a-b";
  EXPECT_EQ(Split(s, std::string_view("-")), (Parts{"a", "b"}));
  // A number printed into the argument's own storage, used while the call runs.
  EXPECT_EQ(Right(Value(1234567.0), 3), "567");
  EXPECT_EQ(Replace(Value(1000.5), ".", ","), "1000,5");
}

}  // namespace
}  // namespace corvane
