// Text helpers with the system's rules.
//
// Decisions taken here (each has a test):
// - Text is single-byte: lengths and positions count bytes; UCase/LCase change ASCII
//   letters only, whatever the locale.
// - InStr with an empty needle gives start while start <= Len + 1, else 0.
// - InStrRev with an empty needle gives Len(hay) (its default start, the last position).
// - Replace with an empty find gives the text unchanged.
// - Split with an empty delimiter gives one element, the whole text.
// - Val follows the usual Val: blanks, tabs and line feeds are skipped anywhere
//   ("1 2 3" gives 123); then an optional sign, digits, an optional point and fraction, an
//   optional exponent ("e" or "d", either case, optional sign, digits); it stops at the
//   first character that cannot continue the number. "&H"/"&O" read hex/octal digits and
//   give their unsigned value. A number too large for a double raises 6 (Overflow).
#include "runtime/text.hpp"

#include <cmath>
#include <optional>

#include "runtime/errors.hpp"

namespace corvane {

TextArg::TextArg(const Value& v) {
  if (v.IsNumber()) {
    storage_ = v.str();
    view_ = storage_;
  } else {
    view_ = v.text();  // "" for blank
  }
}

namespace {

std::string_view TrimLeftView(std::string_view s) {
  std::size_t i = 0;
  while (i < s.size() && s[i] == ' ') ++i;
  return s.substr(i);
}

std::string_view TrimRightView(std::string_view s) {
  std::size_t n = s.size();
  while (n > 0 && s[n - 1] == ' ') --n;
  return s.substr(0, n);
}

}  // namespace

std::string Left(TextArg t, long n) {
  if (n < 0) Raise(kInvalidCall);
  std::string_view s = t.view();
  return std::string(s.substr(0, static_cast<std::size_t>(n) < s.size() ? n : s.size()));
}

std::string Right(TextArg t, long n) {
  if (n < 0) Raise(kInvalidCall);
  std::string_view s = t.view();
  if (static_cast<std::size_t>(n) >= s.size()) return std::string(s);
  return std::string(s.substr(s.size() - static_cast<std::size_t>(n)));
}

std::string Mid(TextArg t, long start) {
  if (start < 1) Raise(kInvalidCall);
  std::string_view s = t.view();
  std::size_t from = static_cast<std::size_t>(start) - 1;
  if (from >= s.size()) return std::string();
  return std::string(s.substr(from));
}

std::string Mid(TextArg t, long start, long n) {
  if (start < 1 || n < 0) Raise(kInvalidCall);
  std::string_view s = t.view();
  std::size_t from = static_cast<std::size_t>(start) - 1;
  if (from >= s.size()) return std::string();
  return std::string(s.substr(from, static_cast<std::size_t>(n)));
}

std::string_view TrimView(std::string_view s) {
  return TrimRightView(TrimLeftView(s));
}
std::string Trim(TextArg t) {
  return std::string(TrimView(t.view()));
}
std::string LTrim(TextArg t) {
  return std::string(TrimLeftView(t.view()));
}
std::string RTrim(TextArg t) {
  return std::string(TrimRightView(t.view()));
}

std::string UCase(TextArg t) {
  std::string out(t.view());
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

std::string LCase(TextArg t) {
  std::string out(t.view());
  for (char& c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

long Len(TextArg t) {
  return static_cast<long>(t.view().size());
}

namespace {

long InStrView(long start, std::string_view h, std::string_view n) {
  if (start < 1) Raise(kInvalidCall);
  std::size_t from = static_cast<std::size_t>(start) - 1;
  if (n.empty()) return from <= h.size() ? start : 0;
  if (from >= h.size()) return 0;
  std::size_t at = h.find(n, from);
  return at == std::string_view::npos ? 0 : static_cast<long>(at) + 1;
}

}  // namespace

long InStr(TextArg hay, TextArg needle) {
  return InStrView(1, hay.view(), needle.view());
}

long InStr(long start, TextArg hay, TextArg needle) {
  return InStrView(start, hay.view(), needle.view());
}

long InStrRev(TextArg hay, TextArg needle) {
  std::string_view h = hay.view();
  std::string_view n = needle.view();
  if (n.empty()) return static_cast<long>(h.size());
  std::size_t at = h.rfind(n);
  return at == std::string_view::npos ? 0 : static_cast<long>(at) + 1;
}

std::string Replace(TextArg t, TextArg find, TextArg with) {
  std::string_view s = t.view();
  std::string_view f = find.view();
  std::string_view w = with.view();
  if (f.empty()) return std::string(s);
  std::size_t at = s.find(f);
  if (at == std::string_view::npos) return std::string(s);
  std::string out;
  out.reserve(s.size());
  std::size_t pos = 0;
  while (at != std::string_view::npos) {
    out.append(s.substr(pos, at - pos));
    out.append(w);
    pos = at + f.size();
    at = s.find(f, pos);
  }
  out.append(s.substr(pos));
  return out;
}

std::vector<std::string> Split(TextArg t, TextArg delimiter) {
  std::string_view s = t.view();
  std::string_view d = delimiter.view();
  std::vector<std::string> parts;
  if (d.empty()) {
    parts.emplace_back(s);
    return parts;
  }
  // one allocation for the list: count the pieces first
  std::size_t count = 1;
  for (std::size_t at = s.find(d); at != std::string_view::npos; at = s.find(d, at + d.size())) {
    ++count;
  }
  parts.reserve(count);
  std::size_t pos = 0;
  while (true) {
    std::size_t at = s.find(d, pos);
    if (at == std::string_view::npos) break;
    parts.emplace_back(s.substr(pos, at - pos));
    pos = at + d.size();
  }
  parts.emplace_back(s.substr(pos));
  return parts;
}

double Val(TextArg t) {
  std::string_view s = t.view();
  // The characters that count, with blanks, tabs and line feeds taken out.
  std::string c;
  c.reserve(s.size());
  for (char ch : s) {
    if (ch != ' ' && ch != '\t' && ch != '\n') c.push_back(ch);
  }
  std::size_t i = 0;
  const std::size_t n = c.size();
  if (i + 1 < n && c[i] == '&') {
    int base = 0;
    if (c[i + 1] == 'H' || c[i + 1] == 'h') base = 16;
    if (c[i + 1] == 'O' || c[i + 1] == 'o') base = 8;
    if (base == 0) return 0.0;
    double value = 0.0;
    for (i += 2; i < n; ++i) {
      char ch = c[i];
      int d;
      if (ch >= '0' && ch <= '9') {
        d = ch - '0';
      } else if (base == 16 && ch >= 'a' && ch <= 'f') {
        d = ch - 'a' + 10;
      } else if (base == 16 && ch >= 'A' && ch <= 'F') {
        d = ch - 'A' + 10;
      } else {
        break;
      }
      if (d >= base) break;
      value = value * base + d;
    }
    if (std::isinf(value)) Raise(kOverflow);
    return value;
  }
  std::string num;
  num.reserve(n + 2);
  if (i < n && (c[i] == '+' || c[i] == '-')) {
    if (c[i] == '-') num.push_back('-');
    ++i;
  }
  std::size_t mantissa = 0;
  while (i < n && c[i] >= '0' && c[i] <= '9') num.push_back(c[i++]), ++mantissa;
  if (i < n && c[i] == '.') {
    std::size_t before = num.size();
    num.push_back('.');
    ++i;
    while (i < n && c[i] >= '0' && c[i] <= '9') num.push_back(c[i++]), ++mantissa;
    if (num.size() == before + 1) num.pop_back();  // "5." is 5
  }
  if (mantissa == 0) return 0.0;
  if (i < n && (c[i] == 'e' || c[i] == 'E' || c[i] == 'd' || c[i] == 'D')) {
    std::size_t j = i + 1;
    std::string exp = "e";
    if (j < n && (c[j] == '+' || c[j] == '-')) {
      if (c[j] == '-') exp.push_back('-');
      ++j;
    }
    std::size_t digits = 0;
    while (j < n && c[j] >= '0' && c[j] <= '9') exp.push_back(c[j++]), ++digits;
    if (digits > 0) num += exp;
  }
  // num is now "[-]digits[.digits][e[-]digits]", numeric by the IsNumeric rule, which
  // converts it and says whether it overflows (a tiny number gives 0).
  std::optional<double> value = NumericValue(num);
  if (!value) Raise(kOverflow);
  return *value;
}

std::string Latin1ToUtf8(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (unsigned char c : text) {
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

}  // namespace corvane
