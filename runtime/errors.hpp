// Run-time errors carry the numbers the system's messages and frames rely on.
#pragma once

#include <exception>
#include <string>

namespace corvane {

// The error numbers the system uses.
enum ErrorNumber : int {
  kInvalidCall = 5,
  kOverflow = 6,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kObjectNotSet = 91,
  kBadFileNameOrNumber = 52,
  kFileNotFound = 53,
  kFileAlreadyExists = 58,
  kInputPastEnd = 62,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kWorkbookError = 1004,
};

// The standard description of an error number ("Type mismatch" for 13).
std::string ErrorDescription(int number);

// A run-time error: what a reader frame catches, or what ends the program with the
// run-time error report when no frame catches it.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(int number);
  RuntimeError(int number, std::string description);
  int number() const { return number_; }
  const std::string& description() const { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string description_;
};

[[noreturn]] void Raise(int number);
[[noreturn]] void Raise(int number, std::string description);

}  // namespace corvane
