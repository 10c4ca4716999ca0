// Side files of the report translators that turn a name or a job into a number: a small text
// table beside the export, asked for until the operator names one that exists, and loaded
// once per run before the first record.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "pipeline/time_import.hpp"
#include "runtime/errors.hpp"
#include "runtime/text.hpp"

namespace corvane {

// The texts of one side file's question and of its "not found" message.
struct SideFileAsk {
  std::string_view question;
  std::string_view question_title;
  std::string_view not_found;
  std::string_view not_found_title;
};

// Asks for a side file until the answer names a file that exists; each answer is offered
// again at the next ask. There is no way out but a file that exists: the table it holds is
// what turns the export's names into numbers.
inline std::string AskForSideFile(frmTimeImport& F, const SideFileAsk& ask, std::string offered) {
  while (true) {
    offered = F.ui.InputBox(ask.question, ask.question_title, offered);
    if (F.fs.fileexists(offered)) return offered;
    F.MsgBox(ask.not_found, MsgButtons::OKOnly, ask.not_found_title);
  }
}

// One row of a side table: a key, its value and, in three-field tables, what follows.
struct SideRow {
  std::string key;
  std::string value;
  std::string extra;
};

// Loads a side table: lines of `fields` (2 or 3) parts split by `separator`, until the first
// line that is blank once trimmed or the end of the file. The key and the value are trimmed;
// the last part takes the rest of the line (the extra part as it stands). A line with fewer
// separators than the table needs is not stored. Rows past `capacity` are not stored. A file
// that cannot be read leaves the table as far as it got.
inline void LoadSideTable(frmTimeImport& F, const std::string& path, char separator, int fields,
                          std::size_t capacity, std::vector<SideRow>& rows) {
  rows.clear();
  InputFile& in = F.File(9);
  std::string line;
  try {
    in.Open(path, OpenMode::Text);
    while (!in.Eof()) {
      in.LineInput(line);
      if (Trim(line).empty()) break;
      const std::size_t first = line.find(separator);
      if (first == std::string::npos) continue;
      SideRow row;
      row.key = Trim(std::string_view(line).substr(0, first));
      if (fields == 3) {
        const std::size_t second = line.find(separator, first + 1);
        if (second == std::string::npos) continue;
        row.value = Trim(std::string_view(line).substr(first + 1, second - first - 1));
        row.extra = line.substr(second + 1);
      } else {
        row.value = Trim(std::string_view(line).substr(first + 1));
      }
      if (rows.size() < capacity) rows.push_back(std::move(row));
    }
  } catch (const RuntimeError&) {
  }
  in.Close();
}

// The first row whose key is `key`; nullptr when none is.
inline const SideRow* FindSideRow(const std::vector<SideRow>& rows, std::string_view key) {
  for (const SideRow& row : rows) {
    if (row.key == key) return &row;
  }
  return nullptr;
}

}  // namespace corvane
