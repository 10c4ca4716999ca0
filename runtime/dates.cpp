// Dates: the valid forms, day arithmetic, the short date form.
//
// Decisions taken here (each has a test):
// - The forms: m/d/yyyy, m/d/yy, m-d-yyyy, m-d-yy with a month and day of one or two
//   digits; yyyy-mm-dd with exactly two digits each. The separators of one date agree.
//   Blanks (spaces) around the date are allowed, none inside. Nothing else is a date.
// - A four-digit year is taken as written and must lie in 100..9999 (the usual date
//   range); "0099" is not a date.
// - IsDate is true for text that ParseDate accepts, false for blank and for numbers (a
//   number is not a date, as the date test has it).
// - DateFromSerial is exact for every serial whose year lies in -999999999..999999999;
//   a serial beyond that is clamped to the nearest such day (no overflow, no UB).
// - ShortDate writes the year zero-filled to four characters ("1/5/0100"); no parsed date
//   has a year below 100.
#include "runtime/dates.hpp"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace corvane {

namespace {

bool IsLeap(long long y) {
  return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int DaysInMonth(long long y, int m) {
  static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && IsLeap(y) ? 29 : kDays[m - 1];
}

// Days since 1970-01-01 of a proleptic Gregorian date (H. Hinnant's days_from_civil).
long long DaysFromCivil(long long y, unsigned m, unsigned d) {
  y -= m <= 2;
  const long long era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long long>(doe) - 719468;
}

void CivilFromDays(long long z, long long& y, unsigned& m, unsigned& d) {
  z += 719468;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  y = static_cast<long long>(yoe) + era * 400;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  d = doy - (153 * mp + 2) / 5 + 1;
  m = mp < 10 ? mp + 3 : mp - 9;
  y += m <= 2;
}

// 1899-12-30 counted from 1970-01-01.
constexpr long long kEpochOffset = -25569;

// Reads 1..max_digits digits at s[i]; returns the count read (0 when none).
int ReadDigits(std::string_view s, std::size_t& i, int max_digits, int& value) {
  int count = 0;
  value = 0;
  while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
    if (count == max_digits) return max_digits + 1;  // too many
    value = value * 10 + (s[i] - '0');
    ++count;
    ++i;
  }
  return count;
}

std::optional<Date> Make(int y, int m, int d) {
  if (y < 100 || y > 9999 || m < 1 || m > 12 || d < 1) return std::nullopt;
  if (d > DaysInMonth(y, m)) return std::nullopt;
  return Date{y, m, d};
}

}  // namespace

std::optional<Date> ParseDate(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && text[b] == ' ') ++b;
  while (e > b && text[e - 1] == ' ') --e;
  std::string_view s = text.substr(b, e - b);
  std::size_t i = 0;
  int first = 0;
  int n1 = ReadDigits(s, i, 4, first);
  if (n1 == 0 || n1 > 4 || i >= s.size()) return std::nullopt;
  const char sep = s[i];
  if (sep != '/' && sep != '-') return std::nullopt;
  ++i;
  if (n1 == 4) {  // yyyy-mm-dd
    if (sep != '-') return std::nullopt;
    int month = 0, day = 0;
    if (ReadDigits(s, i, 2, month) != 2) return std::nullopt;
    if (i >= s.size() || s[i] != '-') return std::nullopt;
    ++i;
    if (ReadDigits(s, i, 2, day) != 2 || i != s.size()) return std::nullopt;
    return Make(first, month, day);
  }
  if (n1 > 2) return std::nullopt;
  int day = 0, year = 0;
  int n2 = ReadDigits(s, i, 2, day);
  if (n2 < 1 || n2 > 2) return std::nullopt;
  if (i >= s.size() || s[i] != sep) return std::nullopt;
  ++i;
  int n3 = ReadDigits(s, i, 4, year);
  if (i != s.size()) return std::nullopt;
  if (n3 == 2) {
    year += year <= 29 ? 2000 : 1900;
  } else if (n3 != 4) {
    return std::nullopt;
  }
  return Make(year, first, day);
}

bool IsDate(const Value& v) {
  return v.IsText() && ParseDate(v.text()).has_value();
}

long DaySerial(const Date& d) {
  return static_cast<long>(
      DaysFromCivil(d.year, static_cast<unsigned>(d.month), static_cast<unsigned>(d.day)) -
      kEpochOffset);
}

Date DateFromSerial(long serial) {
  // Years within +-999,999,999 keep every intermediate inside long long and the year
  // inside int.
  constexpr long long kLimit = 365242198000LL;  // about 999,999,999 years of days
  long long z = std::clamp<long long>(serial, -kLimit, kLimit) + kEpochOffset;
  long long y = 0;
  unsigned m = 0, d = 0;
  CivilFromDays(z, y, m, d);
  return Date{static_cast<int>(y), static_cast<int>(m), static_cast<int>(d)};
}

std::string ShortDate(const Date& d) {
  char buf[48];
  int n = std::snprintf(buf, sizeof buf, "%d/%d/%04d", d.month, d.day, d.year);
  return std::string(buf, n > 0 ? static_cast<std::size_t>(n) : 0);
}

Date SystemToday() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &now);
#else
  localtime_r(&now, &local);
#endif
  return Date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

}  // namespace corvane
