// Text helpers with the system's rules: positions count from 1, a start past the end
// gives "", Trim removes blanks (spaces) only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/value.hpp"

namespace corvane {

// Any text-like argument: a string, a literal, or a value in its printed form.
class TextArg {
 public:
  TextArg(const char* s) : view_(s) {}
  TextArg(std::string_view s) : view_(s) {}
  TextArg(const std::string& s) : view_(s) {}
  TextArg(const Value& v);
  TextArg(const TextArg&) = delete;
  TextArg& operator=(const TextArg&) = delete;
  std::string_view view() const { return view_; }

 private:
  std::string storage_;
  std::string_view view_;
};

// Left(t, n): the first n characters; n < 0 raises 5.
std::string Left(TextArg t, long n);
// Right(t, n): the last n characters; n < 0 raises 5.
std::string Right(TextArg t, long n);
// Mid(t, start, n): n characters from start (from 1); start < 1 or n < 0 raises 5; a
// start past the end gives "". Without n, to the end.
std::string Mid(TextArg t, long start);
std::string Mid(TextArg t, long start, long n);
std::string Trim(TextArg t);
// Trim without a copy: the part of s between its leading and trailing blanks.
std::string_view TrimView(std::string_view s);
std::string LTrim(TextArg t);
std::string RTrim(TextArg t);
std::string UCase(TextArg t);
std::string LCase(TextArg t);
long Len(TextArg t);
// InStr: the position (from 1) of needle in hay at or after start, 0 when absent; an
// empty needle gives start (or 0 past the end). start < 1 raises 5.
long InStr(TextArg hay, TextArg needle);
long InStr(long start, TextArg hay, TextArg needle);
// InStrRev: the last position of needle in hay, 0 when absent.
long InStrRev(TextArg hay, TextArg needle);
// Replace every occurrence of find (non-empty) by with.
std::string Replace(TextArg t, TextArg find, TextArg with);
// Split at every delimiter; "" gives one empty element.
std::vector<std::string> Split(TextArg t, TextArg delimiter);
// Val: the number at the start of the text (blanks skipped), 0 when none.
double Val(TextArg t);

// Single-byte text as UTF-8: each byte is the character of the same number. The settings
// files and the exports are single-byte; JSON and the desktop want UTF-8.
std::string Latin1ToUtf8(std::string_view text);

}  // namespace corvane
