// Number pictures (".00", "###.#0", "000000000", "mmddyyyy", ...).
//
// How a number goes through a picture (each point has a test):
// - The picture splits at its first "." into a whole part and a fraction part. "0" and
//   "#" are digit places. "," in the whole part between digit places turns on thousands
//   grouping; other commas are dropped (no scaling). Any other character is written as it
//   stands; "\x" writes x, and "..." writes what the quotes hold. Only the first section
//   of a picture with ";" sections is used. An empty picture prints the number as
//   PrintNumber does.
// - Rounding is decimal and half away from zero, on the digits a person sees: the number
//   is first taken to 15 significant digits (the digits PrintNumber shows), and that
//   decimal is rounded to the fraction places of the picture. So 2.675, whose binary value
//   lies just below the half, gives "2.68" through "0.00", and 3 * 1.115, which prints as
//   3.345, gives "3.35". (Rounding the shortest round-trip form instead would show the
//   binary noise of arithmetic, e.g. 3.3449999999999998 giving "3.34".)
// - Whole part: the leftmost "0" fixes the least number of whole digits (the places from
//   it to the point); "#" places to its left print only digits of the number. A number
//   below 1 thus has no whole digit through ".00", "#.00" or "###.#0", and "0" through
//   "0.00". Whole digits beyond the places print at the first place ("##0" with 1234567 is
//   "1234567"); with no whole places at all they print just before the point.
// - Fraction part: the rightmost "0" fixes the least number of fraction digits; "#"
//   places after it print only where the digit is not a trailing zero. A "#" before a
//   "0" therefore always prints (".#0" with 0.5 is ".50"), as in every standard number
//   formatter. The point always prints when the picture has one ("####.##" with 40 is
//   "40.", with 0 is ".").
// - Sign: a leading "-" for a negative number, unless what prints rounds to zero
//   ("-0.001" through ".00" is ".00").
// - Large numbers print every whole digit: the 15 significant digits and then zeros (1e308
//   through "000000000" is "1" and 308 zeros). A non-finite number prints as PrintNumber
//   does.
// - Date pictures (a picture with "d", "m" or "y" and no "0" or "#"): "mm"/"dd" two-digit
//   month/day, "m"/"d" without a leading zero, "yyyy" (three or more y) the four-digit year,
//   "yy" (one or two y) its last two digits; other characters as they stand. A number is a
//   date serial (days since 12/30/1899; the fraction, a time of day, is dropped toward
//   zero, so -1.5 is 12/29/1899 as in the usual date type); one outside years
//   100..9999 comes back in its printed form. Text is a date when ParseDate accepts it;
//   other text comes back unchanged.
#include "runtime/picture.hpp"

#include <charconv>
#include <cmath>

#include "runtime/dates.hpp"
#include "runtime/digits.hpp"

