// The summary and the check put into words: the JSON of `--summary FILE` (its fields are
// listed in docs/summary.md and stay as they are), the short table of `--summary -`, and the
// warning lines of `corvane check`. Texts of the files are single-byte; the JSON gives them
// as the characters U+0000 to U+00FF of the same number.
#pragma once

#include <string>

#include "pipeline/import_check.hpp"
#include "pipeline/run_summary.hpp"

namespace corvane {

inline constexpr int kSummaryVersion = 1;

// The whole summary of a press with its check, as indented JSON ending in a line feed.
std::string SummaryJson(const RunSummary& summary, const ImportCheck& check);
// The check alone, as the "check" member of the summary.
std::string CheckJson(const ImportCheck& check);

// A short table for a person: the totals by code, the drops, the employees, then the
// warnings, at most `max_warnings` of them.
std::string SummaryTable(const RunSummary& summary, const ImportCheck& check,
                         std::size_t max_warnings = 20);

// One warning as a line: "<file> line 12, employee 103: field-count: the line has 30 fields,
// not 29". The file is left out when the check saw one file only.
std::string WarningLine(const ImportCheck& check, const CheckWarning& warning);

}  // namespace corvane
