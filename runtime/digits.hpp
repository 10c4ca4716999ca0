// Internal to runtime/: the decimal digits a number prints with, shared by PrintNumber and
// the pictures so that both round the same digits.
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace corvane::detail {

// The value of a short decimal figure: its digits (at most 15 of them, so exact in a double)
// over an exact power of ten, places being the digits after the point (-1 without a
// point). One division of two exact values gives the correctly rounded number, the same
// that a full conversion of the figure's text gives.
inline double ShortDecimalValue(std::uint64_t digits, int places, bool negative) {
  static constexpr double kPow10[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                      1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  // a whole figure, or nought ("0.00"), needs no division, the slowest step of a read
  const double value = places <= 0 || digits == 0 ? static_cast<double>(digits)
                                                  : static_cast<double>(digits) / kPow10[places];
  return negative ? -value : value;
}

// The leading figure of [p, last): an optional sign, then digits with at most one point,
// read in one pass. The comma read and the numeric tests take most figures this way.
struct FigureScan {
  const char* stop = nullptr;  // the first character that is no part of it
  std::uint64_t digits = 0;    // wraps harmlessly past 19 digits: more than 15 is no figure
  int count = 0;               // the digits seen
  int places = -1;             // the digits after the point; -1 without a point
  bool negative = false;

  // Whether the whole of [p, last) is a short plain figure, 15 digits at most.
  bool WholeShortFigure(const char* last) const { return stop == last && count > 0 && count <= 15; }
  double Value() const { return ShortDecimalValue(digits, places, negative); }
};

inline FigureScan ScanFigure(const char* p, const char* const last) {
  FigureScan f;
  if (p != last && (*p == '-' || *p == '+')) {
    f.negative = *p == '-';
    ++p;
  }
  for (; p != last; ++p) {
    const unsigned d = static_cast<unsigned>(static_cast<unsigned char>(*p)) - '0';
    if (d < 10) {
      f.digits = f.digits * 10 + d;
      ++f.count;
      if (f.places >= 0) ++f.places;
    } else if (*p == '.' && f.places < 0) {
      f.places = 0;
    } else {
      break;
    }
  }
  f.stop = p;
  return f;
}

// The fastest road to a figure's 15-digit rounding, for 1e-4 <= size < 1e15: the first k
// in 0..6 for which fl(size * 10^k) is a whole number m below 1e15. Then m / 10^k is that
// rounding (see Digits15). False when there is no such k.
inline bool ScaledWhole(double size, int& k, std::uint64_t& m) {
  if (!(size >= 1e-4 && size < 1e15)) return false;
  static constexpr double kPow[7] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6};
  for (int i = 0; i < 7; ++i) {
    const double scaled = size * kPow[i];
    if (scaled >= 1e15) return false;
    if (scaled == std::trunc(scaled)) {
      k = i;
      m = static_cast<std::uint64_t>(scaled);
      return true;
    }
  }
  return false;
}

// The decimal digits of |x| rounded to 15 significant digits, trailing zeros dropped, for a
// finite non-zero x: writes them to digits (room for 17), sets exponent to the power of
// ten of the first digit, and returns how many there are (1..15).
//
// Fastest path: for 1e-4 <= |x| < 1e15, the first k in 0..6 for which fl(|x| * 10^k) is a
// whole number m below 1e15 gives the digits of m and the exponent. Exact: |x - m/10^k| is
// at most 2^-53 of m/10^k (one rounding of the product), below half a unit in the 15th
// digit (at least 5e-16 of it), and m/10^k has at most 15 significant digits, so it is
// the 15-digit rounding of x. This covers most figures of a payroll (8.5, 12.37, 0.25).
//
// Fast path: when the shortest round-trip form of a normal double has at most 15 digits,
// it is that rounding (the half-ulp of a normal double, at most 2^-53 of it, is below half
// a unit in the 15th digit, at least 5e-16 of it). Otherwise, and for subnormals whose
// shortest form is short only for lack of precision, the digits come from a correctly
// rounded 15-digit conversion.
inline int Digits15(double x, char* digits, int& exponent) {
  x = std::fabs(x);
  char buf[40];
  auto parse = [&](const char* end) {
    int n = 0;
    const char* p = buf;
    while (p < end && *p != 'e') {
      if (*p != '.') digits[n++] = *p;
      ++p;
    }
    exponent = 0;
    if (p < end) std::from_chars(p[1] == '+' ? p + 2 : p + 1, end, exponent);
    while (n > 1 && digits[n - 1] == '0') --n;
    return n;
  };
  int k = 0;
  std::uint64_t m = 0;
  if (ScaledWhole(x, k, m)) {
    auto r = std::to_chars(digits, digits + 17, m);
    int n = static_cast<int>(r.ptr - digits);
    exponent = n - 1 - k;
    while (n > 1 && digits[n - 1] == '0') --n;
    return n;
  }
  if (x >= std::numeric_limits<double>::min()) {
    auto r = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific);
    int significant = 0;
    for (const char* p = buf; p < r.ptr && *p != 'e'; ++p) significant += *p != '.';
    if (significant <= 15) return parse(r.ptr);
  }
  auto r = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, 14);
  return parse(r.ptr);
}

}  // namespace corvane::detail
