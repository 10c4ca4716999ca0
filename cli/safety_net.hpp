// The operator's safety net on the command line: the options of the pre-import check, the
// summary of `corvane run --summary`, and `corvane check FILE`.
#pragma once

#include <CLI/CLI.hpp>
#include <fstream>
#include <string>

#include "pipeline/import_check.hpp"

namespace corvane {

class frmTimeImport;

// The check's thresholds and the employee numbers' rule, as options of a subcommand.
struct CheckFlags {
  CheckOptions options;
  std::string numeric = "auto";
  void AddTo(CLI::App* sub);
  // The options with the rule's word read; call after parsing.
  CheckOptions Resolved() const;
};

// Where `--summary` goes: a file, or "-" for a table on standard output.
class SummaryOutput {
 public:
  // Opens the file at once, so that a summary that cannot be written stops the command
  // before the run. False when the file cannot be created.
  bool Open(const std::string& destination);
  bool wanted() const { return !destination_.empty(); }
  // Writes the summary and the check of the form's last press; false when it could not be
  // written whole (a full disk, a failing drive).
  bool Write(const frmTimeImport& F);

 private:
  std::string destination_;
  std::ofstream file_;
};

// `corvane check FILE`: 0 clean, 1 warnings found, 2 a file that cannot be read.
int CheckFile(const std::string& path, const CheckOptions& options, bool json);

}  // namespace corvane
