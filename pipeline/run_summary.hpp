// The run summary: what the writers wrote and dropped in one press, per earning code and per
// employee, gathered as every record passes the writers. It costs a few additions a record
// and allocates only for a code or an employee seen for the first time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "pipeline/import_record.hpp"

namespace corvane {

// Why a writer dropped a record: its code is "X", or it has neither hours nor dollars.
enum class DropReason : std::uint8_t { CodeX, NoFigures };

struct Totals {
  long count = 0;  // lines, or records dropped
  double hours = 0;
  double dollars = 0;
};

// The lines of one D-or-E and earning code, as written in fields 6 and 7.
struct CodeTotals : Totals {
  std::string dore;
  std::string code;
};

// The lines of one employee number, as written in field 1.
struct EmployeeTotals : Totals {
  std::string employee;
};

// A file the writers wrote lines to: the import file, or the second file of a format that
// writes two.
struct SummaryFile {
  std::string path;
  bool other = false;
  long lines = 0;
};

struct LargestHours {
  double hours = 0;
  std::string employee;
  int file = -1;  // index into RunSummary::files(); -1 when no line had hours
  long line = 0;
};

class RunSummary {
 public:
  // Where a written line went: the file's index and the line's number in it, from 1.
  struct Placed {
    int file;
    long line;
  };

  // A new press: everything of the last one goes.
  void Reset();
  // The writers' files from here on; `other` names the second file of a format that writes
  // two. Returns the file's index.
  int BeginFile(std::string path, bool other);
  // A line written by a writer, from the record it was built from.
  Placed Written(const ImportRecord& r, bool other);
  // A record a drop rule kept out of the file.
  void Dropped(DropReason reason, const ImportRecord& r);
  // The end of the press: the counts of the report, and whether the report was shown.
  void Finish(std::string format, long records_read, long lines_written, bool completed);

  const std::string& format() const { return format_; }
  bool completed() const { return completed_; }
  long records_read() const { return records_read_; }
  long lines_written() const { return lines_written_; }
  const std::vector<SummaryFile>& files() const { return files_; }
  // Per D-or-E and code, in the order first written.
  const std::vector<CodeTotals>& codes() const { return codes_; }
  const Totals& written() const { return written_; }
  const Totals& dropped(DropReason reason) const {
    return reason == DropReason::CodeX ? dropped_x_ : dropped_empty_;
  }
  // Per employee, in the order first written.
  const std::vector<EmployeeTotals>& employees() const { return employees_; }
  long fewest_lines() const { return fewest_lines_; }
  long most_lines() const { return most_lines_; }
  const LargestHours& largest_line() const { return largest_line_; }
  // The employee with the most hours in all; its file and line are not set.
  const LargestHours& largest_employee() const { return largest_employee_; }

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
  };

  std::string format_;
  bool completed_ = false;
  long records_read_ = 0;
  long lines_written_ = 0;
  std::vector<SummaryFile> files_;
  int import_file_ = -1;
  int other_file_ = -1;
  std::vector<CodeTotals> codes_;
  std::size_t last_code_ = 0;
  Totals written_;
  Totals dropped_x_;
  Totals dropped_empty_;
  std::vector<EmployeeTotals> employees_;
  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> employee_index_;
  std::size_t last_employee_ = 0;
  long fewest_lines_ = 0;
  long most_lines_ = 0;
  LargestHours largest_line_;
  LargestHours largest_employee_;
  // scratch for the printed fields of the record, kept to spare an allocation a line
  std::string dore_, code_, employee_;
};

// A figure of the record as the program reads one: a number, or text that reads as a number;
// anything else counts 0.
double FigureOf(const Value& v);
double FigureOf(std::string_view text);

}  // namespace corvane
