#include "cli/safety_net.hpp"

#include <iostream>
#include <sstream>

#include "pipeline/summary_report.hpp"
#include "pipeline/time_import.hpp"

namespace corvane {

void CheckFlags::AddTo(CLI::App* sub) {
  sub->add_option("--max-hours", options.max_hours,
                  "Warn of a line with more hours than this (default 100)");
  sub->add_option("--max-rate", options.max_rate, "Warn of a pay rate above this (default 1000)");
  sub->add_option("--numeric-employees", numeric,
                  "Whether employee numbers must be all digits: yes, no, or auto (when most "
                  "lines' numbers are)")
      ->check(CLI::IsMember({"auto", "yes", "no"}));
}

CheckOptions CheckFlags::Resolved() const {
  CheckOptions o = options;
  o.numeric_employees = numeric == "yes"  ? NumericEmployees::Yes
                        : numeric == "no" ? NumericEmployees::No
                                          : NumericEmployees::Auto;
  return o;
}

bool SummaryOutput::Open(const std::string& destination) {
  destination_ = destination;
  if (destination_.empty() || destination_ == "-") return true;
  file_.open(destination_, std::ios::binary | std::ios::trunc);
  return static_cast<bool>(file_);
}

bool SummaryOutput::Write(const frmTimeImport& F) {
  if (destination_.empty()) return true;
  if (destination_ == "-") {
    std::cout << SummaryTable(F.LastSummary(), F.LastCheck()) << std::flush;
    return static_cast<bool>(std::cout);
  }
  file_ << SummaryJson(F.LastSummary(), F.LastCheck());
  file_.close();
  return !file_.fail();
}

int CheckFile(const std::string& path, const CheckOptions& options, bool json) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    std::cerr << "corvane: cannot read " << path << "\n";
    return 2;
  }
  std::ostringstream bytes;
  bytes << in.rdbuf();
  ImportCheck check(options);
  CheckImportText(check, check.BeginFile(path), bytes.str());
  check.Finish();
  if (json) {
    std::cout << CheckJson(check);
  } else {
    for (const CheckWarning& w : check.warnings()) std::cout << WarningLine(check, w) << "\n";
    std::cout << check.lines_checked() << " lines checked, " << check.lines_with_warnings()
              << " with warnings";
    if (check.left_off() > 0) std::cout << " (" << check.left_off() << " warnings not listed)";
    std::cout << "\n";
  }
  return check.total_warnings() > 0 ? 1 : 0;
}

}  // namespace corvane
