// The pre-import check: what Evolution accepts of an import line, tested line by line before
// the operator imports the file. It works on the text of a line, so that it serves a run's
// lines as they are written and any import file already on disk, old layout or new.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// Whether employee numbers must be all digits: always, never, or when most lines' numbers are.
enum class NumericEmployees : std::uint8_t { Auto, Yes, No };

struct CheckOptions {
  double max_hours = 100;  // a line over this many hours is implausible
  double max_rate = 1000;  // a pay rate over this is implausible
  NumericEmployees numeric_employees = NumericEmployees::Auto;
};

// The rules, in the order a line's fields are tested.
enum class CheckRule : std::uint8_t {
  FieldCount,          // not exactly 29 fields: a comma inside a field shifts the rest
  EmployeeBlank,       // field 1 blank
  EmployeeNotNumeric,  // field 1 not all digits where the numbers are numeric
  FieldTooLong,        // longer than its field in Evolution's layout
  DorE,                // field 6 neither "D" nor "E"
  CodeBlank,           // field 7 blank: its code box was left empty
  CodeUnassigned,      // field 7 still "?": a column or category with no code
  NotANumber,          // rate, hours or amount that is not a number
  Negative,            // rate, hours or amount below zero
  HoursOver,           // hours above CheckOptions::max_hours
  RateOver,            // rate above CheckOptions::max_rate
  HoursAndDollars,     // both hours and amount on one line
};
inline constexpr std::size_t kCheckRuleCount = 12;

// The stable name of a rule, as the JSON summary and `corvane check` print it.
std::string_view RuleName(CheckRule rule);

struct FieldWidth;

struct CheckWarning {
  int file = 0;   // index into ImportCheck::files()
  long line = 0;  // line number in that file, from 1
  std::string employee;
  CheckRule rule = CheckRule::FieldCount;
  int field = 0;  // the line field concerned, 0 for the whole line
  std::string text;
};

// The 29 fields of an import line. Fields 1 and 2 are quoted and come without their quotes;
// a quoted field runs to a quote followed by a comma or the line end, so that a quote inside
// a name does not end it. Returns the number of fields found; at most `fields.size()` are
// kept.
std::size_t SplitImportLine(std::string_view line, std::array<std::string_view, 30>& fields);

class ImportCheck {
 public:
  // Warnings kept in full; beyond that only the counts go on.
  static constexpr std::size_t kKeptWarnings = 10000;

  explicit ImportCheck(CheckOptions options = {}) : options_(options) {}

  // Starts afresh with these options.
  void Reset(CheckOptions options);
  // A new import file: the lines that follow are numbered in it. Returns its index.
  int BeginFile(std::string path);
  // Tests one line (without its line end) of file `file`.
  void CheckLine(int file, long line_number, std::string_view line);
  // Ends the check. Under NumericEmployees::Auto the employee numbers' rule waits for this:
  // it applies when more lines carry an all-digit number than not.
  void Finish();

  const CheckOptions& options() const { return options_; }
  const std::vector<std::string>& files() const { return files_; }
  // The kept warnings, by file and line.
  const std::vector<CheckWarning>& warnings() const { return warnings_; }
  // Every warning by rule, kept or not.
  const std::array<long, kCheckRuleCount>& counts() const { return counts_; }
  long total_warnings() const;
  long left_off() const { return left_off_; }
  long lines_checked() const { return lines_checked_; }
  long lines_with_warnings() const { return lines_with_warnings_; }
  // Whether the employee numbers were held to be numeric (known after Finish).
  bool numeric_employees() const { return numeric_; }

 private:
  void Warn(int file, long line, std::string_view employee, CheckRule rule, int field,
            std::string text);
  void CheckWidth(int file, long line, std::string_view employee, int field,
                  std::string_view value);
  void WidthExceeded(int file, long line, std::string_view employee, const FieldWidth& w,
                     std::string_view value);
  void CheckFigures(int file, long line, std::string_view employee,
                    const std::array<std::string_view, 30>& f);

  CheckOptions options_;
  std::vector<std::string> files_;
  std::vector<CheckWarning> warnings_;
  // Auto mode: the lines whose employee number is not all digits, until Finish decides.
  std::vector<CheckWarning> pending_;
  long pending_count_ = 0;
  long pending_clean_lines_ = 0;  // of those, the lines with no other warning
  long digit_numbers_ = 0;
  std::array<long, kCheckRuleCount> counts_{};
  long left_off_ = 0;
  long lines_checked_ = 0;
  long lines_with_warnings_ = 0;
  bool line_warned_ = false;
  bool numeric_ = false;
};

// Checks the whole text of an import file: lines end in CR LF or LF; a last line without its
// end is still a line.
void CheckImportText(ImportCheck& check, int file, std::string_view text);

}  // namespace corvane
