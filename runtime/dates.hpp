// Dates: the valid forms, day arithmetic, the short date form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "runtime/value.hpp"

namespace corvane {

struct Date {
  int year = 0;
  int month = 0;
  int day = 0;
  friend bool operator==(const Date&, const Date&) = default;
};

// One of m/d/yyyy, m/d/yy, m-d-yyyy, m-d-yy, yyyy-mm-dd with a real day of a real month,
// blanks around allowed; two-digit years 00-29 are 2000-2029, 30-99 are 1930-1999.
std::optional<Date> ParseDate(std::string_view text);
bool IsDate(const Value& v);

// Days since 1899-12-30 (day 0), so that differences count days.
long DaySerial(const Date& d);
Date DateFromSerial(long serial);

// The short date form, US: m/d/yyyy.
std::string ShortDate(const Date& d);

// Today from the system clock (local time).
Date SystemToday();

}  // namespace corvane