namespace corvane {

namespace {

bool IsDigitPlace(char c) {
  return c == '0' || c == '#';
}

// Calls f(c) for each character of the picture that is not quoted text or escaped by
// a backslash, in order, until f returns false; returns where it stopped, or npos.
template <class F>
std::size_t ScanPicture(std::string_view pic, F f) {
  bool quoted = false;
  for (std::size_t i = 0; i < pic.size(); ++i) {
    const char c = pic[i];
    if (quoted) {
      if (c == '"') quoted = false;
    } else if (c == '"') {
      quoted = true;
    } else if (c == '\\') {
      ++i;
    } else if (!f(c)) {
      return i;
    }
  }
  return std::string_view::npos;
}

// The first section of the picture: up to a ';' outside quotes and escapes.
std::string_view FirstSection(std::string_view pic) {
  return pic.substr(0, ScanPicture(pic, [](char c) { return c != ';'; }));
}

bool IsDatePicture(std::string_view pic) {
  bool date_letter = false;
  bool digit_place = false;
  ScanPicture(pic, [&](char c) {
    if (IsDigitPlace(c)) {
      digit_place = true;
      return false;
    }
    const char l = static_cast<char>(c | 0x20);
    if (l == 'd' || l == 'm' || l == 'y') date_letter = true;
    return true;
  });
  return date_letter && !digit_place;
}

void AppendTwo(std::string& out, int v) {
  out.push_back(static_cast<char>('0' + (v / 10) % 10));
  out.push_back(static_cast<char>('0' + v % 10));
}

void AppendInt(std::string& out, int v) {
  char buf[16];
  auto r = std::to_chars(buf, buf + sizeof buf, v);
  out.append(buf, r.ptr);
}

std::string FormatDate(const Date& d, std::string_view pic) {
  std::string out;
  out.reserve(pic.size() + 4);
  for (std::size_t i = 0; i < pic.size();) {
    char c = pic[i];
    char l = static_cast<char>(c | 0x20);
    if (c == '"') {
      std::size_t close = pic.find('"', i + 1);
      if (close == std::string_view::npos) close = pic.size();
      out.append(pic.substr(i + 1, close - i - 1));
      i = close + 1;
      continue;
    }
    if (c == '\\') {
      if (i + 1 < pic.size()) out.push_back(pic[i + 1]);
      i += 2;
      continue;
    }
    if (l != 'd' && l != 'm' && l != 'y') {
      out.push_back(c);
      ++i;
      continue;
    }
    std::size_t run = 1;
    while (i + run < pic.size() && static_cast<char>(pic[i + run] | 0x20) == l) ++run;
    i += run;
    if (l == 'y') {
      if (run >= 3) {
        int y = d.year;
        if (y < 1000) out.append(y < 10 ? "000" : (y < 100 ? "00" : "0"));
        AppendInt(out, y);
      } else {
        AppendTwo(out, d.year % 100);
      }
    } else {
      int v = l == 'm' ? d.month : d.day;
      if (run >= 2) {
        AppendTwo(out, v);
      } else {
        AppendInt(out, v);
      }
    }
  }
  return out;
}

std::string FormatDateValue(const Value& value, std::string_view pic) {
  if (value.IsNumber()) {
    double x = value.number();
    // Years 100..9999: serials -657434 (1/1/100) to 2958465 (12/31/9999).
    if (!(x >= -657434.0 && x < 2958466.0)) return PrintNumber(x);
    return FormatDate(DateFromSerial(static_cast<long>(std::trunc(x))), pic);
  }
  std::optional<Date> d = ParseDate(value.text());
  if (!d) return value.text();
  return FormatDate(*d, pic);
}

// The picture's shape, read once per call.
struct Shape {
  int whole_places = 0;  // "0"/"#" before the point
  int min_whole = 0;     // places from the leftmost whole "0" to the point
  int frac_places = 0;   // "0"/"#" after the point
  int min_frac = 0;      // places up to the rightmost fraction "0"
  bool grouping = false;
};

Shape ReadShape(std::string_view pic) {
  Shape s;
  bool after_point = false;
  bool place_seen = false, comma_pending = false;
  int first_zero = -1;
  ScanPicture(pic, [&](char c) {
    if (c == '.' && !after_point) {
      after_point = true;
    } else if (IsDigitPlace(c)) {
      if (after_point) {
        ++s.frac_places;
        if (c == '0') s.min_frac = s.frac_places;
      } else {
        if (c == '0' && first_zero < 0) first_zero = s.whole_places;
        ++s.whole_places;
        if (comma_pending && place_seen) s.grouping = true;
        place_seen = true;
        comma_pending = false;
      }
    } else if (c == ',' && !after_point) {
      comma_pending = true;
    }
    return true;
  });
  s.min_whole = first_zero < 0 ? 0 : s.whole_places - first_zero;
  return s;
}

// The decimal digits of |x| rounded half away from zero to frac places: the number is
// 0.digits x 10^point (digits without leading zeros; empty for zero).
struct Decimal {
  char digits[17];
  int count = 0;
  int point = 0;
};

Decimal RoundDecimal(double x, int frac) {
  Decimal d;
  if (x == 0.0) return d;
  int exponent = 0;
  d.count = detail::Digits15(x, d.digits, exponent);
  d.point = exponent + 1;
  const long keep = static_cast<long>(d.point) + frac;
  if (keep >= d.count) return d;
  if (keep < 0) {
    d.count = 0;
    return d;
  }
  const bool up = d.digits[keep] >= '5';
  d.count = static_cast<int>(keep);
  if (up) {
    int i = d.count - 1;
    while (i >= 0 && d.digits[i] == '9') --i;
    if (i < 0) {  // all nines (or nothing kept): 1 at the next power
      d.digits[0] = '1';
      d.count = 1;
      ++d.point;
    } else {
      ++d.digits[i];
      d.count = i + 1;
    }
  }
  while (d.count > 0 && d.digits[d.count - 1] == '0') --d.count;
  return d;
}

std::string FormatNumber(double x, std::string_view pic) {
  const Shape shape = ReadShape(pic);
  const Decimal d = RoundDecimal(x, shape.frac_places);

  // Whole digits: the number's own (none below 1), zero-filled to min_whole.
  const long own_whole = d.count == 0 ? 0 : (d.point > 0 ? d.point : 0);
  const long whole_len = own_whole > shape.min_whole ? own_whole : shape.min_whole;
  const long fill = whole_len - own_whole;
  auto whole_digit = [&](long i) -> char {  // i from 0, left to right
    if (i < fill) return '0';
    long k = i - fill;
    return k < d.count ? d.digits[k] : '0';
  };
  // Fraction digits, and how many print.
  auto frac_digit = [&](long j) -> char {
    long k = static_cast<long>(d.point) + j;
    return (d.count > 0 && k >= 0 && k < d.count) ? d.digits[k] : '0';
  };
  long frac_len = shape.min_frac;
  for (long j = shape.frac_places - 1; j >= frac_len; --j) {
    if (frac_digit(j) != '0') {
      frac_len = j + 1;
      break;
    }
  }

  std::string out;
  out.reserve(pic.size() + static_cast<std::size_t>(whole_len) + 2);
  if (x < 0 && d.count > 0) out.push_back('-');

  auto emit_whole = [&](long i) {
    out.push_back(whole_digit(i));
    long right = whole_len - 1 - i;
    if (shape.grouping && right > 0 && right % 3 == 0) out.push_back(',');
  };
  const long extra = whole_len - shape.whole_places;  // digits beyond the places
  bool after_point = false;
  bool whole_done = false;
  int place = 0;  // whole places seen
  int fplace = 0;
  auto finish_whole = [&]() {  // no whole places: the digits go before the point
    if (!whole_done && shape.whole_places == 0) {
      for (long i = 0; i < whole_len; ++i) emit_whole(i);
    }
    whole_done = true;
  };
  for (std::size_t i = 0; i < pic.size(); ++i) {
    char c = pic[i];
    if (c == '"') {
      std::size_t close = pic.find('"', i + 1);
      if (close == std::string_view::npos) close = pic.size();
      out.append(pic.substr(i + 1, close - i - 1));
      i = close;
    } else if (c == '\\') {
      if (i + 1 < pic.size()) out.push_back(pic[++i]);
    } else if (c == '.' && !after_point) {
      finish_whole();
      out.push_back('.');
      after_point = true;
    } else if (IsDigitPlace(c)) {
      if (after_point) {
        if (fplace < frac_len) out.push_back(frac_digit(fplace));
        ++fplace;
      } else {
        if (place == 0) {
          for (long k = 0; k < extra; ++k) emit_whole(k);
        }
        long idx = extra + place;  // this place's digit, from the left
        if (idx >= 0) emit_whole(idx);
        ++place;
      }
    } else if (c == ',') {
      // grouping or scaling comma: written by the grouping rule, not as it stands
    } else {
      out.push_back(c);
    }
  }
  finish_whole();
  return out;
}

}  // namespace

std::string Format(const Value& value, std::string_view picture) {
  if (value.IsBlank()) return std::string();
  std::string_view pic = FirstSection(picture);
  if (IsDatePicture(pic)) return FormatDateValue(value, pic);
  double x = 0.0;
  if (value.IsNumber()) {
    x = value.number();
  } else {
    std::optional<double> n = NumericValue(value.text());
    if (!n) return value.text();
    x = *n;
  }
  if (pic.empty() || !std::isfinite(x)) return PrintNumber(x);
  return FormatNumber(x, pic);
}

}  // namespace corvane
