// Run-time errors carry the numbers the system's messages and frames rely on.
#pragma once

#include <exception>
#include <string>
#include <utility>

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
  kDeviceIO = 57,
  kFileAlreadyExists = 58,
  kDiskFull = 61,
  kInputPastEnd = 62,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kWorkbookError = 1004,
  // The in-memory tables of the settings forms.
  kTableArguments = 3001,
  kTableNoCurrentRow = 3021,
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

// An error that no reader frame may catch: it goes past the branch to the caller of the run,
// which has no handler, and so ends the program with the run-time error report.
class FatalError : public std::exception {
 public:
  explicit FatalError(RuntimeError error) : error_(std::move(error)) {}
  const RuntimeError& error() const { return error_; }
  const char* what() const noexcept override { return error_.what(); }

 private:
  RuntimeError error_;
};

[[noreturn]] void Raise(int number);
[[noreturn]] void Raise(int number, std::string description);

}  // namespace corvane
