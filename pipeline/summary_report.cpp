#include "pipeline/summary_report.hpp"

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "runtime/text.hpp"

namespace corvane {

namespace {

using Json = nlohmann::ordered_json;

// Sums of figures carry the binary fractions of their parts: six places say all a figure
// of the file can.
double Rounded(double x) {
  const double r = std::round(x * 1e6) / 1e6;
  return r == 0.0 ? 0.0 : r;
}

Json TotalsJson(const Totals& t, const char* count_name) {
  return Json{{count_name, t.count}, {"hours", Rounded(t.hours)}, {"dollars", Rounded(t.dollars)}};
}

std::string_view NumericName(NumericEmployees n) {
  switch (n) {
    case NumericEmployees::Yes:
      return "yes";
    case NumericEmployees::No:
      return "no";
    case NumericEmployees::Auto:
      break;
  }
  return "auto";
}

std::string FileName(const ImportCheck& check, int file) {
  if (file < 0 || static_cast<std::size_t>(file) >= check.files().size()) return "";
  return check.files()[static_cast<std::size_t>(file)];
}

Json CheckObject(const ImportCheck& check) {
  const CheckOptions& o = check.options();
  Json by_rule = Json::object();
  for (std::size_t k = 0; k < kCheckRuleCount; ++k) {
    by_rule[std::string(RuleName(static_cast<CheckRule>(k)))] = check.counts()[k];
  }
  Json warnings = Json::array();
  for (const CheckWarning& w : check.warnings()) {
    warnings.push_back({{"file", Latin1ToUtf8(FileName(check, w.file))},
                        {"line", w.line},
                        {"employee", Latin1ToUtf8(w.employee)},
                        {"rule", std::string(RuleName(w.rule))},
                        {"field", w.field},
                        {"text", Latin1ToUtf8(w.text)}});
  }
  return Json{{"max_hours", o.max_hours},
              {"max_rate", o.max_rate},
              {"numeric_employees", std::string(NumericName(o.numeric_employees))},
              {"employee_numbers_numeric", check.numeric_employees()},
              {"lines_checked", check.lines_checked()},
              {"lines_with_warnings", check.lines_with_warnings()},
              {"warnings_total", check.total_warnings()},
              {"by_rule", std::move(by_rule)},
              {"warnings_left_off", check.left_off()},
              {"warnings", std::move(warnings)}};
}

std::string Fixed(double x, int places = 2) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%.*f", places, Rounded(x));
  return buffer;
}

std::string Padded(std::string text, std::size_t width, bool right) {
  if (text.size() >= width) return text;
  const std::string pad(width - text.size(), ' ');
  return right ? pad + text : text + pad;
}

std::string BaseName(const std::string& path) {
  const std::size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

std::string SummaryJson(const RunSummary& s, const ImportCheck& check) {
  Json files = Json::array();
  for (const SummaryFile& f : s.files()) {
    files.push_back({{"path", Latin1ToUtf8(f.path)},
                     {"kind", f.other ? "second" : "import"},
                     {"lines", f.lines}});
  }
  Json codes = Json::array();
  for (const CodeTotals& c : s.codes()) {
    codes.push_back({{"d_or_e", Latin1ToUtf8(c.dore)},
                     {"code", Latin1ToUtf8(c.code)},
                     {"lines", c.count},
                     {"hours", Rounded(c.hours)},
                     {"dollars", Rounded(c.dollars)}});
  }
  Json each = Json::array();
  for (const EmployeeTotals& e : s.employees()) {
    each.push_back({{"employee", Latin1ToUtf8(e.employee)},
                    {"lines", e.count},
                    {"hours", Rounded(e.hours)},
                    {"dollars", Rounded(e.dollars)}});
  }
  Json largest_line = nullptr;
  if (const LargestHours& l = s.largest_line(); l.file >= 0) {
    largest_line = {{"hours", Rounded(l.hours)},
                    {"employee", Latin1ToUtf8(l.employee)},
                    {"file", Latin1ToUtf8(s.files()[static_cast<std::size_t>(l.file)].path)},
                    {"line", l.line}};
  }
  Json largest_employee = nullptr;
  if (const LargestHours& l = s.largest_employee(); l.hours > 0) {
    largest_employee = {{"hours", Rounded(l.hours)}, {"employee", Latin1ToUtf8(l.employee)}};
  }
  Json j{{"summary_version", kSummaryVersion},
         {"format", Latin1ToUtf8(s.format())},
         {"completed", s.completed()},
         {"records_read", s.records_read()},
         {"lines_written", s.lines_written()},
         {"files", std::move(files)},
         {"written", TotalsJson(s.written(), "lines")},
         {"codes", std::move(codes)},
         {"dropped",
          {{"code_x", TotalsJson(s.dropped(DropReason::CodeX), "records")},
           {"no_hours_or_dollars", TotalsJson(s.dropped(DropReason::NoFigures), "records")}}},
         {"employees",
          {{"count", static_cast<long>(s.employees().size())},
           {"fewest_lines", s.fewest_lines()},
           {"most_lines", s.most_lines()},
           {"largest_line", std::move(largest_line)},
           {"largest_employee", std::move(largest_employee)},
           {"each", std::move(each)}}},
         {"check", CheckObject(check)}};
  return j.dump(2) + "\n";
}

std::string CheckJson(const ImportCheck& check) {
  return CheckObject(check).dump(2) + "\n";
}

std::string WarningLine(const ImportCheck& check, const CheckWarning& w) {
  std::string out;
  if (check.files().size() > 1) out = BaseName(FileName(check, w.file)) + " ";
  out += "line " + std::to_string(w.line) + ", employee " +
         (w.employee.empty() ? std::string("(blank)") : w.employee) + ": " +
         std::string(RuleName(w.rule)) + ": " + w.text;
  return out;
}

std::string SummaryTable(const RunSummary& s, const ImportCheck& check, std::size_t max_warnings) {
  std::string out = "Run summary: " + s.format() + (s.completed() ? "" : " (not completed)") + "\n";
  out += "  records read " + std::to_string(s.records_read()) + ", lines written " +
         std::to_string(s.lines_written()) + "\n\n";
  out += "  D/E  code    lines      hours      dollars\n";
  auto row = [&out](const std::string& dore, const std::string& code, const Totals& t) {
    out += "  " + Padded(dore, 3, false) + "  " + Padded(code, 4, false) +
           Padded(std::to_string(t.count), 8, true) + Padded(Fixed(t.hours), 11, true) +
           Padded(Fixed(t.dollars), 13, true) + "\n";
  };
  for (const CodeTotals& c : s.codes()) row(c.dore, c.code, c);
  row("all", "", s.written());
  out += "\n";
  const Totals& x = s.dropped(DropReason::CodeX);
  const Totals& none = s.dropped(DropReason::NoFigures);
  out += "  dropped, code X: " + std::to_string(x.count) + " (" + Fixed(x.hours) + " hours, " +
         Fixed(x.dollars) + " dollars)\n";
  out += "  dropped, no hours or dollars: " + std::to_string(none.count) + " (" +
         Fixed(none.hours, 3) + " hours, " + Fixed(none.dollars, 3) + " dollars)\n";
  out += "  employees " + std::to_string(s.employees().size());
  if (!s.employees().empty()) {
    out += ", lines each " + std::to_string(s.fewest_lines()) + " to " +
           std::to_string(s.most_lines());
  }
  out += "\n";
  if (const LargestHours& l = s.largest_line(); l.file >= 0) {
    out += "  largest line: " + Fixed(l.hours) + " hours, employee " + l.employee + ", line " +
           std::to_string(l.line) + "\n";
  }
  if (const LargestHours& l = s.largest_employee(); l.hours > 0) {
    out += "  largest employee: " + Fixed(l.hours) + " hours, employee " + l.employee + "\n";
  }
  out += "\nPre-import check: " + std::to_string(check.lines_checked()) + " lines, " +
         std::to_string(check.lines_with_warnings()) + " with warnings\n";
  std::size_t shown = 0;
  for (const CheckWarning& w : check.warnings()) {
    if (shown == max_warnings) break;
    out += "  " + WarningLine(check, w) + "\n";
    ++shown;
  }
  const long rest = check.total_warnings() - static_cast<long>(shown);
  if (rest > 0) out += "  ... and " + std::to_string(rest) + " more warnings\n";
  return out;
}

}  // namespace corvane
