// The text-or-number value: printing, the IsNumeric rule, comparison, conversions.
//
// Decisions taken here (each has a test):
// - Printing (PrintNumber): a whole number below 1e15 in magnitude prints as an integer
//   ("40", "-3"); otherwise the number is rounded to 15 significant digits, trailing zeros
//   dropped, and written in plain form when its decimal exponent lies in -4..14 ("8.5",
//   "0.0001", "123456789012.5") and in exponent form otherwise: mantissa, "E", sign, at
//   least two exponent digits ("1E+15", "1.5E-07", "1E+308", "4.94065645841247E-324").
//   -0 prints "0". Values no figure of an export can hold print as +inf "1.#INF",
//   -inf "-1.#INF", any NaN "-1.#IND".
// - IsNumeric: blanks are spaces only. The sign may stand before or after "$" ("-$5",
//   "$-5", "+$5"), but only one sign. The whole part starts with a digit and may then
//   hold digits and commas in any arrangement ("1,000", "1,2", "1,"), as exports are lax
//   about grouping; ",5" is not numeric. "5." and ".5" are numeric. An exponent
//   needs at least one digit ("1e" is not numeric). "&H"/"&O" (either case) take at least
//   one digit of their base, blanks around, no sign, and give the unsigned value of the
//   digits ("&HFF" is 255, "&HFFFF" is 65535). Text whose number overflows a double
//   ("1e999") is not numeric; converting it raises 6 (Overflow). Text that underflows
//   ("1e-999") is numeric with the value 0.
// - FieldValue does not trim: the reader drops the blanks around an unquoted field before
//   it calls FieldValue, so " 12" reaching here stays text. "5." and ".5" are plain
//   numbers; a plain number that overflows a double stays text.
// - ToNumber: the empty text "" gives 0, as the writer's empty-record test counts an empty
//   text as blank (zero). ToInteger/ToLong follow the usual conversions instead and raise
//   13 for "" (it is not numeric).
// - Compare of numbers: NaN equals NaN and lies below every other number, so that the
//   order stays total and never undefined.
#include "runtime/value.hpp"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <system_error>

#include "runtime/digits.hpp"
#include "runtime/errors.hpp"

