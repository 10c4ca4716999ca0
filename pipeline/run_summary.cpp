#include "pipeline/run_summary.hpp"

#include <algorithm>

namespace corvane {

double FigureOf(std::string_view text) {
  if (text.empty()) return 0.0;
  return NumericValue(text).value_or(0.0);
}

double FigureOf(const Value& v) {
  if (v.IsNumber()) return v.number();
  if (v.IsText()) return FigureOf(std::string_view(v.text()));
  return 0.0;
}

void RunSummary::Reset() {
  *this = RunSummary();
}

int RunSummary::BeginFile(std::string path, bool other) {
  files_.push_back({std::move(path), other, 0});
  const int index = static_cast<int>(files_.size()) - 1;
  (other ? other_file_ : import_file_) = index;
  return index;
}

RunSummary::Placed RunSummary::Written(const ImportRecord& r, bool other) {
  int file = other ? other_file_ : import_file_;
  if (file < 0) file = BeginFile("", other);
  const long line = ++files_[static_cast<std::size_t>(file)].lines;

  const double hours = FigureOf(r.Hours);
  const double dollars = FigureOf(std::string_view(r.Amount));
  ++written_.count;
  written_.hours += hours;
  written_.dollars += dollars;

  dore_.clear();
  r.DorE.AppendTo(dore_);
  code_.clear();
  r.Earning_Code.AppendTo(code_);
  // Lines of one code mostly follow one another: the last code is tried first.
  if (last_code_ >= codes_.size() || codes_[last_code_].code != code_ ||
      codes_[last_code_].dore != dore_) {
    last_code_ = 0;
    while (last_code_ < codes_.size() &&
           (codes_[last_code_].code != code_ || codes_[last_code_].dore != dore_)) {
      ++last_code_;
    }
    if (last_code_ == codes_.size()) {
      codes_.emplace_back();
      codes_.back().dore = dore_;
      codes_.back().code = code_;
    }
  }
  CodeTotals& c = codes_[last_code_];
  ++c.count;
  c.hours += hours;
  c.dollars += dollars;

  employee_.clear();
  r.Employee_no.AppendTo(employee_);
  // An employee's lines mostly follow one another too.
  if (last_employee_ >= employees_.size() || employees_[last_employee_].employee != employee_) {
    // one look-up whether the number is new or not
    const auto [at, is_new] = employee_index_.try_emplace(employee_, employees_.size());
    last_employee_ = at->second;
    if (is_new) {
      employees_.emplace_back();
      employees_.back().employee = employee_;
    }
  }
  EmployeeTotals& e = employees_[last_employee_];
  ++e.count;
  e.hours += hours;
  e.dollars += dollars;

  if (hours > largest_line_.hours) {
    largest_line_.hours = hours;
    largest_line_.employee = employee_;
    largest_line_.file = file;
    largest_line_.line = line;
  }
  return {file, line};
}

void RunSummary::Dropped(DropReason reason, const ImportRecord& r) {
  Totals& t = reason == DropReason::CodeX ? dropped_x_ : dropped_empty_;
  ++t.count;
  t.hours += FigureOf(r.Hours);
  t.dollars += FigureOf(std::string_view(r.Amount));
}

void RunSummary::Finish(std::string format, long records_read, long lines_written, bool completed) {
  format_ = std::move(format);
  records_read_ = records_read;
  lines_written_ = lines_written;
  completed_ = completed;
  fewest_lines_ = most_lines_ = 0;
  largest_employee_ = LargestHours();
  for (const EmployeeTotals& e : employees_) {
    if (fewest_lines_ == 0 || e.count < fewest_lines_) fewest_lines_ = e.count;
    most_lines_ = std::max(most_lines_, e.count);
    if (e.hours > largest_employee_.hours) {
      largest_employee_.hours = e.hours;
      largest_employee_.employee = e.employee;
    }
  }
}

}  // namespace corvane
