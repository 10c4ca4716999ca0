#include "runtime/errors.hpp"

#include <utility>

namespace corvane {

std::string ErrorDescription(int number) {
  switch (number) {
    case kInvalidCall:
      return "Invalid procedure call or argument";
    case kOverflow:
      return "Overflow";
    case kSubscriptOutOfRange:
      return "Subscript out of range";
    case kTypeMismatch:
      return "Type mismatch";
    case kBadFileNameOrNumber:
      return "Bad file name or number";
    case kFileNotFound:
      return "File not found";
    case kDeviceIO:
      return "Device I/O error";
    case kDiskFull:
      return "Disk full";
    case kInputPastEnd:
      return "Input past end of file";
    case kFileAlreadyExists:
      return "File already exists";
    case kPermissionDenied:
      return "Permission denied";
    case kPathFileAccess:
      return "Path/File access error";
    case kPathNotFound:
      return "Path not found";
    case kObjectNotSet:
      return "Object variable or With block variable not set";
    case kWorkbookError:
      return "Application-defined or object-defined error";
    case kTableArguments:
      return "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
             "with one another.";
    case kTableNoCurrentRow:
      return "Either BOF or EOF is True, or the current record has been deleted. Requested "
             "operation requires a current record.";
    default:
      return "Application-defined or object-defined error";
  }
}

RuntimeError::RuntimeError(int number) : number_(number), description_(ErrorDescription(number)) {}

RuntimeError::RuntimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

void Raise(int number) {
  throw RuntimeError(number);
}

void Raise(int number, std::string description) {
  throw RuntimeError(number, std::move(description));
}

}  // namespace corvane
