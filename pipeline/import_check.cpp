#include "pipeline/import_check.hpp"

#include <algorithm>
#include <cstdio>

namespace corvane {

// A field of Evolution's layout with a width.
struct FieldWidth {
  int field;
  std::size_t width;
  std::string_view name;
};

namespace {

constexpr std::size_t kLineFields = 29;

// Evolution's fixed-length form of the time clock import; its comma form carries the same
// fields. Field 6 is left to the D-or-E rule, which says more than a width would. The team
// stands in field 23 in the old layout and in field 29 in the new one, with the same width.
constexpr FieldWidth kWidths[] = {
    {1, 6, "employee number"},
    {2, 25, "name"},
    {3, 6, "department"},
    {4, 12, "job"},
    {5, 1, "shift"},
    {7, 2, "earning code"},
    {8, 9, "rate"},
    {9, 8, "hours"},
    {10, 2, "year"},
    {11, 2, "month"},
    {12, 2, "day"},
    {15, 9, "amount"},
    {16, 1, "sequence"},
    {17, 6, "division"},
    {18, 6, "branch"},
    {19, 2, "state"},
    {23, 6, "team"},
    {24, 9, "social security number"},
    {25, 6, "workers' compensation"},
    {29, 6, "team"},
};

// The widths by field number, for a look-up a field.
struct WidthTable {
  std::array<const FieldWidth*, kLineFields + 1> by_field{};
  constexpr WidthTable() {
    for (const FieldWidth& w : kWidths) by_field[static_cast<std::size_t>(w.field)] = &w;
  }
};
constexpr WidthTable kWidthOf;

std::string_view TrimBlanks(std::string_view s) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  return s;
}

bool AllDigits(std::string_view s) {
  return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// A figure as Evolution reads one: blanks around, an optional sign, digits with an optional
// decimal point. No currency sign, no thousands separator, no exponent.
bool PlainNumber(std::string_view s, double& out) {
  s = TrimBlanks(s);
  bool negative = false;
  if (!s.empty() && (s.front() == '-' || s.front() == '+')) {
    negative = s.front() == '-';
    s.remove_prefix(1);
  }
  double whole = 0.0;
  double scale = 1.0;
  bool point = false;
  bool digit = false;
  for (char c : s) {
    if (c >= '0' && c <= '9') {
      digit = true;
      if (point) {
        scale /= 10.0;
        whole += (c - '0') * scale;
      } else {
        whole = whole * 10.0 + (c - '0');
      }
    } else if (c == '.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  if (!digit) return false;
  out = negative ? -whole : whole;
  return true;
}

std::string Quoted(std::string_view s) {
  std::string out = "\"";
  out += s;
  out += '"';
  return out;
}

std::string Figure(double x) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%g", x);
  return buffer;
}

}  // namespace

std::string_view RuleName(CheckRule rule) {
  switch (rule) {
    case CheckRule::FieldCount:
      return "field-count";
    case CheckRule::EmployeeBlank:
      return "employee-blank";
    case CheckRule::EmployeeNotNumeric:
      return "employee-not-numeric";
    case CheckRule::FieldTooLong:
      return "field-too-long";
    case CheckRule::DorE:
      return "d-or-e";
    case CheckRule::CodeBlank:
      return "code-blank";
    case CheckRule::CodeUnassigned:
      return "code-unassigned";
    case CheckRule::NotANumber:
      return "not-a-number";
    case CheckRule::Negative:
      return "negative";
    case CheckRule::HoursOver:
      return "hours-over";
    case CheckRule::RateOver:
      return "rate-over";
    case CheckRule::HoursAndDollars:
      return "hours-and-dollars";
  }
  return "unknown";
}

std::size_t SplitImportLine(std::string_view line, std::array<std::string_view, 30>& fields) {
  std::size_t count = 0;
  std::size_t at = 0;
  for (;;) {
    std::string_view field;
    std::size_t next = std::string_view::npos;
    if (at < line.size() && line[at] == '"') {
      // runs to a quote that a comma or the line end follows
      std::size_t close = at + 1;
      for (;;) {
        close = line.find('"', close);
        if (close == std::string_view::npos || close + 1 == line.size() || line[close + 1] == ',')
          break;
        ++close;
      }
      if (close == std::string_view::npos) {
        field = line.substr(at + 1);
      } else {
        field = line.substr(at + 1, close - at - 1);
        if (close + 1 < line.size()) next = close + 2;
      }
    } else {
      const std::size_t comma = line.find(',', at);
      field = line.substr(std::min(at, line.size()),
                          comma == std::string_view::npos ? std::string_view::npos : comma - at);
      if (comma != std::string_view::npos) next = comma + 1;
    }
    if (count < fields.size()) fields[count] = field;
    ++count;
    if (next == std::string_view::npos) break;
    at = next;
  }
  for (std::size_t k = std::min(count, fields.size()); k < fields.size(); ++k) fields[k] = {};
  return count;
}

void ImportCheck::Reset(CheckOptions options) {
  *this = ImportCheck(options);
}

int ImportCheck::BeginFile(std::string path) {
  files_.push_back(std::move(path));
  return static_cast<int>(files_.size()) - 1;
}

long ImportCheck::total_warnings() const {
  long total = 0;
  for (long n : counts_) total += n;
  return total;
}

void ImportCheck::Warn(int file, long line, std::string_view employee, CheckRule rule, int field,
                       std::string text) {
  ++counts_[static_cast<std::size_t>(rule)];
  line_warned_ = true;
  if (warnings_.size() >= kKeptWarnings) {
    ++left_off_;
    return;
  }
  warnings_.push_back({file, line, std::string(employee), rule, field, std::move(text)});
}

void ImportCheck::CheckWidth(int file, long line, std::string_view employee, int field,
                             std::string_view value) {
  const FieldWidth* w = kWidthOf.by_field[static_cast<std::size_t>(field)];
  // a field no wider than its width needs no trimming to pass: the common case stays here
  if (w == nullptr || value.size() <= w->width) return;
  WidthExceeded(file, line, employee, *w, value);
}

void ImportCheck::WidthExceeded(int file, long line, std::string_view employee, const FieldWidth& w,
                                std::string_view value) {
  const std::string_view trimmed = TrimBlanks(value);
  if (trimmed.size() <= w.width) return;
  Warn(file, line, employee, CheckRule::FieldTooLong, w.field,
       std::string(w.name) + " " + Quoted(trimmed) + " has " + std::to_string(trimmed.size()) +
           " characters; its field holds " + std::to_string(w.width));
}

void ImportCheck::CheckFigures(int file, long line, std::string_view employee,
                               const std::array<std::string_view, 30>& f) {
  struct Figure_ {
    int field;
    std::string_view name;
    double value = 0;
    bool number = false;
  } figures[] = {{8, "rate"}, {9, "hours"}, {15, "amount"}};
  for (Figure_& g : figures) {
    const std::string_view text = TrimBlanks(f[static_cast<std::size_t>(g.field - 1)]);
    if (text.empty()) continue;
    if (!PlainNumber(text, g.value)) {
      Warn(file, line, employee, CheckRule::NotANumber, g.field,
           std::string(g.name) + " " + Quoted(text) + " is not a number");
      continue;
    }
    g.number = true;
    if (g.value < 0) {
      Warn(file, line, employee, CheckRule::Negative, g.field,
           std::string(g.name) + " " + std::string(text) + " is negative");
    }
  }
  const Figure_& rate = figures[0];
  const Figure_& hours = figures[1];
  const Figure_& amount = figures[2];
  if (hours.number && hours.value > options_.max_hours) {
    Warn(file, line, employee, CheckRule::HoursOver, 9,
         "hours " + std::string(TrimBlanks(f[8])) + " are over " + Figure(options_.max_hours));
  }
  if (rate.number && rate.value > options_.max_rate) {
    Warn(file, line, employee, CheckRule::RateOver, 8,
         "rate " + std::string(TrimBlanks(f[7])) + " is over " + Figure(options_.max_rate));
  }
  if (hours.number && amount.number && hours.value != 0 && amount.value != 0) {
    Warn(file, line, employee, CheckRule::HoursAndDollars, 0,
         "the line carries both hours " + std::string(TrimBlanks(f[8])) + " and dollars " +
             std::string(TrimBlanks(f[14])));
  }
}

void ImportCheck::CheckLine(int file, long line, std::string_view text) {
  std::array<std::string_view, 30> f;
  const std::size_t count = SplitImportLine(text, f);
  ++lines_checked_;
  line_warned_ = false;
  const std::string_view employee = TrimBlanks(f[0]);

  if (count != kLineFields) {
    Warn(file, line, employee, CheckRule::FieldCount, 0,
         "the line has " + std::to_string(count) + " fields, not 29");
  }

  // The employee number stands first and is quoted, so it is sound even on a shifted line.
  bool pending = false;
  if (employee.empty()) {
    Warn(file, line, employee, CheckRule::EmployeeBlank, 1, "employee number is blank");
  } else {
    CheckWidth(file, line, employee, 1, f[0]);
    if (AllDigits(employee)) {
      ++digit_numbers_;
    } else if (options_.numeric_employees == NumericEmployees::Yes) {
      Warn(file, line, employee, CheckRule::EmployeeNotNumeric, 1,
           "employee number " + Quoted(employee) + " is not all digits");
    } else if (options_.numeric_employees == NumericEmployees::Auto) {
      pending = true;
    }
  }

  // Past a shifted field nothing stands where it belongs: the field count says it all.
  if (count == kLineFields) {
    for (int field = 2; field <= static_cast<int>(kLineFields); ++field) {
      CheckWidth(file, line, employee, field, f[static_cast<std::size_t>(field - 1)]);
    }
    const std::string_view dore = f[5];
    if (dore != "D" && dore != "E") {
      Warn(file, line, employee, CheckRule::DorE, 6,
           "D or E " + Quoted(dore) + " is neither D nor E");
    }
    const std::string_view code = TrimBlanks(f[6]);
    if (code.empty()) {
      Warn(file, line, employee, CheckRule::CodeBlank, 7, "earning code is blank");
    } else if (code == "?") {
      Warn(file, line, employee, CheckRule::CodeUnassigned, 7, "earning code is still \"?\"");
    }
    CheckFigures(file, line, employee, f);
  }

  if (pending) {
    ++pending_count_;
    if (!line_warned_) ++pending_clean_lines_;
    if (pending_.size() < kKeptWarnings) {
      pending_.push_back({file, line, std::string(employee), CheckRule::EmployeeNotNumeric, 1,
                          "employee number " + Quoted(employee) + " is not all digits"});
    }
  }
  if (line_warned_) ++lines_with_warnings_;
}

void ImportCheck::Finish() {
  numeric_ =
      options_.numeric_employees == NumericEmployees::Yes ||
      (options_.numeric_employees == NumericEmployees::Auto && digit_numbers_ > pending_count_);
  if (options_.numeric_employees == NumericEmployees::Auto && numeric_ && pending_count_ > 0) {
    counts_[static_cast<std::size_t>(CheckRule::EmployeeNotNumeric)] += pending_count_;
    lines_with_warnings_ += pending_clean_lines_;
    const std::size_t room = kKeptWarnings - warnings_.size();
    const std::size_t taken = std::min(room, pending_.size());
    left_off_ += pending_count_ - static_cast<long>(taken);
    warnings_.insert(warnings_.end(), std::make_move_iterator(pending_.begin()),
                     std::make_move_iterator(pending_.begin() + static_cast<long>(taken)));
    // by file and line; a line's own warnings keep their order
    std::stable_sort(warnings_.begin(), warnings_.end(),
                     [](const CheckWarning& a, const CheckWarning& b) {
                       if (a.file != b.file) return a.file < b.file;
                       return a.line < b.line;
                     });
  }
  pending_.clear();
  pending_.shrink_to_fit();
  pending_count_ = 0;
  pending_clean_lines_ = 0;
}

void CheckImportText(ImportCheck& check, int file, std::string_view text) {
  long number = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t end = text.find('\n', at);
    const std::size_t next = end == std::string_view::npos ? text.size() : end + 1;
    if (end == std::string_view::npos) end = text.size();
    std::size_t stop = end;
    if (stop > at && text[stop - 1] == '\r') --stop;
    check.CheckLine(file, ++number, text.substr(at, stop - at));
    at = next;
  }
}

}  // namespace corvane
