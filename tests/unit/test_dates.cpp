// Dates: the valid forms, real days, two-digit years, serials, the short date form.
#include <gtest/gtest.h>

#include <climits>
#include <ctime>

#include "runtime/dates.hpp"

namespace corvane {
namespace {

std::optional<Date> D(int y, int m, int d) {
  return Date{y, m, d};
}

TEST(DatesParse, TheFiveForms) {
  EXPECT_EQ(ParseDate("11/20/2026"), D(2026, 11, 20));
  EXPECT_EQ(ParseDate("1/5/2026"), D(2026, 1, 5));
  EXPECT_EQ(ParseDate("01/05/2026"), D(2026, 1, 5));
  EXPECT_EQ(ParseDate("1/5/26"), D(2026, 1, 5));
  EXPECT_EQ(ParseDate("1-5-2026"), D(2026, 1, 5));
  EXPECT_EQ(ParseDate("12-31-98"), D(1998, 12, 31));
  EXPECT_EQ(ParseDate("2026-01-05"), D(2026, 1, 5));
  EXPECT_EQ(ParseDate("  1/5/2026  "), D(2026, 1, 5));
  EXPECT_EQ(ParseDate(" 2026-11-20"), D(2026, 11, 20));
}

TEST(DatesParse, TwoDigitYears) {
  EXPECT_EQ(ParseDate("1/5/00"), D(2000, 1, 5));
  EXPECT_EQ(ParseDate("1/5/29"), D(2029, 1, 5));
  EXPECT_EQ(ParseDate("1/5/30"), D(1930, 1, 5));
  EXPECT_EQ(ParseDate("1/5/99"), D(1999, 1, 5));
  EXPECT_EQ(ParseDate("1-5-29"), D(2029, 1, 5));
  EXPECT_EQ(ParseDate("1-5-30"), D(1930, 1, 5));
}

TEST(DatesParse, RealDaysOnly) {
  EXPECT_EQ(ParseDate("2/29/2024"), D(2024, 2, 29));
  EXPECT_EQ(ParseDate("2/29/2000"), D(2000, 2, 29));  // divisible by 400
  EXPECT_EQ(ParseDate("2/29/24"), D(2024, 2, 29));
  EXPECT_EQ(ParseDate("2/28/2023"), D(2023, 2, 28));
  EXPECT_EQ(ParseDate("4/30/2026"), D(2026, 4, 30));
  EXPECT_EQ(ParseDate("12/31/9999"), D(9999, 12, 31));
  EXPECT_EQ(ParseDate("1/31/2026"), D(2026, 1, 31));
  for (const char* s : {"2/29/1900", "2/29/2023", "2/29/25", "2/30/2024", "2/30/2000", "4/31/2026",
                        "6/31/2026", "9/31/2026", "11/31/2026", "13/1/2026", "0/1/2026", "1/0/2026",
                        "1/32/2026", "2023-02-29", "2026-13-01", "2026-00-10", "2026-01-00"}) {
    EXPECT_FALSE(ParseDate(s).has_value()) << s;
  }
}

TEST(DatesParse, MalformedText) {
  for (const char* s :
       {"",           "   ",       "1/5",       "1/5/",      "/5/2026",       "1//2026",
        "1/5/2026x",  "x1/5/2026", "1/5-2026",  "1-5/2026",  "2026/01/05",    "2026-1-5",
        "2026-01-5",  "1/5/202",   "1/5/20266", "1/5/1",     "001/5/2026",    "1/005/2026",
        "1 /5/2026",  "1/ 5/2026", "1/5/0099",  "1/5/0000",  "\t1/5/2026",    "1.5.2026",
        "Jan 5 2026", "45000",     "-1/5/2026", "+1/5/2026", "1/5/2026 10:00"}) {
    EXPECT_FALSE(ParseDate(s).has_value()) << "[" << s << "]";
  }
}

TEST(DatesIsDate, Kinds) {
  EXPECT_TRUE(IsDate(Value("1/5/2026")));
  EXPECT_TRUE(IsDate(Value("2026-01-05")));
  EXPECT_FALSE(IsDate(Value("x")));
  EXPECT_FALSE(IsDate(Value("")));
  EXPECT_FALSE(IsDate(Value()));
  EXPECT_FALSE(IsDate(Value(45000.0)));
}

TEST(DatesSerial, KnownDays) {
  EXPECT_EQ(DaySerial(Date{1899, 12, 30}), 0);
  EXPECT_EQ(DaySerial(Date{1899, 12, 31}), 1);
  EXPECT_EQ(DaySerial(Date{1900, 1, 1}), 2);
  EXPECT_EQ(DaySerial(Date{1900, 3, 1}), 61);  // 1900 is not a leap year
  EXPECT_EQ(DaySerial(Date{1899, 12, 29}), -1);
  EXPECT_EQ(DaySerial(Date{1970, 1, 1}), 25569);
  EXPECT_EQ(DaySerial(Date{2000, 1, 1}), 36526);
  EXPECT_EQ(DaySerial(Date{2024, 2, 29}), 45351);
  EXPECT_EQ(DaySerial(Date{2026, 11, 20}), 46346);
  EXPECT_EQ(DaySerial(Date{100, 1, 1}), -657434);
  EXPECT_EQ(DaySerial(Date{9999, 12, 31}), 2958465);
}

TEST(DatesSerial, DifferencesCountDays) {
  EXPECT_EQ(DaySerial(Date{2024, 3, 1}) - DaySerial(Date{2024, 2, 28}), 2);
  EXPECT_EQ(DaySerial(Date{2023, 3, 1}) - DaySerial(Date{2023, 2, 28}), 1);
  EXPECT_EQ(DaySerial(Date{2027, 1, 1}) - DaySerial(Date{2026, 1, 1}), 365);
  EXPECT_EQ(DaySerial(Date{2025, 1, 1}) - DaySerial(Date{2024, 1, 1}), 366);
}

TEST(DatesSerial, DateFromSerialInverts) {
  EXPECT_EQ(DateFromSerial(0), (Date{1899, 12, 30}));
  EXPECT_EQ(DateFromSerial(2), (Date{1900, 1, 1}));
  EXPECT_EQ(DateFromSerial(46346), (Date{2026, 11, 20}));
  EXPECT_EQ(DateFromSerial(-657434), (Date{100, 1, 1}));
  for (long s = -657434; s <= 2958465; s += 7) {
    Date d = DateFromSerial(s);
    ASSERT_EQ(DaySerial(d), s);
    ASSERT_GE(d.month, 1);
    ASSERT_LE(d.month, 12);
    ASSERT_GE(d.day, 1);
    ASSERT_LE(d.day, 31);
  }
}

TEST(DatesSerial, ExtremeSerialsDoNotOverflow) {
  Date hi = DateFromSerial(LONG_MAX);
  Date lo = DateFromSerial(LONG_MIN);
  EXPECT_GT(hi.year, 900000000);
  EXPECT_LT(lo.year, -900000000);
  EXPECT_GE(hi.month, 1);
  EXPECT_GE(lo.day, 1);
}

TEST(DatesShort, NoLeadingZeros) {
  EXPECT_EQ(ShortDate(Date{2026, 1, 5}), "1/5/2026");
  EXPECT_EQ(ShortDate(Date{2026, 11, 20}), "11/20/2026");
  EXPECT_EQ(ShortDate(Date{1999, 12, 31}), "12/31/1999");
  EXPECT_EQ(ShortDate(Date{100, 1, 1}), "1/1/0100");
  EXPECT_EQ(ShortDate(*ParseDate("03-07-29")), "3/7/2029");
}

TEST(DatesToday, SystemClockLocalDate) {
  Date today = SystemToday();
  std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  // The same day unless midnight passed between the two reads.
  long diff =
      DaySerial(Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday}) - DaySerial(today);
  EXPECT_GE(diff, 0);
  EXPECT_LE(diff, 1);
  EXPECT_EQ(ParseDate(ShortDate(today)), today);
}

}  // namespace
}  // namespace corvane