namespace corvane {

namespace {

// Room for the longest printed number: "-1.23456789012345E-308" is 22 characters.
constexpr std::size_t kNumberBuf = 32;

std::size_t CopyLiteral(char* out, const char* s) {
  std::size_t n = std::strlen(s);
  std::memcpy(out, s, n);
  return n;
}

// A figure that is not whole, with one to six places: printed from its 15-digit rounding
// m / 10^k (see ScaledWhole) as whole part, point and k places less their trailing zeros.
// Returns 0 for any other figure, which the general road prints.
std::size_t PrintPlacesTo(double x, char* out) {
  static constexpr std::uint64_t kUnit[7] = {1, 10, 100, 1000, 10000, 100000, 1000000};
  int k = 0;
  std::uint64_t scaled = 0;
  if (!detail::ScaledWhole(std::fabs(x), k, scaled) || k == 0) return 0;
  std::size_t n = 0;
  if (x < 0) out[n++] = '-';
  n = static_cast<std::size_t>(std::to_chars(out + n, out + kNumberBuf, scaled / kUnit[k]).ptr -
                               out);
  out[n++] = '.';
  std::uint64_t places = scaled % kUnit[k];
  for (int i = k - 1; i >= 0; --i) {
    out[n + static_cast<std::size_t>(i)] = static_cast<char>('0' + places % 10);
    places /= 10;
  }
  n += static_cast<std::size_t>(k);
  while (out[n - 1] == '0') --n;
  return n;
}

// Writes the printed form of x into out (at least kNumberBuf chars); returns the length.
std::size_t PrintNumberTo(double x, char* out) {
  if (std::isnan(x)) return CopyLiteral(out, "-1.#IND");
  if (std::isinf(x)) return CopyLiteral(out, x > 0 ? "1.#INF" : "-1.#INF");
  // Fast path: whole numbers below 1e15, the usual case for hours, counts and codes.
  if (x > -1e15 && x < 1e15 && x == std::trunc(x)) {
    auto r = std::to_chars(out, out + kNumberBuf, static_cast<long long>(x));
    return static_cast<std::size_t>(r.ptr - out);
  }
  // Next, figures of a few places: hours and dollars.
  if (const std::size_t n = PrintPlacesTo(x, out); n != 0) return n;
  const bool negative = x < 0;
  char digits[17];
  int exponent = 0;
  const int nd = detail::Digits15(x, digits, exponent);

  std::size_t n = 0;
  if (negative) out[n++] = '-';
  if (exponent >= 15 || exponent < -4) {
    out[n++] = digits[0];
    if (nd > 1) {
      out[n++] = '.';
      for (int i = 1; i < nd; ++i) out[n++] = digits[i];
    }
    out[n++] = 'E';
    out[n++] = exponent < 0 ? '-' : '+';
    int e = exponent < 0 ? -exponent : exponent;
    if (e < 10) out[n++] = '0';
    auto er = std::to_chars(out + n, out + kNumberBuf, e);
    n = static_cast<std::size_t>(er.ptr - out);
  } else if (exponent >= 0) {
    for (int i = 0; i <= exponent; ++i) out[n++] = i < nd ? digits[i] : '0';
    if (nd > exponent + 1) {
      out[n++] = '.';
      for (int i = exponent + 1; i < nd; ++i) out[n++] = digits[i];
    }
  } else {
    out[n++] = '0';
    out[n++] = '.';
    for (int i = -1; i > exponent; --i) out[n++] = '0';
    for (int i = 0; i < nd; ++i) out[n++] = digits[i];
  }
  return n;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

enum class NumStatus { NotNumeric, Overflow, Ok };

// A small buffer that spills to the heap only for very long numbers.
class CharBuf {
 public:
  explicit CharBuf(std::size_t need) {
    if (need > sizeof local_) {
      heap_.resize(need);
      data_ = heap_.data();
    }
  }
  char* data() { return data_; }

 private:
  char local_[96];
  std::string heap_;
  char* data_ = local_;
};

// The common figure, "[-]digits[.digits]" with 15 digits at most and no exponent: its
// digits and its power of ten are both exact in a double, so one division gives the correctly
// rounded value. False for anything else.
bool ConvertShortDecimal(const char* buf, std::size_t n, double& out) {
  static constexpr double kPow10[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  std::size_t i = 0;
  const bool negative = n > 0 && buf[0] == '-';
  if (negative) ++i;
  std::uint64_t digits = 0;
  int count = 0;
  int places = -1;  // digits after the point; -1 before it
  for (; i < n; ++i) {
    const char c = buf[i];
    if (c == '.' && places < 0) {
      places = 0;
    } else if (IsDigit(c) && count < 15) {
      digits = digits * 10 + static_cast<std::uint64_t>(c - '0');
      ++count;
      if (places >= 0) ++places;
    } else {
      return false;
    }
  }
  if (count == 0) return false;
  const double value = static_cast<double>(digits) / kPow10[places < 0 ? 0 : places];
  out = negative ? -value : value;
  return true;
}

// Converts a decimal "[-]digits[.digits][e[-]digits]" held in buf[0, n) (either side of
// the point may be empty, not both); the caller has checked the grammar. A result too
// large for a double is Overflow; one too small is 0.
NumStatus ConvertCanonical(const char* buf, std::size_t n, double& out) {
  if (ConvertShortDecimal(buf, n, out)) return NumStatus::Ok;
  double value = 0.0;
  auto r = std::from_chars(buf, buf + n, value, std::chars_format::general);
  if (r.ec == std::errc()) {
    if (r.ptr != buf + n) return NumStatus::NotNumeric;
    if (std::isinf(value)) return NumStatus::Overflow;
    out = value;
    return NumStatus::Ok;
  }
  if (r.ec != std::errc::result_out_of_range) return NumStatus::NotNumeric;
  // Out of range: find the decimal magnitude of the first non-zero digit.
  const char* p = buf;
  const char* end = buf + n;
  bool negative = false;
  if (p < end && *p == '-') {
    negative = true;
    ++p;
  }
  // first: the power of ten of the first non-zero mantissa digit.
  long long first = std::numeric_limits<long long>::min();
  long long whole = 0;
  const char* q = p;
  while (q < end && IsDigit(*q)) ++whole, ++q;
  long long index = 0;
  for (const char* s = p; s < end && *s != 'e' && *s != 'E'; ++s) {
    if (*s == '.') continue;
    if (*s != '0') {
      first = whole - 1 - index;
      break;
    }
    ++index;
  }
  if (first == std::numeric_limits<long long>::min()) {
    out = 0.0;
    return NumStatus::Ok;
  }
  long long exp = 0;
  const char* e = p;
  while (e < end && *e != 'e' && *e != 'E') ++e;
  if (e < end) {
    ++e;
    bool eneg = false;
    if (e < end && (*e == '-' || *e == '+')) eneg = (*e++ == '-');
    for (; e < end; ++e) {
      if (exp < 1000000000LL) exp = exp * 10 + (*e - '0');
    }
    if (eneg) exp = -exp;
  }
  if (first + exp > 0) return NumStatus::Overflow;
  out = negative ? -0.0 : 0.0;
  return NumStatus::Ok;
}

// The figure most fields of an export hold, "[sign]digits[.digits]" with 15 digits at most,
// checked and converted in one pass to the value ConvertShortDecimal gives it. False for
// anything else (an exponent, more digits, other characters, no digit), which then takes
// ParsePlain.
bool ShortPlainNumber(std::string_view s, double& out) {
  const char* const end = s.data() + s.size();
  const detail::FigureScan f = detail::ScanFigure(s.data(), end);
  if (!f.WholeShortFigure(end)) return false;
  out = f.Value();
  return true;
}

NumStatus ParseNumeric(std::string_view s, double& out) {
  // Most figures are plain, and their canonical text is themselves.
  if (ShortPlainNumber(s, out)) return NumStatus::Ok;
  std::size_t i = 0;
  const std::size_t n = s.size();
  while (i < n && s[i] == ' ') ++i;
  if (i >= n) return NumStatus::NotNumeric;

  if (s[i] == '&') {
    ++i;
    if (i >= n) return NumStatus::NotNumeric;
    int base = 0;
    if (s[i] == 'H' || s[i] == 'h') base = 16;
    if (s[i] == 'O' || s[i] == 'o') base = 8;
    if (base == 0) return NumStatus::NotNumeric;
    ++i;
    double value = 0.0;
    std::size_t digits = 0;
    for (; i < n; ++i) {
      char c = s[i];
      int d;
      if (c >= '0' && c <= '9') {
        d = c - '0';
      } else if (base == 16 && c >= 'a' && c <= 'f') {
        d = c - 'a' + 10;
      } else if (base == 16 && c >= 'A' && c <= 'F') {
        d = c - 'A' + 10;
      } else {
        break;
      }
      if (d >= base) return NumStatus::NotNumeric;
      value = value * base + d;
      ++digits;
    }
    if (digits == 0) return NumStatus::NotNumeric;
    while (i < n && s[i] == ' ') ++i;
    if (i != n) return NumStatus::NotNumeric;
    if (std::isinf(value)) return NumStatus::Overflow;
    out = value;
    return NumStatus::Ok;
  }

  bool negative = false;
  bool signed_ = false;
  if (s[i] == '+' || s[i] == '-') {
    negative = s[i] == '-';
    signed_ = true;
    ++i;
  }
  if (i < n && s[i] == '$') {
    ++i;
    if (!signed_ && i < n && (s[i] == '+' || s[i] == '-')) {
      negative = s[i] == '-';
      ++i;
    }
  }
  const std::size_t whole_start = i;
  std::size_t whole_digits = 0;
  if (i < n && IsDigit(s[i])) {
    while (i < n && (IsDigit(s[i]) || s[i] == ',')) {
      if (s[i] != ',') ++whole_digits;
      ++i;
    }
  }
  const std::size_t whole_end = i;
  std::size_t frac_start = i, frac_end = i;
  if (i < n && s[i] == '.') {
    ++i;
    frac_start = i;
    while (i < n && IsDigit(s[i])) ++i;
    frac_end = i;
  }
  if (whole_digits + (frac_end - frac_start) == 0) return NumStatus::NotNumeric;
  std::size_t exp_start = i, exp_end = i;
  if (i < n && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    exp_start = i;
    if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
    std::size_t digits_at = i;
    while (i < n && IsDigit(s[i])) ++i;
    if (i == digits_at) return NumStatus::NotNumeric;
    exp_end = i;
  }
  while (i < n && s[i] == ' ') ++i;
  if (i != n) return NumStatus::NotNumeric;

  // Canonical text for the conversion: sign, whole digits, point, fraction, exponent.
  CharBuf buf(n + 4);
  char* b = buf.data();
  std::size_t k = 0;
  if (negative) b[k++] = '-';
  for (std::size_t j = whole_start; j < whole_end; ++j) {
    if (s[j] != ',') b[k++] = s[j];
  }
  if (frac_end > frac_start) {
    if (whole_digits == 0) b[k++] = '0';
    b[k++] = '.';
    for (std::size_t j = frac_start; j < frac_end; ++j) b[k++] = s[j];
  }
  if (exp_end > exp_start) {
    b[k++] = 'e';
    std::size_t j = exp_start;
    if (s[j] == '+') ++j;
    for (; j < exp_end; ++j) b[k++] = s[j];
  }
  return ConvertCanonical(b, k, out);
}

// The plain number of a comma field: [sign] digits [. digits] [e [sign] digits], at least
// one mantissa digit, nothing else.
NumStatus ParsePlain(std::string_view s, double& out) {
  std::size_t i = 0;
  const std::size_t n = s.size();
  if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
  std::size_t mantissa = 0;
  while (i < n && IsDigit(s[i])) ++i, ++mantissa;
  if (i < n && s[i] == '.') {
    ++i;
    while (i < n && IsDigit(s[i])) ++i, ++mantissa;
  }
  if (mantissa == 0) return NumStatus::NotNumeric;
  if (i < n && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
    std::size_t at = i;
    while (i < n && IsDigit(s[i])) ++i;
    if (i == at) return NumStatus::NotNumeric;
  }
  if (i != n) return NumStatus::NotNumeric;
  // from_chars takes no leading '+'; "5.", ".5" and "1e+3" it takes as they stand.
  if (s[0] == '+') s.remove_prefix(1);
  return ConvertCanonical(s.data(), s.size(), out);
}

int Sign(double a, double b) {
  const bool an = std::isnan(a), bn = std::isnan(b);
  if (an || bn) return an && bn ? 0 : (an ? -1 : 1);
  return a < b ? -1 : (a > b ? 1 : 0);
}

int CompareText(std::string_view a, std::string_view b) {
  int c = a.compare(b);  // char_traits<char>::compare is byte-wise, unsigned
  return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

// Round half to even, then range-check; NaN fails the range check.
double RoundHalfEven(double x) {
  double f = std::floor(x);
  double d = x - f;
  if (d > 0.5 || (d == 0.5 && std::fmod(f, 2.0) != 0.0)) f += 1.0;
  return f;
}

double IntegerSource(const Value& v) {
  // Unlike a number read, an integer conversion takes no empty text: it is a type mismatch.
  if (v.IsText() && v.text().empty()) Raise(kTypeMismatch);
  return v.ToNumber();
}

}  // namespace

std::string PrintNumber(double number) {
  char buf[kNumberBuf];
  return std::string(buf, PrintNumberTo(number, buf));
}

std::string Value::str() const {
  switch (kind_) {
    case Kind::Blank:
      return std::string();
    case Kind::Text:
      return text_;
    case Kind::Number:
      return PrintNumber(number_);
  }
  return std::string();
}

void Value::AppendNumber(std::string& out) const {
  char buf[kNumberBuf];
  out.append(buf, PrintNumberTo(number_, buf));
}

bool IsNumeric(std::string_view text) {
  double ignored = 0.0;
  return ParseNumeric(text, ignored) == NumStatus::Ok;
}

std::optional<double> NumericValue(std::string_view text) {
  double out = 0.0;
  if (ParseNumeric(text, out) == NumStatus::Ok) return out;
  return std::nullopt;
}

bool Value::IsNumeric() const {
  switch (kind_) {
    case Kind::Blank:
      return false;
    case Kind::Number:
      return true;
    case Kind::Text:
      return corvane::IsNumeric(text_);
  }
  return false;
}

double Value::ToNumber() const {
  switch (kind_) {
    case Kind::Blank:
      return 0.0;
    case Kind::Number:
      return number_;
    case Kind::Text: {
      if (text_.empty()) return 0.0;  // an empty text counts as blank
      double out = 0.0;
      switch (ParseNumeric(text_, out)) {
        case NumStatus::Ok:
          return out;
        case NumStatus::Overflow:
          Raise(kOverflow);
        case NumStatus::NotNumeric:
          Raise(kTypeMismatch);
      }
    }
  }
  return 0.0;
}

int Compare(const Value& a, const Value& b) {
  using K = Value::Kind;
  const K ka = a.kind(), kb = b.kind();
  if (ka == K::Number && kb == K::Number) return Sign(a.number(), b.number());
  if (ka == K::Text && kb == K::Text) return CompareText(a.text(), b.text());
  if (ka == K::Blank && kb == K::Blank) return 0;
  if (ka == K::Number || kb == K::Number) {
    const bool a_is_number = ka == K::Number;
    const Value& num = a_is_number ? a : b;
    const Value& other = a_is_number ? b : a;
    int c;
    if (other.IsBlank()) {
      c = Sign(num.number(), 0.0);
    } else {
      double t = 0.0;
      if (ParseNumeric(other.text(), t) == NumStatus::Ok) {
        c = Sign(num.number(), t);
      } else {
        char buf[kNumberBuf];
        c = CompareText(std::string_view(buf, PrintNumberTo(num.number(), buf)), other.text());
      }
    }
    return a_is_number ? c : -c;
  }
  // Blank against text: blank is "".
  return ka == K::Blank ? CompareText({}, b.text()) : CompareText(a.text(), {});
}

std::string_view PrintedView(const Value& v, char* room) {
  switch (v.kind()) {
    case Value::Kind::Blank:
      return {};
    case Value::Kind::Text:
      return v.text();
    case Value::Kind::Number:
      return {room, PrintNumberTo(v.number(), room)};
  }
  return {};
}

Value FieldValue(std::string_view text, bool quoted) {
  if (quoted) return Value(text);
  if (text.empty()) return Value();
  double out = 0.0;
  if (ParsePlain(text, out) == NumStatus::Ok) return Value(out);
  return Value(text);
}

void AssignFieldValue(Value& into, std::string_view text, bool quoted) {
  if (quoted) {
    into.SetText(text);
    return;
  }
  if (text.empty()) {
    into.SetBlank();
    return;
  }
  double out = 0.0;
  if (ShortPlainNumber(text, out) || ParsePlain(text, out) == NumStatus::Ok) {
    into.SetNumber(out);
  } else {
    into.SetText(text);
  }
}

bool NumericAbove0(const Value& v) {
  if (v.IsNumber()) return v.number() > 0.0;
  if (!v.IsText()) return false;
  // the usual text, a plain figure, is told at once
  if (double figure = 0.0; ShortPlainNumber(v.text(), figure)) return figure > 0.0;
  auto n = NumericValue(v.text());
  return n && *n > 0.0;
}

bool AtLeast1(const Value& v) {
  if (v.IsNumber()) return v.number() >= 1.0;
  if (!v.IsText()) return false;
  auto n = NumericValue(v.text());
  return n && *n >= 1.0;
}

bool IsZero(const Value& v) {
  if (v.IsNumber()) return v.number() == 0.0;
  if (!v.IsText()) return false;
  auto n = NumericValue(v.text());
  return n && *n == 0.0;
}

bool Below(const Value& rate, const Value& threshold) {
  double r = 0.0, t = 0.0;
  bool rn = false, tn = false;
  if (rate.IsNumber()) {
    r = rate.number();
    rn = true;
  } else if (rate.IsText()) {
    rn = ParseNumeric(rate.text(), r) == NumStatus::Ok;
  }
  if (threshold.IsNumber()) {
    t = threshold.number();
    tn = true;
  } else if (threshold.IsText()) {
    tn = ParseNumeric(threshold.text(), t) == NumStatus::Ok;
  }
  if (rn && tn) return Sign(r, t) < 0;
  char rb[kNumberBuf], tb[kNumberBuf];
  return CompareText(PrintedView(rate, rb), PrintedView(threshold, tb)) < 0;
}

std::int16_t ToInteger(const Value& v) {
  double r = RoundHalfEven(IntegerSource(v));
  if (!(r >= -32768.0 && r <= 32767.0)) Raise(kOverflow);
  return static_cast<std::int16_t>(r);
}

std::int32_t ToLong(const Value& v) {
  double r = RoundHalfEven(IntegerSource(v));
  if (!(r >= -2147483648.0 && r <= 2147483647.0)) Raise(kOverflow);
  return static_cast<std::int32_t>(r);
}

}  // namespace corvane
